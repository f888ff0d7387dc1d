#pragma once

#include "screen/spoken.h"

// Every text that the program hands to a message box, a question, the line at the foot of the screen or the mark of a
// field, each under its name. Where the program puts something in stands "{}". The guide's page of messages has an
// entry for each of them, to which scripts/check_guide.py holds it. Odd spelling is meant: it is what scripts and the
// guide know these texts by.
namespace torvale::words {

// ---- a survey and fields that are not complete ----

inline constexpr Message<0> kInfoMissing{"Some Information Data is missing(i.e. GPM, Target Head)", "Missing Data"};
inline constexpr Message<0> kInfoMissingForSelection{"Some Information Data is missing.", "Missing Data"};
inline constexpr Message<0> kSurveyIncomplete{
    "You must compelte all Survey information on the survey grid (i.e Hole Size Mil).", "Missing Data"};
inline constexpr Message<0> kHoleRowIncomplete{"You must compelte all Survey information on the survey grid.",
                                               "Missing Data"};
inline constexpr Message<1> kStationOfRowMissing{"Data in row {} of the station column is missing"};
inline constexpr Message<0> kStationOfHoleMissing{"You do not have all of the Station column complete."};
inline constexpr Question<3> kStationsAccepted{
    "Your distance between holes at station {} is greater than the distance between Station {} and {} is this ok?"};

inline constexpr Sentence<0> kGpmMissing{"The GPM is missing: enter the pumped flow."};
inline constexpr Sentence<0> kTargetHeadMissing{"The Target Head is missing: enter it in feet."};
inline constexpr Sentence<0> kSurveyKindMissing{"Enter R for rod readings or E for elevations."};
inline constexpr Sentence<2> kCellMissing{"Row {}: the {} is missing."};
inline constexpr Sentence<2> kStationsNotRising{"Rows {} and {}: the station does not rise."};
inline constexpr Sentence<0> kNoHoles{
    "No row has holes: a watered row needs a furrow length, a hole size and a number of holes."};
inline constexpr Sentence<0> kOneRowOnly{"The survey has one row only: a line needs at least two stations."};
inline constexpr Sentence<0> kNoFurrowLength{"The rows with holes have no furrow length."};
inline constexpr Sentence<1> kRowWithoutLength{"The row with holes at station {} has no furrow length."};
inline constexpr Sentence<0> kNumberOutOfPlace{"A number in the survey is too large or out of place for a design."};

// ---- while a design is worked out ----

inline constexpr Message<3> kTryLimit{
    "               Station {}  Head {}   GPM = {}\rCan not calculate, try reducing Hole Size or Pipe Diameter",
    "Problem Calculating"};
inline constexpr Message<3> kTryLimitOfSelection{
    "               Station {}  Head {}     GPM = {}\rCan not calculate, try changing Target Head",
    "Computer Selecter Hole Calculating Problem"};
inline constexpr Message<0> kProfileCannotBeDrawn{
    "The crown profile can not be drawn from the survey as it is now: see its stations, and run the design again."};
inline constexpr Message<0> kFlowFault{
    "There is a problem trying to calculate design with existing parameters. "
    "Check all of your inputs to see if they are entered correctly."};
inline constexpr Message<0> kAcresFault{"Error calculating acres."};
inline constexpr Message<0> kTableSelectionFault{
    "There is a programming problem calculating Computer Selected Holes. Try Changing Head or Hole Sizes",
    "Computer Selected Hole Error"};
inline constexpr Message<0> kListSelectionFault{
    "There is a programming problem calculating Computer Selected Holes. Try Changing Head ",
    "Computer Selected Hole Error"};
inline constexpr Message<0> kNoHolesSelected{"No Holes were Selected"};
inline constexpr Message<1> kUnfinished{
    "The program could not finish this: {} Nothing that you typed is lost: check the numbers on the sheet and in the "
    "fields, and try again."};

inline constexpr Sentence<0> kExactlyHundredTries{
    "The flow was met after exactly 100 tries, which does not count: change the Target Head a little."};
inline constexpr Sentence<6> kSlopeProgress{
    "Slope {} ft per 100 ft, uniformity {} %, best so far {} % at {}, head {} to {} ft"};
inline constexpr Sentence<0> kIncrementTooSmall{
    "The increment of the limited hole selection must be a number above 0: see the preferences."};
inline constexpr Sentence<2> kBestHead{"The Target Head went from {} to {}, the best of the heads that were tried."};
inline constexpr Sentence<1> kFiguresAreFor{"The figures shown are for {}: press Re-Calculate."};
inline constexpr Question<1> kGoOnWithStaleFigures{"{} Go on with the figures as they are?", "Not Re-Calculated"};
inline constexpr Sentence<0> kFormerTable{"The table is that of the design before."};
inline constexpr Sentence<1> kFirstStationTaken{
    "First Crown Station must be Zero: this design was worked out from station {}, the sheet says 0 from here on. "
    "Correct the stations and run it again."};
inline constexpr Sentence<0> kTableCannotBeMade{
    "The table can not be made from the survey as it is now: see its stations, and run the design again."};

inline constexpr Sentence<3> kHolesTooSmall{
    "At the target head of {} feet the holes let {} GPM out, less than the {} GPM that are pumped: take larger holes "
    "or "
    "more of them, or pump less."};
inline constexpr Sentence<2> kHolesTooLarge{
    "The holes are too large for the flow: {} GPM would stand {} feet high over them. Take smaller holes or fewer of "
    "them."};
inline constexpr Sentence<1> kHeadLost{
    "The line loses all its head by station {}, where the crown is too high for it: see the readings there, or raise "
    "the Target Head."};
inline constexpr Sentence<5> kHeadTooHigh{
    "The head of {} feet at station {} is more than the {} feet that {}-inch tubing of {} mil is to bear."};
inline constexpr Sentence<1> kFurrowStaysDry{"The furrow at station {} gets no water."};
inline constexpr Sentence<2> kFurrowsStayDry{"{} furrows get no water, the first at station {}."};
inline constexpr Sentence<0> kHowToSelectHoles{
    "Add sizes to the Selected Holes of the User Hole Selection in the Design menu. Its Exit starts the design."};

// ---- best holes ----

inline constexpr Message<0> kStretchesOutOfRange{"The number of stretches must be a whole number from 1 to 64.",
                                                 "Best Holes"};
inline constexpr Message<0> kLeastHeadTooLow{"The least head must be above 0.", "Best Holes"};
inline constexpr Message<0> kHighestHeadOutOfRange{
    "The highest head must be above the least head, and 100 feet at most.", "Best Holes"};
inline constexpr Message<2> kNoPlan{
    "No plan of the selected hole sizes gives the GPM with every head from {} to {} feet. Select other sizes or widen "
    "the limits.",
    "Best Holes"};
inline constexpr Message<0> kNoSizesForPlan{"Select the hole sizes that the crew can punch.", "Best Holes"};

inline constexpr Sentence<0> kBestPlanSoFar{"Cancelled: this is the best plan so far."};
inline constexpr Sentence<2> kBestPlan{"Best Holes: uniformity {}, stretches of one size: {}."};
inline constexpr Sentence<0> kNoPlanIsBetter{"No plan within the limits is better."};
inline constexpr Sentence<2> kNoPlanIsAbove{"No plan within the limits is above {}, which is {} more."};
inline constexpr Sentence<0> kNothingProven{"How much better another plan could be was not worked out."};

// ---- while the user types ----

inline constexpr Message<0> kFirstStationNotZero{"First Crown Station must be Zero."};
inline constexpr Message<1> kStationTooSmall{"You must enter a value greater than {}"};
inline constexpr Message<0> kStationTooLarge{"Station length can not be greater than 5280 feet.", "Station Length"};

inline constexpr Sentence<0> kFirstStationIsNotZero{"First Crown Station must be Zero."};
inline constexpr Sentence<2> kReadInPart{
    "{} is read as {}. Write digits and, for decimals, one point: no commas, no letters."};
inline constexpr Sentence<1> kTooLarge{"{} is too large a number."};
inline constexpr Sentence<1> kTooLargeFormerStays{"{} is too large a number. The number before it stays in force."};
inline constexpr Sentence<1> kNeitherRodNorElevation{"{} is neither R nor E."};
inline constexpr Sentence<1> kNeitherRectangleNorCircle{"{} is neither R nor C."};
inline constexpr Sentence<0> kStraightQuotes{"Straight quotation marks are saved as closing ones."};
inline constexpr Sentence<0> kCaretInCell{
    "Left, Right, Home and End move in the cell, Delete takes the next character; Esc takes everything back"};

inline constexpr Sentence<1> kFilledCellCleared{"{} cell that the program had filled in cleared"};
inline constexpr Sentence<1> kFilledCellsCleared{"{} cells that the program had filled in cleared"};
inline constexpr Sentence<0> kStakesTooNear{
    "Stakes stand at least 1 foot apart: until a distance is entered, they stand 100 feet apart."};

// ---- what is wrong with the survey, as the marks of its cells ----

inline constexpr Sentence<3> kCellWrong{"Row {}, {}: {}"};
inline constexpr Sentence<3> kCommaInCell{
    "Row {}, {}: only the digits ahead of the comma are read. Write {} with a point."};
inline constexpr Sentence<2> kNoSuchHoleSize{
    "Row {}, hole size: {} is not among the hole sizes, and the row gets no hole. Take one with the keys + and -."};
inline constexpr Sentence<0> kFirstRowNotZero{
    "Row 1, station: it must be 0. Measure the stations from the head of the line."};
inline constexpr Sentence<1> kStationTwice{
    "Row {}, station: it is the same as in the row above. Correct it, or delete the row."};
inline constexpr Sentence<3> kStationFalls{
    "Row {}, station: {} lies ahead of {} in the row above. Stations must rise: correct it, or move the row."};
inline constexpr Sentence<4> kReadingJumps{
    "Row {}, {}: it is {} feet off the one before, more than the crown warning of {} feet. Check the reading, or the "
    "limit in the preferences."};
inline constexpr Sentence<2> kRowIsEmpty{
    "Row {} is empty, so that the survey ends at station {}. Fill it, or delete it."};
inline constexpr Sentence<1> kStationOfCellMissing{"Row {}, station: it is missing. Enter it, or empty the row."};
inline constexpr Sentence<2> kRowEndsSurvey{
    "Row {} has neither furrow length nor hole size, so that the survey ends at station {}. Enter a hole size, or 0 "
    "where nothing is watered."};
inline constexpr Sentence<1> kFirstRowMissing{"Row 1, {}: it is missing. Enter it; the rows below take it from here."};
inline constexpr Sentence<1> kLengthOfRowMissing{
    "Row {}, furrow length: it is missing. Enter it at the first watered row and wherever it changes."};
inline constexpr Sentence<1> kWidthOfRowMissing{
    "Row {}, planted furrow width: it is missing, so that acres and hours come out as 0."};

// ---- clipboard ----

inline constexpr Message<0> kClipboardEmpty{"No data in clipboard"};
inline constexpr Message<0> kFirstLineEmpty{"No data"};
inline constexpr Message<0> kPasteFailed{
    "There was a problem when copying data from excel. Make sure you copied both Columns of Survey data."};

inline constexpr Sentence<1> kRowPasted{"{} row pasted"};
inline constexpr Sentence<1> kRowsPasted{"{} rows pasted"};
inline constexpr Sentence<1> kLineLeftOut{"Line {} was left out, since no line end follows it: copy one line more."};
inline constexpr Sentence<0> kRowLooksLikeHeading{"Row 1 looks like a heading."};
inline constexpr Sentence<0> kTookOwnCells{
    "Paste took the cells that were copied here. Cells of another program come in by Paste Excel Survey"};
inline constexpr Sentence<1> kRowBehindResultsChanged{"The survey sheet behind the results was changed in row {}"};
inline constexpr Sentence<2> kRowsBehindResultsChanged{
    "The survey sheet behind the results was changed in rows {} to {}"};

// ---- undo, and work that comes back ----

inline constexpr Sentence<1> kUndone{"Undone: {}"};
inline constexpr Sentence<1> kDoneAgain{"Done again: {}"};
inline constexpr Sentence<0> kCalculationRuns{"A calculation is running: press Cancel first."};
inline constexpr Sentence<1> kWorkCanBeBroughtBack{
    "Work that was not saved can be brought back (File > Bring Back Last Work): {}"};
inline constexpr Sentence<1> kBroughtBack{"Brought back: {}. Run the design again to see its results."};
inline constexpr Sentence<1> kJournalFailed{
    "What you type can't be kept for the case that the program ends: {}. Save often."};

// ---- files ----

inline constexpr Message<1> kSaveFailed{"Error saving file, file not saved!  {}"};
inline constexpr Message<1> kOpenFailed{"Error opening file! Check location of file.,   {}"};
inline constexpr Message<1> kSoilsNotOpened{
    "Error number {} opening Soils and Rcommended furrow GPM file. Make sure the File SoilsName.txt is in the same "
    "folder as the TORVALE program"};
inline constexpr Message<1> kSoilsNotSaved{"Error number {} while saving file. "};
inline constexpr Message<2> kSafeHeadLeftOut{"Line {} of SafeHeads.txt is left out. {}"};
inline constexpr Message<3> kSafeHeadsLeftOut{"Line {} of SafeHeads.txt is left out, and {} more below it. {}"};
inline constexpr Message<1> kSafeHeadsNotRead{"SafeHeads.txt could not be read: {}. No safe heads are known."};
inline constexpr Message<2> kTableNotWritten{"{} could not be written: {}."};
inline constexpr Message<2> kReportNotWritten{"The report could not be written to {}: {}.", "Export as PDF"};
inline constexpr Message<2> kPictureNotWritten{"The picture could not be written to {}: {}."};
inline constexpr Question<2> kReplaceFile{"{} is there already, in {}. Replace it?"};

inline constexpr Sentence<2> kSaved{"Saved {} in {}"};
inline constexpr Sentence<1> kNotSaved{"Not saved: {}."};
inline constexpr Sentence<1> kSoilsNotWritten{"The soils could not be written: {}."};
inline constexpr Sentence<1> kRecentFilesNotWritten{"The list of recent files could not be written: {}."};
inline constexpr Sentence<1> kRecentFilesNotRead{"The list of recent files could not be read: {}."};
inline constexpr Sentence<1> kPreferencesNotWritten{"The preferences could not be written: {}."};
inline constexpr Sentence<1> kPreferencesNotRead{"The preferences could not be read: {}."};
inline constexpr Sentence<2> kPreferencesReadInPart{
    "Only {} of the 16 preferences could be read from {}; the others stay as they are."};
inline constexpr Sentence<2> kWriteFailedHalfWay{"Writing {} failed half way; its former content is kept in {}"};
inline constexpr Sentence<1> kSavedOverAnother{"Saved over another design, {}. It is kept: File > Earlier Versions."};
inline constexpr Sentence<1> kFormerContentNotKept{"What the file held before could not be kept: {}."};
inline constexpr Sentence<1> kEarlierVersionOpen{"An earlier version is open as a copy. Save writes it to {}"};

// ---- printing ----

inline constexpr Message<1> kPrintFault{"{} print Error"};
inline constexpr Message<0> kNoPrinterForReport{
    "No printer is installed on this computer. Install one in the settings of the desktop, or choose Export as PDF in "
    "the File menu. print Error"};
inline constexpr Message<0> kReportNotTaken{"The printer did not take the report. print Error"};
inline constexpr Message<0> kNoPrinterForPicture{
    "No printer is installed on this computer. Install one in the settings of the desktop, or choose Export Picture. "
    "print Error"};
inline constexpr Message<0> kPrintingCancelled{"Printing was cancelled. print Error"};
inline constexpr Message<0> kPictureNotTaken{"The printer did not take the picture. print Error"};

inline constexpr Sentence<0> kNothingToPrint{"There are no results to print: run a design first."};

// ---- help ----

inline constexpr Message<1> kAbout{
    "Version {}"
    "\rRevised January 2012"
    "\rBy the TORVALE developers"
    "\rNew versions come from where you got this one, with their source"
    "\rAlthough TORVALE program has been tested by its developers, NO warranty,"
    "\r&expressed or implied, is made as to the accuracy and functionality of"
    "\rthe program and related program material nor shall the fact of distribution"
    "\rconstitute any such warranty, and NO responsibility is assumed by the developers"
    "\rin connection therewith."};
inline constexpr Message<0> kHelpMissing{"The help File is missing."};
inline constexpr Message<1> kHelpDamaged{"The help File is damaged: {}."};

// ---- what a field, a list or a column of the sheet is for ----

inline constexpr Sentence<0> kHintDesignName{"Name of the design"};
inline constexpr Sentence<0> kHintDesignDate{"Date of the design"};
inline constexpr Sentence<0> kHintGpm{"Pumped flow, gallons per minute"};
inline constexpr Sentence<0> kHintTargetHead{
    "Target head, feet, to compare the highest head with; in a hole selection the head at the far end"};
inline constexpr Sentence<0> kHintLocation{"Where the field lies"};
inline constexpr Sentence<0> kHintSurveyKind{"R: the survey gives rod readings; E: it gives elevations"};

inline constexpr Sentence<0> kHintStationInterval{"Distance between stations of the survey, feet"};
inline constexpr Sentence<0> kHintNewHoleSize{"Hole size of a new survey, fractions of an inch; + and - step it"};
inline constexpr Sentence<0> kHintOrifice{"Orifice coefficient, usually 0.65 for layflat pipe"};
inline constexpr Sentence<0> kHintRoughness{"Hazen-Williams C: layflat 140, smooth steel commonly 100"};
inline constexpr Sentence<0> kHintFillWarning{"Warning limit for the crown above the field, feet"};
inline constexpr Sentence<0> kHintNewPipeDiameter{"Pipe diameter of a new survey, inches"};
inline constexpr Sentence<0> kHintNewSpacing{"Distance between watered furrows of a new survey, feet"};
inline constexpr Sentence<0> kHintNewHoleCount{"Number of holes at each watered furrow of a new survey"};
inline constexpr Sentence<0> kHintNewMil{"Thickness of the pipe wall of a new survey, mils"};
inline constexpr Sentence<0> kHintNewSurveyKind{"R: surveys give rod readings; E: they give elevations"};
inline constexpr Sentence<0> kHintNewTargetHead{"Target head of a new design, feet"};
inline constexpr Sentence<0> kHintGateForm{"Gates of rigid pipe. R: rectangular; C: circular"};
inline constexpr Sentence<0> kHintGateSize{"Diameter or height of a gate, inches"};
inline constexpr Sentence<0> kHintHighestHead{"Highest target head of a limited hole selection, feet, at least 0.5"};
inline constexpr Sentence<0> kHintHeadStep{"Step of the head in a limited hole selection, feet"};
inline constexpr Sentence<0> kHintOpenFilter{"Kind of file that the open dialog begins with"};

inline constexpr Sentence<0> kHintStretches{"The greatest number of stretches of one hole size along the line"};
inline constexpr Sentence<0> kHintLeastHead{"The least head that a hole may have, feet"};
inline constexpr Sentence<0> kHintHighestHeadOfPipe{
    "The highest head that the pipe may have, feet; empty for the Target Head"};

inline constexpr Sentence<0> kHintAllHoles{
    "Hole sizes that can be had. Double-click one to add it to the selected holes"};
inline constexpr Sentence<0> kHintSelectedHoles{
    "The design takes its holes from these. Double-click one to remove it; Exit starts the design"};
inline constexpr Sentence<0> kHintResults{"Results. Drag over rows to see their acres"};

inline constexpr Sentence<0> kHintStation{
    "Station, feet from the head of the line, 0 to 5280. Enter adds the distance between stations; * next column"};
inline constexpr Sentence<0> kHintCrown{
    "Rod reading or elevation of the crown, feet. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintLength{
    "Furrow length at this station, feet. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintSpacing{
    "Distance between holes up to this station, feet. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintPipeDiameter{
    "Inside diameter of the pipe, inches. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintHoleSize{
    "Hole diameter or width, fractions of an inch. + and - step it; Enter copies the cell above"};
inline constexpr Sentence<0> kHintHoleCount{
    "Number of holes at each watered furrow. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintMil{"Thickness of the pipe wall, mils. Enter copies the cell above; * next column"};
inline constexpr Sentence<0> kHintPlantedWidth{
    "Planted width between watered furrows, feet. Enter copies the cell above"};

}  // namespace torvale::words
