#include "data/columns.h"

#include <algorithm>
#include <array>
#include <string>

#include "frame/conversions.h"

namespace desk {
namespace {

constexpr auto kMoneyColumns = std::to_array<std::string_view>({
    "fagedamount0",
    "fagedamount1",
    "fagedamount2",
    "fagedamount3",
    "fagedamount4",
    "fallbackamount",
    "fallbackamountfor",
    "famount",
    "famountfor",
    "fbackamount",
    "fbackamountfor",
    "fbillamount",
    "fbillamountfor",
    "fbillpayamount",
    "fbillpayamountfor",
    "fbillreceiveamount",
    "fbillreceiveamountfor",
    "fbillsettleamount",
    "fbillsettleamountfor",
    "fbillunpayamount",
    "fbillunpayamountfor",
    "fbillunreceiveamount",
    "fbillunreceiveamountfor",
    "fcheckamount",
    "fcheckamountfor",
    "fcreditdegree",
    "fdiscountamount",
    "fdiscountamountfor",
    "fentryamount_src",
    "fpayamount",
    "fpayamountfor",
    "freceiveamount",
    "freceiveamountfor",
    "fremainamount",
    "fremainamountfor",
    "funcheckamount",
    "funcheckamountfor",
});
static_assert(std::ranges::is_sorted(kMoneyColumns));

}  // namespace

std::span<const std::string_view> money_columns() { return kMoneyColumns; }

bool is_money_column(std::string_view sColumn) {
  return std::ranges::binary_search(kMoneyColumns, std::string_view(arap::LowerCase(sColumn)));
}

}  // namespace desk
