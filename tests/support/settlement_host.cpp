#include "support/settlement_host.h"

namespace arap::testing {

namespace {

constexpr SideNames kReceive{
    .side = Side::Receive,
    .sClass = "NUVARAPBillInterface.clsReceiveBill",
    .sService = "NUVlpsArApBill.clsArBill",
    .sPartner = "FCustomerID",
    .sPartnerTable = "t_Organization",
    .sRowPartner = "FCustID",
    .sType = "FReceiveTypeId",
    .sReceivedFor = "FReceiveAmountFor",
    .sReceived = "FReceiveAmount",
    .sSourceNo = "FInvoiceBillNo",
    .sRowReceivedFor = "FBillReceiveAmountFor",
    .sRowReceived = "FBillReceiveAmount",
    .sOpenFor = "FBillUnReceiveAmountFor",
    .sOpen = "FBillUnReceiveAmount",
    .sDiscountAction = "FDiscount=(FReceiveAmountFor/FAmountFor)*100",
    .sBillTable = "t_RP_RBill",
    .sSelectTool = "mnuSelectBill_2000001",
    .nBillClass = 1000201,
    .nOrdinaryType = 1001,
    .nAdvanceType = 1002,
    .nRefundType = 1009,
    .nOpenKind = 2000001,
    .nRefundKind = 2000003,
};

constexpr SideNames kPay{
    .side = Side::Pay,
    .sClass = "NUVARAPBillInterface.clsPayBill",
    .sService = "NUVlpsArApBill.clsApBill",
    .sPartner = "FSupplyID",
    .sPartnerTable = "t_Supplier",
    .sRowPartner = "FSupplyIdID",
    .sType = "FPayTypeId",
    .sReceivedFor = "FPayAmountFor",
    .sReceived = "FPayAmount",
    .sSourceNo = "FPurchaseBillNo",
    .sRowReceivedFor = "FBillPayAmountFor",
    .sRowReceived = "FBillPayAmount",
    .sOpenFor = "FBillUnPayAmountFor",
    .sOpen = "FBillUnPayAmount",
    .sDiscountAction = "FDiscount=(FPayAmountFor/FAmountFor)*100",
    .sBillTable = "t_RP_PBill",
    .sSelectTool = "mnuSelectBill_2000002",
    .nBillClass = 1000202,
    .nOrdinaryType = 1003,
    .nAdvanceType = 1004,
    .nRefundType = 1010,
    .nOpenKind = 2000002,
    .nRefundKind = 2000004,
};

void define_head(TestBill& oBill, const SideNames& names) {
  oBill.define("FBillID", 1, std::int32_t{0});
  oBill.define_look_up(names.sPartner, 1, names.sPartnerTable, "FItemID");
  oBill.define_look_up(names.sType, 1, "t_RP_Type", "FID");
  oBill.define("FDate", 1);
  oBill.define_look_up("FCurrencyID", 1, "t_Currency", "FCurrencyID");
  oBill.define_look_up("FAcctId", 1, "t_account", "FAccountID");
  oBill.define_look_up("FDiscountAcctId", 1, "t_account", "FAccountID");
  oBill.define_look_up("FSettleId", 1, "t_Settle", "FItemID");
  oBill.define_look_up("FDepartmentID", 1, "t_Department", "FItemID", 2);
  oBill.define_look_up("FEmployeeID", 1, "t_Emp", "FItemID", 3);
  for (const char* sKey : {"FAmountFor", "FAmount", names.sReceivedFor, names.sReceived, "FDiscountAmountFor",
                           "FDiscountAmount", "FCheckAmountFor", "FExchangeRate", "FDiscount", "FDiscountDsp"}) {
    oBill.define(sKey, 1, 0.0);
  }
  for (const char* sKey : {"FExplanation", "FSettleIdNo", "FNumber"}) oBill.define(sKey, 1);
  for (const char* sKey : {"FStatus", "FVoucherID"}) oBill.define(sKey, 1, std::int32_t{0});
}

void define_body(TestBill& oBill, const SideNames& names) {
  oBill.define(names.sSourceNo, 2);
  for (const char* sKey : {"FInterID", "FClassID_SRC", "FEntryID_SRC", "FEntryID_HXD_SRC"}) {
    oBill.define(sKey, 2, std::int32_t{0});
  }
  oBill.define_look_up("FBillCurrencyID", 2, "t_Currency", "FCurrencyID");
  for (const char* sKey :
       {"FEntryExchangeRate", "FBillAmountFor", "FBillAmount", names.sRowReceivedFor, names.sRowReceived,
        names.sOpenFor, names.sOpen, "FBillSettleAmountFor", "FBillSettleAmount", "FEntryAmount_SRC"}) {
    oBill.define(sKey, 2, 0.0);
  }
  oBill.define("FFKDBillNo", 2);
  oBill.define_look_up(names.sRowPartner, 2, names.sPartnerTable, "FItemID");
  oBill.set_key_field(names.sSourceNo);
}

void set_number(TestBill& oBill, std::string_view sKey, double dValue, int nRow = -1) {
  oBill.record(sKey, nRow).set("FFLD", dValue).set("FModify", std::int32_t{1});
}

/// The formulas of the template: base amounts, the percentage received and the difference.
void add_head_actions(TestBill& oBill, const SideNames& names) {
  const std::string sFor = names.sReceivedFor;
  const std::string sBase = names.sReceived;
  const TestBill::Action amount = [](TestBill& bill, int) {
    set_number(bill, "FAmount", bill.number("FAmountFor") * bill.number("FExchangeRate"));
  };
  const TestBill::Action received = [sFor, sBase](TestBill& bill, int) {
    set_number(bill, sBase, bill.number(sFor) * bill.number("FExchangeRate"));
  };
  const TestBill::Action percentage = [sFor](TestBill& bill, int) {
    const double dSettled = bill.number("FAmountFor");
    if (dSettled != 0) set_number(bill, "FDiscount", bill.number(sFor) / dSettled * 100);
  };
  const TestBill::Action difference_for = [sFor](TestBill& bill, int) {
    set_number(bill, "FDiscountAmountFor", bill.number("FAmountFor") - bill.number(sFor));
  };
  const TestBill::Action difference = [sBase](TestBill& bill, int) {
    set_number(bill, "FDiscountAmount", bill.number("FAmount") - bill.number(sBase));
  };
  const std::string sDifferenceFor = "FDiscountAmountFor=FAmountFor-" + sFor;
  const std::string sDifference = "FDiscountAmount=FAmount-" + sBase;
  for (const char* sKey : {"FExchangeRate", "FAmountFor"})
    oBill.add_action(sKey, "FAmount=FAmountFor*FExchangeRate", amount);
  for (const std::string& sKey : {std::string("FExchangeRate"), sFor}) {
    oBill.add_action(sKey, sBase + "=" + sFor + "*FExchangeRate", received);
  }
  for (const std::string& sKey : {std::string("FAmountFor"), sFor}) {
    oBill.add_action(sKey, names.sDiscountAction, percentage);
    oBill.add_action(sKey, sDifferenceFor, difference_for);
  }
  for (const std::string& sKey : {std::string("FExchangeRate"), std::string("FAmountFor"), sFor}) {
    oBill.add_action(sKey, sDifference, difference);
  }
}

void add_row_actions(TestBill& oBill) {
  for (const char* sKey : {"FBillSettleAmountFor", "FEntryExchangeRate"}) {
    oBill.add_action(sKey, "FBillSettleAmount=FBillSettleAmountFor*FEntryExchangeRate", [](TestBill& bill, int nRow) {
      const double dRate = bill.number("FEntryExchangeRate", nRow);
      set_number(bill, "FBillSettleAmount", bill.number("FBillSettleAmountFor", nRow) * dRate, nRow);
    });
  }
}

}  // namespace

const SideNames& names_of(Side side) { return side == Side::Receive ? kReceive : kPay; }

Ref<TestBill> make_settlement_bill(Side side) {
  const SideNames& names = names_of(side);
  auto oBill = make_object<TestBill>();
  define_head(*oBill, names);
  define_body(*oBill, names);
  add_head_actions(*oBill, names);
  add_row_actions(*oBill);
  oBill->trans_type_id = names.nBillClass;
  oBill->bill_type_info->set("FID", names.nBillClass);
  oBill->bill_map->set(names.sSourceNo, names.sSourceNo);
  oBill->head(names.sPartner, std::int32_t{7}, "青柚商贸", "01.007");
  oBill->head(names.sType, names.nOrdinaryType);
  oBill->head("FDate", "2024-01-15").head("FCurrencyID", std::int32_t{1}, "人民币", "RMB");
  oBill->head("FExchangeRate", 1.0).head("FDiscount", 100.0).head("FDiscountDsp", 100.0);
  oBill->head("FAcctId", std::int32_t{1001}, "现金", "1001").head("FNumber", "SK0001");
  return oBill;
}

int add_source_row(TestBill& oBill, Side side, const SourceRow& row) {
  const SideNames& names = names_of(side);
  const std::int32_t nClassID = row.nClassID != 0 ? row.nClassID : (side == Side::Receive ? 1000000 : 1000003);
  return oBill.add_row({{names.sSourceNo, row.sNumber},
                        {"FInterID", row.nInterID},
                        {"FEntryID_SRC", row.nEntryID},
                        {"FEntryID_HXD_SRC", row.nEntryID},
                        {"FClassID_SRC", nClassID},
                        {"FBillCurrencyID", row.nCurrencyID},
                        {"FEntryExchangeRate", row.dRate},
                        {"FBillAmountFor", row.dOpenFor},
                        {"FBillAmount", row.dOpenFor * row.dRate},
                        {names.sOpenFor, row.dOpenFor},
                        {names.sOpen, row.dOpenFor * row.dRate},
                        {"FBillSettleAmountFor", row.dSettleFor},
                        {"FBillSettleAmount", row.dSettleFor * row.dRate}});
}

void set_amounts(TestBill& oBill, Side side, double dSettledFor, double dReceivedFor) {
  const SideNames& names = names_of(side);
  const double dRate = oBill.number("FExchangeRate");
  oBill.head("FAmountFor", dSettledFor).head("FAmount", dSettledFor * dRate);
  oBill.head(names.sReceivedFor, dReceivedFor).head(names.sReceived, dReceivedFor * dRate);
  oBill.head("FDiscount", dSettledFor == 0 ? 100.0 : dReceivedFor / dSettledFor * 100);
  oBill.head("FDiscountAmountFor", dSettledFor - dReceivedFor)
      .head("FDiscountAmount", (dSettledFor - dReceivedFor) * dRate);
}

}  // namespace arap::testing
