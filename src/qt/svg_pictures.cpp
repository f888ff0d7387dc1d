// The pictures as the toolkit's SVG module draws them.
#include <QFile>
#include <QSvgRenderer>

#include "qt/own_icons.h"
#include "qt/to_qt.h"

// The pictures lie in this library, which the linker asks for by this name.
static void LoadPictures() {
  Q_INIT_RESOURCE(icons);
}

namespace torvale {

// The toolkit's own reader knows no text around a picture: it takes "currentColor" for black.
void PaintPicture(QPainter& painter, const QRectF& room, std::string_view name, const QColor& text) {
  LoadPictures();
  QFile file(":/icons/" + ToQt(name) + ".svg");
  if (!file.open(QFile::ReadOnly)) return;
  QSvgRenderer picture(file.readAll().replace("currentColor", text.name().toLatin1()));
  picture.setAspectRatioMode(Qt::KeepAspectRatio);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  picture.render(&painter, room);
  painter.restore();
}

}  // namespace torvale
