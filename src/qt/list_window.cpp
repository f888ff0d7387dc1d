#include "qt/list_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <utility>

#include "qt/grid_view.h"
#include "qt/to_qt.h"
#include "qt/user_events.h"
#include "screen/spoken_names.h"
#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {

ListWindow::ListWindow(Program& program, const std::vector<NamedControl>& controls, const std::string& grid,
                       std::string close, WindowRun run, QWidget* parent)
    : QWidget(parent, Qt::Window), program_(program), run_(std::move(run)), close_(std::move(close)) {
  setWindowModality(Qt::WindowModal);
  for (const NamedControl& named : controls) {
    if (named.kind == ControlKind::kFrame) {
      window_ = named.control;
      setObjectName(ToQt(named.name));
      continue;
    }
    controls_.push_back(MakeControlView(named, this));
    Connect(controls_.back());
    const ControlFacts& facts = *named.facts;
    const bool field = named.kind == ControlKind::kField;
    const QString spoken = ToQt(facts.spoken.empty() ? facts.caption : facts.spoken).remove('&');
    controls_.back().widget->setAccessibleName(field ? ToQt(SpokenNameOf(controls, named)) : spoken);
  }
  HelpOnF1(*this, program_, grid, run_);
}

void ListWindow::Connect(const ControlView& view) {
  const std::string name(view.named.name);
  view.widget->installEventFilter(this);
  if (auto* button = qobject_cast<QPushButton*>(view.widget)) {
    connect(button, &QPushButton::clicked, this, [this, name] { RunClick(name); });
  } else if (auto* edit = qobject_cast<QLineEdit*>(view.widget)) {
    ConnectField(*edit, program_, name, syncing_, run_);
  } else if (view.named.kind == ControlKind::kGrid) {
    static_cast<GridView&>(*view.widget).Connect(KeysAndClicks(program_, name, run_));
  } else if (auto* label = qobject_cast<QLabel*>(view.widget)) {
    label->setWordWrap(true);
  }
}

void ListWindow::RunClick(const std::string& name) {
  run_([&] { Click(program_, name); });
}

// Esc comes here from whatever has the focus, since nothing in the window takes it.
void ListWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return RunClick(close_);
  QWidget::keyPressEvent(event);
}

void ListWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunClick(close_);
}

bool ListWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && !syncing_) {
    run_([&] { FocusGained(program_, watched->objectName().toStdString()); });
  }
  return QWidget::eventFilter(watched, event);
}

// As large as what stands in it, with the same margin on every side.
void ListWindow::FitSize() {
  QRect all;
  for (const ControlView& view : controls_) all = all.united(view.widget->geometry());
  setFixedSize(all.right() + 1 + all.left(), all.bottom() + 1 + all.top());
}

void ListWindow::DrawControls() {
  for (ControlView& view : controls_) {
    DrawControl(view, Scale(program_.main.zoom));
    if (view.named.kind == ControlKind::kGrid) static_cast<GridView&>(*view.widget).Draw(Scale(program_.main.zoom));
  }
  if (std::exchange(drawn_zoom_, program_.main.zoom) != program_.main.zoom) FitSize();
}

// What the program has moved the user to.
void ListWindow::FollowFocus() {
  for (const ControlView& view : controls_) {
    if (view.named.name == program_.main.focus && !view.widget->hasFocus()) view.widget->setFocus();
  }
}

void ListWindow::Sync() {
  const bool shown = window_->visible && !program_.main.closed;
  const bool was_syncing = std::exchange(syncing_, true);
  if (shown) {
    if (const QString title = ToQt(window_->caption); windowTitle() != title) setWindowTitle(title);
    DrawControls();
    if (isVisible()) FollowFocus();
  }
  syncing_ = was_syncing;
  if (shown == isVisible()) return;
  if (shown && parentWidget() != nullptr) move(parentWidget()->geometry().center() - rect().center());
  setVisible(shown);
  if (!shown) return;
  activateWindow();
  FollowFocus();
}

}  // namespace torvale
