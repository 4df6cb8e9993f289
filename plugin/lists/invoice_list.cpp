#include "lists/invoice_list.h"

#include <string>

#include "frame/bar_state.h"
#include "frame/failure.h"
#include "frame/platform.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/switch_file.h"
#include "frame/text_utils.h"
#include "lists/list_bar.h"

namespace arap {

namespace {

/// A plain button of the bar, with caption and picture.
constexpr std::int32_t kPlainButton = 0;
/// The colour of its picture that counts as transparent.
constexpr std::int32_t kColourKey = 0xC0C0C0;

void AddViewTool(const ActiveBar& oBar) {
  const Tool oTool = oBar.Tools().Add("mnuViewOldBill"_key);
  const std::string sText = LoadText("查看");
  oTool.SetCaption(sText);
  oTool.SetShortText(sText);
  oTool.SetDescription(sText);
  oTool.SetVisible(true);
  oTool.SetEnabled(true);
  oTool.SetStyle(kPlainButton);
  oTool.SetPicture(CurrentPlatform().Picture("VIEW"), kColourKey);
}

/// Behind the host's view command, which is hidden in the menu.
void PlaceViewTool(const ActiveBar& oBar, Key sBand) {
  const std::int32_t nView = FindToolIndex(oBar, sBand, "mnuFileView");
  oBar.Bands(sBand).Tools().Insert(nView + 1, "mnuViewOldBill"_key);
}

/// One column of the key by which the bill list window finds a bill.
Dictionary KeyColumn(std::int32_t nPrimary, Key sColumn) {
  const Dictionary oColumn = NewDictionary();
  oColumn.SetValue("FISPrimary"_key, nPrimary);
  oColumn.SetValue("FColName"_key, sColumn);
  return oColumn;
}

Vector KeyColumns() {
  const Vector oColumns = NewVector();
  oColumns.Add(KeyColumn(1, "FInterID"_key));
  oColumns.Add(KeyColumn(3, "FTranType"_key));
  return oColumns;
}

/// The table of the invoices of a class; "" for any other class, whose query fails. Required.
std::string TableOf(std::int32_t nClassTypeId) {
  switch (nClassTypeId) {
    case 1000000:
    case 1000002: return "ICSale";
    case 1000003:
    case 1000004: return "ICPurchase";
    default: return "";
  }
}

/// Trap and show.
void OpenBillsList(const Variant& vRecordset, const Vector& oColumns) {
  TrapAndShow([&] {
    const Ref<Object> oBills = CreateLocalObject("NUVBills.Bills");
    ParsePropsString(GetPropsString());
    oBills->put(Member::SystemName, ""_key);
    oBills->put(Member::LocalCnn, GetSwitchFileConnection());
    oBills->put(Member::ListRecordset, vRecordset);
    oBills->put(Member::ListRSFieldVect, oColumns);
    oBills->call(Member::SetOpt, UserID(), UserName());
    oBills->call(Member::Show, std::int32_t{0}, std::int32_t{2});
  });
}

}  // namespace

void clsInvoice::OnListEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_LstInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_LstInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarClick: return m_LstInterface_MenuBarClick(Tool(argument(args, 0)));
    default: return;
  }
}

void clsInvoice::m_LstInterface_BarInitialize(const ActiveBar& oBar) { TrimListBar(oBar, ViewCommand::Kept); }

void clsInvoice::m_LstInterface_MenuBarInitialize(const ActiveBar& oBar) {
  oBar.Bands("mnuEdit"_key).Tools("mnuFileView"_key).SetVisible(false);
  AddViewTool(oBar);
  PlaceViewTool(oBar, "mnuEdit"_key);
  PlaceViewTool(oBar, "BandToolBar"_key);
}

/// The selection and the system value are read for every command and not used; required.
void clsInvoice::m_LstInterface_MenuBarClick(const Tool& oTool) {
  List().SelectedRows();
  GetSysParam("IC", "RefreshAfterAdd", "0");
  if (LowerCase(Concat(oTool.Name())) == "mnuviewoldbill") ViewSourceBill();
}

std::int32_t clsInvoice::SelectedBill() const {
  const Vector oRows = List().SelectedRows();
  if (oRows.IsNothing() || oRows.UBound() <= 0) return 0;
  const Variant vRecord = Dictionary(oRows.Item(1)).Value("FInterId"_key);
  // A list that keeps plain values in its rows is served as well.
  return LongOf(vRecord.is_object() ? Dictionary(vRecord).Value("FFLD"_key) : vRecord);
}

/// Trap and show.
void clsInvoice::ViewSourceBill() const {
  TrapAndShow([this] {
    const std::int32_t nInterID = SelectedBill();
    if (nInterID == 0) return;
    const Vector oColumns = KeyColumns();
    const std::string sTable = TableOf(ListDataServer(List().ListDataServer()).ClassTypeId());
    const Ref<Object> oData = CreateServerObject("NUVClassTpl.Datasrv");
    const Variant vRecordset =
        oData->call(Member::GetData, "Select * from " + sTable + " Where FInterId=" + std::to_string(nInterID));
    OpenBillsList(vRecordset, oColumns);
  });
}

}  // namespace arap
