#include "services/bill_list.h"

#include <algorithm>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

Value ShownBills::value(std::size_t nRow, std::string_view sColumn) const {
  const auto found = std::ranges::find_if(
      aColumns, [sColumn](const std::string& sOther) { return arap::EqualsNoCase(sOther, sColumn); });
  if (found == aColumns.end() || nRow >= aRows.size()) return {};
  return aRows[nRow][static_cast<std::size_t>(found - aColumns.begin())];
}

namespace {

// The window that shows a list of bills given to it. It holds nothing open: what it shows becomes an entry of the
// session, which a view draws.
class BillListWindow final : public Component {
 public:
  explicit BillListWindow(Session& session) : Component("Bills"), session_(session) {
    // The desk has one system, one connection and one user, and finds the columns by their names.
    for (const Member member : {Member::SystemName, Member::LocalCnn, Member::ListRSFieldVect, Member::SetOpt})
      on(member, [](Arguments) { return Variant(); });
    on(Member::ListRecordset, [this](Arguments args) {
      read_rows(argument(args, 0));
      return Variant();
    });
    on(Member::Show, [this](Arguments) {
      session_.shown_bill_lists.push_back(bills_);
      return Variant();
    });
  }

 private:
  // Raises 13 for an object that isn't a recordset of this desk.
  void read_rows(const Variant& vRecordset) {
    const auto oRows = arap::Ref<SqlRecordset>(dynamic_cast<SqlRecordset*>(vRecordset.object().get()));
    if (!oRows) throw AutomationError(ErrorNumber::TypeMismatch, "ListRecordset");
    bills_.aColumns.clear();
    bills_.aRows.clear();
    for (std::size_t n = 0; n < oRows->column_count(); ++n) bills_.aColumns.push_back(oRows->column_name(n));
    for (const arap::Recordset rs(vRecordset); !rs.Eof(); rs.MoveNext()) {
      std::vector<Value>& row = bills_.aRows.emplace_back();
      for (std::size_t n = 0; n < oRows->column_count(); ++n) row.push_back(oRows->current(n));
    }
  }

  Session& session_;
  ShownBills bills_;
};

}  // namespace

void register_bill_list(Session& session) {
  Database& database = session.database();
  session.registry().add("NUVClassTpl.Datasrv", [&database] {
    return make_component("Datasrv",
                          {{Member::GetData, [&database](Arguments args) {
                              return Variant(open_recordset(database, text_argument(args, 0), "NUVClassTpl.Datasrv"));
                            }}});
  });
  session.registry().add("NUVBills.Bills",
                         [&session] { return Ref<arap::Object>(arap::make_object<BillListWindow>(session)); });
}

}  // namespace desk
