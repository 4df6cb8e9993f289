#pragma once

#include <cstdint>
#include <string>

#include "frame/collection.h"
#include "frame/contract_grid.h"
#include "frame/platform.h"

namespace arap {

/// The form of a partial refund: the source bills of one payment with what was refunded of each, and the amounts to be
/// refunded now. Nothing opens it. As an object it has FormatGrid, HideCol, FInterID (to be written only), vctBackData,
/// OK and TotalBackAmount.
class FrmDetail final : public Object, private GridForm {
 public:
  std::string type_name() const override { return "frmDetail"; }
  Variant invoke(Member member, Access access, Arguments args) override;

  /// Look and behaviour of the grid, apart from its columns.
  static void FormatGrid(const Spread& oGrid);
  static void HideCol(const Spread& oGrid, std::int32_t nCol);

  /// The payment whose source bills are shown; set before the form is shown.
  void SetFInterID(std::string sInterID) { m_sInterID = std::move(sInterID); }
  /// After OK a Dictionary a grid row with FBackAmountFor, FInterId and FClassID_SRC. Nothing before the form was shown
  /// and after Unload.
  const Ref<Collection>& vctBackData() const { return m_vct; }
  /// True after OK.
  bool OK() const { return m_bOk; }
  /// The sum of FBackAmountFor.
  double TotalBackAmount() const { return m_dTotal; }

  /// Shows the form until it is closed. Raises what its load raises, and 429 where the grid control isn't installed.
  void Show();
  /// Lets go of the result.
  void Unload() { m_vct = nullptr; }

 private:
  void Form_Load(const Ref<Object>& oGrid) override;
  void CmdOk_Click() override;
  void CmdCancel_Click() override { m_bOk = false; }

  void SetUpColumns() const;
  void ShowSourceBills() const;
  void FormatColumns() const;
  void LockColumns() const;
  void FillRow(std::int32_t nRow, const Recordset& rs) const;
  void FillBackAmounts(std::int32_t nRow, const Recordset& rs) const;

  Spread fpGrid;
  std::string m_sInterID;
  Ref<Collection> m_vct;
  bool m_bOk = false;
  double m_dTotal = 0;
};

}  // namespace arap
