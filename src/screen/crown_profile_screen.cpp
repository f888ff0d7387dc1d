#include "screen/crown_profile_screen.h"

namespace torvale {
namespace {

constexpr ControlRow<CrownProfileScreen> kRows[] = {
    rows::Frame<&CrownProfileScreen::CrownProfile>("CrownProfile", {}, "Profile of Crown", {.visible = false}),
    rows::Label<&CrownProfileScreen::lblProfileName>("lblProfileName", "CrownProfile", {}),
    rows::Label<&CrownProfileScreen::lblProfileHiHead>("lblProfileHiHead", "CrownProfile", {}, "",
                                                       "Highest calculated head, feet"),
    rows::Label<&CrownProfileScreen::lblDistUnif>("lblDistUnif", "CrownProfile", {}, "",
                                                  "Mean of the lowest quarter over the target mean"),
    rows::Label<&CrownProfileScreen::lblFillHeight>(
        "lblFillHeight", "CrownProfile", {}, "",
        "Largest distance between the designed slope and the existing crown, feet", {.visible = false}),
    rows::Label<&CrownProfileScreen::lblSlope>("lblSlope", "CrownProfile", {}, "", "", {.visible = false}),
    rows::Button<&CrownProfileScreen::btnPrintProfile>("btnPrintProfile", "CrownProfile", {}, "Print Profile",
                                                       "Print this window in landscape"),
    rows::Button<&CrownProfileScreen::btnExportPicture>("btnExportPicture", "CrownProfile", {}, "Export Picture...",
                                                        "Save this window as a picture (PNG) or as a document (PDF)"),
    rows::Button<&CrownProfileScreen::btnBack>("btnBack", "CrownProfile", {}, "Back",
                                               "This button will return you to the design screen"),
};

}  // namespace

std::span<const ControlRow<CrownProfileScreen>> CrownProfileScreen::Rows() {
  return kRows;
}

CrownProfileScreen::CrownProfileScreen() {
  TakeFacts(*this);
}

}  // namespace torvale
