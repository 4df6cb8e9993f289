#include "otherbills/other_bill_sides.h"

namespace arap {

// clang-format off
constexpr OtherBillSide kROtherSide{
    .sClassName = "clsROtherBill"_key,
    .aTaskCodes = {"AR0303"_key, "AR0304"_key, "AR0305"_key, ""_key, ""_key, "AR0302"_key, "AR0306"_key, "AR0301"_key},
};

constexpr OtherBillSide kPOtherSide{
    .sClassName = "clsPOtherBill"_key,
    .aTaskCodes = {"AP0303"_key, "AP0304"_key, "AP0305"_key, ""_key, ""_key, "AP0302"_key, "AP0306"_key, "AP0301"_key},
};
// clang-format on

}  // namespace arap
