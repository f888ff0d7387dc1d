#include "qt/window_place.h"

#include <QScreen>
#include <algorithm>

#include "qt/scale.h"

namespace torvale {
namespace {

// Twips of the window's place are this many times as large as those of what stands in it, so that a window of the fixed
// width of 10000 shows all of the screen.
constexpr double kWindowScale = 1.6;

constexpr int kSettleMilliseconds = 250;

double PixelsPerTwip() {
  return kWindowScale / kTwipsPerPixel;
}

int Pixels(int twips, int zoom) {
  return qRound(twips * PixelsPerTwip() * zoom / 100.0);
}

// A length that already comes out at `pixels` stays as it is, so that reading back does not drift.
void ReadLength(int& twips, int pixels, int zoom) {
  if (Pixels(twips, zoom) != pixels) twips = qRound(pixels / PixelsPerTwip() * 100.0 / zoom);
}

constexpr int kNoZoom = 100;  // the zoom is for sizes; the window's corner stays where it is

}  // namespace

WindowPlace::WindowPlace(QWidget& window, MainScreen& screen, std::function<void()> on_resize)
    : window_(window), screen_(screen), on_resize_(std::move(on_resize)) {
  settle_.setSingleShot(true);
  settle_.setInterval(kSettleMilliseconds);
  QObject::connect(&settle_, &QTimer::timeout, [this] { Settle(); });
  moved_.setSingleShot(true);
  moved_.setInterval(kSettleMilliseconds);
  QObject::connect(&moved_, &QTimer::timeout, [this] { ReadCorner(); });
}

bool WindowPlace::Movable() const {
  const bool plain = !window_.isMaximized() && !window_.isMinimized() && !window_.isFullScreen();
  return window_.isVisible() && plain && screen_.state == WindowState::kNormal;
}

QSize WindowPlace::WantedSize() const {
  const Place& place = screen_.window;
  return {Pixels(place.width, screen_.zoom), Pixels(place.height, screen_.zoom) + bar_height_};
}

QRect WindowPlace::Wanted() const {
  const QRect room = window_.screen()->availableGeometry();
  const QSize frame = window_.frameSize() - window_.size();  // the title bar and the edges; none until it is shown
  const Place& place = screen_.window;
  const QSize size = WantedSize().boundedTo(room.size() - frame);
  const QSize framed = size + frame;
  const int left = std::clamp(Pixels(place.left, kNoZoom), room.left(), room.right() + 1 - framed.width());
  const int top = std::clamp(Pixels(place.top, kNoZoom), room.top(), room.bottom() + 1 - framed.height());
  return {{left, top}, size};
}

void WindowPlace::Apply() {
  const QRect wanted = Wanted();
  if (window_.size() == wanted.size() && window_.pos() == wanted.topLeft()) return;
  correcting_ = true;
  window_.resize(wanted.size());
  window_.move(wanted.topLeft());
  settle_.start();
}

void WindowPlace::Show() {
  on_resize_();
  const QRect room = window_.screen()->availableGeometry();
  const bool fits = WantedSize().boundedTo(room.size()) == WantedSize();
  const QRect wanted = Wanted();
  window_.resize(wanted.size());
  window_.move(wanted.topLeft());
  if (fits) {
    window_.show();
  } else {
    screen_.state = WindowState::kMaximized;
    window_.showMaximized();
  }
  settle_.start();  // title bar and edges, which count too, come with the showing
  window_.activateWindow();
}

void WindowPlace::Read() {
  ReadLength(screen_.window.left, window_.x(), kNoZoom);
  ReadLength(screen_.window.top, window_.y(), kNoZoom);
  ReadLength(screen_.window.width, window_.width(), screen_.zoom);
  ReadLength(screen_.window.height, window_.height() - bar_height_, screen_.zoom);
}

void WindowPlace::ReadCorner() {
  if (!Movable() || correcting_) return;
  ReadLength(screen_.window.left, window_.x(), kNoZoom);
  ReadLength(screen_.window.top, window_.y(), kNoZoom);
}

void WindowPlace::Moved() {
  if (Movable() && !correcting_) moved_.start();
}

void WindowPlace::Close() {
  if (moved_.isActive()) ReadCorner();
  moved_.stop();
}

void WindowPlace::Resized() {
  if (Movable()) settle_.start();
}

void WindowPlace::StateChanged() {
  moved_.stop();
  screen_.state = window_.isMinimized()   ? WindowState::kMinimized
                  : window_.isMaximized() ? WindowState::kMaximized
                                          : WindowState::kNormal;
}

void WindowPlace::Settle() {
  if (!Movable()) return;
  if (correcting_) {
    correcting_ = false;
    if (window_.size() == Wanted().size()) return;
    refused_ = true;
  }
  Read();
  if (refused_) return;
  on_resize_();
  Apply();
}

}  // namespace torvale
