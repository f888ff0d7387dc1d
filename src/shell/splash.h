// The start of the program behind its splash screen.
#pragma once

#include "screen/program.h"

namespace torvale {

// How long the splash screen stands if nobody closes it.
inline constexpr int kSplashMilliseconds = 2000;

// The start of the program behind its splash screen: the hole sizes, the main screen with its defaults and its sheet,
// the screen's own texts, the recent files. Then the screen is shown. Its two seconds are counted by the desktop,
// which ends them with frmSplash_Click.
void frmSplash_Load(Program& program);

// A click anywhere on the splash screen, or a key: it closes, and the main screen is shown.
void frmSplash_Click(Program& program);

}  // namespace torvale
