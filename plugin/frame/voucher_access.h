#pragma once

#include <cstdint>
#include <string_view>

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

/// What the editor gets as its first argument from a bill window.
enum class EditorArgument : std::uint8_t { PropsString, ModeOne };
/// Opens the voucher that was made from the bill in its window. Any error is told as one of the editor; nothing passes
/// to the caller.
void ShowVoucherOfBill(const BillEvent& oBill, std::string_view sBillTable, EditorArgument editorArgument);

}  // namespace arap
