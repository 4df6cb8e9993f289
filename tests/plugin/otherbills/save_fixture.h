#pragma once

#include "other_bill_fixture.h"

namespace arap::testing {

/// A bill with two rows of 60 and 40 that passes every test of the save.
class OtherSaveTest : public OtherBillTest {
 protected:
  OtherSaveTest() {
    add_other_row(*bill, {.nType = kDetailType, .dAmountFor = 60});
    add_other_row(*bill, {.nType = kOtherDetailType, .dAmountFor = 40});
    trace().clear();
  }

  ServerStub& types() { return session.server("NUVlpsArApBill.clsInOutType"); }
  ServerStub& number_service() { return session.server(side.sNumberService); }
  void use_number_taken() {
    number_service().on(side.numberQuery, [](Arguments) { return Variant(recordset({"FBillID"}, {{77}})); });
  }
  /// The partner's limit is 50, and the company's degree of control is this one.
  void use_credit_limit(const char* sDegree) {
    bill->sql.answer("Select FValue From t_SystemProfile", recordset({"FValue"}, {{sDegree}}));
    bill->sql.answer("Select FCreditDegree", recordset({"FCreditDegree", "FNumber"}, {{50.0, "01.007"}}));
  }
  /// A credit bill without credit control.
  void use_uncontrolled_credit() {
    use_credit();
    use_credit_limit("1");
  }
  std::string hint() const {
    return pick(
        "此单审核后，将生成[客户]的一笔应收账款，可以通过收款单或核销单对此单进行后期收款处理。"
        "为确保同财务对账的数据一致，结算账户请选择应收账款、其他应收款或同类型科目!",
        "此单审核后，将生成[供应商]的一笔应付账款，可以通过付款单或核销单对此单进行后期付款处理。"
        "为确保同财务对账的数据一致，结算账户请选择应付账款、其他应付款或同类型科目!");
  }
  void use_hint() { session.server("NUVlpsArApBill.clsArOtherBill").answers(Member::GetBill, false); }
  std::string row_text(const char* sReceivable, const char* sPayable, int nRow) const {
    std::string sText = pick(sReceivable, sPayable);
    return sText.replace(sText.find("%1"), 2, std::to_string(nRow));
  }
  std::string amount_missing(int nRow) const {
    return row_text("第%1行分录没有录入收款金额，请录入收款金额。", "第%1行分录没有录入付款金额，请录入付款金额。",
                    nRow);
  }
  std::string not_detail(int nRow) const {
    return row_text("第%1行分录收入类别不是明细类别，请重新选择。", "第%1行分录支出类别不是明细类别，请重新选择。",
                    nRow);
  }
  std::string type_missing(int nRow) const {
    return row_text("第%1行分录没有选择收入类别，请选择收入类别。", "第%1行分录没有选择支出类别，请选择支出类别。",
                    nRow);
  }
  void expect_refused(const std::string& sText) {
    session.platform.messages.clear();
    EXPECT_TRUE(bill->save());
    EXPECT_EQ(boxes(), warning(sText));
  }
};

}  // namespace arap::testing
