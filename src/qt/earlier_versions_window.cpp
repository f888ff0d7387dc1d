#include "qt/earlier_versions_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "qt/grid_view.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/help.h"

namespace torvale {
namespace {

constexpr std::string_view kGrid = "Grd_EarlierVersions";

}  // namespace

EarlierVersionsWindow::EarlierVersionsWindow(Program& program, Run run, QWidget* parent)
    : QWidget(parent, Qt::Window), program_(program), run_(std::move(run)) {
  setWindowModality(Qt::WindowModal);
  for (const NamedControl& named : ControlsOf(program.versions)) {
    if (named.kind == ControlKind::kFrame) continue;
    controls_.push_back(MakeControlView(named, this));
    Connect(controls_.back());
  }
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(help, &QShortcut::activated, this,
          [this] { run_([this] { OpenHelp(program_, HelpPlaceFor(program_, kGrid)); }); });
}

void EarlierVersionsWindow::Connect(const ControlView& view) {
  const std::string name(view.named.name);
  const ControlFacts& facts = *view.named.facts;
  view.widget->setAccessibleName(ToQt(facts.spoken.empty() ? facts.caption : facts.spoken).remove('&'));
  if (auto* button = qobject_cast<QPushButton*>(view.widget)) {
    connect(button, &QPushButton::clicked, this, [this, name] { RunClick(name); });
  } else if (view.named.kind == ControlKind::kGrid) {
    GridEvents events;
    events.key = [this](const KeyStroke& stroke) { run_([&] { GridKey(program_, kGrid, stroke); }); };
    events.point = [this](int row, int column, bool extend) {
      run_([&] { GridPoint(program_, kGrid, row, column, extend); });
    };
    static_cast<GridView&>(*view.widget).Connect(std::move(events));
  }
}

void EarlierVersionsWindow::RunClick(const std::string& name) {
  run_([&] { Click(program_, name); });
}

// Esc comes here from whatever has the focus, since nothing in the window takes it.
void EarlierVersionsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return RunClick("btnCloseVersions");
  QWidget::keyPressEvent(event);
}

void EarlierVersionsWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunClick("btnCloseVersions");
}

// As large as what stands in it, with the same margin on every side.
void EarlierVersionsWindow::FitSize() {
  QRect all;
  for (const ControlView& view : controls_) all = all.united(view.widget->geometry());
  setFixedSize(all.right() + 1 + all.left(), all.bottom() + 1 + all.top());
}

void EarlierVersionsWindow::Sync() {
  const Control& window = program_.versions.frmEarlierVersions;
  const bool shown = window.visible && !program_.main.closed;
  if (shown) {
    if (const QString title = ToQt(window.caption); windowTitle() != title) setWindowTitle(title);
    for (ControlView& view : controls_) {
      DrawControl(view, program_.main.zoom);
      if (view.named.kind == ControlKind::kGrid) static_cast<GridView&>(*view.widget).Draw(Scale(program_.main.zoom));
    }
    if (std::exchange(drawn_zoom_, program_.main.zoom) != program_.main.zoom) FitSize();
  }
  if (shown == isVisible()) return;
  if (shown && parentWidget() != nullptr) move(parentWidget()->geometry().center() - rect().center());
  setVisible(shown);
  if (!shown) return;
  activateWindow();
  controls_.front().widget->setFocus();
}

}  // namespace torvale
