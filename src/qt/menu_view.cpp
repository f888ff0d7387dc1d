#include "qt/menu_view.h"

#include <QMenu>
#include <algorithm>
#include <map>

#include "qt/fitted_text.h"
#include "qt/scale.h"
#include "qt/tips.h"
#include "qt/to_qt.h"
#include "shell/commands.h"

namespace torvale {
namespace {

bool HasChildren(const std::vector<NamedControl>& menus, std::string_view name) {
  return std::any_of(menus.begin(), menus.end(), [&](const NamedControl& c) { return c.parent == name; });
}

// Takes out what leads nowhere, from the leaves inwards.
void Prune(std::vector<NamedControl>& menus) {
  const auto leads_nowhere = [&](const NamedControl& c) { return !HasCommand(c.name) && !HasChildren(menus, c.name); };
  for (;;) {
    const auto dead = std::find_if(menus.begin(), menus.end(), leads_nowhere);
    if (dead == menus.end()) return;
    menus.erase(dead);
  }
}

// The key of an entry that is no shortcut of the window stands behind a tab, where the menu shows shortcuts.
QString CaptionOf(const ControlFacts& facts, const Control& control) {
  QString caption = ToQt(control.caption);
  if (facts.shows_name) caption.replace('&', "&&");
  if (facts.shortcut_owner == ShortcutOwner::kWindow) return caption;
  return caption + '\t' + QKeySequence(ToQt(facts.shortcut)).toString(QKeySequence::NativeText);
}

}  // namespace

MenuView::MenuView(std::vector<NamedControl> menus, QMenuBar& bar, const Event& click, const Event& opened) {
  std::erase_if(menus, [](const NamedControl& c) { return c.kind != ControlKind::kMenu; });
  Prune(menus);
  std::map<std::string_view, QMenu*> open;
  for (const NamedControl& named : menus) {
    const ControlFacts& facts = *named.facts;
    QMenu* parent = named.parent.empty() ? nullptr : open[named.parent];
    if (parent != nullptr && facts.starts_group && !parent->isEmpty()) parent->addSeparator();
    QAction* action = nullptr;
    if (HasChildren(menus, named.name)) {
      QMenu* menu = parent != nullptr ? parent->addMenu(QString()) : bar.addMenu(QString());
      menu->setToolTipsVisible(true);
      QObject::connect(menu, &QMenu::aboutToShow, [opened, name = std::string(named.name)] { opened(name); });
      open[named.name] = menu;
      action = menu->menuAction();
    } else {
      action = parent != nullptr ? parent->addAction(QString()) : bar.addAction(QString());
      if (facts.shortcut_owner == ShortcutOwner::kWindow) action->setShortcut(QKeySequence(ToQt(facts.shortcut)));
      QObject::connect(action, &QAction::triggered, [click, name = std::string(named.name)] { click(name); });
    }
    action->setObjectName(ToQt(named.name));
    entries_.push_back({&facts, named.control, action, std::nullopt});
  }
}

void MenuView::Draw() {
  for (Entry& entry : entries_) {
    const Control& control = *entry.control;
    // A click on a ticked entry has changed the tick already.
    if (entry.action->isChecked() != control.ticked) {
      entry.action->setCheckable(true);
      entry.action->setChecked(control.ticked);
    }
    if (entry.drawn == control) continue;
    entry.action->setText(CaptionOf(*entry.facts, control));
    entry.action->setToolTip(TipText(control.tool_tip));
    entry.action->setEnabled(control.enabled);
    entry.action->setVisible(control.visible);
    entry.drawn = control;
  }
}

void PopUpMenu(Program& program, const std::vector<std::string_view>& entries, const QPoint& at, QWidget& parent,
               const MenuView::Event& click) {
  if (entries.empty()) return;
  auto* menu = new QMenu(&parent);
  menu->setObjectName("gridMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  SetTextSize(*menu, Scale(program.main.zoom).Zoomed(kTextPixels));
  for (const std::string_view entry : entries) {
    const Reach reach = ReachOf(program, entry);
    if (reach == Reach::kHidden || reach == Reach::kUnknown) continue;
    const std::string name(entry);
    QAction* action = menu->addAction(ToQt(FindControl(program, name)->caption));
    action->setObjectName(ToQt(name));
    action->setEnabled(reach == Reach::kUsable);
    QObject::connect(action, &QAction::triggered, [click, name] { click(name); });
  }
  menu->popup(at);
}

}  // namespace torvale
