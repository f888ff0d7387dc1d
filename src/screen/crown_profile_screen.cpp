#include "screen/crown_profile_screen.h"

namespace torvale {

CrownProfileScreen::CrownProfileScreen() {
  CrownProfile.caption = "Profile of Crown";
  CrownProfile.visible = false;
  lblProfileHiHead.tool_tip = "Highest calculated head, feet";
  lblDistUnif.tool_tip = "Mean of the lowest quarter over the target mean";
  lblFillHeight.tool_tip = "Largest distance between the designed slope and the existing crown, feet";
  lblFillHeight.visible = false;
  lblSlope.visible = false;
  btnPrintProfile.caption = "Print Profile";
  btnPrintProfile.tool_tip = "Print this window in landscape";
  btnExportPicture.caption = "Export Picture...";
  btnExportPicture.tool_tip = "Save this window as a picture (PNG) or as a document (PDF)";
  btnBack.caption = "Back";
  btnBack.tool_tip = "This button will return you to the design screen";
}

std::vector<NamedControl> ControlsOf(CrownProfileScreen& s) {
  constexpr auto kWindow = "CrownProfile";
  const auto label = [&](const char* name, Control& c) { return NamedControl{name, ControlKind::kLabel, kWindow, &c}; };
  const auto button = [&](const char* name, Control& c) {
    return NamedControl{name, ControlKind::kButton, kWindow, &c};
  };
  return {{kWindow, ControlKind::kFrame, "", &s.CrownProfile},
          label("lblProfileName", s.lblProfileName),
          label("lblProfileHiHead", s.lblProfileHiHead),
          label("lblDistUnif", s.lblDistUnif),
          label("lblFillHeight", s.lblFillHeight),
          label("lblSlope", s.lblSlope),
          button("btnPrintProfile", s.btnPrintProfile),
          button("btnExportPicture", s.btnExportPicture),
          button("btnBack", s.btnBack)};
}

}  // namespace torvale
