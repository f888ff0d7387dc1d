// The part of the main window that brings it up to date with the structures.
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStatusBar>
#include <algorithm>
#include <array>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/main_window.h"
#include "qt/tips.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr int kMargin = 8;            // pixels around what stands on the screen, at 100 percent
constexpr int kWorthGrowing = 60;     // pixels at 100 percent
constexpr int kChartHeight = 200;     // the same, with its title and words
constexpr int kScreensWidth = 16000;  // twips, of a normal window
constexpr double kWidest = 2;         // times; beyond that a row is hard to follow with the eye
constexpr double kWorthWidening = 1.05;

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
    const Redrawn redrawn = DrawControl(view, ScreenScale());
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
  DrawStatus();
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
  status_->setFixedHeight(status_->fontMetrics().height() + 2 * status_->margin());
  status_room_ = {};
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
  if (!grid.Draw(ScreenScale()) || !grid.hasFocus()) return;
  const QRect cursor = grid.CursorRect();
  if (cursor.isEmpty()) return;
  const QPoint middle = grid.mapTo(canvas_, cursor.center());
  area_->ensureVisible(middle.x(), middle.y(), cursor.width() / 2 + kMargin, cursor.height() / 2 + kMargin);
}

// The room that what stands on the screen takes as the structure has it.
QSize MainWindow::NeededRoom(const Scale& scale) const {
  QSize needed;
  for (const ControlView& view : controls_) {
    if (!view.named.parent.empty() || !view.named.control->visible) continue;
    const QRect place = scale.Rect(view.named.control->place);
    needed = needed.expandedTo({place.right() + 1, place.bottom() + 1});
  }
  const int margin = scale.Zoomed(kMargin);
  return needed + QSize(margin, margin);
}

// Beside the screens as they are before they are widened.
bool MainWindow::RoomBeside() const {
  return centralWidget()->width() >= NeededRoom(Scale(program_.main.zoom)).width() + desk_->NarrowestBeside();
}

// What a maximised window has below the hole summary for the chart, which stands there where it has enough; else 0. A
// normal window is only as high as what it shows.
int MainWindow::ChartHeight() const {
  const Scale scale(program_.main.zoom);
  const bool shown = program_.desk.frmChart.visible && program_.main.frameShowLimitedHoles.visible;
  if (!shown || program_.main.state != WindowState::kMaximized) return 0;
  const bool below = desk_->OpenBesideChart() && !RoomBeside();
  const int longer = centralWidget()->height() - (below ? desk_->HeightBelow() : 0) - NeededRoom(scale).height();
  return longer < scale.Zoomed(kChartHeight) ? 0 : longer - scale.Zoomed(kMargin);
}

// The hole summary keeps its length then.
QRect MainWindow::ChartPlace() const {
  const int height = ChartHeight();
  if (height == 0) return {};
  const Scale scale = ScreenScale();
  const QRect above = scale.Rect(program_.main.frameShowLimitedHoles.place);
  return {above.left(), above.bottom() + scale.Zoomed(kMargin), above.width(), height};
}

// How many times wider the screens are shown than they are laid out, in a maximised window that is wider than they are.
// A desk beside them has what it wants first. A window of normal state has the width that goes with its zoom.
double MainWindow::Widening(bool desk) const {
  if (program_.main.state != WindowState::kMaximized) return 1;
  const Scale scale(program_.main.zoom);
  const QSize needed = NeededRoom(scale);
  const QSize window = centralWidget()->size();
  int room = window.width();
  if (desk && RoomBeside()) room -= desk_->WantedBeside();
  if (needed.height() > window.height()) room -= area_->verticalScrollBar()->sizeHint().width();
  const double widening = static_cast<double>(room) / std::max(needed.width(), scale.Pixels(kScreensWidth));
  return widening < kWorthWidening ? 1 : std::min(widening, kWidest);
}

void MainWindow::Widen(double widening) {
  if (std::exchange(widening_, widening) == widening) return;
  for (ControlView& view : controls_) DrawControl(view, ScreenScale());
}

// What the curve of the best holes takes of the foot of the hole summary, which scrolls above it.
int MainWindow::CurveBelow(const ControlView& view) const {
  const MainScreen& main = program_.main;
  if (view.named.control != &main.frameShowLimitedHoles || !main.frameBestCurve.visible) return 0;
  const Scale scale(main.zoom);
  return scale.Rect(main.frameShowLimitedHoles.place).bottom() + 1 - scale.Rect(main.frameBestCurve.place).top();
}

// A window that is clearly larger than the screens shows wider panels and more rows: the tables and the hole summary
// reach down to its foot.
void MainWindow::FitCanvas() {
  const bool chart_in_desk = program_.desk.frmChart.visible && ChartHeight() == 0;
  Widen(Widening(chart_in_desk || desk_->OpenBesideChart()));
  const Scale scale = ScreenScale();
  const QSize needed = NeededRoom(scale);
  const int free = area_->viewport()->height() - needed.height();
  const int longer = free >= scale.Zoomed(kWorthGrowing) ? free : 0;
  const QRect chart = ChartPlace();
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
  const bool beside = open && RoomBeside();
  const bool below = open && !beside;
  halves_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  halves_->setStretchFactor(desk_, beside ? 1 : 0);
  halves_->setStretchFactor(area_, beside ? 0 : 1);
  area_->setMinimumWidth(beside ? canvas_->width() : 0);
  desk_->StandUpright(beside);
  desk_->setMinimumHeight(below ? desk_->HeightBelow() : 0);
  desk_->setMaximumHeight(below ? desk_->HeightBelow() : QWIDGETSIZE_MAX);
  const Scale plain(100);
  const int lower = below ? desk_->HeightBelow() : 0;
  const Scale scale(program_.main.zoom);
  program_.main.room_width = plain.Twips(centralWidget()->width());
  program_.main.room_height = plain.Twips(height());
  program_.main.bars_height = scale.Twips(height() - centralWidget()->height());
  // A chart that stands on the screens may have to leave them.
  const bool any = open || program_.desk.frmChart.visible;
  program_.main.desk_width = any ? scale.Twips(desk_->NarrowestBeside()) : 0;
  program_.main.desk_height = any ? scale.Twips(desk_->HeightBelow()) : 0;
  const int bars = tools_->Height() + lower;
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
  DrawStatus();
}

// A sentence that is too long for the line takes smaller letters; its tip has it whole in any case.
void MainWindow::DrawStatus() {
  const QString text = ToQt(program_.main.sbStatusBar.caption);
  const QSize room = status_->contentsRect().size();
  if (status_->text() == text && status_room_ == room) return;
  status_room_ = room;
  QFont letters = status_->font();
  letters.setPixelSize(Scale(program_.main.zoom).Zoomed(kTextPixels));
  status_->setFont(Fitting(letters, room, Qt::TextSingleLine, text));
  status_->setToolTip(TipText(program_.main.sbStatusBar.caption));
  status_->setText(text);
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
