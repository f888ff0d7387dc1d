#include "shell/panel_drag.h"

#include <algorithm>

#include "base/arithmetic.h"

namespace torvale {
namespace {

// What the screen takes with all that can stand on it.
constexpr int kScreenWidth = 15400;
constexpr int kScreenHeight = 9330;

bool IsPanel(std::string_view name) {
  return std::find(kPanels.begin(), kPanels.end(), name) != kPanels.end();
}

Control* Grabbed(Program& program) {
  return program.main.drag.panel.empty() ? nullptr : FindControl(program, program.main.drag.panel);
}

int Held(double edge, int length, int room) {
  return ToWhole(std::clamp(edge, 0.0, static_cast<double>(std::max(0, room - length))));
}

void MoveTo(Place& place, double left, double top) {
  place.left = Held(left, place.width, kScreenWidth);
  place.top = Held(top, place.height, kScreenHeight);
}

}  // namespace

void GrabPanel(Program& program, std::string_view panel, float x, float y) {
  if (!IsPanel(panel) || ReachOf(program, panel) != Reach::kUsable) return;
  PanelDrag& drag = program.main.drag;
  drag.DragX = x;
  drag.DragY = StoreInt16(y);
  drag.panel = panel;
  drag.from = FindControl(program, panel)->place;
}

void DragPanel(Program& program, float x, float y) {
  const PanelDrag& drag = program.main.drag;
  if (Control* panel = Grabbed(program)) {
    MoveTo(panel->place, double{x} - drag.DragX, double{y} - drag.DragY);
  }
}

void DropOnPanel(Program& program, float x, float y) {
  PanelDrag& drag = program.main.drag;
  if (Control* panel = Grabbed(program)) {
    MoveTo(panel->place, panel->place.left + double{x} - drag.DragX, panel->place.top + double{y} - drag.DragY);
  }
  drag.panel.clear();
}

void DropOnScreen(Program& program, float x, float y) {
  DragPanel(program, x, y);
  program.main.drag.panel.clear();
}

void ScreenMouse(Program& program, std::string_view over, MouseAction action, MouseButton button, int x, int y) {
  const auto left = static_cast<float>(x);
  const auto top = static_cast<float>(y);
  const bool dragging = !program.main.drag.panel.empty();
  const bool screen = over == kMainForm;
  Guarded(program, [&] {
    if (action == MouseAction::kDown && button == MouseButton::kLeft) return GrabPanel(program, over, left, top);
    if (!dragging && screen) return BackgroundMouse(program);
    if (action == MouseAction::kMove && screen) return DragPanel(program, left, top);
    if (action != MouseAction::kUp) return;
    if (screen) return DropOnScreen(program, left, top);
    over == program.main.drag.panel ? DropOnPanel(program, left, top) : DropElsewhere(program);
  });
}

void DropElsewhere(Program& program) {
  PanelDrag& drag = program.main.drag;
  if (Control* panel = Grabbed(program)) panel->place = drag.from;
  drag.panel.clear();
}

}  // namespace torvale
