#include "support/other_bill_host.h"

namespace arap::testing {

namespace {

constexpr OtherNames kReceivable{
    .side = Side::Receive,
    .sClass = "NUVARAPBillInterface.clsROtherBill",
    .sService = "NUVlpsArApBill.clsArOtherBill",
    .sNumberService = "NUVlpsArAPBill.clsApOtherBill",
    .numberQuery = Member::GetAPBillInfo,
    .sPartner = "FCustomerID",
    .sPartnerTable = "t_Organization",
    .sBillTable = "t_RP_ROtherBill",
    .nBillClass = 1000205,
    .nImmediateType = 1005,
    .nCreditType = 1006,
};

constexpr OtherNames kPayable{
    .side = Side::Pay,
    .sClass = "NUVARAPBillInterface.clsPOtherBill",
    .sService = "NUVlpsArApBill.clsApOtherBill",
    .sNumberService = "NUVlpsArAPBill.clsArOtherBill",
    .numberQuery = Member::GetARBillInfo,
    .sPartner = "FSupplyID",
    .sPartnerTable = "t_Supplier",
    .sBillTable = "t_RP_POtherBill",
    .nBillClass = 1000206,
    .nImmediateType = 1007,
    .nCreditType = 1008,
};

void define_head(TestBill& oBill, const OtherNames& names) {
  for (const char* sKey : {"FBillId", "FStatus", "FVoucherID"}) oBill.define(sKey, 1, std::int32_t{0});
  for (const char* sKey : {"FBillNo", "FDate", "FLimitDate", "FSettleIdNo"}) oBill.define(sKey, 1);
  oBill.define_look_up(names.sPartner, 1, names.sPartnerTable, "FItemID", 1);
  oBill.define_look_up("FBillTypeId", 1, "t_SubMessage", "FInterID", names.nBillClass);
  oBill.define_look_up("FCurrencyId", 1, "t_Currency", "FCurrencyID");
  oBill.define_look_up("FAcctId", 1, "t_account", "FAccountID");
  oBill.define_look_up("FSettleId", 1, "t_Settle", "FItemID");
  oBill.define_look_up("FDepartmentID", 1, "t_Department", "FItemID", 2);
  oBill.define_look_up("FEmployeeID", 1, "t_Emp", "FItemID", 3);
  for (const char* sKey : {"FExchangeRate", "FAmountFor", "FAmount", "FCheckAmountFor", "FCheckAmount"}) {
    oBill.define(sKey, 1, 0.0);
  }
}

void define_body(TestBill& oBill) {
  oBill.define("FInOutTypeId", 2, std::int32_t{0});
  oBill.define("FBillAmountFor", 2, 0.0);
  oBill.define("FBillAmount", 2, 0.0);
  oBill.define("FBillNote", 2);
  oBill.set_key_field("FInOutTypeId");
}

void add_actions(TestBill& oBill) {
  oBill.add_action("FExchangeRate", "FAmount=FAmountFor*FExchangeRate", [](TestBill& bill, int) {
    bill.set_value("FAmount", -1, bill.number("FAmountFor") * bill.number("FExchangeRate"));
    bill.set_value("FCheckAmount", -1, bill.number("FCheckAmountFor") * bill.number("FExchangeRate"));
  });
  oBill.add_action("FBillAmountFor", "FBillAmount=FBillAmountFor*FExchangeRate", [](TestBill& bill, int nRow) {
    bill.set_value("FBillAmount", nRow, bill.number("FBillAmountFor", nRow) * bill.number("FExchangeRate"));
  });
}

}  // namespace

const OtherNames& other_names_of(Side side) { return side == Side::Receive ? kReceivable : kPayable; }

void add_in_out_types(TestSession& session) {
  session.server("NUVlpsArApBill.clsInOutType")
      .answers(Member::GetRPInOutTypeInfo,
               recordset({"FID", "FNumber", "FName", "FParentID", "FIsLeaf"},
                         {{kParentType, "01", "杂项", std::int32_t{0}, std::int32_t{0}},
                          {kDetailType, "01.01", "租金", kParentType, std::int32_t{1}},
                          {kOtherDetailType, "01.02", "利息", kParentType, std::int32_t{1}}}));
}

Ref<TestBill> make_other_bill(Side side) {
  const OtherNames& names = other_names_of(side);
  auto oBill = make_object<TestBill>();
  define_head(*oBill, names);
  define_body(*oBill);
  add_actions(*oBill);
  oBill->trans_type_id = names.nBillClass;
  oBill->bill_type_info->set("FID", names.nBillClass);
  for (const char* sKey :
       {"FAmountFor", "FAmount", "FCheckAmountFor", "FCheckAmount", "FBillAmountFor", "FBillAmount"}) {
    oBill->bill_map->set(sKey, sKey);
  }
  oBill->head("FBillTypeId", names.nImmediateType).head("FBillNo", "QT0001").head("FDate", "2024-01-15");
  oBill->head(names.sPartner, std::int32_t{7}, "青柚商贸", "01.007");
  oBill->head("FCurrencyId", std::int32_t{1}, "人民币", "RMB").head("FExchangeRate", 1.0);
  oBill->head("FAcctId", std::int32_t{1001}, "现金", "1001");
  return oBill;
}

int add_other_row(TestBill& oBill, const OtherRow& row) {
  return oBill.add_row({{"FInOutTypeId", row.nType},
                        {"FBillAmountFor", row.dAmountFor},
                        {"FBillAmount", row.dAmountFor * oBill.number("FExchangeRate")},
                        {"FBillNote", row.sNote}});
}

}  // namespace arap::testing
