#pragma once

#include <cstdint>
#include <string>

#include "frame/host_contract.h"

namespace arap {

/// False, with a notice shown, when the user may not see an account of the voucher.
bool CheckVoucherRight(std::int32_t nVoucherID);

/// True when data rights on accounts are in use and the voucher has an account outside the user's rights.
bool CheckVoucherAccountRight(std::int32_t nVoucherID);

/// The options under which the voucher editor opens a voucher from a bill.
Dictionary VoucherEditOptions();

/// Opens the voucher editor. An error shows "加载凭证编辑组建失败：" and its text.
void ShowVoucherEdit(std::int32_t nVoucherID, std::int32_t nMode);

}  // namespace arap
