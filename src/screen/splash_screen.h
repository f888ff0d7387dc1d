#pragma once

#include <span>

#include "screen/control_facts.h"
#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// What the program shows of itself while it starts, a window of its own. The main screen comes when it closes.
struct SplashScreen {
  SplashScreen();
  static std::span<const ControlRow<SplashScreen>> Rows();

  Control Form;  // the window itself
  Control Frame1, imgLogo, Image1, Image2;
  Control lblProductName, Label1, lblVersion, lblPlatform;
  Control lblHolePuch, Label2;  // below the two pictures
  Control lblProductDescription, lblCompany, lblWarning, Label3;
};

}  // namespace torvale
