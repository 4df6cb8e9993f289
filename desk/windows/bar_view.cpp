#include "windows/bar_view.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <set>

#include "frame/conversions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

struct Shortcut {
  std::string_view sTool;
  const char* sKeys;
};
constexpr std::array kShortcuts{
    Shortcut{"mnuFileNew", "Ctrl+N"},        Shortcut{"mnuFileSave", "Ctrl+S"},
    Shortcut{"mnuFilePrint", "Ctrl+P"},      Shortcut{"mnuFileExit", "Ctrl+W"},
    Shortcut{"mnuEditCheck", "F4"},          Shortcut{"mnuEditUnCheck", "Shift+F4"},
    Shortcut{"mnuDataAutoSumAmt", "F8"},     Shortcut{"mnuDataAutoPartAmt", "Shift+F8"},
    Shortcut{"mnuEditAddRow", "Ctrl+Ins"},   Shortcut{"mnuEditDelRow", "Ctrl+Del"},
    Shortcut{"mnuSelectBill_2000001", "F6"}, Shortcut{"mnuSelectBill_2000002", "F6"},
    Shortcut{"mnuViewVch", "Ctrl+Shift+V"},
};

/// Selection commands that stand in no band.
std::vector<const BarTool*> unplaced(const Bar& bar) {
  std::set<const BarTool*> placed;
  for (const auto& band : bar.bands()) {
    for (const auto& tool : band->aTools) placed.insert(tool.get());
  }
  std::vector<const BarTool*> tools;
  for (const auto& tool : bar.tools()) {
    if (!placed.contains(tool.get()) && tool->sName.starts_with("mnuSelectBill_2")) tools.push_back(tool.get());
  }
  return tools;
}

void add_separator(QWidget& place) {
  auto* pSeparator = new QAction(&place);
  pSeparator->setSeparator(true);
  place.addAction(pSeparator);
}

}  // namespace

QString shortcut_of(const std::string& sTool) {
  const auto found = std::find_if(kShortcuts.begin(), kShortcuts.end(),
                                  [&](const Shortcut& each) { return arap::EqualsNoCase(each.sTool, sTool); });
  return found == kShortcuts.end() ? QString() : QString::fromLatin1(found->sKeys);
}

BarView::BarView(Bar& bar, std::string sToolBand, QMenuBar& menus, QToolBar& tools, Press press, QObject* pParent)
    : QObject(pParent),
      bar_(bar),
      tool_band_(std::move(sToolBand)),
      menus_(menus),
      tools_(tools),
      press_(std::move(press)) {
  refresh();
}

/// What stands where; the menus are built again only when this moves.
std::vector<std::vector<const BarTool*>> BarView::layout() const {
  std::vector<std::vector<const BarTool*>> places;
  for (const auto& band : bar_.bands()) {
    places.emplace_back();
    for (const auto& tool : band->aTools) places.back().push_back(tool.get());
  }
  places.push_back(unplaced(bar_));
  return places;
}

QAction* BarView::add_action(BarTool& tool) {
  const auto [place, bNew] = actions_.try_emplace(tool.sName, nullptr);
  if (!bNew) return place->second;
  auto* pAction = new QAction(this);
  pAction->setObjectName(qt(tool.sName));
  pAction->setShortcut(QKeySequence(shortcut_of(tool.sName)));
  connect(pAction, &QAction::triggered, this, [this, sName = tool.sName] { press_(sName); });
  tools_.parentWidget()->addAction(pAction);
  return place->second = pAction;
}

void BarView::build() {
  menus_.clear();
  tools_.clear();
  for (const auto& band : bar_.bands()) {
    const bool bToolBar = arap::EqualsNoCase(band->sName, tool_band_);
    if (!bToolBar && band->aTools.empty()) continue;
    QWidget* pPlace = bToolBar ? static_cast<QWidget*>(&tools_) : menus_.addMenu(qt(band->sCaption));
    for (const auto& tool : band->aTools) {
      if (tool->bBeginGroup) add_separator(*pPlace);
      pPlace->addAction(add_action(*tool));
    }
  }
  for (const BarTool* pTool : unplaced(bar_)) tools_.addAction(add_action(const_cast<BarTool&>(*pTool)));
}

void BarView::refresh() {
  if (auto places = layout(); places != built_) {
    built_ = std::move(places);
    build();
  }
  for (const auto& [sName, pAction] : actions_) {
    const BarTool* pTool = bar_.find_tool(sName);
    if (pTool == nullptr) continue;
    const bool bHasCaption = !pTool->sCaption.empty();
    pAction->setText(qt(bHasCaption ? pTool->sCaption : pTool->sName));
    pAction->setStatusTip(qt(pTool->sDescription));
    pAction->setVisible(pTool->bVisible && bHasCaption);
    pAction->setEnabled(pTool->bEnabled);
    pAction->setCheckable(pTool->bChecked);
    pAction->setChecked(pTool->bChecked);
  }
}

QAction* BarView::action(const std::string& sTool) const {
  const auto found = actions_.find(sTool);
  return found == actions_.end() ? nullptr : found->second;
}

}  // namespace desk
