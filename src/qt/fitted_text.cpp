#include "qt/fitted_text.h"

#include <algorithm>
#include <utility>

namespace torvale {
namespace {

constexpr int kButtonMargin = 4;  // pixels between letters and edge, of which the frame takes two
constexpr int kSmallestText = 8;  // pixels
constexpr int kSmallestButtonText = 7;

// The caption with its line end at the blank nearest to the middle.
QString InTwoLines(const QString& caption) {
  qsizetype best = -1;
  const qsizetype middle = caption.size() / 2;
  for (qsizetype at = caption.indexOf(' '); at >= 0; at = caption.indexOf(' ', at + 1)) {
    if (best < 0 || qAbs(at - middle) < qAbs(best - middle)) best = at;
  }
  QString lines = caption;
  if (best >= 0) lines[best] = '\n';
  return lines;
}

QFont InPixels(QFont font, int pixels) {
  font.setPixelSize(std::max(1, pixels));
  return font;
}

QFont FittingFrom(int smallest, QFont font, const QSize& room, int flags, const QString& text) {
  for (int size = font.pixelSize(); size >= smallest; --size) {
    font.setPixelSize(size);
    const QRect needed = QFontMetrics(font).boundingRect(QRect(QPoint(), room), flags, text);
    if (needed.width() <= room.width() && needed.height() <= room.height()) break;
  }
  return font;
}

}  // namespace

void SetTextSize(QWidget& widget, int pixels) {
  widget.setFont(InPixels(widget.font(), pixels));
}

QFont Fitting(QFont font, const QSize& room, int flags, const QString& text) {
  return FittingFrom(kSmallestText, std::move(font), room, flags, text);
}

void SetButtonText(QPushButton& button, const QString& caption, int pixels) {
  const QSize room = button.size() - QSize(2 * kButtonMargin, 2 * kButtonMargin);
  const int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
  const QFont font = InPixels(button.font(), pixels);
  const QString two_lines = InTwoLines(caption);
  const QFont in_one = FittingFrom(kSmallestButtonText, font, room, flags, caption);
  const QFont in_two = FittingFrom(kSmallestButtonText, font, room, flags, two_lines);
  const bool one_line = in_one.pixelSize() >= in_two.pixelSize();
  button.setFont(one_line ? in_one : in_two);
  button.setText(one_line ? caption : two_lines);
}

void SetLabelText(QLabel& label, const QString& caption, int pixels) {
  const QFont font = InPixels(label.font(), pixels);
  const QSize room = label.contentsRect().size();
  const bool lines = caption.contains('\n');
  const QFont in_one = lines ? font : Fitting(font, room, Qt::TextSingleLine, caption);
  // What fits in one line at its full size need not be tried in several.
  const QFont wrapped = in_one.pixelSize() < font.pixelSize() ? Fitting(font, room, Qt::TextWordWrap, caption) : in_one;
  const bool wrap = wrapped.pixelSize() > in_one.pixelSize();
  label.setText(caption);
  label.setWordWrap(wrap);
  label.setFont(wrap ? wrapped : in_one);
}

}  // namespace torvale
