#pragma once

#include <string_view>

namespace desk {

/// The types in use, to be narrowed by a condition on t: those with children, and those that bill lines name.
inline constexpr std::string_view kUsedTypes =
    "SELECT 1 FROM t_RP_InOutType t WHERE (EXISTS (SELECT 1 FROM t_RP_InOutType c WHERE c.FParentID = t.FID)"
    " OR EXISTS (SELECT 1 FROM t_RP_ROtherBillEntry r WHERE r.FInOutTypeID = t.FID)"
    " OR EXISTS (SELECT 1 FROM t_RP_POtherBillEntry p WHERE p.FInOutTypeID = t.FID))";

}  // namespace desk
