#include "services/related_bills.h"

#include "data/automation_names.h"
#include "frame/conversions.h"
#include "services/bill_kinds.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

namespace {

constexpr std::string_view kDrawnBy =
    "SELECT b.FBillNo AS FBillNo, b.FDate AS FDate, SUM(e.FBillSettleAmountFor) AS FSettledFor,"
    " b.FStatus AS FStatus FROM {entry} e JOIN {bill} b ON b.FBillID = e.FBillID"
    " WHERE e.FClassID_SRC IN ({otherclasses}) AND e.FInterID = ?"
    " GROUP BY b.FBillID, b.FBillNo, b.FDate, b.FStatus ORDER BY b.FBillID";
constexpr std::string_view kSources =
    "SELECT e.{number} AS FBillNo, e.FBillDate AS FDate, e.FBillSettleAmountFor AS FSettledFor,"
    " 1 AS FStatus FROM {entry} e WHERE e.FBillID = ? ORDER BY e.FIndex";

void add_line(std::string& sText, const std::string& sLine) { sText += (sText.empty() ? "" : "\n") + sLine; }

void add_bills(std::string& sText, const Rows& rows, std::string_view sName) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    add_line(sText, std::string(sName) + " " + rows.text(i, "FBillNo") + "  " + rows.text(i, "FDate") + "  " +
                        rows.money(i, "FSettledFor").text() + (rows.integer(i, "FStatus") == 1 ? "" : "  未审核"));
  }
}

void add_vouchers(std::string& sText, Database& database, std::int32_t nClassType, std::int32_t nBillID) {
  const Rows rows =
      database.query("SELECT FNumber, FDate FROM t_Voucher WHERE FClassTypeID = ? AND FBillID = ? ORDER BY FVoucherID",
                     {Bind(nClassType), Bind(nBillID)});
  for (std::size_t i = 0; i < rows.size(); ++i)
    add_line(sText, "凭证 " + rows.text(i, "FNumber") + "  " + rows.text(i, "FDate"));
}

// BillTypeID and BillInterID are put first; ShowList shows what belongs to that bill.
class RelatedBillsViewer final : public Component {
 public:
  explicit RelatedBillsViewer(Session& session) : Component("RelateBilllookUp") {
    on(Member::BillTypeID, [this](Arguments args) { return keep(class_type_, args); });
    on(Member::BillInterID, [this](Arguments args) { return keep(bill_id_, args); });
    on(Member::ShowList, [this, &session](Arguments) {
      const std::string sText = related_bills(session.database(), class_type_, bill_id_);
      session.shown_results.push_back(sText.empty() ? "没有关联单据。" : sText);
      return Variant();
    });
  }

 private:
  static Variant keep(std::int32_t& nValue, Arguments args) {
    if (!args.empty()) nValue = arap::LongOf(args.back());
    return nValue;
  }

  std::int32_t class_type_ = 0;
  std::int32_t bill_id_ = 0;
};

}  // namespace

std::string related_bills(Database& database, std::int32_t nClassType, std::int32_t nBillID) {
  const BillKind* pKind = find_bill_kind(nClassType);
  if (pKind == nullptr) return {};
  std::string sText;
  if (pKind->other != nullptr) {
    add_bills(sText, database.query(side_sql(pKind->side, kDrawnBy), {Bind(nBillID)}), pKind->side.sBillName);
  } else {
    add_bills(sText, database.query(side_sql(pKind->side, kSources), {Bind(nBillID)}), "源单");
  }
  add_vouchers(sText, database, nClassType, nBillID);
  return sText;
}

void register_related_bills(Session& session) {
  session.registry().add("NUVClassLookUp.RelateBilllookUp",
                         [&session] { return Ref<arap::Object>(arap::make_object<RelatedBillsViewer>(session)); });
}

}  // namespace desk
