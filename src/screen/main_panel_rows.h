// The panels that open over the main screen, preferences and hole selection, in tab order. Private to main_screen.cpp.
// Odd spelling in captions and tips is meant: it is what scripts and the guide know them by.
#pragma once

#include "screen/control_facts.h"
#include "screen/main_screen.h"

namespace torvale::rows {

// A preference, counted from 0, is one line of its panel: a label and a field.
inline constexpr int kFirstLine = 330;  // twips
inline constexpr int kLineStep = 478;

constexpr Place PreferenceLabel(int line) {
  return {90, kFirstLine + kLineStep * line, 4200, 435};
}
constexpr Place PreferenceField(int line) {
  return {4350, kFirstLine + kLineStep * line + 45, 930, 315};
}

inline constexpr std::string_view kStationTip =
    "Enter the distance between entries of the crown survey. (e.g. 100ft between survey readings)";
inline constexpr std::string_view kHoleStepTip = "Use the plus or minus key to change hole sizes";
inline constexpr std::string_view kOrificeTip = "Usually 0.65 for layflat pipe.";
inline constexpr std::string_view kFrictionTip = "Layflat 140, Smooth Steel commonly used 100, etc.";
inline constexpr std::string_view kMilTip = "Fior layflat pipe usually 6,7,9, 10, 12";
inline constexpr std::string_view kGateShapeTip = "Used for calculating hole area in gated pipe";
inline constexpr std::string_view kGateSizeTip = "Used for calculating hole area in gated pipe same as above";
inline constexpr std::string_view kHighestHeadTip =
    "This is an starting head and will be reduced by the increments entered below.  The program will not go below 0.5' "
    "of head during the incrementation. ";
inline constexpr std::string_view kFilterTip = "Kind of file that Open shows first";

inline constexpr ControlRow<MainScreen> kPreferences[] = {
    Frame<&MainScreen::Frame1>("Frame1", {10000, 700, 5400, 8600}, "Defaults", {.visible = false}),
    Label<&MainScreen::lblDefDistance>("lblDefDistance", "Frame1", PreferenceLabel(0),
                                       "Distance Between Stations (feet):", kStationTip),
    Label<&MainScreen::lblHoleSize>("lblHoleSize", "Frame1", PreferenceLabel(1),
                                    "Change Hole Size (Press + or -):", kHoleStepTip),
    Label<&MainScreen::lblDefault, 0>("lblDefault(2)", "Frame1", PreferenceLabel(2),
                                      "Orifice Coeficient:", kOrificeTip),
    Label<&MainScreen::lblDefault, 1>("lblDefault(3)", "Frame1", PreferenceLabel(3), "Hazen William C:", kFrictionTip),
    Label<&MainScreen::lblDefault, 2>(
        "lblDefault(4)", "Frame1", PreferenceLabel(4),
        "Warning for Max. Elevation Difference between Crown and Field (feet):",
        "This number represents the desired difference between the highest crown elevation above the field elevation."),
    Label<&MainScreen::lblDefault, 3>("lblDefault(5)", "Frame1", PreferenceLabel(5), " Pipe Diameter (inches):"),
    Label<&MainScreen::lblDefault, 4>("lblDefault(6)", "Frame1", PreferenceLabel(6),
                                      "Distance between watered furrows (feet):"),
    Label<&MainScreen::lblDefault, 5>("lblDefault(7)", "Frame1", PreferenceLabel(7), "Number of Holes Per Furrow:"),
    Label<&MainScreen::lblDefault, 6>("lblDefault(8)", "Frame1", PreferenceLabel(8),
                                      "Mil (Pipe Wall Thickness) :", kMilTip),
    Label<&MainScreen::lblDefault, 7>("lblDefault(9)", "Frame1", PreferenceLabel(9),
                                      "Elevations or Rod Readings (R or E):"),
    Label<&MainScreen::lblDefault, 8>("lblDefault(10)", "Frame1", PreferenceLabel(10),
                                      "Target Head (feet):", "Used for an estimated highest head"),
    Label<&MainScreen::lblDefault, 9>("lblDefault(11)", "Frame1", PreferenceLabel(11),
                                      "Hole Type Rectangle or Circular (R or C):", kGateShapeTip),
    Label<&MainScreen::lblDefault, 10>("lblDefault(12)", "Frame1", PreferenceLabel(12),
                                       "Diameter or Height of gated hole (inches):", kGateSizeTip),
    Label<&MainScreen::lblDefault, 11>(
        "lblDefault(13)", "Frame1", PreferenceLabel(13),
        "HighestTarget head for calculating Limited Holes Selection (ft.):", kHighestHeadTip),
    Label<&MainScreen::lblDefault, 12>("lblDefault(14)", "Frame1", PreferenceLabel(14),
                                       "Increments in head change for Limited Hole Selection:",
                                       "Use to determine what amount you desire to use when the computer changes head "
                                       "pressure while calculating the best holes you have selected."),
    Label<&MainScreen::lblOpenFilter>("lblOpenFilter", "Frame1", PreferenceLabel(15),
                                      "Set OPEN FILE default extenion\r(LHD, PFD, CSD DSD, CSH, *.*)", kFilterTip),
    Field<&MainScreen::txtDefault, 0>("txtDefault(0)", "Frame1", PreferenceField(0), kStationTip),
    Field<&MainScreen::txtDefault, 1>("txtDefault(1)", "Frame1", PreferenceField(1), kHoleStepTip),
    Field<&MainScreen::txtDefault, 2>("txtDefault(2)", "Frame1", PreferenceField(2), kOrificeTip),
    Field<&MainScreen::txtDefault, 3>("txtDefault(3)", "Frame1", PreferenceField(3), kFrictionTip),
    Field<&MainScreen::txtDefault, 4>("txtDefault(4)", "Frame1", PreferenceField(4),
                                      "Enter the maximum difference you want in crown elevations."),
    Field<&MainScreen::txtDefault, 5>("txtDefault(5)", "Frame1", PreferenceField(5),
                                      "Inside diameter that a new survey begins with, inches"),
    Field<&MainScreen::txtDefault, 6>("txtDefault(6)", "Frame1", PreferenceField(6),
                                      "Spacing and planted width that a new survey begins with, feet"),
    Field<&MainScreen::txtDefault, 7>("txtDefault(7)", "Frame1", PreferenceField(7),
                                      "Holes at each watered furrow that a new survey begins with"),
    Field<&MainScreen::txtDefault, 8>("txtDefault(8)", "Frame1", PreferenceField(8), kMilTip),
    Field<&MainScreen::txtDefault, 9>("txtDefault(9)", "Frame1", PreferenceField(9),
                                      "R: surveys are rod readings. E: they are elevations."),
    Field<&MainScreen::txtDefault, 10>("txtDefault(10)", "Frame1", PreferenceField(10),
                                       "This will be diplayed as Target Head when program is started."),
    Field<&MainScreen::txtDefault, 11>("txtDefault(11)", "Frame1", PreferenceField(11), kGateShapeTip),
    Field<&MainScreen::txtDefault, 12>("txtDefault(12)", "Frame1", PreferenceField(12), kGateSizeTip),
    Field<&MainScreen::txtDefault, 13>("txtDefault(13)", "Frame1", PreferenceField(13), kHighestHeadTip),
    Field<&MainScreen::txtDefault, 14>(
        "txtDefault(14)", "Frame1", PreferenceField(14),
        "This valuse is used when reducing the as the Limited Hole Selection is calculating."),
    Field<&MainScreen::txtDefault, 15>("txtDefault(15)", "Frame1", PreferenceField(15), kFilterTip),
    Button<&MainScreen::btnDefaultExit>("btnDefaultExit", "Frame1", {1900, 8070, 1600, 400}, "&Exit",
                                        "Close the panel and keep these preferences"),
};

// A limit of the best holes, counted from 0, is one line between the lists.
inline constexpr int kFirstLimit = 2280;  // twips
inline constexpr int kLimitStep = 450;

constexpr Place BestLabel(int line) {
  return {1740, kFirstLimit + kLimitStep * line, 1980, 315};
}
constexpr Place BestField(int line) {
  return {3780, kFirstLimit + kLimitStep * line, 720, 315};
}

inline constexpr std::string_view kStretchesTip =
    "The greatest number of stretches of one hole size along the line, one more than the changes of the punch";
inline constexpr std::string_view kLeastTip = "No hole may have less head than this";
inline constexpr std::string_view kHighestTip =
    "No part of the pipe may have more head than this. Left empty, it is the Target Head.";

inline constexpr ControlRow<MainScreen> kHoleSelection[] = {
    Frame<&MainScreen::frameHoleSelection>("frameHoleSelection", {2040, 360, 6400, 5600}, "",
                                           {.visible = false, .spoken = "Hole selection"}),
    Label<&MainScreen::lblAllHoles>("lblAllHoles", "frameHoleSelection", {120, 120, 1620, 255}, "Holes Selection"),
    List<&MainScreen::listAllHoles>("listAllHoles", "frameHoleSelection", {120, 420, 1500, 4980},
                                    "Hold Ctrl down to select more than one hole size at a time.",
                                    {.spoken = "Hole sizes"}),
    Button<&MainScreen::cmdADDtoSelected>("cmdADDtoSelected", "frameHoleSelection", {1740, 420, 2760, 435},
                                          "---> Add to Selected Holes --->",
                                          "This button will copy the hole or holes that you have selected from the "
                                          "Hole Selection List to the Selected Hole List"),
    Label<&MainScreen::cmdHoleSelected>("cmdHoleSelected", "frameHoleSelection", {4620, 120, 1620, 255},
                                        "Selected Holes"),
    List<&MainScreen::listHolesSelected>(
        "listHolesSelected", "frameHoleSelection", {4620, 420, 1620, 4980},
        "The computer will select the holes from this list based on Head and GPM, All holes may not be used.",
        {.spoken = "Selected hole sizes"}),
    Button<&MainScreen::cmdremoveSelected>(
        "cmdremoveSelected", "frameHoleSelection", {1740, 1020, 2760, 435}, "Remove a Selected Hole",
        "This button will delete the hole or holes you have selected from the Selected Holes list"),
    Button<&MainScreen::Command1>("Command1", "frameHoleSelection", {1740, 1620, 2760, 435}, "Clear All Selected Holes",
                                  "This button will delete all the holes from the Selected Holes list"),
    Label<&MainScreen::lblBest, 0>("lblBest(0)", "frameHoleSelection", BestLabel(0),
                                   "Stretches, at most:", kStretchesTip, {.visible = false}),
    Label<&MainScreen::lblBest, 1>("lblBest(1)", "frameHoleSelection", BestLabel(1), "Least head (feet):", kLeastTip,
                                   {.visible = false}),
    Label<&MainScreen::lblBest, 2>("lblBest(2)", "frameHoleSelection", BestLabel(2),
                                   "Highest head (feet):", kHighestTip, {.visible = false}),
    Field<&MainScreen::txtBest, 0>("txtBest(0)", "frameHoleSelection", BestField(0), kStretchesTip, {.visible = false}),
    Field<&MainScreen::txtBest, 1>("txtBest(1)", "frameHoleSelection", BestField(1), kLeastTip, {.visible = false}),
    Field<&MainScreen::txtBest, 2>("txtBest(2)", "frameHoleSelection", BestField(2), kHighestTip, {.visible = false}),
    Button<&MainScreen::cmdFindBestHoles>(
        "cmdFindBestHoles", "frameHoleSelection", {1740, 3780, 2760, 435}, "Find &Best Holes",
        "Look for the plan of these sizes with the best uniformity, and show it", {.visible = false}),
    Button<&MainScreen::cmdCloseBestHoles>("cmdCloseBestHoles", "frameHoleSelection", {1740, 4965, 2760, 435}, "C&lose",
                                           "Close the panel and keep what it says", {.visible = false}),
    Button<&MainScreen::cmdExitHoleSelect>(
        "cmdExitHoleSelect", "frameHoleSelection", {1740, 4965, 2760, 435}, "&Exit",
        "Exit button will return you to the Design Screen after calculating a design with the holes you have selected"),
    List<&MainScreen::listSortSelectedHoles>("listSortSelectedHoles", "frameHoleSelection", {}, "",
                                             {.visible = false, .spoken = "Selected hole sizes in order"}),
};

}  // namespace torvale::rows
