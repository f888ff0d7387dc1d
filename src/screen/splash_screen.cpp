#include "screen/splash_screen.h"

namespace torvale {
namespace {

constexpr ControlRow<SplashScreen> kRows[] = {
    rows::Frame<&SplashScreen::Form>("frmSplash", {0, 0, 9600, 6150}, "", {.visible = false}),
    rows::Label<&SplashScreen::Frame1>("frmSplash.Frame1", "frmSplash", {0, 0, 9600, 6150}),
    rows::Label<&SplashScreen::imgLogo>("imgLogo", "frmSplash", {300, 300, 1200, 1200}, "", "", {.picture = "torvale"}),
    rows::Label<&SplashScreen::Image1>("Image1", "frmSplash", {300, 1680, 4350, 1600}, "", "",
                                       {.picture = "splash-holes"}),
    rows::Label<&SplashScreen::Image2>("Image2", "frmSplash", {4950, 1680, 4350, 1600}, "", "",
                                       {.picture = "splash-crown"}),
    rows::Label<&SplashScreen::lblProductName>("lblProductName", "frmSplash", {1700, 240, 4600, 800}, kProgramTitle, "",
                                               {.look = {TextPlace::kLeft, 40, true}}),
    rows::Label<&SplashScreen::Label1>("Label1", "frmSplash", {1730, 1080, 4900, 330}, kProgramPurpose, "",
                                       {.look = {TextPlace::kLeft, 15, false}}),
    rows::Label<&SplashScreen::lblVersion>("lblVersion", "frmSplash", {5700, 450, 3600, 330}, "", "",
                                           {.look = {TextPlace::kRight, 0, true}}),
    rows::Label<&SplashScreen::lblPlatform>("lblPlatform", "frmSplash", {5700, 1080, 3600, 330},
                                            "For the Linux desktop", "", {.look = {TextPlace::kRight, 0, false}}),
    rows::Label<&SplashScreen::lblHolePuch>("lblHolePuch", "frmSplash", {300, 3330, 4350, 300},
                                            "Holes that suit the head", "", {.look = {TextPlace::kCentre, 0, true}}),
    rows::Label<&SplashScreen::Label2>("Label2", "frmSplash", {4950, 3330, 4350, 300}, "A crown that offsets the head",
                                       "", {.look = {TextPlace::kCentre, 0, true}}),
    rows::Label<&SplashScreen::lblProductDescription>(
        "lblProductDescription", "frmSplash", {300, 3780, 9000, 1080},
        " This program was developed to improve Distribution Uniformity in Layflat pipe.\r\n"
        "  Distribution Uniformity can be improved using TORVALE two ways.\r\n"
        "   1. Selecting correct hole diameters for head pressure.\r\n"
        "   2. Designing correct slope where layflat pipe is installed to offset head pressure."),
    rows::Label<&SplashScreen::lblCompany>("lblCompany", "frmSplash", {300, 5010, 9000, 285},
                                           "By the TORVALE developers", "", {.look = {TextPlace::kCentre, 0, false}}),
    rows::Label<&SplashScreen::lblWarning>(
        "lblWarning", "frmSplash", {300, 5295, 9000, 285},
        "Free software under the GNU General Public License, version 3 or later, with no warranty.", "",
        {.look = {TextPlace::kCentre, 0, false}}),
    rows::Label<&SplashScreen::Label3>("Label3", "frmSplash", {300, 5700, 9000, 285}, "A click or any key goes on.", "",
                                       {.look = {TextPlace::kCentre, 0, true}}),
};

}  // namespace

std::span<const ControlRow<SplashScreen>> SplashScreen::Rows() {
  return kRows;
}

SplashScreen::SplashScreen() {
  TakeFacts(*this);
}

}  // namespace torvale
