#pragma once

#include <QLineEdit>
#include <QWidget>
#include <optional>
#include <span>
#include <string>

#include "qt/scale.h"
#include "screen/main_screen.h"

namespace torvale {

// A control of the screen and the widget that shows it, with a copy of what was last drawn. Of grids only place,
// colours and the like are drawn here, not the cells; of menus and the status bar nothing is.
struct ControlView {
  NamedControl named;
  QWidget* widget = nullptr;
  QWidget* inside = nullptr;     // of a frame: where its controls stand
  std::optional<Control> drawn;  // nothing before the first drawing
  int drawn_zoom = 0;
  std::uint64_t drawn_lines = 0;  // of a list: its revision
};

// The widget for a control, as a child of `parent`. It is named after the control.
ControlView MakeControlView(const NamedControl& named, QWidget* parent);

// Applies what changed in the structure since the last call. True where it may need more or less room
// than before.
bool DrawControl(ControlView& view, int zoom);

// Makes room for the labels of `controls` that stand in a frame: a text that is longer than the frame can be scrolled
// to.
void FitFrame(ControlView& frame, std::span<ControlView> controls);

// What is selected in a field's widget, or where its caret stands.
TextSelection SelectionOf(const QLineEdit& edit);

// A tool tip that wraps and keeps its blanks.
QString TipText(std::string_view text);

}  // namespace torvale
