// How the lines of a list are drawn.
#pragma once

#include <QWidget>

#include "screen/controls.h"

namespace torvale {

// Applies lines and selection of the structure to the widget, whose signals keep quiet meanwhile.
void DrawLines(QWidget& widget, const ListBox& list);

}  // namespace torvale
