#include "screen/earlier_versions_screen.h"

namespace torvale {
namespace {

constexpr std::string_view kWindow = "frmEarlierVersions";

constexpr ControlRow<EarlierVersionsScreen> kRows[] = {
    rows::Frame<&EarlierVersionsScreen::frmEarlierVersions>(kWindow, {}, "Earlier Versions", {.visible = false}),
    rows::Sheet<&EarlierVersionsScreen::Grd_EarlierVersions>("Grd_EarlierVersions", kWindow, {120, 120, 11400, 5400},
                                                             "", {.spoken = "Earlier versions"}),
    rows::Label<&EarlierVersionsScreen::lblVersionFile>("lblVersionFile", kWindow, {120, 5600, 11400, 315}, "",
                                                        "The file that held this version"),
    rows::Button<&EarlierVersionsScreen::btnOpenVersion>(
        "btnOpenVersion", kWindow, {7600, 6000, 2300, 435}, "&Open as a Copy",
        "Open the version under a name of its own; the file stays as it is"),
    rows::Button<&EarlierVersionsScreen::btnCloseVersions>("btnCloseVersions", kWindow, {10020, 6000, 1500, 435},
                                                           "&Close", "Leave the list"),
};

}  // namespace

std::span<const ControlRow<EarlierVersionsScreen>> EarlierVersionsScreen::Rows() {
  return kRows;
}

EarlierVersionsScreen::EarlierVersionsScreen() {
  TakeFacts(*this);
}

}  // namespace torvale
