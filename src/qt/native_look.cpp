#include "qt/native_look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QOperatingSystemVersion>
#include <QPalette>

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

}  // namespace

void AskForDesktopColours() {
  if (OnWindows() && qEnvironmentVariableIsEmpty(kPlatform)) qputenv(kPlatform, "windows:darkmode=2");
}

void UseDesktopLook() {
  if (!OnWindows()) return;
  if (IsDark(QApplication::palette())) QApplication::setStyle("Fusion");
  QApplication::setFont(WithoutSerifs(QApplication::font(), QFontDatabase::families()));
}

QFont WithoutSerifs(QFont wanted, const QStringList& typefaces_there) {
  static const QStringList kTypefaces = {"Segoe UI",  "Tahoma",          "Verdana",    "Arial",
                                         "Noto Sans", "Liberation Sans", "DejaVu Sans"};
  if (typefaces_there.contains(wanted.family(), Qt::CaseInsensitive)) return wanted;
  for (const QString& typeface : kTypefaces) {
    if (!typefaces_there.contains(typeface, Qt::CaseInsensitive)) continue;
    wanted.setFamily(typeface);
    break;
  }
  return wanted;
}

}  // namespace torvale
