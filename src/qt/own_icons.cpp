#include "qt/own_icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPalette>
#include <QPixmap>
#include <string>

namespace torvale {
namespace {

// Draws itself anew at each size and in each palette.
class PictureEngine final : public QIconEngine {
 public:
  explicit PictureEngine(std::string_view name) : name_(name) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    PaintPicture(*painter, rect, name_, QApplication::palette().color(group, QPalette::ButtonText));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new PictureEngine(name_); }

 private:
  std::string name_;
};

}  // namespace

QIcon OwnIcon(std::string_view name) {
  return QIcon(new PictureEngine(name));
}

}  // namespace torvale
