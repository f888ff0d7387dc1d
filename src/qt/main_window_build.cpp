// The part of the main window that is done once: widgets, names for readers of the screen, keys.
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>

#include "qt/main_window.h"
#include "qt/to_qt.h"
#include "qt/user_events.h"
#include "screen/spoken_names.h"
#include "shell/commands.h"
#include "shell/main_form.h"
#include "shell/tool_bar.h"

namespace torvale {
// The screens, and the desk beside or below them.
void MainWindow::MakeFrame() {
  area_->setObjectName("screens");
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(canvas_);
  canvas_->setObjectName("canvas");
  canvas_->setMouseTracking(true);
  auto* halves = new QWidget(this);
  halves_ = new QBoxLayout(QBoxLayout::TopToBottom, halves);
  halves_->setContentsMargins(0, 0, 0, 0);
  halves_->setSpacing(0);
  halves_->addWidget(area_, 1);
  halves_->addWidget(desk_);
  setCentralWidget(halves);
}

// Menus and tool bar above, the status bar below.
void MainWindow::MakeBars() {
  constexpr int kStatusMargin = 3;  // pixels
  const auto click = [this](const std::string& name) { RunClick(name); };
  menus_ = std::make_unique<MenuView>(ControlsOf(program_.main), *menuBar(), click,
                                      [this](const std::string& name) { Run([&] { MenuOpened(program_, name); }); });
  tools_ = std::make_unique<ToolBarView>(program_, *addToolBar(QString()), click);
  status_->setTextFormat(Qt::PlainText);
  status_->setObjectName("sbStatusBar");
  status_->setMargin(kStatusMargin);
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(status_, 1);
}

void MainWindow::MakeWindows() {
  soils_ = new SoilsWindow(program_, Runner(), this);
  profile_ = new ProfileWindow(program_, Runner(), this);
  versions_ = new ListWindow(program_, ControlsOf(program_.versions), "Grd_EarlierVersions", "btnCloseVersions",
                             Runner(), this);
  stakes_ = new ListWindow(program_, ControlsOf(program_.stakes), "Grd_Stakes", "btnCloseStakes", Runner(), this);
  help_ = std::make_unique<HelpWindow>(program_, Runner(), *this);
}

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
  if (name != "Grid1" && name != "Grid2") return {};
  GridEvents events = KeysAndClicks(program_, name, Runner());
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
    ConnectField(*edit, program_, name, syncing_, Runner());
  } else if (auto* lines = qobject_cast<QListWidget*>(view.widget)) {
    ConnectList(*lines, name);
  } else if (auto* box = qobject_cast<QComboBox*>(view.widget)) {
    connect(box, &QComboBox::activated, this,
            [this, name](int line) { Run([&] { SelectLines(program_, name, {line}); }); });
  } else if (view.named.kind == ControlKind::kGrid) {
    static_cast<GridView&>(*view.widget).Connect(EventsOf(name));
  }
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

void MainWindow::NameControls() {
  const std::vector<NamedControl> all = ControlsOf(program_.main);
  for (const ControlView& view : controls_) {
    if (view.named.kind == ControlKind::kField) view.widget->setAccessibleName(ToQt(SpokenNameOf(all, view.named)));
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
  key(QKeySequence("Ctrl++"), [this] { Run([this] { StepZoom(program_, 1); }); });
  key(QKeySequence("Ctrl+="), [this] { Run([this] { StepZoom(program_, 1); }); });
  key(QKeySequence("Ctrl+-"), [this] { Run([this] { StepZoom(program_, -1); }); });
  key(QKeySequence("Ctrl+0"), [this] { Run([this] { SetZoom(program_, kPlainZoom); }); });
}

void MainWindow::Watch() {
  canvas_->installEventFilter(this);
  area_->viewport()->installEventFilter(this);
  for (QWidget* widget : canvas_->findChildren<QWidget*>()) widget->installEventFilter(this);
  for (QMenu* menu : menuBar()->findChildren<QMenu*>()) menu->installEventFilter(this);
}

}  // namespace torvale
