#include "inouttypes/type_server.h"

#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// A flag of a record; Null is no flag.
bool IsSet(const Variant& vFlag) { return !vFlag.is_null() && ToBoolean(vFlag); }

/// Why a type can't be worked on; "" when it can.
std::string WhyUnusable(std::int32_t nID) {
  const Recordset rs = TypeServer().ById(nID);
  if (rs.Eof() || rs.Bof()) return LoadText("该类别已不存在,请确定是否已经被删除！");
  if (IsSet(rs.Value("FDiscontinued"_key))) return LoadText("该类别已经被禁用，请先反禁用该类别！");
  return {};
}

}  // namespace

TypeServer::TypeServer() : server_(CreateServerObject("NUVlpsArApBill.clsInOutType")) {}

Recordset TypeServer::ById(std::int32_t nID) const {
  return Recordset(server_->call(Member::GetRPInOutTypeInfo, GetPropsString(), nID));
}

Recordset TypeServer::ByNumber(std::string_view sNumber) const {
  return Recordset(server_->call(Member::GetRPInOutTypeInfo, GetPropsString(), Missing{}, sNumber));
}

Recordset TypeServer::ByNumberInBranch(std::string_view sNumber, std::int32_t nBranch) const {
  return Recordset(
      server_->call(Member::GetRPInOutTypeInfo, GetPropsString(), Missing{}, sNumber, Missing{}, Missing{}, nBranch));
}

Recordset TypeServer::ByName(std::string_view sName) const {
  return Recordset(server_->call(Member::GetRPInOutTypeInfo, GetPropsString(), Missing{}, Missing{}, sName));
}

Recordset TypeServer::ByNameUnder(std::string_view sName, std::string_view sParentNumber) const {
  return Recordset(
      server_->call(Member::GetRPInOutTypeInfo, GetPropsString(), Missing{}, Missing{}, sName, sParentNumber));
}

bool TypeServer::IsUsed(std::int32_t nID) const {
  return ToBoolean(server_->call(Member::CheckRPInOutTypeUsed, GetPropsString(), nID));
}

bool TypeServer::IsNumberUsed(std::string_view sNumber) const {
  return ToBoolean(server_->call(Member::CheckRPInOutTypeUsed, GetPropsString(), Missing{}, sNumber));
}

bool CheckTypeUsable(std::int32_t nID, std::string_view sTitle) {
  try {
    const std::string sReason = WhyUnusable(nID);
    if (sReason.empty()) return true;
    ShowMessage(sReason, kNotice, sTitle);
    return false;
  } catch (const AutomationError&) {
    return false;
  }
}

}  // namespace arap
