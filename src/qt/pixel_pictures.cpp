// The pictures where the toolkit's SVG module is not to be had: the build has made pixels of them, several for each
// that is shown, so that their mean looks as if it was drawn (cmake/pictures.cmake).
#include <QImage>

#include "qt/own_icons.h"
#include "qt/to_qt.h"

// The pictures lie in this library, which the linker asks for by this name.
static void LoadPictures() {
  Q_INIT_RESOURCE(pixel_icons);
}

namespace torvale {
namespace {

// The picture in a size. What is drawn in the colour of the text lies apart and is no more than a shape.
QImage PixelsOf(const QString& name, QSize room, const QColor& text) {
  const auto fitted = [&](const QImage& picture) {
    return picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  };
  const QImage shape(":/icons/text/" + name + ".png");
  if (shape.isNull()) {
    const QImage coloured(":/icons/" + name + ".png");
    return coloured.isNull() ? coloured : fitted(coloured);
  }
  QImage inked = fitted(shape).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&inked);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(inked.rect(), text);
  return inked;
}

}  // namespace

void PaintPicture(QPainter& painter, const QRectF& room, std::string_view name, const QColor& text) {
  LoadPictures();
  const double sharpness = painter.device()->devicePixelRatioF() * painter.transform().m11();
  const QImage pixels = PixelsOf(ToQt(name), (room.size() * sharpness).toSize(), text);
  if (pixels.isNull()) return;
  QRectF place(QPointF(), QSizeF(pixels.size()) / sharpness);
  place.moveCenter(room.center());
  painter.drawImage(place, pixels);
}

}  // namespace torvale
