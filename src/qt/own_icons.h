#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>
#include <string_view>

namespace torvale {

// The pictures of data/icons, by their names without ".svg". A name that isn't there draws nothing.

// As large as fits into the middle of `room`; what the drawing leaves to the text around it ("currentColor") is drawn
// in `text`.
void PaintPicture(QPainter& painter, const QRectF& room, std::string_view name, const QColor& text);

// An icon that follows the palette of the desktop; what is drawn in the colour of the text is pale where its button is
// disabled.
QIcon OwnIcon(std::string_view name);

}  // namespace torvale
