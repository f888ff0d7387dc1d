// What stands on the main screen itself, in tab order: fields, sheets, buttons, then the results. Private to
// main_screen.cpp. Odd wording in captions and tips is meant: it is what scripts and the guide know them by.
#pragma once

#include "screen/control_facts.h"
#include "screen/main_screen.h"

namespace torvale::rows {

inline constexpr std::string_view kGpmTip =
    "This Gallons Per Minute should be measured from your water source. If this number is different from your actual "
    "flow you may burst the layflat pipe or the design will not inefficient as designed.";
inline constexpr std::string_view kHeadTip =
    "The Target Pressure is used for a starting pressure in the calculations and an estimate of the highest pressure "
    "for the design.  The designed highest pressure may be different from the Target Pressure head ";
inline constexpr std::string_view kStationFeetTip = "Feet from the head of the line";
inline constexpr std::string_view kFlowTip = "Gallons per minute";

inline constexpr std::string_view kCurveTip =
    "The best uniformity that was found with at most so many stretches of one hole size: what one more change of punch "
    "buys";

// A figure of the results, counted from 0: its title, and the value below it.
inline constexpr int kFigureStep = 740;  // twips

constexpr Place FigureTitle(int figure) {
  return {30, 90 + kFigureStep * figure, 1680, 300};
}
constexpr Place FigureValue(int figure) {
  return {30, 390 + kFigureStep * figure, 1680, 300};
}

inline constexpr int kLineLetters = 11;  // pixels, as the sheets have them
inline constexpr TextLook kResultLook{TextPlace::kCentre, 0, true, true};
inline constexpr TextLook kTitleLook{TextPlace::kFoot};
// The lines of these belong together across the labels, so the letters are alike.
inline constexpr TextLook kLinesLook{TextPlace::kTop, kLineLetters};
// So do these, which have as many lines each; the bars begin one below the other.
inline constexpr TextLook kCurveLook{TextPlace::kCentre, kLineLetters};
inline constexpr TextLook kBarsLook{TextPlace::kLeft, kLineLetters};

inline constexpr ControlRow<MainScreen> kInput[] = {
    Label<&MainScreen::lblName>("lblName", "", {120, 75, 1000, 315}, "Name:"),
    Label<&MainScreen::lblDate>("lblDate", "", {5640, 75, 720, 315}, "Date:"),
    Label<&MainScreen::lblGPM>("lblGPM", "", {120, 465, 1000, 315}, "GPM:", kGpmTip),
    Label<&MainScreen::lblHead>("lblHead", "", {2540, 465, 1700, 315}, "Target Head (ft):", kHeadTip),
    Label<&MainScreen::lblLocation>("lblLocation", "", {120, 855, 1000, 315}, "Location:"),
    Label<&MainScreen::lblRodOrElev>("lblRodOrElev", "", {120, 1245, 4440, 315},
                                     "Enter Rod Readings or Elevations (R or E):"),
    Field<&MainScreen::txtInfo, 0>("txtInfo(0)", "", {1180, 75, 4300, 315}, "Name of the design"),
    Field<&MainScreen::txtInfo, 1>("txtInfo(1)", "", {6420, 75, 1500, 315}, "Date of the design"),
    Field<&MainScreen::txtInfo, 2>("txtInfo(2)", "", {1180, 465, 1200, 315}, kGpmTip),
    Field<&MainScreen::txtInfo, 3>("txtInfo(3)", "", {4300, 465, 1180, 315}, kHeadTip),
    Field<&MainScreen::txtInfo, 4>("txtInfo(4)", "", {1180, 855, 4300, 315}, "Where the field lies"),
    Field<&MainScreen::txtInfo, 5>(
        "txtInfo(5)", "", {4620, 1245, 480, 315},
        "R: the survey gives rod readings, where a larger reading is lower ground. E: it gives elevations."),
    Sheet<&MainScreen::Grid1>("Grid1", "", {120, 2200, 8490, 7100}, "", {.spoken = "Survey sheet"}),
    Sheet<&MainScreen::Grid2>("Grid2", "", {120, 2200, 10720, 7100}, "",
                              {.visible = false, .spoken = "Design results"}),
    Sheet<&MainScreen::GridInchesApplied>(
        "GridInchesApplied", "", {11000, 480, 2850, 1575},
        "Hours and days of pumping that apply a gross depth over the field",
        {.visible = false, .spoken = "Hours and days of pumping", .worked_in = false}),
    Button<&MainScreen::cmdInterpolate>(
        "cmdInterpolate", "", {120, 1665, 4860, 435}, "Interpolate Furrow Length and Calculate Elevations",
        "Fill in the missing crown readings and furrow lengths by straight lines between the filled cells"),
    Button<&MainScreen::cmdCancel>("cmdCancel", "", {5040, 1665, 1200, 435}, "Cancel", "Stop the calculation",
                                   {.visible = false}),
    Button<&MainScreen::cmdReCalc>("cmdReCalc", "", {9250, 2295, 1100, 315}, "Re-Calculate",
                                   "Run the design again with the fields as they are now", {.visible = false}),
    Button<&MainScreen::cmdDesignToggle>("cmdDesignToggle", "", {9250, 2620, 1100, 580}, kCompleteDesign,
                                         "Change between the complete table and its summary", {.visible = false}),
    Button<&MainScreen::cmdBringBack>("cmdBringBack", "", {8850, 2295, 2600, 435}, "Bring Back Last Work",
                                      kBringBackTip, {.visible = false}),
    Frame<&MainScreen::frameFirstSteps>("frameFirstSteps", {8850, 2900, 6500, 4300}, "First Steps", {.visible = false}),
    Label<&MainScreen::lblFirstSteps>("lblFirstSteps", "frameFirstSteps", {150, 420, 6200, 300},
                                      "From an empty sheet to a design:"),
    Label<&MainScreen::lblFirstStep, 0>("lblFirstStep(0)", "frameFirstSteps", {150, 840, 6200, 300},
                                        "1.  Type the pumped flow (GPM) and the Target Head at the top."),
    Label<&MainScreen::lblFirstStep, 1>("lblFirstStep(1)", "frameFirstSteps", {150, 1230, 6200, 300},
                                        "2.  Type the survey: stations and readings, furrow lengths, holes."),
    Label<&MainScreen::lblFirstStep, 2>("lblFirstStep(2)", "frameFirstSteps", {150, 1620, 6200, 300},
                                        "3.  Press F5. Other designs are in the Design menu."),
    Button<&MainScreen::cmdOpenSample>("cmdOpenSample", "frameFirstSteps", {300, 2160, 4200, 435}, "Open a Sample...",
                                       "Open one of the designs that come with the program"),
    Button<&MainScreen::cmdWorkedExample>("cmdWorkedExample", "frameFirstSteps", {300, 2700, 4200, 435},
                                          "Show the Worked Example", "Open the guide at a design made step by step"),
    Button<&MainScreen::cmdCloseFirstSteps>("cmdCloseFirstSteps", "frameFirstSteps", {300, 3600, 4200, 435},
                                            "Close First Steps", "The Help menu brings this card back"),
    List<&MainScreen::listSoils>("listSoils", "", {5640, 465, 2280, 315},
                                 "Soil of the field, for the furrow flow recommended for it", {.spoken = "Soil"}),
    Label<&MainScreen::lblRecFurrowFlow>("lblRecFurrowFlow", "", {8040, 465, 2760, 315}, "",
                                         "Advice only: it does not enter the design"),
};

inline constexpr ControlRow<MainScreen> kResults[] = {
    Label<&MainScreen::lblEffic>("lblEffic", "", {6360, 1900, 4440, 270}, "",
                                 "Mean of the lowest quarter over the target mean. Green from 90 percent up.",
                                 {.visible = false, .look = kResultLook}),
    Label<&MainScreen::lblCrownSlope>("lblCrownSlope", "", {6360, 1590, 4560, 285}, "", "", {.visible = false}),
    Label<&MainScreen::lblBestHoles>("lblBestHoles", "", {6360, 1590, 4560, 285}, "",
                                     "How much more uniformity any other plan of these hole sizes could have",
                                     {.visible = false}),
    Label<&MainScreen::lblAcresTotal>("lblAcresTotal", "", {5640, 1245, 5160, 315}),
    Label<&MainScreen::lblActiveInactive>("lblActiveInactive", "", {8160, 75, 2640, 315}, kInactiveDesign,
                                          "Whether the results on the screen belong to the last calculation",
                                          {.look = kResultLook}),
    Label<&MainScreen::lblAvgFurrowFlow>("lblAvgFurrowFlow", "", {5640, 855, 5160, 315}, "", "", {.visible = false}),
    Label<&MainScreen::lblHeadCount>("lblHeadCount", "", {6360, 1590, 4560, 285}, "", "", {.visible = false}),
    Frame<&MainScreen::frmDisplay>("frmDisplay", {8840, 3280, 1770, 6010}, "", {.visible = false}),
    Label<&MainScreen::frmDisplayLbl, 0>("frmDisplayLbl(0)", "frmDisplay", FigureTitle(0), "Highest Head", "",
                                         {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 1>(
        "frmDisplayLbl(1)", "frmDisplay", FigureValue(0), "",
        "Highest calculated head. When background color is green it is below target head.", {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 2>("frmDisplayLbl(2)", "frmDisplay", FigureTitle(1), "Max Head Station", "",
                                         {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 3>("frmDisplayLbl(3)", "frmDisplay", FigureValue(1), "", kStationFeetTip,
                                         {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 4>("frmDisplayLbl(4)", "frmDisplay", FigureTitle(2), "Lowest Head", "",
                                         {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 5>(
        "frmDisplayLbl(5)", "frmDisplay", FigureValue(2), "",
        "Lowest calculated head, feet. When background color is yellow it is below half a foot.",
        {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 6>("frmDisplayLbl(6)", "frmDisplay", FigureTitle(3), "Low Head Station", "",
                                         {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 7>("frmDisplayLbl(7)", "frmDisplay", FigureValue(3), "", kStationFeetTip,
                                         {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 8>("frmDisplayLbl(8)", "frmDisplay", FigureTitle(4), "Max. Furrow Flow", "",
                                         {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 9>("frmDisplayLbl(9)", "frmDisplay", FigureValue(4), "", kFlowTip,
                                         {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 10>("frmDisplayLbl(10)", "frmDisplay", FigureTitle(5), "Min. Furrow Flow", "",
                                          {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 11>("frmDisplayLbl(11)", "frmDisplay", FigureValue(5), "", kFlowTip,
                                          {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 12>("frmDisplayLbl(12)", "frmDisplay", FigureTitle(6), "Calculated GPM", "",
                                          {.look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 13>("frmDisplayLbl(13)", "frmDisplay", FigureValue(6), "",
                                          "Flow out of all holes, gallons per minute", {.look = kResultLook}),
    Label<&MainScreen::frmDisplayLbl, 14>("frmDisplayLbl(14)", "frmDisplay", FigureTitle(7), "Crown Differential", "",
                                          {.visible = false, .look = kTitleLook}),
    Label<&MainScreen::frmDisplayLbl, 15>("frmDisplayLbl(15)", "frmDisplay", FigureValue(7), "",
                                          "The difference between the highest and lowest elevation of the crown.",
                                          {.visible = false, .look = kResultLook}),
    Frame<&MainScreen::frameShowLimitedHoles>("frameShowLimitedHoles", {10900, 2200, 4455, 7130}, "",
                                              {.visible = false, .spoken = "Hole summary"}),
    Label<&MainScreen::lblSumHoleDia>("lblSumHoleDia", "frameShowLimitedHoles", {15, 90, 1400, 6980}, "", "",
                                      {.look = kLinesLook}),
    Label<&MainScreen::lblSumStation>("lblSumStation", "frameShowLimitedHoles", {1415, 90, 1250, 6980}, "",
                                      "From the first to the last station of the hole size, feet",
                                      {.look = kLinesLook}),
    Label<&MainScreen::lblSumlNumHoles>("lblSumlNumHoles", "frameShowLimitedHoles", {2665, 90, 1535, 6980}, "", "",
                                        {.look = kLinesLook}),
    Frame<&MainScreen::frameBestCurve>("frameBestCurve", {10900, 6600, 4455, 2730}, "",
                                       {.visible = false, .spoken = "Best uniformity by stretches of one size"}),
    Label<&MainScreen::lblCurve, 0>("lblCurve(0)", "frameBestCurve", {15, 60, 900, 2600}, "", kCurveTip,
                                    {.look = kCurveLook}),
    Label<&MainScreen::lblCurve, 1>("lblCurve(1)", "frameBestCurve", {915, 60, 1000, 2600}, "", kCurveTip,
                                    {.look = kCurveLook}),
    Label<&MainScreen::lblCurve, 2>("lblCurve(2)", "frameBestCurve", {1915, 60, 2470, 2600}, "", kCurveTip,
                                    {.look = kBarsLook}),
    Frame<&MainScreen::frameHoleEquiv>("frameHoleEquiv", {1680, 3660, 7200, 420}, "", {.visible = false}),
    Label<&MainScreen::lblHoleEquiv>("lblHoleEquiv", "frameHoleEquiv", {60, 75, 7080, 270}),
    Row<&MainScreen::tbToolBar, kWhole>(ControlKind::kToolBar, "tbToolBar", "", {}, "", "", {}),
    Row<&MainScreen::sbStatusBar, kWhole>(ControlKind::kStatusBar, "sbStatusBar", "", {}, "", "", {}),
};

}  // namespace torvale::rows
