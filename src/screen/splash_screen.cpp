#include "screen/splash_screen.h"

namespace torvale {
namespace {

constexpr std::string_view kWindow = "frmSplash";

}  // namespace

SplashScreen::SplashScreen() {
  Form.place = {0, 0, 9600, 6150};
  Form.visible = false;
  Frame1.place = Form.place;
  imgLogo.place = {300, 300, 1200, 1200};
  lblProductName.caption = kProgramTitle;
  lblProductName.place = {1700, 240, 4600, 800};
  Label1.caption = "Gated Line And Crown Planning Aid";
  Label1.place = {1730, 1080, 4900, 330};
  lblVersion.place = {5700, 450, 3600, 330};
  lblPlatform.caption = "For the Linux desktop";
  lblPlatform.place = {5700, 1080, 3600, 330};
  Image1.place = {300, 1680, 4350, 1600};
  Image2.place = {4950, 1680, 4350, 1600};
  lblHolePuch.caption = "Holes that suit the head";
  lblHolePuch.place = {300, 3330, 4350, 300};
  Label2.caption = "A crown that offsets the head";
  Label2.place = {4950, 3330, 4350, 300};
  lblProductDescription.place = {300, 3780, 9000, 1080};
  lblCompany.caption = "By the TORVALE developers";
  lblCompany.place = {300, 5010, 9000, 285};
  lblWarning.caption = "Free software under the GNU General Public License, version 3 or later, with no warranty.";
  lblWarning.place = {300, 5295, 9000, 285};
  Label3.caption = "A click or any key goes on.";
  Label3.place = {300, 5700, 9000, 285};
}

std::vector<NamedControl> ControlsOf(SplashScreen& s) {
  std::vector<NamedControl> all = {{std::string(kWindow), ControlKind::kFrame, "", &s.Form}};
  const auto add = [&](std::string_view name, Control& control) {
    all.push_back({std::string(name), ControlKind::kLabel, std::string(kWindow), &control});
  };
  add("frmSplash.Frame1", s.Frame1);
  add("imgLogo", s.imgLogo);
  add("Image1", s.Image1);
  add("Image2", s.Image2);
  add("lblProductName", s.lblProductName);
  add("Label1", s.Label1);
  add("lblVersion", s.lblVersion);
  add("lblPlatform", s.lblPlatform);
  add("lblHolePuch", s.lblHolePuch);
  add("Label2", s.Label2);
  add("lblProductDescription", s.lblProductDescription);
  add("lblCompany", s.lblCompany);
  add("lblWarning", s.lblWarning);
  add("Label3", s.Label3);
  return all;
}

}  // namespace torvale
