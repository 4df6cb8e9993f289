#pragma once

#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// The records of a query through NUVBOMMImpAndExp.cImpAndExp.
Recordset GetRecordset(std::string_view sSql);

}  // namespace arap
