// Makes the widgets that show controls.
#pragma once

#include <QLabel>

#include "screen/control_facts.h"

namespace torvale {

struct ControlWidget {
  QWidget* widget = nullptr;
  QWidget* inside = nullptr;  // of a frame: where its controls stand; it may be longer than the frame
  QLabel* title = nullptr;    // of a frame with a caption
};

// The widget for a control, as a child of `parent`.
ControlWidget MakeWidget(const NamedControl& named, QWidget* parent);

// The toolkit's word for where a text stands.
Qt::Alignment AlignmentOf(TextPlace place);

// Height of a label's letters, pixels at 100 percent.
int LettersOf(const TextLook& look);

}  // namespace torvale
