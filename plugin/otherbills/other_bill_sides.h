#pragma once

#include <array>
#include <cstdint>

#include "frame/host_contract.h"

/// The other receivable bill and the other payable bill are one design. OtherBillSide holds everything in which the two
/// differ; the rules are written once and read it. other_bill_sides.cpp shows both columns next to each other.
namespace arap {

// --- the same on both sides, though it reads like the receivable's own ----------------------------------------------

/// The class type under which both lists ask for their rights. Required.
inline constexpr std::int32_t kListRightsClass = 1000205;
/// The log code of an uncheck in the bill window, on the payable side too. Required.
inline constexpr Key kUncheckLogCode = "RP1000205A"_key;
/// The service that decides on the hint about the settlement account, on the payable side too. Required.
inline constexpr Key kSettlementHintService = "NUVlpsArApBill.clsArOtherBill"_key;

// --- differences in logic -----------------------------------------------------------------------------------------

/// What BeforeSave does with the bill date at its head.
enum class DateOnSave : std::uint8_t { NotRead, ReadAndDropped };
/// What the save makes of a body row whose type id is below 0.
enum class NegativeType : std::uint8_t { PassedOver, CountsAsMissing };
/// What AfterSave does with the credit panel of a bill that isn't a credit bill.
enum class PanelAfterSave : std::uint8_t { LeftAlone, Emptied };
/// What the load of an unchecked bill does first when this user holds its lock.
enum class ChangeCommandOnLoad : std::uint8_t { LeftAlone, Hidden };
/// What the command mnuFileNew does in the bill window.
enum class NewCommand : std::uint8_t { NoRule, EmptiesCreditPanel };
/// The row commands that the menu of the bill window takes away, and how: the pair disabled and hidden, one disabled.
enum class RowCommandsInMenu : std::uint8_t { CopyAndFill, CopyOnly };

// --- the struct ---------------------------------------------------------------------------------------------------

struct OtherBillSide {
  // identity
  Key sClassName;
  std::int32_t nBillClass;  // also the object of the rights in the bill window
  Key sHelpTopic;
  Key sBillTable;
  Key sPartnerTable;
  std::int32_t nImmediateType;
  std::int32_t nCreditType;
  Key sBillService;
  std::array<Key, 8> aTaskCodes;  // by the index of GetTaskCode

  // the partner's key: one key on the receivable side, two spellings on the payable side
  Key sPartner;        // BeforeSave, ShowCreditStatus, CheckCreditLimit, the first test of HeadCtlLostFocus
  Key sPartnerEdited;  // Change, ComputeDueDate, the value reads of HeadCtlLostFocus

  // the duplicate number test asks the other side of the pair
  Key sNumberService;
  Member numberQuery;

  // due date
  Key sTermsSelect;  // first line of the payment terms query

  // credit limit
  Key sCreditProfileKey;
  Member creditReport;
  Key sReportFromPartner;
  Key sReportToPartner;
  Key sReportNoInvoice;
  Key sReportCashInvoice;
  Key sReportSumName;

  // action log
  Key sCheckLogCode;     // a check in the bill window; an uncheck has kUncheckLogCode
  Key sFailedCheckVerb;  // stands before the log text of a check that failed in the bill window
  Key sListLogCode;

  // texts
  Key sChooseDetailType;
  Key sNumberTaken;
  Key sPartnerMissing;
  Key sRowAmountMissing;
  Key sRowTypeNotDetail;
  Key sRowTypeMissing;
  Key sSameAccount;
  Key sSumZero;
  Key sOverLimitQuestion;
  Key sOverLimitRefusal;
  Key sSettlementHint;

  // differences in logic
  DateOnSave dateOnSave;
  NegativeType negativeType;
  PanelAfterSave panelAfterSave;
  ChangeCommandOnLoad changeCommandOnLoad;
  NewCommand newCommand;
  RowCommandsInMenu rowCommandsInMenu;
};

extern const OtherBillSide kROtherSide;
extern const OtherBillSide kPOtherSide;

}  // namespace arap
