#include "inouttypes/type_bill.h"

#include "frame/bill_fields.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "inouttypes/type_numbers.h"

namespace arap {

/// The commands of a bill window that have no meaning for a type.
void clsRPInOutType::m_BillInterface_MenuBarInitialize(const ActiveBar& oBar) {
  const Band oFile = oBar.Bands("mnuFile"_key);
  for (const Key sTool : {"mnuFilePageSetup"_key, "mnuFilePreview"_key, "mnuFilePrintSetup"_key,
                          "mnuFileNotePrintSetup"_key, "mnuFilePrint"_key}) {
    oFile.Tools(sTool).SetEnabled(false);
  }
  for (const Key sTool :
       {"mnuStockQuery"_key, "mnuDataAccessory"_key, "mnuGetSysDate"_key, "mnuFormatIndentity"_key,
        "mnuOptionBatchFull"_key, "mnuDataPre"_key, "mnuDataNext"_key, "mnuCaculate"_key, "mnuFormatBack"_key,
        "mnuOptionLinkBill"_key, "mnuDataRefesh"_key}) {  // spelled as the host spells it
    oBar.Tools(sTool).SetEnabled(false);
  }
}

/// The number saved last stands in a new bill until its empty data brings the next one.
void clsRPInOutType::m_BillInterface_AfterNewBill() {
  CommitTask(m_lTaskId);
  SetBillField(Bill(), "FNumber"_key, kHead, m_sLastNumber, true);
  const ActiveBar oBar = Bill().BarControl();
  oBar.Bands("mnuData"_key).Tools("mnuCaculate"_key).SetEnabled(false);
  oBar.Tools("mnuFilePrint"_key).SetEnabled(false);
  oBar.Bands("mnuOption"_key).SetEnabled(false);
  oBar.Bands("mnuFile"_key).Tools("mnuEditCopy"_key).SetEnabled(false);
  oBar.RecalcLayout();
}

void clsRPInOutType::m_BillInterface_AfterNewEmptyData() {
  const std::string sNext = m_sLastNumber.empty() ? "" : GetNextNumber(m_sLastNumber);
  SetBillField(Bill(), "FNumber"_key, kHead, sNext, true);
}

/// A parent's number carries the numbers of its children and can't change.
void clsRPInOutType::m_BillInterface_AfterLoadBill() {
  const BillEvent oBill = Bill();
  const ActiveBar oBar = oBill.BarControl();
  oBar.Bands("BandToolBar"_key).Tools("mnuDataPre"_key).SetEnabled(false);
  oBar.Bands("BandToolBar"_key).Tools("mnuDataNext"_key).SetEnabled(false);
  oBar.Bands("mnuData"_key).Tools("mnuCaculate"_key).SetEnabled(false);
  oBar.Tools("mnuFilePrint"_key).SetEnabled(false);
  oBar.Bands("mnuFile"_key).Tools("mnuEditCopy"_key).SetEnabled(false);
  oBar.Bands("mnuOption"_key).Tools("mnuOptionBatchFull"_key).SetEnabled(false);
  oBar.RecalcLayout();

  m_rsInOutType.SetFilter("FNumber='" + Concat(GetBillField(oBill, "FNumber"_key, kHead)) + "'");
  if (!m_rsInOutType.Eof()) {
    const bool bParent = NumberOf(m_rsInOutType.Value("FIsLeaf"_key)) == 0;
    LockBillField(oBill, "FNumber"_key, bParent, false, 1);
  }
  m_lBillId = GetBillLong(oBill, "FID"_key, kHead);
}

void clsRPInOutType::m_BillInterface_AfterSave() { m_rsInOutType = FetchInOutTypes(); }

/// The next attempt to store a new type still counts as new.
void clsRPInOutType::m_BillInterface_SaveBillFailed(const Variant& vDct) {
  if (m_lBillId != 0) return;
  SetBillField(Bill(), "FID"_key, kHead, std::int32_t{0});
  Dictionary(vDct).SetValue("FID"_key, std::int32_t{0});
}

void clsRPInOutType::m_BillInterface_MenuBarClick(const Tool& oTool) {
  if (!EqualsNoCase(Concat(oTool.Name()), "mnuHelpFile")) return;
  ShowTypeHelp();
  Bill().BarControl().Bands("mnuCust"_key).SetCaption(LoadText("帮助"));
}

}  // namespace arap
