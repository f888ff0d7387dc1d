#include "qt/tool_bar_view.h"

#include <QToolButton>

#include "qt/own_icons.h"
#include "qt/tips.h"
#include "qt/to_qt.h"
#include "screen/plain_caption.h"
#include "shell/commands.h"

namespace torvale {
namespace {

constexpr int kIconPixels = 20;  // at 100 percent

}  // namespace

ToolBarView::ToolBarView(Program& program, QToolBar& bar, const std::function<void(const std::string&)>& click)
    : program_(program), bar_(bar) {
  bar_.setObjectName("tbToolBar");
  bar_.setWindowTitle("Tool bar");
  bar_.setMovable(false);
  // Its own menu would offer to take the bar away.
  bar_.setContextMenuPolicy(Qt::PreventContextMenu);
  for (const ControlFacts* button : ToolButtons()) {
    if (!HasToolCommand(*button)) continue;
    if (button->tool.starts_group) bar_.addSeparator();
    const QString spoken = ToQt(PlainCaption(button->caption));
    QAction* action = bar_.addAction(OwnIcon(button->tool.icon), spoken);
    const std::string name = ToolButtonName(button->tool.key);
    const std::string tip = ToolTipOf(*button);
    action->setObjectName(ToQt(name));
    action->setToolTip(TipText(tip));
    QWidget* widget = bar_.widgetForAction(action);
    widget->setObjectName(ToQt(name));
    widget->setFocusPolicy(Qt::NoFocus);
    widget->setAccessibleName(spoken);
    widget->setAccessibleDescription(ToQt(tip));
    QObject::connect(action, &QAction::triggered, &bar_, [click, name] { click(name); });
    buttons_.push_back({button, action});
  }
}

void ToolBarView::Draw(const Scale& scale) {
  const int pixels = scale.Zoomed(kIconPixels);
  if (bar_.iconSize().width() != pixels) bar_.setIconSize({pixels, pixels});
  if (bar_.isHidden() == program_.main.tbToolBar.visible) bar_.setVisible(program_.main.tbToolBar.visible);
  for (const Button& button : buttons_) {
    button.action->setEnabled(ReachOfToolButton(program_, *button.entry) == Reach::kUsable);
  }
}

int ToolBarView::Height() const {
  return bar_.isHidden() ? 0 : bar_.sizeHint().height();
}

}  // namespace torvale
