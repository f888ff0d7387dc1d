#pragma once

#include <QLabel>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <span>

#include "qt/field_view.h"
#include "qt/scale.h"
#include "screen/main_screen.h"

namespace torvale {

// A control of the screen and the widget that shows it, with a copy of what was last drawn. Of grids only place,
// colours and the like are drawn here, not the cells; of menus and the status bar nothing is.
struct ControlView {
  NamedControl named;
  QWidget* widget = nullptr;
  QWidget* inside = nullptr;          // of a frame: where its controls stand
  QLabel* title = nullptr;            // of a frame with a caption
  std::optional<Control> drawn = {};  // nothing before the first drawing
  Scale drawn_scale = Scale(0);
  std::uint64_t drawn_lines = 0;  // of a list: its revision
  DrawnText drawn_text = {};      // of a field
};

// The widget for a control, as a child of `parent`. It is named after the control.
ControlView MakeControlView(const NamedControl& named, QWidget* parent);

// What a control asks of those around it after it has been drawn anew.
struct Redrawn {
  bool needs_room = false;  // it stands elsewhere, or came or went
  bool in_frame = false;    // a text in a frame, which may have to make room for it, is another
};

// Applies what changed in the structure since the last call.
Redrawn DrawControl(ControlView& view, const Scale& scale);

// Makes room for the labels of `controls` that stand in a frame: a text that is longer than the frame can be scrolled
// to.
void FitFrame(ControlView& frame, std::span<ControlView> controls);

}  // namespace torvale
