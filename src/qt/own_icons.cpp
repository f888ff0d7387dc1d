#include "qt/own_icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>

#include "qt/scale.h"

// The pictures lie in this library, which the linker asks for by this name.
static void LoadPictures() {
  Q_INIT_RESOURCE(icons);
}

namespace torvale {
namespace {

QByteArray PictureOf(std::string_view name) {
  LoadPictures();
  QFile file(":/icons/" + ToQt(name) + ".svg");
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// The toolkit's own reader knows no text around a picture: it takes "currentColor" for black.
void Paint(QPainter& painter, const QRectF& room, QByteArray svg, const QColor& text) {
  QSvgRenderer picture(svg.replace("currentColor", text.name().toLatin1()));
  picture.setAspectRatioMode(Qt::KeepAspectRatio);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  picture.render(&painter, room);
  painter.restore();
}

// Draws itself anew at each size and in each palette.
class PictureEngine final : public QIconEngine {
 public:
  explicit PictureEngine(QByteArray svg) : svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    Paint(*painter, rect, svg_, QApplication::palette().color(group, QPalette::ButtonText));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new PictureEngine(svg_); }

 private:
  QByteArray svg_;
};

}  // namespace

void PaintPicture(QPainter& painter, const QRectF& room, std::string_view name, const QColor& text) {
  Paint(painter, room, PictureOf(name), text);
}

QIcon OwnIcon(std::string_view name) {
  return QIcon(new PictureEngine(PictureOf(name)));
}

}  // namespace torvale
