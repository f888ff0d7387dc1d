#pragma once

#include <vector>

#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// What the program shows of itself while it starts, a window of its own. The main screen comes when it closes.
struct SplashScreen {
  SplashScreen();

  Control Form;  // the window itself
  Control Frame1, imgLogo, Image1, Image2;
  Control lblProductName, Label1, lblVersion, lblPlatform;
  Control lblHolePuch, Label2;  // below the two pictures
  Control lblProductDescription, lblCompany, lblWarning, Label3;
};

// Every control of the screen; all stand in the window `frmSplash`. The frame's name tells it from that of the main
// screen.
std::vector<NamedControl> ControlsOf(SplashScreen& screen);

}  // namespace torvale
