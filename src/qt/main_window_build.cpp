// The part of the main window that is done once: widgets, names for readers of the screen, keys.
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>
#include <climits>

#include "qt/main_window.h"
#include "shell/commands.h"
#include "shell/main_form.h"
#include "shell/tool_bar.h"

namespace torvale {
namespace {

// How far a label stands ahead of a field in the same line; nothing where it does not.
std::optional<int> Ahead(const Place& label, const Place& field) {
  const bool same_line = label.top < field.top + field.height && field.top < label.top + label.height;
  const int gap = field.left - (label.left + label.width);
  return same_line && gap >= 0 ? std::optional(gap) : std::nullopt;
}

}  // namespace

QWidget* MainWindow::ParentOf(const NamedControl& named) const {
  for (const ControlView& view : controls_) {
    if (view.named.name == named.parent) return view.inside;
  }
  return canvas_;
}

void MainWindow::MakeControls() {
  for (const NamedControl& named : ControlsOf(program_.main)) {
    if (!OnScreen(named.kind)) continue;
    ControlView view = MakeControlView(named, ParentOf(named));
    Connect(view);
    controls_.push_back(std::move(view));
  }
}

GridEvents MainWindow::EventsOf(const std::string& name) {
  GridEvents events;
  if (name != "Grid1" && name != "Grid2") return events;
  events.key = [this, name](const KeyStroke& stroke) { Run([&] { GridKey(program_, name, stroke); }); };
  events.point = [this, name](int row, int column, bool extend) {
    Run([&] { GridPoint(program_, name, row, column, extend); });
  };
  events.menu = [this, name](int row, int column, const QPoint& at) { ShowGridMenu(name, row, column, at); };
  events.widen = [this, name](int column, int width) { Run([&] { WidenColumn(program_, name, column, width); }); };
  if (name == "Grid2") {
    events.mouse = [this](MouseAction action, MouseButton button, int x, int y) {
      Run([&] { ResultMouse(program_, action, button, x, y); });
    };
  }
  return events;
}

void MainWindow::Connect(const ControlView& view) {
  const std::string name(view.named.name);
  if (auto* button = qobject_cast<QPushButton*>(view.widget)) {
    connect(button, &QPushButton::clicked, this, [this, name] { RunClick(name); });
  } else if (auto* edit = qobject_cast<QLineEdit*>(view.widget)) {
    ConnectField(*edit, name);
  } else if (auto* lines = qobject_cast<QListWidget*>(view.widget)) {
    ConnectList(*lines, name);
  } else if (auto* box = qobject_cast<QComboBox*>(view.widget)) {
    connect(box, &QComboBox::activated, this,
            [this, name](int line) { Run([&] { SelectLines(program_, name, {line}); }); });
  } else if (view.named.kind == ControlKind::kGrid) {
    static_cast<GridView&>(*view.widget).Connect(EventsOf(name));
  }
}

void MainWindow::ConnectField(QLineEdit& edit, const std::string& name) {
  const auto select = [this, &edit, name] {
    // A field that loses the focus to a menu drops its selection, which the menu is about to work on.
    if (!syncing_ && edit.hasFocus()) SelectText(program_, name, SelectionOf(edit));
  };
  connect(&edit, &QLineEdit::textEdited, this, [this, name, select](const QString& text) {
    if (syncing_) return;
    Run([&] {
      TypeText(program_, name, text.toStdString());
      select();
    });
  });
  connect(&edit, &QLineEdit::selectionChanged, this, select);
  connect(&edit, &QLineEdit::cursorPositionChanged, this, select);
}

void MainWindow::ConnectList(QListWidget& lines, const std::string& name) {
  connect(&lines, &QListWidget::itemSelectionChanged, this, [this, &lines, name] {
    std::vector<int> selected;
    for (const QModelIndex& index : lines.selectionModel()->selectedIndexes()) selected.push_back(index.row());
    Run([&] { SelectLines(program_, name, selected); });
  });
  connect(&lines, &QListWidget::itemDoubleClicked, this, [this, &lines, name](const QListWidgetItem* item) {
    Run([&] { DoubleClickLine(program_, name, lines.row(item)); });
  });
}

// A field is called what the label ahead of it says, or else what its tool tip or name says.
void MainWindow::NameFields() {
  for (const ControlView& field : controls_) {
    if (field.named.kind != ControlKind::kField) continue;
    const std::string& tip = field.named.control->tool_tip;
    QString spoken = ToQt(tip.empty() ? field.named.name : std::string_view(tip));
    int nearest = INT_MAX;
    for (const ControlView& label : controls_) {
      if (label.named.kind != ControlKind::kLabel || label.named.parent != field.named.parent) continue;
      const auto gap = Ahead(label.named.control->place, field.named.control->place);
      if (!gap || *gap >= nearest) continue;
      nearest = *gap;
      spoken = ToQt(label.named.control->caption);
    }
    field.widget->setAccessibleName(spoken.remove(':').trimmed());
  }
}

void MainWindow::NameGridsAndLists() {
  for (const ControlView& view : controls_) {
    const QString spoken = ToQt(view.named.facts->spoken);
    if (spoken.isEmpty()) continue;
    view.widget->setAccessibleName(spoken);
    if (auto* box = qobject_cast<QComboBox*>(view.widget)) box->setPlaceholderText(spoken);
    if (!view.named.facts->worked_in) view.widget->setFocusPolicy(Qt::NoFocus);
  }
}

void MainWindow::MakeShortcuts() {
  const auto key = [this](const QKeySequence& sequence, auto work) {
    auto* shortcut = new QShortcut(sequence, this);
    connect(shortcut, &QShortcut::activated, this, work);
    return shortcut;
  };
  cancel_key_ = key(QKeySequence(Qt::Key_Escape), [this] { RunClick("cmdCancel"); });
  key(QKeySequence("Ctrl+Shift+Z"), [this] { RunClick("mnuEditRedo"); });
  key(QKeySequence(QKeySequence::Print), [this] { Run([this] { ScreenKey(program_, {Key::kPrint, ""}); }); });
  key(QKeySequence("Ctrl++"), [this] { StepZoom(1); });
  key(QKeySequence("Ctrl+="), [this] { StepZoom(1); });
  key(QKeySequence("Ctrl+-"), [this] { StepZoom(-1); });
  key(QKeySequence("Ctrl+0"), [this] { Run([this] { SetZoom(program_, 100); }); });
}

void MainWindow::Watch() {
  canvas_->installEventFilter(this);
  area_->viewport()->installEventFilter(this);
  for (QWidget* widget : canvas_->findChildren<QWidget*>()) widget->installEventFilter(this);
  for (QMenu* menu : menuBar()->findChildren<QMenu*>()) menu->installEventFilter(this);
}

}  // namespace torvale
