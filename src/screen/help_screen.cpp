#include "screen/help_screen.h"

namespace torvale {

HelpScreen::HelpScreen() {
  frmHelp.caption = "TORVALE Help";
  frmHelp.visible = false;
}

std::vector<NamedControl> ControlsOf(HelpScreen& screen) {
  return {{"frmHelp", ControlKind::kFrame, "", &screen.frmHelp}};
}

}  // namespace torvale
