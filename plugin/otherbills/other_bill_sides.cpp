#include "otherbills/other_bill_sides.h"

#include "frame/twin_row.h"

namespace arap {

namespace {

// clang-format off
consteval OtherBillSide Fill(Column column) {
  const TwinRow of(column);
  return {
    //                       clsROtherBill                                      clsPOtherBill
    .sClassName         = of("clsROtherBill"_key,                               "clsPOtherBill"_key),
    .nBillClass         = of(1000205,                                           1000206),
    .sHelpTopic         = of("RP1000205"_key,                                   "RP1000206"_key),
    .sBillTable         = of("t_RP_ROtherBill"_key,                             "t_RP_POtherBill"_key),
    .sPartnerTable      = of("t_Organization"_key,                              "t_Supplier"_key),
    .nImmediateType     = of(1005,                                              1007),
    .nCreditType        = of(1006,                                              1008),
    .sBillService       = of("NUVlpsArApBill.clsArOtherBill"_key,               "NUVlpsArApBill.clsApOtherBill"_key),
    .aTaskCodes         = {
                          of("AR0303"_key,                                      "AP0303"_key),
                          of("AR0304"_key,                                      "AP0304"_key),
                          of("AR0305"_key,                                      "AP0305"_key),
                          ""_key,
                          ""_key,
                          of("AR0302"_key,                                      "AP0302"_key),
                          of("AR0306"_key,                                      "AP0306"_key),
                          of("AR0301"_key,                                      "AP0301"_key)},

    .sPartner           = of("FCustomerID"_key,                                 "FSupplyId"_key),
    .sPartnerEdited     = of("FCustomerID"_key,                                 "FSupplyID"_key),

    // Each side asks the other side's service, in the other side's words: required.
    .sNumberService     = of("NUVlpsArAPBill.clsApOtherBill"_key,               "NUVlpsArAPBill.clsArOtherBill"_key),
    .numberQuery        = of(Member::GetAPBillInfo,                             Member::GetARBillInfo),

    // FValueAddRate is selected and not read: required.
    .sTermsSelect       = of(" Select t2.FType,t2.FStandDays,t2.FMonthPayDay,t2.FBeforeDays From t_Organization t1 "_key,
                             " Select t2.FType,t2.FStandDays,t2.FMonthPayDay,t2.FBeforeDays,t1.FValueAddRate "
                             "From t_Supplier t1 "_key),

    .sCreditProfileKey  = of("CreditDegree"_key,                                "CreditDegreeCG"_key),
    .creditReport       = of(Member::GetRpt131Data,                             Member::GetRpt132Data),
    .sReportFromPartner = of("BCustNumber"_key,                                 "BSupplyNumber"_key),
    .sReportToPartner   = of("ECustNumber"_key,                                 "ESupplyNumber"_key),
    .sReportNoInvoice   = of("ExportNoInvoice"_key,                             "InportNoInvoice"_key),  // spelled so; required
    .sReportCashInvoice = of("CashSaleInvoice"_key,                             "CashPurchaseInvoice"_key),
    .sReportSumName     = of("客户"_key,                                        "供应商"_key),

    .sCheckLogCode      = of("RP1000205A"_key,                                  "RP1000206A"_key),
    .sFailedCheckVerb   = of("审核"_key,                                        "反审核"_key),  // though it was a check; required
    .sListLogCode       = of("RP1000205B"_key,                                  "RP1000206B"_key),

    .sChooseDetailType  = of("请选择收入类别的明细类别"_key,                    "请选择支出类别的明细类别"_key),
    .sNumberTaken       = of("编号相同的费用支出单据已经存在，请检查单据编号和编码规则。"_key,
                             "编号相同的其他收入单据已经存在，请检查单据编号和编码规则。"_key),
    .sPartnerMissing    = of("请指定客户名称!"_key,                             "请指定供应商名称!"_key),
    .sRowAmountMissing  = of("第%1行分录没有录入收款金额，请录入收款金额。"_key, "第%1行分录没有录入付款金额，请录入付款金额。"_key),
    .sRowTypeNotDetail  = of("第%1行分录收入类别不是明细类别，请重新选择。"_key, "第%1行分录支出类别不是明细类别，请重新选择。"_key),
    .sRowTypeMissing    = of("第%1行分录没有选择收入类别，请选择收入类别。"_key, "第%1行分录没有选择支出类别，请选择支出类别。"_key),
    .sSameAccount       = of("收入类别科目同结算账户科目相同，请修改。"_key,    "支出类别科目同结算账户科目相同，请修改。"_key),
    .sSumZero           = of("单据收入明细的金额合计为0，不允许保存。"_key,     "单据支出明细的金额合计为0，不允许保存。"_key),
    .sOverLimitQuestion = of("此客户已超出信用额度，是否继续保存？"_key,        "此供应商已超出信用额度，是否继续保存？"_key),
    .sOverLimitRefusal  = of("此客户已超出信用额度，不允许保存!"_key,           "此供应商已超出信用额度，不允许保存!"_key),
    .sSettlementHint    = of("此单审核后，将生成[客户]的一笔应收账款，可以通过收款单或核销单对此单进行后期收款处理。"
                             "为确保同财务对账的数据一致，结算账户请选择应收账款、其他应收款或同类型科目!"_key,
                             "此单审核后，将生成[供应商]的一笔应付账款，可以通过付款单或核销单对此单进行后期付款处理。"
                             "为确保同财务对账的数据一致，结算账户请选择应付账款、其他应付款或同类型科目!"_key),

    .dateOnSave         = of(DateOnSave::NotRead,                               DateOnSave::ReadAndDropped),
    .negativeType       = of(NegativeType::PassedOver,                          NegativeType::CountsAsMissing),
    .panelAfterSave     = of(PanelAfterSave::LeftAlone,                         PanelAfterSave::Emptied),
    .changeCommandOnLoad = of(ChangeCommandOnLoad::LeftAlone,                   ChangeCommandOnLoad::Hidden),
    .newCommand         = of(NewCommand::NoRule,                                NewCommand::EmptiesCreditPanel),
    .rowCommandsInMenu  = of(RowCommandsInMenu::CopyAndFill,                    RowCommandsInMenu::CopyOnly),
  };
}
// clang-format on

}  // namespace

constexpr OtherBillSide kROtherSide = Fill(Column::Receive);
constexpr OtherBillSide kPOtherSide = Fill(Column::Pay);

}  // namespace arap
