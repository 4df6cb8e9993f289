#include "frame/bill_fields.h"
#include "frame/messages.h"
#include "frame/text_utils.h"
#include "inouttypes/type_bill.h"
#include "inouttypes/type_numbers.h"
#include "inouttypes/type_server.h"

/// What keeps the tree of types sound: numbers of their own, parents that exist, no twin names among siblings.
namespace arap {

/// The type as it stands in the bill.
struct TypeEntry {
  std::int32_t nID;  // 0 while new
  std::string sNumber;
  std::string sName;
  std::int32_t nBranch;
};

namespace {

/// Income or expense: the number behind the first "=" of the window's condition, up to the first "A" (of And). Raises 5
/// for a condition without one, as the length of the cut is negative then.
std::int32_t BranchOf(std::string_view sFilter) {
  const std::size_t nEqual = sFilter.find('=');
  const std::string_view sRest = nEqual == std::string_view::npos ? sFilter : sFilter.substr(nEqual + 1);
  const std::size_t nAnd = sRest.find('A');
  if (nAnd == std::string_view::npos) throw AutomationError(ErrorNumber::InvalidProcedureCall);
  return LongOf(Variant(sRest.substr(0, nAnd)));
}

bool IsAnother(const Recordset& rs, std::int32_t nID) { return LongOf(rs.Value("FID"_key)) != nID; }

/// In both branches.
bool IsNumberTaken(const TypeServer& oServer, const TypeEntry& entry) {
  if (entry.sNumber.empty()) return false;
  for (const Recordset rs = oServer.ByNumber(entry.sNumber); !rs.Eof(); rs.MoveNext()) {
    if (IsAnother(rs, entry.nID)) return true;
  }
  return false;
}

/// A type on the top of its branch needs no parent, and none is its own.
bool HasParent(const TypeServer& oServer, const TypeEntry& entry, const std::string& sParent) {
  if (sParent.empty()) return true;
  const Recordset rs = oServer.ByNumberInBranch(sParent, entry.nBranch);
  return !rs.Eof() && IsAnother(rs, entry.nID);
}

/// Only the first record of an answer is looked at, and the types on the first level are exempt; both are required.
bool IsNameOfAnother(const Recordset& rs, std::int32_t nID) {
  return !rs.Eof() && IsAnother(rs, nID) && NumberOf(rs.Value("FLevels"_key)) > 1;
}

void Refuse(const std::string& sText, Variant& vCancel) {
  ShowMessage(sText, kNotice, kTitle);
  vCancel = true;
}

}  // namespace

/// Required: the trap leaves Cancel as it stands, so that an error lets the save go on without the remaining tests.
void clsRPInOutType::m_BillInterface_BeforeSave(Variant& vCancel) {
  try {
    TestAndOffer(vCancel);
  } catch (const AutomationError&) {
  }
}

void clsRPInOutType::TestAndOffer(Variant& vCancel) {
  const TypeServer oServer;
  const TypeEntry entry = ReadEntry();
  if (IsNumberTaken(oServer, entry)) return Refuse(LoadText("编码重复，请更改！"), vCancel);
  std::string sParent;
  GetParentNumber(entry.sNumber, sParent);
  const bool bParentOk = HasParent(oServer, entry, sParent);
  // Written before the refusal; required.
  SetBillField(Bill(), "FPreNumber"_key, kHead, sParent);
  if (!bParentOk) return Refuse(LoadText("上级类别代码") + sParent + LoadText(" 不存在！"), vCancel);
  if (!KeepsNameApart(oServer, entry, sParent)) {
    vCancel = true;
    return;
  }
  // Before the save succeeds; required.
  m_sLastNumber = Concat(GetBillField(Bill(), "FNumber"_key, kHead));
  if (!MayTakeOverBusiness(oServer, sParent)) vCancel = true;
}

TypeEntry clsRPInOutType::ReadEntry() const {
  const BillEvent oBill = Bill();
  return {.nID = GetBillLong(oBill, "FId"_key, kHead),
          .sNumber = Concat(GetBillField(oBill, "FNumber"_key, kHead)),
          .sName = Concat(GetBillField(oBill, "FName"_key, kHead)),
          .nBranch = BranchOf(Concat(oBill.FilterValue("FilterString"_key)))};
}

/// A sibling of the name refuses the save; a type of the name elsewhere is asked about.
bool clsRPInOutType::KeepsNameApart(const TypeServer& oServer, const TypeEntry& entry, std::string_view sParent) const {
  if (entry.sName.empty()) return true;
  if (IsNameOfAnother(oServer.ByNameUnder(entry.sName, sParent), entry.nID)) {
    ShowMessage(LoadText("同级名称重复，不允许保存！"), kNotice, kTitle);
    return false;
  }
  if (!IsNameOfAnother(oServer.ByName(entry.sName), entry.nID)) return true;
  return ShowMessage(LoadText("名称重复，是否保存？"), kQuestionAsNotice, kTitle) != kAnswerNo;
}

/// Asked on every save under a parent in use, also of a child that is there already. The answer only lets the save go
/// on; the server moves the business.
bool clsRPInOutType::MayTakeOverBusiness(const TypeServer& oServer, const std::string& sParent) const {
  m_rsInOutType.SetFilter("FNumber='" + sParent + "' And FNumber <> ''");
  if (m_rsInOutType.Eof()) return true;
  const std::int32_t nParent = LongOf(m_rsInOutType.Value("FID"_key));
  const std::string sParentName(Trim(Concat(m_rsInOutType.Value("FName"_key))));
  if (nParent <= 0 || !oServer.IsNumberUsed(sParent)) return true;
  const std::string sQuestion =
      LoadText("上级收支类别 ") + sParentName +
      LoadText(" 是明细,并已有业务发生,不能直接新建子收支类别。是否将上级收支类别业务转到新建立的的收支类别上？");
  return ShowMessage(sQuestion, kQuestionAsNotice, kTitle) == kAnswerYes;
}

}  // namespace arap
