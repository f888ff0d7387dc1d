#include "qt/native_look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QOperatingSystemVersion>
#include <QPalette>
#include <algorithm>
#include <array>

namespace torvale {
namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

// Elsewhere the toolkit finds colours and typefaces by itself.
bool OnWindows() {
  return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

// The toolkit's own dark colours show every other row in the desktop's accent, as if it were selected, links in a blue
// that can't be read, and hints faint.
QPalette MendedDark(const QPalette& dark) {
  constexpr int kRowsLighter = 120;  // percent
  constexpr int kHintAlpha = 200;
  const QColor link(0x7d, 0xb8, 0xff);
  QColor hint = dark.color(QPalette::Text);
  hint.setAlpha(kHintAlpha);
  QPalette mended;
  mended.setColor(QPalette::AlternateBase, dark.color(QPalette::Base).lighter(kRowsLighter));
  mended.setColor(QPalette::Link, link);
  mended.setColor(QPalette::LinkVisited, link);
  mended.setColor(QPalette::PlaceholderText, hint);
  return mended;
}

// The toolkit lists the desktop's own typeface also where there is no face of it.
bool HasFaces(const QString& typeface) {
  return !QFontDatabase::styles(typeface).isEmpty();
}

}  // namespace

void AskForDesktopColours() {
  if (OnWindows() && qEnvironmentVariableIsEmpty(kPlatform)) qputenv(kPlatform, "windows:darkmode=2");
}

void UseDesktopLook() {
  if (!OnWindows()) return;
  if (IsDark(QApplication::palette())) {
    QApplication::setStyle("Fusion");
    QApplication::setPalette(MendedDark(QApplication::palette()));
  }
  QApplication::setFont(WithoutSerifs(QApplication::font(), HasFaces));
}

QFont WithoutSerifs(QFont wanted, const std::function<bool(const QString& typeface)>& is_there) {
  constexpr std::array kTypefaces = {"Segoe UI",  "Tahoma",          "Verdana",    "Arial",
                                     "Noto Sans", "Liberation Sans", "DejaVu Sans"};
  if (is_there(wanted.family())) return wanted;
  const auto* const found = std::find_if(kTypefaces.begin(), kTypefaces.end(), is_there);
  if (found != kTypefaces.end()) wanted.setFamily(*found);
  return wanted;
}

}  // namespace torvale
