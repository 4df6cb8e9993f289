#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Members and events of the automation contract, each named once. A name becomes a small integer when the program is
/// compiled; a native object dispatches by that integer, and the COM side looks the DISPID up once per type.
namespace arap {

// clang-format off
#define ARAP_MEMBERS(X)                                                                                               \
  /* the default member of an object: Value of a Dictionary, Item of a Vector */                                      \
  X(Default)                                                                                                          \
  /* Dictionary, Vector, collections */                                                                               \
  X(Value) X(Lookup) X(GetValue) X(Size) X(Name) X(UBound) X(LBound) X(Item) X(Add) X(Remove) X(Count) X(Insert)      \
  /* Recordset, Field, Connection */                                                                                  \
  X(Eof) X(Bof) X(RecordCount) X(MoveFirst) X(MoveNext) X(Filter) X(Fields) X(Open) X(Close) X(ConnectionString)      \
  /* BillEvent */                                                                                                     \
  X(Data) X(BillData) X(GetFieldInfoByKey) X(GetDataFld) X(GetDataFldbyKey) X(GetDataFldByRow) X(GetFieldValue)       \
  X(SetFieldValue) X(SetText) X(SetFieldDecimals) X(SetColumnDecimals) X(RefreshFieldRow) X(LockRowCell)              \
  X(GetActiveCell) X(DeleteEntryRows) X(SetBarStatus) X(SetStatusPanel) X(BarRefresh) X(ReloadAfterCheck)             \
  X(ShowBillByID) X(SetBatchFlag) X(BillEntrys) X(BillCtl) X(ClassTypeEntry) X(EditMode) X(InterID) X(TransTypeID)    \
  X(BillTypeInfo) X(BillMapInfo) X(FilterObject) X(DataServer) X(BarControl) X(BillForm)                              \
  /* BillEntrys(n), screen fields, BillCtl, BillForm */                                                               \
  X(KeyField) X(MDKFields) X(Visible) X(Text) X(Locked) X(BillStatus) X(SetLockProperty) X(LockCell) X(DoAction)      \
  X(MutexSuccess) X(LockBill) X(SaveBill) X(NotSave) X(DoSelBillExt) X(RefreshToolbar) X(OpenQuery)                   \
  /* bars */                                                                                                          \
  X(Bands) X(Tools) X(RecalcLayout) X(Caption) X(Description) X(Enabled) X(BeginGroup) X(Tag) X(Checked) X(ToolId)    \
  X(Style) X(ToolTipText) X(Category) X(SetPicture)                                                                   \
  /* ListEvents, ListForm, list data */                                                                               \
  X(ListData) X(ListDataServer) X(SelectedRows) X(ListForm) X(RefreshList) X(letmessage) X(ShowMode) X(IsRun)         \
  X(ExistMultiCheck) X(ClassTypeId) X(GetBillDetail)                                                                  \
  /* BaseClassEvent */                                                                                                \
  X(SetRootNode) X(SelectedNodeID) X(CurrentItemID) X(ActiveControl) X(RefreshItems)                                  \
  /* session, factory, task mutex */                                                                                  \
  X(GetProperty) X(PropsString) X(UserName) X(TaskExec) X(CommitTask) X(CreateServerObject)                           \
  X(GetTaskIdByUserInfo) X(BatchCommitTask)                                                                           \
  /* general ledger */                                                                                                \
  X(AccessCheck) X(WriteLog) X(GetCurrency) X(ScaleX) X(ExchangeRate) X(Operator) X(DeleteOptions) X(CurrencySet)     \
  X(Refresh)                                                                                                          \
  /* server objects */                                                                                                \
  X(GetSysValue) X(ExecuteSQL) X(GetRptTransDate) X(GetDateExt) X(Execute) X(SetFrmFont) X(ShowHelp)                  \
  X(GetStatusMoneyAndCredit) X(LoadVoucher) X(CheckVoucherRight) X(GetDataRight) X(GetBillTypeID) X(CheckBill)        \
  X(CheckBillSimple) X(GetUnCheckAmountFor) X(GetSourceBillData) X(GetRPInOutTypeInfo) X(FormatText)                  \
  X(GetAPBillInfo) X(GetARBillInfo) X(IsSameAcctId) X(GetBill) X(GetRpt131Data) X(GetRpt132Data)                      \
  /* related bills viewer */                                                                                          \
  X(BillTypeID) X(BillInterID) X(ShowList)                                                                            \
  X(CheckRPInOutTypeUsed) X(GetData)                                                                                  \
  /* bill list window */                                                                                              \
  X(SystemName) X(LocalCnn) X(ListRecordset) X(ListRSFieldVect) X(SetOpt)                                             \
  /* result grid window */                                                                                            \
  X(Cols) X(Titles) X(SetColWidth) X(Show)                                                                            \
  /* the public classes of this library */                                                                            \
  X(m_LstInterface) X(Inside) X(DoOptToBill)                                                                          \
  /* the form of the bar templates */                                                                                 \
  X(BillType) X(InitControls)                                                                                         \
  /* the block of a grid control */                                                                                   \
  X(BlockMode) X(Row) X(Col) X(Row2) X(Col2) X(Lock)                                                                  \
  /* the grid control of a form */                                                                                    \
  X(MaxRows) X(MaxCols) X(RowHeight) X(ColWidth) X(ColHidden) X(CellType) X(TypeFloatDecimalPlaces) X(TypeFloatMin)   \
  X(TypeFloatMax) X(AllowColMove) X(AllowRowMove) X(Appearance) X(EditEnterAction) X(EditModeReplace)                 \
  X(ButtonDrawMode) X(SelBackColor) X(SelForeColor) X(ShadowColor) X(GridColor) X(ShadowDark) X(LockBackColor)        \
  X(UserResize)                                                                                                       \
  /* partial refunds and their form */                                                                                \
  X(getRS) X(FormatGrid) X(HideCol) X(FInterID) X(vctBackData) X(OK) X(TotalBackAmount)

#define ARAP_EVENTS(X)                                                                                                \
  X(BarInitialize) X(MenuBarInitialize) X(BeforeLoadBill) X(BeforLoadBillFillData) X(AfterLoadBill) X(AfterNewBill)   \
  X(AfterNewEmptyData) X(BeginEdit) X(Change) X(HeadCtlLostFocus) X(AfterDoAction) X(BeforeSelBills)                  \
  X(AfterSelBillBeforeFillData) X(AfterSelBill) X(BeforeSave) X(AfterSave) X(SaveBillFailed) X(MenuBarClick)          \
  X(AfterGetData) X(RefreshList) X(ClassGroupSelected)
// clang-format on

#define ARAP_ENUMERATOR(name) name,
#define ARAP_SPELLING(name) #name,

enum class Member : std::uint16_t { ARAP_MEMBERS(ARAP_ENUMERATOR) };
enum class Event : std::uint8_t { ARAP_EVENTS(ARAP_ENUMERATOR) };

inline constexpr auto kMemberNames = std::to_array<std::string_view>({ARAP_MEMBERS(ARAP_SPELLING)});
inline constexpr auto kEventNames = std::to_array<std::string_view>({ARAP_EVENTS(ARAP_SPELLING)});

#undef ARAP_ENUMERATOR
#undef ARAP_SPELLING

/// The name as this library spells it. Automation compares names without regard to case.
constexpr std::string_view name_of(Member member) { return kMemberNames[static_cast<std::size_t>(member)]; }
constexpr std::string_view name_of(Event event) { return kEventNames[static_cast<std::size_t>(event)]; }

/// Looks a name up without regard to case; nothing when the contract doesn't have it.
std::optional<Member> find_member(std::string_view sName);
std::optional<Event> find_event(std::string_view sName);

}  // namespace arap
