#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/bars.h"

class QAction;
class QMenuBar;
class QToolBar;

namespace desk {

/// The bar of a window as menus and a toolbar: visible, enabled, checked, caption and group as the bar has them. A
/// selection command that no band holds stands at the end of the toolbar, so that it can be reached.
class BarView final : public QObject {
  Q_OBJECT
 public:
  using Press = std::function<void(const std::string& sTool)>;

  /// `sToolBand` is the band that becomes the toolbar, the others become menus.
  BarView(Bar& bar, std::string sToolBand, QMenuBar& menus, QToolBar& tools, Press press, QObject* pParent);

  /// After each command: what the bar looks like now.
  void refresh();
  QAction* action(const std::string& sTool) const;

 private:
  void build();
  QAction* add_action(BarTool& tool);
  std::vector<std::vector<const BarTool*>> layout() const;

  Bar& bar_;
  std::string tool_band_;
  QMenuBar& menus_;
  QToolBar& tools_;
  Press press_;
  std::map<std::string, QAction*> actions_;
  std::vector<std::vector<const BarTool*>> built_;
};

/// The key that runs a command, "" for none: Ctrl+S saves, Ctrl+N makes a new bill and so on.
QString shortcut_of(const std::string& sTool);

}  // namespace desk
