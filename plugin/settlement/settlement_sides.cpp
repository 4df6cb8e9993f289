#include "settlement/settlement_sides.h"

#include "frame/twin_row.h"

namespace arap {

namespace {

// clang-format off
consteval SettlementSide Fill(Column column) {
  const TwinRow of(column);
  return {
    //                       clsReceiveBill                                     clsPayBill
    .sClassName         = of("clsReceiveBill"_key,                              "clsPayBill"_key),
    .sBillTable         = of("t_RP_RBill"_key,                                  "t_RP_PBill"_key),
    .sPartnerTable      = of("t_Organization"_key,                              "t_Supplier"_key),
    .sBillService       = of("NUVlpsArApBill.clsArBill"_key,                    "NUVlpsArApBill.clsApBill"_key),
    .nBillClass         = of(1000201,                                           1000202),
    .sHelpTopic         = of("RP1000201"_key,                                   "RP1000202"_key),
    .sLogCode           = of("RP1000201A"_key,                                  "RP1000202A"_key),
    .aTaskCodes         = {
                          of("AR0225"_key,                                      "AP0225"_key),
                          of("AR0226"_key,                                      "AP0226"_key),
                          of("AR0227"_key,                                      "AP0227"_key),
                          ""_key,
                          ""_key,
                          of("AR0224"_key,                                      "AP0224"_key),
                          of("AR0228"_key,                                      "AP0228"_key),
                          of("AR0223"_key,                                      "AP0223"_key)},

    .sPartner           = of("FCustomerID"_key,                                 "FSupplyID"_key),
    .sPartnerText       = of("FCustomerID"_key,                                 "FSupplyId"_key),
    .sRowPartner        = of("FCustID"_key,                                     "FSupplyIdID"_key),
    .sType              = of("FReceiveTypeId"_key,                              "FPayTypeId"_key),
    .sReceivedFor       = of("FReceiveAmountFor"_key,                           "FPayAmountFor"_key),
    .sReceived          = of("FReceiveAmount"_key,                              "FPayAmount"_key),
    .sSourceNo          = of("FInvoiceBillNo"_key,                              "FPurchaseBillNo"_key),
    .sRowReceivedFor    = of("FBillReceiveAmountFor"_key,                       "FBillPayAmountFor"_key),
    .sRowReceived       = of("FBillReceiveAmount"_key,                          "FBillPayAmount"_key),
    .sOpenFor           = of("FBillUnReceiveAmountFor"_key,                     "FBillUnPayAmountFor"_key),
    .sOpen              = of("FBillUnReceiveAmount"_key,                        "FBillUnPayAmount"_key),
    .sDiscountAction    = of("FDiscount=(FReceiveAmountFor/FAmountFor)*100"_key, "FDiscount=(FPayAmountFor/FAmountFor)*100"_key),

    .nOrdinaryType      = of(1001,                                              1003),
    .nAdvanceType       = of(1002,                                              1004),
    .nRefundType        = of(1009,                                              1010),

    .sSelectTool        = of("mnuSelectBill_2000001"_key,                       "mnuSelectBill_2000002"_key),
    .nOpenKind          = of(2000001,                                           2000002),
    .nRefundKind        = of(2000003,                                           2000004),
    .sOpenView          = of("vw_arap_RBillList"_key,                           "vw_arap_PBillList"_key),
    .sRefundView        = of("vw_arap_RBackBillList"_key,                       "vw_arap_PBackBillList"_key),
    .sOpenViewPartner   = of("FOriCustID"_key,                                  "FOriSupplyID"_key),
    .sRefundViewPartner = of("FCustID"_key,                                     "FSupplyID"_key),
    .sOlderTool1        = of("mnuSelectBill_1000000"_key,                       "mnuSelectBill_1000003"_key),
    .sOlderTool2        = of("mnuSelectBill_1000002"_key,                       "mnuSelectBill_1000004"_key),
    .sOlderTool3        = of("mnuSelectBill_1000005"_key,                       "mnuSelectBill_1000006"_key),

    .nInvoiceClass      = of(1000000,                                           1000003),
    .nOtherInvoiceClass = of(1000002,                                           1000004),
    .sInvoiceTable      = of("icsale"_key,                                      "ICPurchase"_key),
    .nOtherBillClass    = of(1000205,                                           1000206),
    .sOtherBillTable    = of("t_rp_rotherbill"_key,                             "t_rp_potherbill"_key),

    .sOpeningSource     = of("期初应收"_key,                                    "期初应付"_key),
    .sSetCurrencyFirst  = of("请设置收款单币别!"_key,                           "请设置付款单币别!"_key),
    .sChoosePartner     = of("请选择客户"_key,                                  "请选择供应商"_key),
    .sAlreadySettled    = of("该单据已经被核销,不能再修改本收款单!"_key,        "该单据已经被核销,不能再修改本付款单!"_key),
    .sAmountZero        = of("收款单的收款金额为零，不允许保存。"_key,          "付款单的付款金额为零，不允许保存。"_key),
    .sAdvanceTooLarge   = of("当前预收款金额大于该客户已有预收金额，不允许保存。"_key,
                             "当前预付款金额大于该供应商已有预付金额，不允许保存。"_key),
    .sHeadBodyDiffer    = of("收款单单据头的收款金额与单据体的本次核销金额总和不相等，不允许保存。"_key,
                             "付款单单据头的付款金额与单据体的本次核销金额总和不相等，不允许保存。"_key),
    .sSourceTwice       = of("第%1行源单和第%2行源单重复，不允许保存。"_key,
                             "第%1行源单和第%2行源单编号重复，不允许保存。"_key),
    .sRowCurrencyForeign = of("收款单不支持多币别核算,第%1行币别与收款单不是同一外币币别，不允许保存。"_key,
                             "付款单不支持多币别核算,第%1行币别与付款单不是同一币别，不允许保存。"_key),
    .sRowCurrencyMixed  = of("收款单不支持对多币别应收款单据收款,第%1行币别与第一行不是同币别，不允许保存。"_key,
                             "付款单不支持对多币别应付款单据付款,第%1行币别与第一行不是同币别，不允许保存。"_key),
    .sHeadAndBodyForeign = of("收款单币别与表体币别不能同时是不同种类的外币,请重新设置!"_key,
                             "付款单币别与表体币别不能同时是不同种类的外币,请重新设置!"_key),
    .sEnterAmount       = of("请输入收款单的收款金额后再使用自动分摊功能!"_key, "请输入付款单的付款金额后再使用自动分摊功能!"_key),
    .sRemainderBefore   = of("收款金额还余下"_key,                              "付款金额还余下"_key),
    .sRemainderAfter    = of("未被分摊完,请调整收款金额或添加收款发票!"_key,    "未被分摊完,请调整付款金额或者添加付款发票!"_key),
    .sNoSourceRow       = of("请至少选择一张需要收款的源单!"_key,               "请至少选择一张需要付款的源单!"_key),
    .sSumZero           = of("收款单据的本次核销金额总和为零,请先输入本次核销金额!"_key,
                             "付款单据的本次核销金额总和为零,请先输入本次核销金额!"_key),
    .sOppositeSigns     = of("正数的应收款单不能与负数的应收款单同时出现在收款单界面!"_key,
                             "正数的应付款单不能与负数的应付款单同时出现在付款单界面!"_key),
    .sOtherKinds        = of("应收款单不能与其他类型的单据同时出现在收款单界面!"_key,
                             "应付款单不能与其他类型的单据同时出现在付款单界面!"_key),
    .sAutoSumDescription = of("应收单据自动合计收款金额"_key,                   "应付单据自动合计付款金额"_key),
    .sAutoPartDescription = of("应收单据自动分摊收款金额"_key,                  "应付单据自动分摊付款金额"_key),
    .sSourceGone        = of("收款单源单不存在，不允许删除。"_key,              "付款单源单不存在，不允许删除。"_key),

    .otherTypeCommands  = of(OtherTypeCommands::LeftAlone,                      OtherTypeCommands::SwitchedOn),
    .typeReset          = of(TypeReset::FreesTypeFirstAndClearsOnRequest,       TypeReset::FreesTypeLastAndAlwaysClears),
    .freedFields        = of(FreedFields::Head,                                 FreedFields::HeadTypeAndSource),
    .rateActionMark     = of(RateActionMark::Changed,                           RateActionMark::AsItStands),
    .newBillDiscount    = of(NewBillDiscount::AccountLocked,                    NewBillDiscount::AccountEmptiedAndPercentageSet),
    .typeOnLoad         = of(TypeOnLoad::ReadAfterRows,                         TypeOnLoad::LockedFirstAndReadBeforeRows),
    .colourCommands     = of(ColourCommands::Handled,                           ColourCommands::SwitchedOffWhenReadOnly),
    .colourResetRate    = of(ColourResetRate::FollowsCurrency,                  ColourResetRate::LeftAlone),
    .currencyChangeRows = of(CurrencyChangeRows::RoundedToHeadScale,            CurrencyChangeRows::AsRead),
    .currencyChangeRate = of(CurrencyChangeRate::NameReadAndDropped,            CurrencyChangeRate::StoredAsEntry),
    .saveReading        = of(SaveReading::OpenAmountRounded,                    SaveReading::HeadAmountsRounded),
    .rowCurrencyMix     = of(RowCurrencyMix::PassedOver,                        RowCurrencyMix::Refused),
    .apportionedDiscount = of(ApportionedDiscount::LeftAlone,                   ApportionedDiscount::LockedByPercentage),
    .batchFlagPlace     = of(BatchFlagPlace::BeforeRowRate,                     BatchFlagPlace::AfterRowRate),
    .foreignSum         = of(ForeignSum::RoundedRows,                           ForeignSum::PlainRows),
    .sumCurrency        = of(SumCurrency::LastSourceRow,                        SumCurrency::FirstRow),
    .crossReceived      = of(CrossReceived::ProductUnrounded,                   CrossReceived::ProductRounded),
    .discountDecimals   = of(DiscountDecimals::ByCurrency,                      DiscountDecimals::FixedTwo),
    .selectionColumns   = of(SelectionColumns::Shown,                           SelectionColumns::LeftAlone),
    .clickCommands      = of(ClickCommands::ColoursAndOlderSources,             ClickCommands::RowCommands),
    .helpBand           = of(HelpBand::Captioned,                               HelpBand::LeftAlone),
    .failureLog         = of(FailureLog::Written,                               FailureLog::None),
    .listExtras         = of(ListExtras::ViewBill,                              ListExtras::ExportShown),
  };
}
// clang-format on

}  // namespace

constexpr SettlementSide kReceiveSide = Fill(Column::Receive);
constexpr SettlementSide kPaySide = Fill(Column::Pay);

}  // namespace arap
