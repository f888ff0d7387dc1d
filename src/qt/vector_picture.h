#pragma once

#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <optional>
#include <string_view>
#include <vector>

namespace torvale {

// A drawing of filled and stroked shapes, the same at every size. It is written as plain SVG: `path` with absolute
// M, L, H, V, C and Z, `rect` and `circle`; `fill`, `stroke` and `stroke-width`, also for the whole drawing.
struct VectorPicture {
  // A colour, the colour of the text around the picture, or nothing.
  struct Ink {
    enum Kind { kNone, kText, kColour } kind = kNone;
    QColor colour;
  };
  struct Shape {
    QPainterPath path;
    Ink fill;
    Ink stroke;
    double stroke_width = 1;
  };
  QRectF view;
  std::vector<Shape> shapes;
};

// Nothing where the text isn't such a drawing, or holds anything else.
std::optional<VectorPicture> ReadPicture(const QByteArray& svg);

// As large as fits into the middle of `room`.
void PaintPicture(QPainter& painter, const QRectF& room, const VectorPicture& picture, const QColor& text);

// A picture of data/icons by its name without ".svg". An icon follows the palette of the desktop; what is drawn in the
// colour of the text is pale where its button is disabled.
VectorPicture OwnPicture(std::string_view name);
QIcon OwnIcon(std::string_view name);

}  // namespace torvale
