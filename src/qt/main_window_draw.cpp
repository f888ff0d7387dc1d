// The part of the main window that brings it up to date with the structures.
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <algorithm>
#include <array>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/main_window.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr int kMargin = 8;         // pixels around what stands on the screen, at 100 percent
constexpr int kWorthGrowing = 60;  // pixels at 100 percent
constexpr int kChartHeight = 200;  // the same, with its title and words

// What shows more where it is longer.
constexpr std::array<std::string_view, 3> kGrowing = {"Grid1", "Grid2", "frameShowLimitedHoles"};

}  // namespace

ControlView* MainWindow::ViewOf(std::string_view name) {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [&](const auto& v) { return v.named.name == name; });
  return found == controls_.end() ? nullptr : &*found;
}

void MainWindow::Sync() {
  if (program_.main.closed) {
    if (isVisible()) close();
    return;
  }
  if (syncing_) return;
  syncing_ = true;
  const bool zoomed = drawn_zoom_ != program_.main.zoom;
  if (zoomed) DrawZoom();
  bool refit = zoomed;
  for (ControlView& view : controls_) {
    const Redrawn redrawn = DrawControl(view, program_.main.zoom);
    refit = refit || redrawn.needs_room || redrawn.in_frame;
  }
  const bool desk = desk_->Sync();
  if (desk || refit) {
    FitCanvas();
    PlaceDesk();
  }
  for (ControlView& view : controls_) DrawGrid(view);
  menus_->Draw();
  tools_->Draw(Scale(program_.main.zoom));
  soils_->Sync();
  profile_->Sync();
  versions_->Sync();
  stakes_->Sync();
  help_->Sync();
  if (const QString title = ToQt(program_.main.title); windowTitle() != title) setWindowTitle(title);
  if (const QString text = ToQt(program_.main.sbStatusBar.caption); status_->text() != text) status_->setText(text);
  cancel_key_->setEnabled(ReachOf(program_, "cmdCancel") == Reach::kUsable);
  DrawFocus();
  DrawBusy();
  syncing_ = false;
}

void MainWindow::DrawZoom() {
  drawn_zoom_ = program_.main.zoom;
  const int pixels = Scale(drawn_zoom_).Zoomed(kTextPixels);
  SetTextSize(*menuBar(), pixels);
  for (QMenu* menu : menuBar()->findChildren<QMenu*>()) SetTextSize(*menu, pixels);
  SetTextSize(*status_, pixels);
  tools_->Draw(Scale(drawn_zoom_));
}

void MainWindow::DrawGrid(const ControlView& view) {
  if (view.named.kind != ControlKind::kGrid || !view.named.control->visible) return;
  auto& grid = static_cast<GridView&>(*view.widget);
  if (view.named.grid == &program_.main.Grid1) {
    // A sheet that results cover can't be entered by Tab.
    const bool covered = ReachOf(program_, view.named.name) == Reach::kHidden;
    grid.setFocusPolicy(covered ? Qt::NoFocus : Qt::StrongFocus);
  }
  if (!grid.Draw(Scale(program_.main.zoom)) || !grid.hasFocus()) return;
  const QRect cursor = grid.CursorRect();
  if (cursor.isEmpty()) return;
  const QPoint middle = grid.mapTo(canvas_, cursor.center());
  area_->ensureVisible(middle.x(), middle.y(), cursor.width() / 2 + kMargin, cursor.height() / 2 + kMargin);
}

// The room that what stands on the screen takes as the structure has it.
QSize MainWindow::NeededRoom() const {
  QSize needed;
  for (const ControlView& view : controls_) {
    if (!view.named.parent.empty() || !view.named.control->visible) continue;
    const QRect place = Scale(program_.main.zoom).Rect(view.named.control->place);
    needed = needed.expandedTo({place.right() + 1, place.bottom() + 1});
  }
  const int margin = Scale(program_.main.zoom).Zoomed(kMargin);
  return needed + QSize(margin, margin);
}

bool MainWindow::RoomBeside(int screens) const {
  return centralWidget()->width() >= screens + desk_->NarrowestBeside();
}

// Where a maximised window has room for it the chart stands below the hole summary, which keeps its length then; else
// the place is empty. A normal window is only as high as what it shows.
QRect MainWindow::ChartPlace(const QSize& needed) const {
  const Scale scale(program_.main.zoom);
  const Control& summary = program_.main.frameShowLimitedHoles;
  const bool shown = program_.desk.frmChart.visible && summary.visible;
  if (!shown || program_.main.state != WindowState::kMaximized) return {};
  const bool below = desk_->OpenBesideChart() && !RoomBeside(needed.width());
  const int longer = centralWidget()->height() - (below ? desk_->HeightBelow() : 0) - needed.height();
  if (longer < scale.Zoomed(kChartHeight)) return {};
  const QRect above = scale.Rect(summary.place);
  const int gap = scale.Zoomed(kMargin);
  return {above.left(), above.bottom() + gap, above.width(), longer - gap};
}

// What the curve of the best holes takes of the foot of the hole summary, which scrolls above it.
int MainWindow::CurveBelow(const ControlView& view) const {
  const MainScreen& main = program_.main;
  if (view.named.control != &main.frameShowLimitedHoles || !main.frameBestCurve.visible) return 0;
  const Scale scale(main.zoom);
  return scale.Rect(main.frameShowLimitedHoles.place).bottom() + 1 - scale.Rect(main.frameBestCurve.place).top();
}

// A window that is clearly higher than the screen shows more rows: the tables and the hole summary reach down to its
// foot.
void MainWindow::FitCanvas() {
  const Scale scale(program_.main.zoom);
  const QSize needed = NeededRoom();
  const int free = area_->viewport()->height() - needed.height();
  const int longer = free >= scale.Zoomed(kWorthGrowing) ? free : 0;
  const QRect chart = ChartPlace(needed);
  desk_->StandChart(*canvas_, chart);
  const MainScreen& main = program_.main;
  const int below_summary = chart.isEmpty() ? longer : 0;
  for (ControlView& view : controls_) {
    const bool grows = std::find(kGrowing.begin(), kGrowing.end(), view.named.name) != kGrowing.end();
    const QRect place = scale.Rect(view.named.control->place);
    // The curve of the best holes stands at the foot of the hole summary.
    const bool summary = view.named.control == &main.frameShowLimitedHoles;
    const int more = summary ? below_summary : longer;
    if (grows) view.widget->resize(place.width(), place.height() + more - CurveBelow(view));
    if (view.named.control == &main.frameBestCurve) view.widget->move(place.left(), place.top() + below_summary);
    if (view.named.kind == ControlKind::kFrame) FitFrame(view, controls_);
  }
  canvas_->resize(needed.width(), needed.height() + longer);
}

// Beside the screens where the window has room for both, else below them; then a normal window is so much higher.
void MainWindow::PlaceDesk() {
  const bool open = desk_->isVisibleTo(centralWidget());
  const bool beside = open && RoomBeside(canvas_->width());
  const bool below = open && !beside;
  halves_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  halves_->setStretchFactor(desk_, beside ? 1 : 0);
  halves_->setStretchFactor(area_, beside ? 0 : 1);
  area_->setMinimumWidth(beside ? canvas_->width() : 0);
  desk_->StandUpright(beside);
  desk_->setMinimumHeight(below ? desk_->HeightBelow() : 0);
  desk_->setMaximumHeight(below ? desk_->HeightBelow() : QWIDGETSIZE_MAX);
  const Scale plain(100);
  program_.main.room_width = plain.Twips(centralWidget()->width());
  program_.main.room_height = plain.Twips(centralWidget()->height() - (below ? desk_->HeightBelow() : 0));
  const int bars = tools_->Height() + (below ? desk_->HeightBelow() : 0);
  if (std::exchange(bars_, bars) == bars) return;
  place_.SetBarHeight(bars);
  if (isVisible() && program_.main.state == WindowState::kNormal) place_.Apply();
}

// The window gives the screens more room or less.
void MainWindow::RoomChanged() {
  if (syncing_) return;
  FitCanvas();
  PlaceDesk();
  for (ControlView& view : controls_) DrawGrid(view);
  desk_->Sync();
}

void MainWindow::DrawFocus() {
  ControlView* view = ViewOf(program_.main.focus);
  const QWidget* now = focusWidget();
  const bool elsewhere = now != nullptr && !centralWidget()->isAncestorOf(now);
  if (view == nullptr && !elsewhere) desk_->TakeFocus(program_.main.focus);
  if (view == nullptr || view->widget == now || elsewhere || !view->widget->isEnabled()) return;
  view->widget->setFocus(Qt::OtherFocusReason);
  if (view->named.kind == ControlKind::kGrid) return;
  const QRect place(view->widget->mapTo(canvas_, QPoint()), view->widget->size());
  area_->ensureVisible(place.center().x(), place.center().y(), place.width() / 2, place.height() / 2);
}

void MainWindow::DrawBusy() {
  const bool busy = PointerIsBusy(program_);
  if (busy == busy_shown_) return;
  busy_shown_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace torvale
