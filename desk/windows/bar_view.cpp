#include "windows/bar_view.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <set>

#include "frame/conversions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

/// Commands that a user must reach, in whatever band they stand or in none: selections, and the bill's voucher.
bool must_be_reached(const BarTool& tool) {
  return tool.sName.starts_with("mnuSelectBill_2") || arap::EqualsNoCase(tool.sName, "mnuViewVch");
}

std::vector<const BarTool*> unplaced(const Bar& bar) {
  std::set<const BarTool*> placed;
  for (const auto& band : bar.bands()) {
    for (const auto& tool : band->aTools) placed.insert(tool.get());
  }
  std::vector<const BarTool*> tools;
  for (const auto& tool : bar.tools()) {
    if (!placed.contains(tool.get()) && must_be_reached(*tool)) tools.push_back(tool.get());
  }
  return tools;
}

/// Whether anything is to be seen in the menu.
bool has_commands(const QMenu& menu) {
  const QList<QAction*> actions = menu.actions();
  return std::any_of(actions.begin(), actions.end(),
                     [](const QAction* pAction) { return !pAction->isSeparator() && pAction->isVisible(); });
}

void add_separator(QWidget& place) {
  auto* pSeparator = new QAction(&place);
  pSeparator->setSeparator(true);
  place.addAction(pSeparator);
}

}  // namespace

QList<QKeySequence> BarView::keys_of(const std::string& sTool) const {
  const auto found = std::find_if(layout_.shortcuts.begin(), layout_.shortcuts.end(),
                                  [&](const Shortcut& each) { return arap::EqualsNoCase(each.sTool, sTool); });
  return found == layout_.shortcuts.end() ? QList<QKeySequence>()
                                          : QKeySequence::listFromString(QString::fromLatin1(found->sKeys));
}

BarView::BarView(Bar& bar, BarLayout barLayout, QMenuBar& menus, QToolBar& tools, Press press, QObject* pParent)
    : QObject(pParent),
      bar_(bar),
      layout_(std::move(barLayout)),
      menus_(menus),
      tools_(tools),
      press_(std::move(press)) {
  refresh();
}

void BarView::pop_up_over(QAbstractScrollArea& grid) {
  grid.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&grid, &QWidget::customContextMenuRequested, this,
          [this, &grid](const QPoint& place) { pop_up(grid, grid.viewport()->mapToGlobal(place)); });
}

void BarView::pop_up(QWidget& grid, const QPoint& place) {
  const BarBand* pBand = bar_.find_band(layout_.sPopBand);
  if (pBand == nullptr) return;
  auto* pMenu = new QMenu(&grid);
  pMenu->setObjectName(QStringLiteral("popup"));
  connect(pMenu, &QMenu::aboutToHide, pMenu, &QObject::deleteLater);
  fill(*pMenu, *pBand);
  if (has_commands(*pMenu)) {
    pMenu->popup(place);
  } else {
    delete pMenu;
  }
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
  pAction->setShortcuts(keys_of(tool.sName));
  connect(pAction, &QAction::triggered, this, [this, sName = tool.sName] { press_(sName); });
  tools_.parentWidget()->addAction(pAction);
  return place->second = pAction;
}

void BarView::fill(QWidget& place, const BarBand& band) {
  for (const auto& tool : band.aTools) {
    if (tool->bBeginGroup) add_separator(place);
    place.addAction(add_action(*tool));
  }
}

void BarView::build() {
  menus_.clear();
  tools_.clear();
  for (const auto& band : bar_.bands()) {
    if (arap::EqualsNoCase(band->sName, layout_.sToolBand)) {
      fill(tools_, *band);
    } else if (!band->aTools.empty() && !arap::EqualsNoCase(band->sName, layout_.sPopBand)) {
      fill(*menus_.addMenu(qt(band->sCaption)), *band);
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
    const QString sKeys = pAction->shortcut().toString(QKeySequence::NativeText);
    pAction->setToolTip(sKeys.isEmpty() ? pAction->text() : QStringLiteral("%1 (%2)").arg(pAction->text(), sKeys));
    pAction->setStatusTip(qt(pTool->sDescription));
    pAction->setVisible(pTool->bVisible && bHasCaption);
    pAction->setEnabled(pTool->bEnabled);
    pAction->setCheckable(pTool->bChecked);
    pAction->setChecked(pTool->bChecked);
  }
  // A menu of which nothing is to be seen isn't there either.
  for (QAction* pMenu : menus_.actions()) pMenu->setVisible(has_commands(*pMenu->menu()));
}

QAction* BarView::action(const std::string& sTool) const {
  const auto found = actions_.find(sTool);
  return found == actions_.end() ? nullptr : found->second;
}

}  // namespace desk
