#include "screen/earlier_versions_screen.h"

namespace torvale {

EarlierVersionsScreen::EarlierVersionsScreen() {
  frmEarlierVersions.caption = "Earlier Versions";
  frmEarlierVersions.visible = false;
  Grd_EarlierVersions.control.place = {120, 120, 11400, 5400};
  lblVersionFile.tool_tip = "The file that held this version";
  lblVersionFile.place = {120, 5600, 11400, 315};
  btnOpenVersion.caption = "&Open as a Copy";
  btnOpenVersion.tool_tip = "Open the version under a name of its own; the file stays as it is";
  btnOpenVersion.place = {7600, 6000, 2300, 435};
  btnCloseVersions.caption = "&Close";
  btnCloseVersions.tool_tip = "Leave the list";
  btnCloseVersions.place = {10020, 6000, 1500, 435};
}

std::vector<NamedControl> ControlsOf(EarlierVersionsScreen& s) {
  constexpr auto kWindow = "frmEarlierVersions";
  return {{kWindow, ControlKind::kFrame, "", &s.frmEarlierVersions},
          {"Grd_EarlierVersions", ControlKind::kGrid, kWindow, &s.Grd_EarlierVersions.control, nullptr,
           &s.Grd_EarlierVersions},
          {"lblVersionFile", ControlKind::kLabel, kWindow, &s.lblVersionFile},
          {"btnOpenVersion", ControlKind::kButton, kWindow, &s.btnOpenVersion},
          {"btnCloseVersions", ControlKind::kButton, kWindow, &s.btnCloseVersions}};
}

}  // namespace torvale
