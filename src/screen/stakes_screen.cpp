#include "screen/stakes_screen.h"

namespace torvale {
namespace {

constexpr std::string_view kWindow = "frmStakes";

constexpr ControlRow<StakesScreen> kRows[] = {
    rows::Frame<&StakesScreen::frmStakes>(kWindow, {}, "Stakes", {.visible = false}),
    rows::Label<&StakesScreen::lblStakeInterval>("lblStakeInterval", kWindow, {120, 165, 2160, 315},
                                                 "Feet between stakes:"),
    rows::Field<&StakesScreen::txtStakeInterval>(
        "txtStakeInterval", kWindow, {2340, 120, 900, 345},
        "A stake stands at every so many feet, as 50 or 100, and at every survey station"),
    rows::Label<&StakesScreen::lblCrownWidth>("lblCrownWidth", kWindow, {3540, 165, 2520, 315},
                                              "Width of the crown (feet):"),
    rows::Field<&StakesScreen::txtCrownWidth>("txtCrownWidth", kWindow, {6120, 120, 900, 345},
                                              "Width of the crown that is built, for the earth that it takes"),
    rows::Row<&StakesScreen::Grd_Stakes, rows::kWhole>(ControlKind::kGrid, "Grd_Stakes", kWindow,
                                                       {120, 600, 9900, 5400}, "", "", {.spoken = "Stakes"}),
    rows::Label<&StakesScreen::lblEarth>(
        "lblEarth", kWindow, {120, 6080, 9900, 720}, "",
        "By the average end area: the mean of two cross sections times their distance"),
    rows::Button<&StakesScreen::btnPrintStakes>("btnPrintStakes", kWindow, {120, 6900, 1500, 435}, "&Print...",
                                                "Print the stakes"),
    rows::Button<&StakesScreen::btnPreviewStakes>("btnPreviewStakes", kWindow, {1740, 6900, 1500, 435}, "Pre&view",
                                                  "Show the report as it would come out of the printer"),
    rows::Button<&StakesScreen::btnPdfStakes>("btnPdfStakes", kWindow, {3360, 6900, 2100, 435}, "Export as P&DF...",
                                              "Write the report to a file"),
    rows::Button<&StakesScreen::btnCsvStakes>("btnCsvStakes", kWindow, {5580, 6900, 2100, 435}, "Export as C&SV...",
                                              "Write the table for a spreadsheet"),
    rows::Button<&StakesScreen::btnCloseStakes>("btnCloseStakes", kWindow, {8520, 6900, 1500, 435}, "&Close",
                                                "Leave the stakes"),
};

}  // namespace

std::span<const ControlRow<StakesScreen>> StakesScreen::Rows() {
  return kRows;
}

StakesScreen::StakesScreen() {
  TakeFacts(*this);
}

}  // namespace torvale
