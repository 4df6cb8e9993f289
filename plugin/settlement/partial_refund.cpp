#include "settlement/partial_refund.h"

#include <array>
#include <string>

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "settlement/settlement_classes.h"

/// Rows of a payment bill that take back only part of an earlier payment. No command and no event calls these.
namespace arap {

namespace {

/// A payment bill as the source of a row.
constexpr std::int32_t kPaymentSource = 1000202;

/// True when the row doesn't hold the amount that is stored for it, or isn't stored yet.
bool IsChanged(std::int32_t nBillId, std::int16_t nIndex, double dAmount) {
  const Recordset rs =
      GetRecordset("Select FBillSettleAmountFor from t_rp_pbillentry where fbillid=" + std::to_string(nBillId) +
                   " and Findex=" + std::to_string(nIndex));
  if (rs.Eof()) return true;
  return NumberOf(NullToValue(rs.Value("FBillSettleAmountFor"_key), std::int32_t{0})) != dAmount;
}

}  // namespace

Recordset GetRecordset(std::string_view sSql) {
  const Ref<Object> oReader = CreateLocalObject("NUVBOMMImpAndExp.cImpAndExp");
  std::array<Variant, 2> args{GetPropsString(), sSql};
  return Recordset(oReader->invoke(Member::getRS, Access::Call, args));
}

Variant clsPayBill::CollectPartialRefunds() {
  // An error ends the routine with what it has collected.
  ResumeNext([this] {
    m_sRefundID.clear();
    m_vctRefunds = make_object<Collection>();
    const std::int32_t nRows = GetEntryRowCount(Bill(), 1, false);
    for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) CollectPartialRefund(nRow);
    // Written for a list that ends in a comma, it takes the last digit of the id; required.
    if (!m_sRefundID.empty()) m_sRefundID.pop_back();
  });
  return {};
}

void clsPayBill::CollectPartialRefund(std::int32_t nRow) {
  const BillEvent oBill = Bill();
  if (GetBillLong(oBill, "FClassID_SRC"_key, nRow) != kPaymentSource) return;
  const std::int32_t nPayment = GetBillLong(oBill, "FInterId"_key, nRow);
  const std::int32_t nBillId = GetBillLong(oBill, "FBillId"_key, nRow);
  const double dAmount = GetBillNumber(oBill, "FBillSettleAmountFor"_key, nRow);
  const std::int16_t nIndex = IntegerOf(GetBillField(oBill, "FIndex2"_key, nRow));
  if (!IsChanged(nBillId, nIndex, dAmount)) return;
  const Recordset rsSources = GetRecordset("Select * from t_rp_pbillentry where fbillid=" + std::to_string(nPayment));
  // A payment of one source can only be refunded to that source: nothing to ask.
  if (rsSources.RecordCount() == 1) return AddSingleSource(rsSources, dAmount);
  AskForPartialRefund(nRow, nPayment);
}

void clsPayBill::AddSingleSource(const Recordset& rsSources, double dAmount) {
  const Dictionary oRefund = NewDictionary();
  oRefund.SetValue("FBackAmountFor"_key, dAmount);
  oRefund.SetValue("FClassID_SRC"_key, rsSources.Value("FClassID_SRC"_key));
  oRefund.SetValue("FInterId"_key, rsSources.Value("FInterID"_key));
  m_vctRefunds->Add(oRefund);
}

void clsPayBill::AskForPartialRefund(std::int32_t nRow, std::int32_t nPayment) {
  const BillEvent oBill = Bill();
  // The bill's number is read as a number: of a number with letters its leading digits are shown; required.
  const std::string sNumber = TextOf(GetBillNumber(oBill, "FPurchaseBillNo"_key, nRow));
  const std::string sQuestion = LoadText("您是否需要对第") + std::to_string(nRow) + LoadText("行，单据编号为") +
                                sNumber + LoadText("的付款单进行部分退款？");
  if (ShowMessage(sQuestion, kQuestion, kTitle) == kAnswerYes) {
    m_sRefundID = std::to_string(nPayment);  // of several answers the last one counts; required
    ShowPartialRefund(nRow);
    return;
  }
  oBill.SetFieldValue("FBillSettleAmountFor"_key, GetBillNumber(oBill, "FBillUnPayAmountFor"_key, nRow), nRow);
}

}  // namespace arap
