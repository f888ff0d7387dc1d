// Captions in letters that fit their widgets.
#pragma once

#include <QLabel>
#include <QPushButton>

namespace torvale {

// Gives a widget letters of that height.
void SetTextSize(QWidget& widget, int pixels);

// Write a caption on a widget of a given size in letters of `pixels`. Where it would be cut off it takes several lines,
// if there is room for them, or smaller letters.
void SetButtonText(QPushButton& button, const QString& caption, int pixels);
void SetLabelText(QLabel& label, const QString& caption, int pixels);  // a text of several lines keeps its letters

// The largest letters, from those of `font` down, in which the text stands in the room.
QFont Fitting(QFont font, const QSize& room, int flags, const QString& text);

}  // namespace torvale
