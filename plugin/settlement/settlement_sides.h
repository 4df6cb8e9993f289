#pragma once

#include <array>
#include <cstdint>

#include "frame/host_contract.h"

/// The receipt bill and the payment bill are one design. SettlementSide holds everything in which the two differ; the
/// rules are written once and read it. settlement_sides.cpp shows both columns next to each other.
namespace arap {

/// Types of a bill that are tested by number. The receipt's advance type also stands in two tests of the payment bill.
inline constexpr std::int32_t kReceiptAdvanceType = 1002;
/// The percentage that means no discount.
inline constexpr double kNoDiscount = 100;

// --- differences in logic -----------------------------------------------------------------------------------------

/// What SetSourceCommands does with a type that is neither an advance nor named.
enum class OtherTypeCommands : std::uint8_t { LeftAlone, SwitchedOn };
/// The order of ResetTypeDependents, and whether it can leave the head amounts.
enum class TypeReset : std::uint8_t { FreesTypeFirstAndClearsOnRequest, FreesTypeLastAndAlwaysClears };
/// What ApplyStatusLocks frees on a bill that isn't checked.
enum class FreedFields : std::uint8_t { Head, HeadTypeAndSource };
/// How the field is marked when LockExchangeRate runs its action.
enum class RateActionMark : std::uint8_t { Changed, AsItStands };
/// What a new bill does with the discount account.
enum class NewBillDiscount : std::uint8_t { AccountLocked, AccountEmptiedAndPercentageSet };
/// When AfterLoadBill reads the type, and whether the type field is locked before anything else.
enum class TypeOnLoad : std::uint8_t { ReadAfterRows, LockedFirstAndReadBeforeRows };
/// The colour commands: a click handles them, or the load of a read-only bill switches them off.
enum class ColourCommands : std::uint8_t { Handled, SwitchedOffWhenReadOnly };
/// Whether ResetForRedBlue locks or frees the rate by the head currency.
enum class ColourResetRate : std::uint8_t { FollowsCurrency, LeftAlone };
/// Row amounts when the head currency changes.
enum class CurrencyChangeRows : std::uint8_t { RoundedToHeadScale, AsRead };
/// What else the change of the head currency does with the currency and the rate.
enum class CurrencyChangeRate : std::uint8_t { NameReadAndDropped, StoredAsEntry };
/// Which figures BeforeSave rounds as it reads them; with the head's, a row's currency is read ahead of its open
/// amount.
enum class SaveReading : std::uint8_t { OpenAmountRounded, HeadAmountsRounded };
/// CheckBodyCurrencies on a row whose currency differs from the first row's.
enum class RowCurrencyMix : std::uint8_t { PassedOver, Refused };
/// AutoApportion with nothing left: the discount account.
enum class ApportionedDiscount : std::uint8_t { LeftAlone, LockedByPercentage };
/// The place of SetBatchFlag in a row of AutoApportion.
enum class BatchFlagPlace : std::uint8_t { BeforeRowRate, AfterRowRate };
/// The sum of AutoSum under a foreign head.
enum class ForeignSum : std::uint8_t { RoundedRows, PlainRows };
/// The row currency that AutoSum compares with the head's.
enum class SumCurrency : std::uint8_t { LastSourceRow, FirstRow };
/// AutoSum's received amount in base currency under a foreign head with base rows.
enum class CrossReceived : std::uint8_t { ProductUnrounded, ProductRounded };
/// Decimals of the discount amounts that AutoSum writes.
enum class DiscountDecimals : std::uint8_t { ByCurrency, FixedTwo };
/// Whether AfterSelBill sets the refund columns.
enum class SelectionColumns : std::uint8_t { Shown, LeftAlone };
/// The commands that the click of a bill knows, and their order.
enum class ClickCommands : std::uint8_t { ColoursAndOlderSources, RowCommands };
/// Whether the help command captions the band mnuCust.
enum class HelpBand : std::uint8_t { Captioned, LeftAlone };
/// DoOptToBill's log for code 1.
enum class FailureLog : std::uint8_t { Written, None };
/// What the list bar has beside the common tools.
enum class ListExtras : std::uint8_t { ViewBill, ExportShown };

// --- the struct ---------------------------------------------------------------------------------------------------

struct SettlementSide {
  // identity
  Key sClassName;
  Key sBillTable;
  Key sPartnerTable;
  Key sBillService;
  std::int32_t nBillClass;  // also the object of the rights
  Key sHelpTopic;
  Key sLogCode;
  std::array<Key, 8> aTaskCodes;  // by the index of GetTaskCode

  // field keys
  Key sPartner;
  Key sPartnerText;  // the spelling under which a selection reads the partner's code
  Key sRowPartner;
  Key sType;
  Key sReceivedFor;  // money really received (paid), head currency
  Key sReceived;     // the same in base currency
  Key sSourceNo;
  Key sRowReceivedFor;  // received (paid) before on the row's source
  Key sRowReceived;
  Key sOpenFor;  // still open on the row's source
  Key sOpen;
  Key sDiscountAction;  // text of the template's action that computes FDiscount

  // type ids
  std::int32_t nOrdinaryType;
  std::int32_t nAdvanceType;
  std::int32_t nRefundType;

  // selection of sources
  Key sSelectTool;
  std::int32_t nOpenKind;
  std::int32_t nRefundKind;
  Key sOpenView;
  Key sRefundView;
  Key sOpenViewPartner;
  Key sRefundViewPartner;
  Key sOlderTool1;  // items of the sub-menu mnuSelectBill
  Key sOlderTool2;
  Key sOlderTool3;

  // source classes and their tables
  std::int32_t nInvoiceClass;
  std::int32_t nOtherInvoiceClass;
  Key sInvoiceTable;
  std::int32_t nOtherBillClass;
  Key sOtherBillTable;

  // texts
  Key sOpeningSource;
  Key sSetCurrencyFirst;
  Key sChoosePartner;
  Key sAlreadySettled;
  Key sAmountZero;
  Key sAdvanceTooLarge;
  Key sHeadBodyDiffer;
  Key sSourceTwice;
  Key sRowCurrencyForeign;
  Key sRowCurrencyMixed;
  Key sHeadAndBodyForeign;
  Key sEnterAmount;
  Key sRemainderBefore;
  Key sRemainderAfter;
  Key sNoSourceRow;
  Key sSumZero;
  Key sOppositeSigns;
  Key sOtherKinds;
  Key sAutoSumDescription;
  Key sAutoPartDescription;
  Key sSourceGone;

  // differences in logic
  OtherTypeCommands otherTypeCommands;
  TypeReset typeReset;
  FreedFields freedFields;
  RateActionMark rateActionMark;
  NewBillDiscount newBillDiscount;
  TypeOnLoad typeOnLoad;
  ColourCommands colourCommands;
  ColourResetRate colourResetRate;
  CurrencyChangeRows currencyChangeRows;
  CurrencyChangeRate currencyChangeRate;
  SaveReading saveReading;
  RowCurrencyMix rowCurrencyMix;
  ApportionedDiscount apportionedDiscount;
  BatchFlagPlace batchFlagPlace;
  ForeignSum foreignSum;
  SumCurrency sumCurrency;
  CrossReceived crossReceived;
  DiscountDecimals discountDecimals;
  SelectionColumns selectionColumns;
  ClickCommands clickCommands;
  HelpBand helpBand;
  FailureLog failureLog;
  ListExtras listExtras;
};

extern const SettlementSide kReceiveSide;
extern const SettlementSide kPaySide;

}  // namespace arap
