// How a text field is drawn, and what is selected in it.
#pragma once

#include <QLineEdit>
#include <optional>
#include <string>

#include "screen/controls.h"

namespace torvale {

// What a field's widget was last drawn from: the text of the structure, and what is shown of it.
struct DrawnText {
  std::optional<std::string> text;
  QString shown;
};

// Applies text, limit and selection of the structure to the widget.
void DrawField(QLineEdit& edit, const TextField& field, DrawnText& drawn);

// What is selected in a field's widget, or where its caret stands.
TextSelection SelectionOf(const QLineEdit& edit);

}  // namespace torvale
