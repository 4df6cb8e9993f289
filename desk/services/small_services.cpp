#include <array>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"
#include "services/settlement_tables.h"

namespace desk {

namespace {

constexpr std::array<std::string_view, 4> kBillTables{"t_RP_RBill", "t_RP_PBill", "t_RP_ROtherBill", "t_RP_POtherBill"};

// GetBillTypeID(sProps, sTable, nBillID) or (sProps, nBillID, sTable): the callers use both orders. 0: not pushed.
Variant bill_type_id(Database& database, Arguments args) {
  for (const std::size_t nTableAt : {std::size_t{1}, std::size_t{2}}) {
    for (const std::string_view sTable : kBillTables) {
      if (!arap::EqualsNoCase(text_argument(args, nTableAt), sTable)) continue;
      return arap::LongOf(database.value("SELECT FPushTypeID FROM " + std::string(sTable) + " WHERE FBillID = ?",
                                         {Bind(long_argument(args, 3 - nTableAt))}, std::int32_t{0}));
    }
  }
  throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "clsPush.GetBillTypeID");
}

// The partner's open balance in base currency and the credit degree, for the status bar.
Variant credit_text(Database& database, const std::string& sCode, std::int32_t nClass) {
  const bool bReceivable = nClass == 1000201 || nClass == 1000205;
  const SettlementTables& tables = bReceivable ? kReceiptTables : kPaymentTables;
  const Rows partner = database.query(
      side_sql(tables, "SELECT FItemID, FCreditDegree FROM {partners} WHERE FNumber = ?"), {Bind(sCode)});
  if (partner.empty()) return "";
  const Money open = Money::from_stored(database.value(
      side_sql(tables, "SELECT COALESCE(SUM(FBillUn{got}Amount), 0) FROM {openview} WHERE {viewpartner} = ?"),
      {Bind(partner.integer(0, "FItemID"))}));
  return std::string(tables.sBalanceName) + " " + open.text() + "  信用额度 " +
         partner.money(0, "FCreditDegree").text();
}

// The result grid: its lines become one text of the session when it is shown.
class ResultGrid final : public Component {
 public:
  explicit ResultGrid(Session& session) : Component("DispBuilder") {
    for (const Member member : {Member::Cols, Member::Titles, Member::SetColWidth})
      on(member, [](Arguments) { return Variant(); });
    on(Member::Add, [this, &session](Arguments args) {
      std::string sLine = text_argument(args, 0);
      if (sLine.ends_with('|')) sLine.pop_back();
      text_ += (text_.empty() ? "" : "\n") + sLine;
      if (session.result_line_made) session.result_line_made();
      return Variant();
    });
    on(Member::Show, [this, &session](Arguments) {
      session.shown_results.push_back(text_);
      return Variant();
    });
  }

 private:
  std::string text_;
};

}  // namespace

void register_small_services(Session& session) {
  Database& database = session.database();
  ObjectRegistry& registry = session.registry();
  registry.add("NUVMARAPPush.clsPush", [&database] {
    return make_component(
        "clsPush", {{Member::GetBillTypeID, [&database](Arguments args) { return bill_type_id(database, args); }}});
  });
  registry.add("NUVBills.clsCredit", [&database] {
    return make_component("clsCredit", {{Member::GetStatusMoneyAndCredit, [&database](Arguments args) {
                                           return credit_text(database, text_argument(args, 0), long_argument(args, 1));
                                         }}});
  });
  // The viewer opens the file at its start, whatever the topic.
  registry.add("NUVCHMResTool.ClsCHMHelp", [&session] {
    return make_component("ClsCHMHelp",
                          {{Member::ShowHelp, [&session](Arguments args) {
                              DeskPlatform& platform = session.platform();
                              platform.StartHelpViewer(platform.LibraryPath() + "\\" + text_argument(args, 0));
                              return Variant();
                            }}});
  });
  // The desk's forms take their font from the desktop, so there is nothing to set.
  registry.add("NUVFrmRes.FrmResLoader", [] {
    return make_component("FrmResLoader", {{Member::SetFrmFont, [](Arguments) { return Variant(); }}});
  });
  registry.add("NUVDisplayer.DispBuilder",
               [&session] { return Ref<arap::Object>(arap::make_object<ResultGrid>(session)); });
}

}  // namespace desk
