#include "qt/tool_bar_view.h"

#include <QToolButton>

#include "qt/control_view.h"
#include "qt/vector_picture.h"
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
  for (const ToolButton& button : ToolButtons()) {
    if (!button.report && !HasCommand(button.command)) continue;
    if (button.starts_group) bar_.addSeparator();
    QAction* action = bar_.addAction(OwnIcon(button.icon), ToQt(button.caption));
    const std::string name = ToolButtonName(button.key);
    const std::string tip = ToolTipOf(program_, button);
    action->setObjectName(ToQt(name));
    action->setToolTip(TipText(tip));
    QWidget* widget = bar_.widgetForAction(action);
    widget->setObjectName(ToQt(name));
    widget->setFocusPolicy(Qt::NoFocus);
    widget->setAccessibleName(ToQt(button.caption));
    widget->setAccessibleDescription(ToQt(tip));
    QObject::connect(action, &QAction::triggered, &bar_, [click, name] { click(name); });
    buttons_.push_back({&button, action});
  }
}

void ToolBarView::Draw(const Scale& scale) {
  const int pixels = scale.Zoomed(kIconPixels);
  if (bar_.iconSize().width() != pixels) bar_.setIconSize({pixels, pixels});
  if (bar_.isHidden() == program_.main.tbToolBar.visible) bar_.setVisible(program_.main.tbToolBar.visible);
  for (const Button& button : buttons_) {
    button.action->setEnabled(ReachOfToolButton(program_, *button.button) == Reach::kUsable);
  }
}

int ToolBarView::Height() const {
  return bar_.isHidden() ? 0 : bar_.sizeHint().height();
}

}  // namespace torvale
