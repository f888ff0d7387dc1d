#pragma once

#include <QFont>
#include <functional>

namespace torvale {

// What the toolkit does on some desktops by itself and on others only when it is asked.

// Colours as the desktop has them, dark ones too. To be called ahead of the application.
void AskForDesktopColours();

// With the application: a style that has all colours dark where the desktop's own has not, and letters without serifs.
void UseDesktopLook();

// The font in the first typeface without serifs that is there, if its own is not.
QFont WithoutSerifs(QFont wanted, const std::function<bool(const QString& typeface)>& is_there);

}  // namespace torvale
