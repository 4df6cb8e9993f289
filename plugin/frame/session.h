#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// "UserName" of the live session: from the held login object, or else from the shared properties.
std::string GetUserName();

/// An item of the props table that ParsePropsString made. Raises 5 for an unknown key.
std::string GetPropertyValue(std::string_view sKey);
std::string UserName();
std::string ConnectString();
std::int16_t UserID();

/// A system parameter; sDefault after an error.
std::string GetSysParam(std::string_view sCategory, std::string_view sKey, std::string_view sDefault);

/// The subsystem and the bits of the rights that the bills ask for.
inline constexpr std::int32_t kRightsSubSystem = 1010;
inline constexpr std::int32_t kRightCheck = 1;
inline constexpr std::int32_t kRightUncheck = 4096;
inline constexpr std::int32_t kRightDelete = 65536;

/// Asks for a right; without it shows the notice of a missing right and answers false. Statement errors are skipped.
bool CheckAccess(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight);

/// Writes one line to the action log: 1 is success, 2 failure, -1 refused by the bill's state.
/// Errors are dropped.
void WriteActionLog(std::string_view sCode, std::int32_t nResult, std::string_view sText);

/// False, with a warning shown, when the bill is dated before the first day of the period in use.
bool CheckBillDate(const BillEvent& oBill);

/// First day of the current period of the stock system as "yyyy-mm-dd"; "" when no such period or after an error.
std::string GetCurrentPeriodStart();

/// The report date of the system; 9999-01-01 after an error.
Date GetReportTransDate();

}  // namespace arap
