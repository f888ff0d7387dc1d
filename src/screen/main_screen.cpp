#include "screen/main_screen.h"

namespace torvale {
namespace {

// How a control looks when the screen is made. Places of the grids, the result panel and the frames beside it are set
// again by the procedures that lay the screen out.
struct Look {
  std::string_view name;
  std::string_view caption;
  Place place;
  bool visible;
  std::string_view tool_tip;
};

constexpr bool kShown = true;
constexpr bool kAway = false;

constexpr std::string_view kGpmTip =
    "This Gallons Per Minute should be measured from your water source. If this number is different from your actual "
    "flow you may burst the layflat pipe or the design will not inefficient as designed.";
constexpr std::string_view kHeadTip =
    "The Target Pressure is used for a starting pressure in the calculations and an estimate of the highest pressure "
    "for the design.  The designed highest pressure may be different from the Target Pressure head ";

constexpr Look kLooks[] = {
    {"mnuFile", "&File", {}, kShown, ""},
    {"mnuFileNew", "&New", {}, kShown, "Clear the sheet and begin a new design"},
    {"mnuFileOpen", "&Open...", {}, kShown, "Open a saved design"},
    {"mnuFileSave", "&Save", {}, kShown, "Save the design under its name"},
    {"mnuFileSaveAs", "Save &As...", {}, kShown, "Save the design under another name"},
    {"mnuFileEarlier", "Earlier &Versions...", {}, kShown, "What your files held before they were saved over"},
    {"mnuFileBringBack",
     "&Bring Back Last Work",
     {},
     kShown,
     "Put back what was on the screen, and not saved, when the program ended"},
    {"mnuFileList(0)", "", {}, kAway, "Open this design again"},
    {"mnuFileList(1)", "", {}, kAway, "Open this design again"},
    {"mnuFileList(2)", "", {}, kAway, "Open this design again"},
    {"mnuFileList(3)", "", {}, kAway, "Open this design again"},
    {"mnuFileBar3", "-", {}, kAway, ""},
    {"mnuPrintSummary", "Print S&ummary...", {}, kShown, "The rows at which something changes, on paper"},
    {"mnuPrintComplete", "Print &Complete Design...", {}, kShown, "Every outlet along the pipe, on paper"},
    {"mnuPrtHoleSummary", "Print &Hole Summary...", {}, kShown, "The sheet that goes with the pipe into the field"},
    {"mnuPrintPreview", "Print Pre&view", {}, kShown, ""},
    {"mnuPreview(0)", "S&ummary", {}, kShown, "Show the report as it would come out of the printer"},
    {"mnuPreview(1)", "&Complete Design", {}, kShown, "Show the report as it would come out of the printer"},
    {"mnuPreview(2)", "&Hole Summary", {}, kShown, "Show the report as it would come out of the printer"},
    {"mnuExport", "&Export as PDF", {}, kShown, ""},
    {"mnuExportPdf(0)", "S&ummary...", {}, kShown, "Write the report to a file"},
    {"mnuExportPdf(1)", "&Complete Design...", {}, kShown, "Write the report to a file"},
    {"mnuExportPdf(2)", "&Hole Summary...", {}, kShown, "Write the report to a file"},
    {"mnuExportCsv", "Export &Table as CSV...", {}, kShown, "Write the table that is shown for a spreadsheet"},
    {"mnuExportHoleCsv",
     "Export Ho&le Summary as CSV...",
     {},
     kShown,
     "Write the runs of hole sizes for a spreadsheet"},
    {"mnuFileExit", "E&xit", {}, kShown, "End the program"},
    {"mnuEdit", "&Edit", {}, kShown, ""},
    {"mnuEditUndo", "&Undo", {}, kShown, "Take back what was done last to the sheet, the fields or the preferences"},
    {"mnuEditRedo", "&Redo", {}, kShown, "Do again what was taken back last"},
    {"mnuEditCut", "Cu&t", {}, kShown, "Take the selected cells or text out and keep them for Paste"},
    {"mnuEditCopy", "&Copy", {}, kShown, "Keep the selected cells or text for Paste"},
    {"mnuEditPaste",
     "&Paste",
     {},
     kShown,
     "Fill the selected cells with what was copied; cells below it repeat its last row"},
    {"mnuInsertRow", "&Insert Row", {}, kShown, "Move the rows from the current one on down by one"},
    {"mnuDeleteRow", "&Delete Row", {}, kShown, "Take the current row out and move those below up"},
    {"mnuSoils_and_Furrow",
     "Soils and Furrow Rcommendation Editor ",
     {},
     kShown,
     "Edit the list of soils and the furrow flow recommended for each"},
    {"mnuPreference", "P&reference", {}, kShown, "Defaults of new designs, coefficients and limits"},
    {"mnuDesign", "D&esign", {}, kShown, ""},
    {"mnuDesignField",
     "&Planned Design",
     {},
     kShown,
     "Flow and head at each hole with the holes and crown as surveyed"},
    {"mnuDesignConstSlope", "Design &Constant Slope", {}, kShown, ""},
    {"mnuDesignDualSlope", "Design D&ual Slope", {}, kShown, ""},
    {"mnuComputerHoleSelection", "&Computer Hole Selection", {}, kShown, ""},
    {"mnuManHoleSelection", "&User Hole Selection", {}, kShown, ""},
    {"mnuExistingDesign", "&Existing Field Design", {}, kShown, "The same for a line that already lies in the field"},
    {"mnuTypeOfPipe", "&Type of Pipe", {}, kShown, ""},
    {"mnuLayflatPipe", "LayFlat Tubing", {}, kShown, "Layflat tubing with punched holes"},
    {"mnuRigidPipe", "Rigid Pipe", {}, kShown, "Rigid gated pipe"},
    {"mnuView", "&View", {}, kShown, ""},
    {"mnuZoom", "&Zoom", {}, kShown, ""},
    {"mnuWindowInfo", "&Input Screen", {}, kAway, "Back to the survey sheet"},
    {"mnuProfile", "&Crown Profile", {}, kAway, ""},
    {"mnuSurveyCopy",
     "Paste Excel Survey",
     {},
     kShown,
     "Fill stations and readings from two columns copied in a spreadsheet"},
    {"mnuHelp", "&Help", {}, kShown, ""},
    {"mnuHelpContents", "&Contents", {}, kShown, "Open the guide at its table of contents"},
    {"mnuHelpScreen",
     "Help on This &Screen",
     {},
     kShown,
     "Open the guide at the page of the field or sheet you are at"},
    {"mnuHelpAbout", "&About TORVALE...", {}, kShown, "The version of the program, and its disclaimer"},

    {"lblName", "Name:", {120, 75, 1000, 315}, kShown, ""},
    {"txtInfo(0)", "", {1180, 75, 4300, 315}, kShown, "Name of the design"},
    {"lblDate", "Date:", {5640, 75, 720, 315}, kShown, ""},
    {"txtInfo(1)", "", {6420, 75, 1500, 315}, kShown, "Date of the design"},
    {"lblGPM", "GPM:", {120, 465, 1000, 315}, kShown, kGpmTip},
    {"txtInfo(2)", "", {1180, 465, 1200, 315}, kShown, kGpmTip},
    {"lblHead", "Target Head (ft):", {2540, 465, 1700, 315}, kShown, kHeadTip},
    {"txtInfo(3)", "", {4300, 465, 1180, 315}, kShown, kHeadTip},
    {"lblLocation", "Location:", {120, 855, 1000, 315}, kShown, ""},
    {"txtInfo(4)", "", {1180, 855, 4300, 315}, kShown, "Where the field lies"},
    {"lblRodOrElev", "Enter Rod Readings or Elevations (R or E):", {120, 1245, 4440, 315}, kShown, ""},
    {"txtInfo(5)",
     "",
     {4620, 1245, 480, 315},
     kShown,
     "R: the survey gives rod readings, where a larger reading is lower ground. E: it gives elevations."},

    {"cmdInterpolate",
     "Interpolate Furrow Length and Calculate Elevations",
     {120, 1665, 4860, 435},
     kShown,
     "Fill in the missing crown readings and furrow lengths by straight lines between the filled cells"},
    {"cmdCancel", "Cancel", {5040, 1665, 1200, 435}, kAway, "Stop the calculation"},
    {"cmdReCalc",
     "Re-Calculate",
     {9250, 2295, 1100, 315},
     kAway,
     "Run the design again with the fields as they are now"},
    {"cmdDesignToggle",
     "Complete Design",
     {9250, 2620, 1100, 580},
     kAway,
     "Change between the complete table and its summary"},

    {"cmdBringBack",
     "Bring Back Last Work",
     {8850, 2295, 2600, 435},
     kAway,
     "Put back what was on the screen, and not saved, when the program ended"},

    {"lblActiveInactive",
     "Inactive Design",
     {8160, 75, 2640, 315},
     kShown,
     "Whether the results on the screen belong to the last calculation"},
    {"lblHeadCount", "", {6360, 1590, 4560, 285}, kAway, ""},
    {"listSoils", "", {5640, 465, 2280, 315}, kShown, "Soil of the field, for the furrow flow recommended for it"},
    {"lblRecFurrowFlow", "", {8040, 465, 2760, 315}, kShown, "Advice only: it does not enter the design"},
    {"lblAvgFurrowFlow", "", {5640, 855, 5160, 315}, kAway, ""},
    {"lblAcresTotal", "", {5640, 1245, 5160, 315}, kShown, ""},
    {"lblCrownSlope", "", {6360, 1590, 4560, 285}, kAway, ""},
    {"lblEffic",
     "",
     {6360, 1900, 4440, 270},
     kAway,
     "Mean of the lowest quarter over the target mean. Green from 90 percent up."},

    {"frmDisplay", "", {8840, 3280, 1770, 6010}, kAway, ""},
    {"frmDisplayLbl(0)", "Highest Head", {30, 90, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(1)",
     "",
     {30, 390, 1680, 300},
     kShown,
     "Highest calculated head. When background color is green it is below target head."},
    {"frmDisplayLbl(2)", "Max Head Station", {30, 830, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(3)", "", {30, 1130, 1680, 300}, kShown, "Feet from the head of the line"},
    {"frmDisplayLbl(4)", "Lowest Head", {30, 1570, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(5)",
     "",
     {30, 1870, 1680, 300},
     kShown,
     "Lowest calculated head, feet. When background color is yellow it is below half a foot."},
    {"frmDisplayLbl(6)", "Low Head Station", {30, 2310, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(7)", "", {30, 2610, 1680, 300}, kShown, "Feet from the head of the line"},
    {"frmDisplayLbl(8)", "Max. Furrow Flow", {30, 3050, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(9)", "", {30, 3350, 1680, 300}, kShown, "Gallons per minute"},
    {"frmDisplayLbl(10)", "Min. Furrow Flow", {30, 3790, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(11)", "", {30, 4090, 1680, 300}, kShown, "Gallons per minute"},
    {"frmDisplayLbl(12)", "Calculated GPM", {30, 4530, 1680, 300}, kShown, ""},
    {"frmDisplayLbl(13)", "", {30, 4830, 1680, 300}, kShown, "Flow out of all holes, gallons per minute"},
    {"frmDisplayLbl(14)", "Crown Differential", {30, 5270, 1680, 300}, kAway, ""},
    {"frmDisplayLbl(15)",
     "",
     {30, 5570, 1680, 300},
     kAway,
     "The difference between the highest and lowest elevation of the crown."},

    {"Grid1", "", {120, 2200, 8490, 7100}, kShown, ""},
    {"Grid2", "", {120, 2200, 10720, 7100}, kAway, ""},
    {"GridInchesApplied",
     "",
     {11000, 480, 2850, 1575},
     kAway,
     "Hours and days of pumping that apply a gross depth over the field"},

    {"frameShowLimitedHoles", "", {10900, 2200, 4455, 7130}, kAway, ""},
    {"lblSumHoleDia", "", {15, 90, 1400, 6980}, kShown, ""},
    {"lblSumStation", "", {1415, 90, 1250, 6980}, kShown, "From the first to the last station of the hole size, feet"},
    {"lblSumlNumHoles", "", {2665, 90, 1535, 6980}, kShown, ""},
    {"frameHoleEquiv", "", {1680, 3660, 7200, 420}, kAway, ""},
    {"lblHoleEquiv", "", {60, 75, 7080, 270}, kShown, ""},

    {"Frame1", "Defaults", {10000, 700, 5400, 8600}, kAway, ""},
    {"btnDefaultExit", "&Exit", {1900, 8070, 1600, 400}, kShown, "Close the panel and keep these preferences"},
    {"frameHoleSelection", "", {2040, 360, 6400, 5600}, kAway, ""},
    {"lblAllHoles", "Holes Selection", {120, 120, 1620, 255}, kShown, ""},
    {"listAllHoles", "", {120, 420, 1500, 4980}, kShown, "Hold Ctrl down to select more than one hole size at a time."},
    {"cmdADDtoSelected",
     "---> Add to Selected Holes --->",
     {1740, 420, 2760, 435},
     kShown,
     "This button will copy the hole or holes that you have selected from the Hole Selection List to the Selected Hole "
     "List"},
    {"cmdHoleSelected", "Selected Holes", {4620, 120, 1620, 255}, kShown, ""},
    {"listHolesSelected",
     "",
     {4620, 420, 1620, 4980},
     kShown,
     "The computer will select the holes from this list based on Head and GPM, All holes may not be used."},
    {"cmdremoveSelected",
     "Remove a Selected Hole",
     {1740, 1020, 2760, 435},
     kShown,
     "This button will delete the hole or holes you have selected from the Selected Holes list"},
    {"Command1",
     "Clear All Selected Holes",
     {1740, 1620, 2760, 435},
     kShown,
     "This button will delete all the holes from the Selected Holes list"},
    {"cmdExitHoleSelect",
     "&Exit",
     {1740, 4965, 2760, 435},
     kShown,
     "Exit button will return you to the Design Screen after calculating a design with the holes you have selected"},
    {"listSortSelectedHoles", "", {}, kAway, ""},
};

// The preferences, one below the other: caption of the label, tool tips of the label and of the field.
struct PreferenceLook {
  std::string_view caption;
  std::string_view label_tip;
  std::string_view field_tip;
};

constexpr std::string_view kStationTip =
    "Enter the distance between entries of the crown survey. (e.g. 100ft between survey readings)";
constexpr std::string_view kGateSizeTip = "Used for calculating hole area in gated pipe same as above";
constexpr std::string_view kHighestHeadTip =
    "This is an starting head and will be reduced by the increments entered below.  The program will not go below 0.5' "
    "of head during the incrementation. ";
constexpr std::string_view kFilterTip = "Kind of file that Open shows first";

constexpr std::array<PreferenceLook, 16> kPreferences = {{
    {"Distance Between Stations (feet):", kStationTip, kStationTip},
    {"Change Hole Size (Press + or -):", "Use the plus or minus key to change hole sizes",
     "Use the plus or minus key to change hole sizes"},
    {"Orifice Coeficient:", "Usually 0.65 for layflat pipe.", "Usually 0.65 for layflat pipe."},
    {"Hazen William C:", "Layflat 140, Smooth Steel commonly used 100, etc.",
     "Layflat 140, Smooth Steel commonly used 100, etc."},
    {"Warning for Max. Elevation Difference between Crown and Field (feet):",
     "This number represents the desired difference between the highest crown elevation above the field elevation.",
     "Enter the maximum difference you want in crown elevations."},
    {" Pipe Diameter (inches):", "", "Inside diameter that a new survey begins with, inches"},
    {"Distance between watered furrows (feet):", "", "Spacing and planted width that a new survey begins with, feet"},
    {"Number of Holes Per Furrow:", "", "Holes at each watered furrow that a new survey begins with"},
    {"Mil (Pipe Wall Thickness) :", "Fior layflat pipe usually 6,7,9, 10, 12",
     "Fior layflat pipe usually 6,7,9, 10, 12"},
    {"Elevations or Rod Readings (R or E):", "", "R: surveys are rod readings. E: they are elevations."},
    {"Target Head (feet):", "Used for an estimated highest head",
     "This will be diplayed as Target Head when program is started."},
    {"Hole Type Rectangle or Circular (R or C):", "Used for calculating hole area in gated pipe",
     "Used for calculating hole area in gated pipe"},
    {"Diameter or Height of gated hole (inches):", kGateSizeTip, kGateSizeTip},
    {"HighestTarget head for calculating Limited Holes Selection (ft.):", kHighestHeadTip, kHighestHeadTip},
    {"Increments in head change for Limited Hole Selection:",
     "Use to determine what amount you desire to use when the computer changes head pressure while calculating the "
     "best "
     "holes you have selected.",
     "This valuse is used when reducing the as the Limited Hole Selection is calculating."},
    {"", kFilterTip, kFilterTip},
}};

void PlacePreferences(MainScreen& s) {
  constexpr int kTop = 330;
  constexpr int kStep = 478;
  std::array<Control*, kPreferences.size()> labels = {&s.lblDefDistance, &s.lblHoleSize};
  for (std::size_t i = 0; i < s.lblDefault.size(); ++i) labels.at(i + 2) = &s.lblDefault[i];
  labels.back() = &s.lblOpenFilter;
  for (std::size_t i = 0; i < kPreferences.size(); ++i) {
    const int top = kTop + kStep * static_cast<int>(i);
    labels[i]->caption = kPreferences[i].caption;
    labels[i]->tool_tip = kPreferences[i].label_tip;
    labels[i]->place = {90, top, 4200, 435};
    s.txtDefault[i].control.tool_tip = kPreferences[i].field_tip;
    s.txtDefault[i].control.place = {4350, top + 45, 930, 315};
  }
}

constexpr std::string_view kZoomCaptions[] = {"75 %", "100 %", "125 %", "150 %", "175 %", "200 %", "250 %"};

}  // namespace

MainScreen::MainScreen() {
  for (const NamedControl& named : ControlsOf(*this)) {
    for (const Look& look : kLooks) {
      if (named.name != look.name) continue;
      named.control->caption = look.caption;
      named.control->tool_tip = look.tool_tip;
      named.control->place = look.place;
      named.control->visible = look.visible;
    }
  }
  for (std::size_t i = 0; i < mnuZoomTo.size(); ++i) mnuZoomTo[i].caption = kZoomCaptions[i];
  PlacePreferences(*this);
  listAllHoles.multiple = true;
  listHolesSelected.multiple = true;
  listSortSelectedHoles.sorted = true;
  listSoils.drop_down = true;
}

SoilsScreen::SoilsScreen() {
  title = "Soils and Recommended Furrow Flow Editor";
  mnuFile.caption = "&File";
  mnuSave.caption = "&Save";
  mnu_Save_Exit.caption = "S&ave and Exit";
  MnuExit.caption = "&Exit";
  mnuEdit.caption = "&Edit";
  mnuCut.caption = "Cu&t";
  mnuCopy.caption = "&Copy";
  mnuPaste.caption = "&Paste";
  Grd_Soils_FurrowFlow.control.place = {60, 60, 5400, 6600};
}

}  // namespace torvale
