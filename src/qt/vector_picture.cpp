#include "qt/vector_picture.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "qt/scale.h"

// The pictures lie in this library, which the linker asks for by this name.
static void LoadPictures() {
  Q_INIT_RESOURCE(icons);
}

namespace torvale {
namespace {

using Shape = VectorPicture::Shape;
using Ink = VectorPicture::Ink;

Ink InkOf(QStringView text) {
  if (text == u"none") return {Ink::kNone, {}};
  if (text == u"currentColor") return {Ink::kText, {}};
  const QColor colour(text.toString());
  if (!colour.isValid()) throw std::invalid_argument("not a colour");
  return {Ink::kColour, colour};
}

double NumberOf(QStringView text) {
  bool good = false;
  const double number = text.toDouble(&good);
  if (!good) throw std::invalid_argument("not a number");
  return number;
}

// The outline that a path's data describe, command by command.
class PathReader {
 public:
  explicit PathReader(const QString& data) {
    static const QRegularExpression token("[A-Za-z]|-?[0-9.]+");
    for (auto it = token.globalMatch(data); it.hasNext();) tokens_.append(it.next().captured());
  }

  QPainterPath Read() {
    while (at_ < tokens_.size()) {
      const QChar command = tokens_[at_++].front();
      do Draw(command);
      while (at_ < tokens_.size() && !tokens_[at_].front().isLetter());
    }
    return path_;
  }

 private:
  double Next() {
    if (at_ == tokens_.size()) throw std::invalid_argument("the path ends early");
    return NumberOf(tokens_[at_++]);
  }
  QPointF Point() {
    const double x = Next();
    return {x, Next()};
  }
  void Draw(QChar command) {
    switch (command.unicode()) {
      case 'M':
        return path_.moveTo(Point());
      case 'L':
        return path_.lineTo(Point());
      case 'H':
        return path_.lineTo(Next(), path_.currentPosition().y());
      case 'V':
        return path_.lineTo(path_.currentPosition().x(), Next());
      case 'C': {
        const QPointF first = Point();
        const QPointF second = Point();
        return path_.cubicTo(first, second, Point());
      }
      case 'Z':
        return path_.closeSubpath();
      default:
        throw std::invalid_argument("not a command of a path");
    }
  }

  QStringList tokens_;
  qsizetype at_ = 0;
  QPainterPath path_;
};

// What is set for the whole drawing, and by a shape for itself.
void ReadLook(const QXmlStreamAttributes& attributes, Shape& shape) {
  if (attributes.hasAttribute("fill")) shape.fill = InkOf(attributes.value("fill"));
  if (attributes.hasAttribute("stroke")) shape.stroke = InkOf(attributes.value("stroke"));
  if (attributes.hasAttribute("stroke-width")) shape.stroke_width = NumberOf(attributes.value("stroke-width"));
}

QPainterPath OutlineOf(QStringView element, const QXmlStreamAttributes& attributes) {
  const auto number = [&](const char* name) { return NumberOf(attributes.value(name)); };
  if (element == u"path") return PathReader(attributes.value("d").toString()).Read();
  QPainterPath outline;
  if (element == u"circle") {
    outline.addEllipse(QPointF(number("cx"), number("cy")), number("r"), number("r"));
  } else if (element == u"rect") {
    const QRectF rect(number("x"), number("y"), number("width"), number("height"));
    const double radius = attributes.hasAttribute("rx") ? number("rx") : 0;
    outline.addRoundedRect(rect, radius, radius);
  } else {
    throw std::invalid_argument("not a shape");
  }
  return outline;
}

QRectF ViewOf(QStringView text) {
  const auto parts = text.split(u' ');
  if (parts.size() != 4) throw std::invalid_argument("not a view");
  return {NumberOf(parts[0]), NumberOf(parts[1]), NumberOf(parts[2]), NumberOf(parts[3])};
}

VectorPicture Read(const QByteArray& svg) {
  VectorPicture picture;
  Shape common;
  QXmlStreamReader xml(svg);
  if (!xml.readNextStartElement() || xml.name() != u"svg") throw std::invalid_argument("not a drawing");
  picture.view = ViewOf(xml.attributes().value("viewBox"));
  ReadLook(xml.attributes(), common);
  while (xml.readNextStartElement()) {
    if (xml.name() != u"title") {
      Shape shape = common;
      ReadLook(xml.attributes(), shape);
      shape.path = OutlineOf(xml.name(), xml.attributes());
      picture.shapes.push_back(std::move(shape));
    }
    xml.skipCurrentElement();
  }
  if (xml.hasError()) throw std::invalid_argument("not a drawing");
  return picture;
}

QColor ColourOf(const Ink& ink, const QColor& text) {
  return ink.kind == Ink::kColour ? ink.colour : text;
}

// Draws itself anew at each size and in each palette.
class PictureEngine final : public QIconEngine {
 public:
  explicit PictureEngine(VectorPicture picture) : picture_(std::move(picture)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    PaintPicture(*painter, rect, picture_, QApplication::palette().color(group, QPalette::ButtonText));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new PictureEngine(picture_); }

 private:
  VectorPicture picture_;
};

}  // namespace

std::optional<VectorPicture> ReadPicture(const QByteArray& svg) {
  try {
    return Read(svg);
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

void PaintPicture(QPainter& painter, const QRectF& room, const VectorPicture& picture, const QColor& text) {
  const double scale = std::min(room.width() / picture.view.width(), room.height() / picture.view.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(room.center());
  painter.scale(scale, scale);
  painter.translate(-picture.view.center());
  for (const Shape& shape : picture.shapes) {
    if (shape.fill.kind != Ink::kNone) painter.fillPath(shape.path, ColourOf(shape.fill, text));
    if (shape.stroke.kind == Ink::kNone) continue;
    const QPen pen(ColourOf(shape.stroke, text), shape.stroke_width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.strokePath(shape.path, pen);
  }
  painter.restore();
}

VectorPicture OwnPicture(std::string_view name) {
  LoadPictures();
  QFile file(":/icons/" + ToQt(name) + ".svg");
  if (!file.open(QFile::ReadOnly)) return {};
  return ReadPicture(file.readAll()).value_or(VectorPicture{});
}

QIcon OwnIcon(std::string_view name) {
  return QIcon(new PictureEngine(OwnPicture(name)));
}

}  // namespace torvale
