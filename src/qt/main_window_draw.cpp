// The part of the main window that brings it up to date with the structures.
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <algorithm>

#include "qt/main_window.h"

namespace torvale {
namespace {

constexpr int kMargin = 8;  // pixels around what stands on the screen, at 100 percent

void SetTextSize(QWidget& widget, int pixels) {
  QFont font = widget.font();
  font.setPixelSize(pixels);
  widget.setFont(font);
}

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
  if (refit) FitCanvas();
  for (ControlView& view : controls_) DrawGrid(view);
  menus_->Draw();
  tools_->Draw(Scale(program_.main.zoom));
  soils_->Sync();
  profile_->Sync();
  versions_->Sync();
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
  place_.SetBarHeight(tools_->Height());
  if (isVisible() && program_.main.state == WindowState::kNormal) place_.Apply();
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

void MainWindow::FitCanvas() {
  QSize needed;
  for (ControlView& view : controls_) {
    if (view.named.kind == ControlKind::kFrame) FitFrame(view, controls_);
    if (!view.named.parent.empty() || !view.named.control->visible) continue;
    const QRect place = view.widget->geometry();
    needed = needed.expandedTo({place.right() + 1, place.bottom() + 1});
  }
  const int margin = Scale(program_.main.zoom).Zoomed(kMargin);
  canvas_->resize(needed + QSize(margin, margin));
}

void MainWindow::DrawFocus() {
  ControlView* view = ViewOf(program_.main.focus);
  const QWidget* now = focusWidget();
  const bool elsewhere = now != nullptr && !canvas_->isAncestorOf(now);
  if (view == nullptr || view->widget == now || elsewhere || !view->widget->isEnabled()) return;
  view->widget->setFocus(Qt::OtherFocusReason);
  if (view->named.kind == ControlKind::kGrid) return;
  const QRect place(view->widget->mapTo(canvas_, QPoint()), view->widget->size());
  area_->ensureVisible(place.center().x(), place.center().y(), place.width() / 2, place.height() / 2);
}

// Busy is shown only while something runs: a flag that a failed command left behind doesn't hold the pointer.
void MainWindow::DrawBusy() {
  const MainScreen& main = program_.main;
  const bool busy = program_.events.open > 0 && !main.closed && (main.busy || main.main_busy);
  if (busy == busy_shown_) return;
  busy_shown_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace torvale
