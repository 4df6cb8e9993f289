#include "settlement/detail_form.h"

#include <array>
#include <initializer_list>
#include <string_view>

#include "frame/bill_fields.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// Columns that the rules name.
enum GridColumn : std::int32_t {
  kRate = 10,
  kLastSourceColumn = 12,
  kBackAmountFor = 13,
  kBackAmount = 14,
  kInterID = 15,
  kClassID = 16,
};

enum class CellKind : std::uint8_t { Text, Amount, Rate };

/// A column that is filled from the source bills. Amounts and the rate are numbers, Null reads as 0, in texts as "".
struct SourceColumn {
  std::string_view sTitle;
  Key sField;
  CellKind kind;
};

constexpr std::array<SourceColumn, kLastSourceColumn> kSourceColumns{{
    {"源单编号", "FBillNo"_key, CellKind::Text},
    {"单据日期", "FBillDate"_key, CellKind::Text},
    {"单据金额", "FBillAmountFor"_key, CellKind::Amount},
    {"单据金额(本位币)", "FBillAmount"_key, CellKind::Amount},
    {"已付款金额", "FBillPayAmountFor"_key, CellKind::Amount},
    {"未付款金额", "FBillUnPayAmountFor"_key, CellKind::Amount},
    {"实付金额", "FBillSettleAmountFor"_key, CellKind::Amount},
    {"实付金额(本位币)", "FBillSettleAmount"_key, CellKind::Amount},
    {"发票币别", "FCurrencyName"_key, CellKind::Text},
    {"当期汇率", "FEntryExchangeRate"_key, CellKind::Rate},
    {"备注", "FBillNote"_key, CellKind::Text},
    {"累计退款金额", "FAllBackAmountFor"_key, CellKind::Amount},
}};

/// A colour as the control takes it, blue in the highest byte.
constexpr std::int32_t Rgb(std::int32_t nRed, std::int32_t nGreen, std::int32_t nBlue) {
  return nRed | nGreen << 8 | nBlue << 16;
}

double AmountOf(const Recordset& rs, Key sField) { return NumberOf(NullToValue(rs.Value(sField), std::int32_t{0})); }

}  // namespace

void FrmDetail::FormatGrid(const Spread& oGrid) {
  oGrid.Set(Member::AllowColMove, false);
  oGrid.Set(Member::AllowRowMove, false);
  oGrid.Set(Member::Appearance, std::int32_t{1});
  oGrid.Set(Member::EditEnterAction, std::int32_t{5});
  oGrid.Set(Member::EditModeReplace, true);
  oGrid.Set(Member::ButtonDrawMode, std::int32_t{1});
  oGrid.Set(Member::SelBackColor, Rgb(234, 235, 255));
  oGrid.Set(Member::SelForeColor, Rgb(33, 123, 233));
  oGrid.Set(Member::ShadowColor, Rgb(174, 198, 230));
  oGrid.Set(Member::GridColor, Rgb(162, 162, 162));
  oGrid.Set(Member::ShadowDark, Rgb(162, 162, 162));
  oGrid.Set(Member::LockBackColor, std::int32_t{0xFEEDF8});
  oGrid.Set(Member::UserResize, std::int32_t{1});
  oGrid.SetRowHeight(0, 22);
  oGrid.SetCellText(0, 0, LoadText("序号"));
}

void FrmDetail::HideCol(const Spread& oGrid, std::int32_t nCol) { oGrid.HideColumn(nCol); }

Variant FrmDetail::invoke(Member member, Access access, Arguments args) {
  const bool bPut = access == Access::Put || access == Access::PutRef;
  switch (member) {
    case Member::FormatGrid: FormatGrid(Spread(argument(args, 0))); return {};
    case Member::HideCol: HideCol(Spread(argument(args, 0)), ToLong(argument(args, 1))); return {};
    case Member::FInterID:
      if (!bPut) no_such_member(member);
      SetFInterID(TextOf(argument(args, 0)));
      return {};
    case Member::vctBackData:
      if (bPut) no_such_member(member);
      return m_vct;
    case Member::OK:
      if (bPut) no_such_member(member);
      return m_bOk;
    case Member::TotalBackAmount:
      if (bPut) no_such_member(member);
      return m_dTotal;
    default: no_such_member(member);
  }
}

void FrmDetail::Show() {
  const Ref<FrmDetail> held(this);
  try {
    CurrentPlatform().ShowGridForm(*this);
  } catch (const AutomationError&) {
    fpGrid = {};
    throw;
  }
  fpGrid = {};
}

void FrmDetail::Form_Load(const Ref<Object>& oGrid) {
  fpGrid = Spread(oGrid);
  ApplyFormFont(Ref<Object>(this));
  m_vct = make_object<Collection>();
  FormatGrid(fpGrid);
  SetUpColumns();
  ShowSourceBills();
}

void FrmDetail::SetUpColumns() const {
  fpGrid.SetRowHeight(-1, 12.5);
  fpGrid.SetRowHeight(0, 24.5);
  fpGrid.SetMaxCols(kClassID);
  fpGrid.SetMaxRows(1);
  for (std::int32_t nCol = 1; nCol <= kClassID; ++nCol) fpGrid.SetColWidth(nCol, 10);
  std::int32_t nCol = 0;
  for (const SourceColumn& column : kSourceColumns) fpGrid.SetCellText(0, ++nCol, LoadText(column.sTitle));
  fpGrid.SetCellText(0, kBackAmountFor, LoadText("退款金额"));
  fpGrid.SetCellText(0, kBackAmount, LoadText("退款金额(本位币)"));
  fpGrid.SetCellText(0, kInterID, ""_key);
  fpGrid.SetCellText(0, kClassID, ""_key);
  HideCol(fpGrid, kInterID);
  HideCol(fpGrid, kClassID);
}

void FrmDetail::ShowSourceBills() const {
  const Ref<Object> oService = CreateServerObject("NUVlpsArAPBill.clsApBill");
  std::array<Variant, 2> args{GetPropsString(), m_sInterID};
  const Recordset rs(oService->invoke(Member::GetSourceBillData, Access::Call, args));
  const std::int32_t nRecords = rs.RecordCount();
  fpGrid.SetMaxRows(nRecords == 0 ? 1 : nRecords);
  FormatColumns();
  LockColumns();
  for (std::int32_t nRow = 1; nRow <= nRecords; ++nRow) {
    FillRow(nRow, rs);
    rs.MoveNext();
  }
}

void FrmDetail::FormatColumns() const {
  constexpr double kLargestAmount = 999999999999.99;
  constexpr double kLargestRate = 999999999.999999;
  for (const std::int32_t nCol : {3, 4, 5, 6, 7, 8, 12, 13, 14}) {
    fpGrid.SetNumberColumn(nCol, 2, -kLargestAmount, kLargestAmount);
  }
  fpGrid.SetNumberColumn(kRate, 2, 0, kLargestRate);
}

/// The amount to be refunded alone is free.
void FrmDetail::LockColumns() const {
  const std::int32_t nRows = fpGrid.MaxRows();
  LockGridBlock(fpGrid.object(), 1, 1, nRows, kLastSourceColumn, true);
  LockGridBlock(fpGrid.object(), 1, kBackAmount, nRows, kBackAmount, true);
}

void FrmDetail::FillRow(std::int32_t nRow, const Recordset& rs) const {
  std::int32_t nCol = 0;
  for (const SourceColumn& column : kSourceColumns) {
    ++nCol;
    switch (column.kind) {
      case CellKind::Text: fpGrid.SetCellText(nRow, nCol, NullToValue(rs.Value(column.sField), ""_key)); break;
      case CellKind::Amount:
      case CellKind::Rate:
        fpGrid.SetCellValue(nRow, nCol, NullToValue(rs.Value(column.sField), std::int32_t{0}));
        break;
    }
  }
  FillBackAmounts(nRow, rs);
  fpGrid.SetCellText(nRow, kInterID, NullToValue(rs.Value("FInterID"_key), ""_key));
  fpGrid.SetCellText(nRow, kClassID, NullToValue(rs.Value("FClassID_SRC"_key), ""_key));
}

/// Nothing entered before: all that can still be refunded.
void FrmDetail::FillBackAmounts(std::int32_t nRow, const Recordset& rs) const {
  const double dBack = AmountOf(rs, "FBackAmountFor"_key);
  if (dBack != 0) {
    fpGrid.SetCellValue(nRow, kBackAmountFor, dBack);
    fpGrid.SetCellValue(nRow, kBackAmount, AmountOf(rs, "FBackAmount"_key));
    return;
  }
  const double dPaid = AmountOf(rs, "FBillSettleAmountFor"_key);
  fpGrid.SetCellValue(nRow, kBackAmountFor, dPaid - AmountOf(rs, "FAllBackAmountFor"_key));
  // It divides by the rate as shown, and takes the paid amount, not the one to be refunded; required.
  const double dRate = ToDouble(fpGrid.CellText(nRow, kRate));
  fpGrid.SetCellValue(nRow, kBackAmount, Round(Divide(dPaid, dRate), 2));
}

/// Nothing is validated: the bounds of the cells are the only check.
void FrmDetail::CmdOk_Click() {
  m_dTotal = 0;
  const std::int32_t nRows = fpGrid.MaxRows();
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    const Variant vBack = fpGrid.CellValue(nRow, kBackAmountFor);
    const Dictionary oRow = NewDictionary();
    oRow.SetValue("FBackAmountFor"_key, vBack);
    m_dTotal += NumberOf(vBack);
    oRow.SetValue("FInterId"_key, fpGrid.CellText(nRow, kInterID));
    oRow.SetValue("FClassID_SRC"_key, fpGrid.CellText(nRow, kClassID));
    m_vct->Add(oRow);
  }
  m_bOk = true;
}

}  // namespace arap
