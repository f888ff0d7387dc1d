#include "qt/soils_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/to_qt.h"
#include "qt/user_events.h"
#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr std::string_view kSoilsGrid = "Grd_Soils_FurrowFlow";

}  // namespace

SoilsWindow::SoilsWindow(Program& program, WindowRun run, QWidget* parent)
    : QMainWindow(parent),
      program_(program),
      run_(std::move(run)),
      area_(new QScrollArea(this)),
      canvas_(new QWidget),
      grid_(new GridView(std::string(kSoilsGrid), program.soils.Grd_Soils_FurrowFlow, canvas_)),
      menus_(
          ControlsOf(program.soils), *menuBar(), [this](const std::string& name) { RunClick(name); },
          [this](const std::string& name) { run_([&] { MenuOpened(program_, name); }); }) {
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(canvas_);
  setCentralWidget(area_);
  grid_->setAccessibleName(ToQt(FactsOf(kSoilsGrid)->spoken));
  GridEvents events = KeysAndClicks(program_, std::string(kSoilsGrid), run_);
  events.menu = [this](int row, int column, const QPoint& at) {
    std::vector<std::string_view> entries;
    run_([&] { entries = GridMenu(program_, kSoilsGrid, row, column); });
    PopUpMenu(program_, entries, at, *grid_, [this](const std::string& name) { RunClick(name); });
  };
  events.widen = [this](int column, int width) { run_([&] { WidenColumn(program_, kSoilsGrid, column, width); }); };
  grid_->Connect(std::move(events));
  HelpOnF1(*this, program_, std::string(kSoilsGrid), run_);
}

void SoilsWindow::RunClick(const std::string& name) {
  run_([&] { Click(program_, name); });
}

void SoilsWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunClick("MnuExit");
}

void SoilsWindow::LayOut() {
  drawn_zoom_ = program_.main.zoom;
  const Scale scale(drawn_zoom_);
  const Place& place = program_.soils.Grd_Soils_FurrowFlow.control.place;
  SetTextSize(*menuBar(), scale.Zoomed(kTextPixels));
  grid_->setGeometry(scale.Rect(place));
  canvas_->resize(scale.Pixels(place.width + 2 * place.left), scale.Pixels(place.height + 2 * place.top));
  // A little more than the canvas, so that no scroll bar of the area takes room from the other.
  constexpr int kSlack = 4;
  resize(canvas_->size() + QSize(kSlack, menuBar()->sizeHint().height() + kSlack));
}

void SoilsWindow::Sync() {
  const bool shown = program_.soils.visible && !program_.main.closed;
  if (shown) {
    if (drawn_zoom_ != program_.main.zoom) LayOut();
    if (const QString title = ToQt(program_.soils.title); windowTitle() != title) setWindowTitle(title);
    menus_.Draw();
    grid_->Draw(Scale(program_.main.zoom));
  }
  if (shown == isVisible()) return;
  // Over the middle of the main screen, not in the corner of the desktop.
  if (shown && parentWidget() != nullptr) move(parentWidget()->geometry().center() - rect().center());
  setVisible(shown);
  if (!shown) return;
  activateWindow();
  grid_->setFocus();
}

}  // namespace torvale
