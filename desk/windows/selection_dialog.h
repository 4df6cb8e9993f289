#pragma once

#include <QAbstractTableModel>
#include <QDialog>

#include <map>
#include <vector>

#include "data/money.h"
#include "engine/host.h"

class QLabel;
class QLineEdit;
class QTableView;

namespace desk {

/// Names of the currencies by their number.
using CurrencyNames = std::map<std::int32_t, QString>;

/// The source rows of a selection with a tick each, narrowed down by a text.
class SourceModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  SourceModel(const SourceList& list, CurrencyNames currencies, QObject* pParent);

  void narrow(const QString& sText);
  void tick(int nRow, bool bTicked);
  void tick_all(bool bTicked);
  bool is_ticked(int nRow) const { return ticked_[seen_[static_cast<std::size_t>(nRow)]]; }
  /// The ticked rows, in the order of the list, whether they are in view or not.
  std::vector<std::size_t> chosen() const;
  /// What is open on the ticked rows, by currency in the order in which they come.
  std::vector<std::pair<QString, Money>> open_sums() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int nRole) const override;
  QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& vValue, int nRole) override;

 Q_SIGNALS:
  void ticks_changed();

 private:
  struct Column {
    std::string sName;
    QString sCaption;
    bool bMoney;
  };
  void add_column(const char* sCaption, std::initializer_list<const char*> aNames, bool bMoney);
  QString text(std::size_t nRow, const Column& column) const;

  QString currency(std::size_t nRow) const;

  const SourceList& list_;
  CurrencyNames currencies_;
  std::vector<Column> columns_;
  std::vector<std::size_t> seen_;
  std::vector<bool> ticked_;
};

/// Asks which source bills to take. Space ticks, Enter takes the ticked rows, or the current one when none is ticked.
class SelectionDialog final : public QDialog {
  Q_OBJECT
 public:
  SelectionDialog(const SourceList& list, CurrencyNames currencies, QWidget* pParent);
  /// Rows of the list, 0-based; none when the dialog was given up.
  std::vector<std::size_t> choose();

 protected:
  bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

 private:
  void show_sums();
  void take();

  SourceModel model_;
  QTableView* table_;
  QLineEdit* filter_;
  QLabel* sums_;
};

}  // namespace desk
