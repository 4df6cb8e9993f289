#pragma once

#include <QList>
#include <QObject>

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/bars.h"

class QAbstractScrollArea;
class QAction;
class QKeySequence;
class QMenuBar;
class QToolBar;

namespace desk {

/// The key that runs a command of a bar, or several: "Ctrl+N; Ins".
struct Shortcut {
  std::string_view sTool;
  const char* sKeys;
};

/// How a bar is laid out: the band that becomes the toolbar, the one that pops up over the grid, while the others
/// become menus, and its keys.
struct BarLayout {
  std::string sToolBand;
  std::string sPopBand;
  std::span<const Shortcut> shortcuts;
};

/// The bar of a window as menus and a toolbar: visible, enabled, checked, caption and group as the bar has them. The
/// selections and the voucher command stand at the end of the toolbar when no band holds them.
class BarView final : public QObject {
  Q_OBJECT
 public:
  using Press = std::function<void(const std::string& sTool)>;

  BarView(Bar& bar, BarLayout barLayout, QMenuBar& menus, QToolBar& tools, Press press, QObject* pParent);

  /// After each command: what the bar looks like now.
  void refresh();
  QAction* action(const std::string& sTool) const;
  /// A right click on the grid, or the Menu key, opens the popup band there.
  void pop_up_over(QAbstractScrollArea& grid);

 private:
  void build();
  void fill(QWidget& place, const BarBand& band);
  void pop_up(QWidget& grid, const QPoint& place);
  QAction* add_action(BarTool& tool);
  QList<QKeySequence> keys_of(const std::string& sTool) const;
  std::vector<std::vector<const BarTool*>> layout() const;

  Bar& bar_;
  BarLayout layout_;
  QMenuBar& menus_;
  QToolBar& tools_;
  Press press_;
  std::map<std::string, QAction*> actions_;
  std::vector<std::vector<const BarTool*>> built_;
};

}  // namespace desk
