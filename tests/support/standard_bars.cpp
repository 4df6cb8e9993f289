#include "support/test_bar.h"

/// The bars of the host's windows, as far as the rules name their tools.
namespace arap::testing {

Ref<TestBar> TestBar::of_bill_window() {
  auto oBar = with_tools({
      {"BandToolBar",
       {"mnuFileNew", "mnuFileSave", "mnuFilePrint", "mnuFilePreview", "mnuDataPre", "mnuDataNext", "mnuEditCheck",
        "mnuSelectBill", "mnuFileExit"}},
      {"mnuFile",
       {"mnuFileNew", "mnuFileSave", "mnuEditCopy", "mnuFileNeedFilter", "mnuExportData", "mnuFilePreview",
        "mnuFilePrint", "mnuFileExit"}},
      {"mnuEdit",
       {"mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuEditCheck", "mnuEditChange", "mnuEditAddRow",
        "mnuEditDelRow", "mnuCopyRow", "mnuBatchFillField", "mnuEditRedBill", "mnuEditBlueBill"}},
      {"mnuData",
       {"mnuStockQuery", "mnuDataLookUp", "mnuSelectBill", "mnuCalculate", "mnuCaculate", "mnuDataAccessory",
        "mnuDataPre", "mnuDataNext"}},
      {"mnuFormat", {"mnuFormatBack"}},
      {"mnuOption", {"mnuOptionLinkBill", "mnuFormatIndentity", "mnuOptionBatchFull"}},
      {"mnuSelectBill",
       {"mnuSelectBill_1000000", "mnuSelectBill_1000002", "mnuSelectBill_1000005", "mnuSelectBill_1000003",
        "mnuSelectBill_1000004", "mnuSelectBill_1000006"}},
      {"mnuCust", {}},
      {"mnuView", {"mnuViewToolBar", "mnuViewToolCaption"}},
      {"mnuPop", {"mnuEditAddRow", "mnuEditDelRow", "mnuCopyRow"}},
      {"menu", {"mnuPushBill"}},
  });
  for (const char* sTool : {"mnuFile", "mnuEdit", "mnuData", "mnuFormat", "mnuOption", "mnuCust", "mnuView"}) {
    oBar->tools().add(sTool);
  }
  return oBar;
}

Ref<TestBar> TestBar::of_list_window() {
  auto oBar = with_tools({
      {"BandToolBar",
       {"mnuFileNew", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuFileView", "mnuDataFilter", "mnuDataRefesh",
        "mnuFilePreview", "mnuFilePrint", "mnuExportData", "mnuDataAccessory", "mnuCaculate", "mnuFileExit"}},
      {"mnuFile",
       {"mnuFileNew", "mnuFileView", "mnuEditCopy", "mnuNoteSetup", "mnuFileSeriesPrint", "mnuFileSeriesPrintView",
        "mnuFileSeriesPrintAll", "mnuFileSeriesPrintViewAll", "mnuFileUseEconomizePaper", "mnuFilePageSetup",
        "mnuExportData", "mnuFilePreview", "mnuFilePrint", "mnuFileExit"}},
      {"mnuEdit", {"mnuFileView", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuEditCopyEntry", "mnuViewVch"}},
      {"mnuData",
       {"mnuDataFilter", "mnuDataRefesh", "mnuDataAccessory", "mnuCaculate", "mnuDataViewPrvBill",
        "mnuDataViewNextBill"}},
      {"mnuView", {"mnuViewToolBar", "mnuViewToolCaption", "mnuDataViewPrvBill", "mnuDataViewNextBill"}},
      {"mnuFormat", {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuPreHeadFoot"}},
      {"mnuPop",
       {"mnuFileView", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuEditCopyEntry", "mnuDataViewPrvBill",
        "mnuDataViewNextBill"}},
      {"menu", {"mnuPushBill"}},
      {"mnuOption", {"mnuHelpFile"}},
  });
  oBar->tools().add("mnuEdit");
  return oBar;
}

Ref<TestBar> TestBar::of_type_window() {
  auto oBar = with_tools({
      {"BandToolBar",
       {"mnuFileNewItem", "mnuFileNewGroup", "mnuEditModify", "mnuEditDel", "mnuDataFind", "mnuFilePrint",
        "mnuFilePrintPreview", "mnuFileExit"}},
      {"mnuFile",
       {"mnuFileNewItem", "mnuFileNewGroup", "mnuFilePageSetup", "mnuPreHeadFoot", "mnuFilePrint",
        "mnuFilePrintPreview", "mnuExportData", "mnuFileExit"}},
      {"mnuEdit", {"mnuEditModify", "mnuEditDel", "mnuEditDelGroup", "mnuEditUse", "mnuEditUnuse"}},
      {"mnuData", {"mnuDataFind", "mnuDataRefesh"}},
      {"mnuView", {"mnuViewToolBar", "mnuViewToolCaption"}},
      {"mnuCust", {"mnuHelpDetail"}},
  });
  oBar->tools().add("mnuOption");
  return oBar;
}

Ref<TestBar> TestBar::of_type_bill() {
  return with_tools({
      {"BandToolBar",
       {"mnuFileNew", "mnuFileSave", "mnuFilePrint", "mnuFilePreview", "mnuDataPre", "mnuDataNext", "mnuFileExit"}},
      {"mnuFile",
       {"mnuFileNew", "mnuFileSave", "mnuEditCopy", "mnuFilePageSetup", "mnuFilePreview", "mnuFilePrintSetup",
        "mnuFileNotePrintSetup", "mnuFilePrint", "mnuFileExit"}},
      {"mnuData",
       {"mnuDataLookUp", "mnuDataRefesh", "mnuCaculate", "mnuStockQuery", "mnuDataAccessory", "mnuGetSysDate",
        "mnuDataPre", "mnuDataNext"}},
      {"mnuFormat", {"mnuFormatBack"}},
      {"mnuOption", {"mnuOptionLinkBill", "mnuFormatIndentity", "mnuOptionBatchFull"}},
      {"mnuCust", {"mnuHelpFile"}},
  });
}

}  // namespace arap::testing
