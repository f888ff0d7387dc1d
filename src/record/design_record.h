// The state of the program's work, in three layers: what a design is worked out from, what came of it, and what lies on
// the desk beside it. A copy of a `Design` is a copy of the design; `DesignRecord` is that with its desk, one for each
// program, read and written by every part by field name.
//
// Lengths, stations, elevations and heads are in feet, flows in US gallons per minute, hole and pipe diameters in
// inches unless a field says feet. Hole rows 1 to `HoleRows` lie along the pipe: row 1 at the head of the line, where
// the water enters, row `HoleRows` at the far end. `float` fields are 32-bit store points: a value is rounded where it
// is stored into one, and nowhere else.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "record/hole_size_table.h"
#include "record/row_array.h"
#include "record/text_grid.h"
#include "record/units.h"

namespace torvale {

// A number that may not have been set yet; unset, it counts as 0.
using FreeValue = std::optional<double>;

inline double Number(const FreeValue& value) {
  return value.value_or(0.0);
}

// The kinds of design, as `DesignType` holds them.
inline constexpr std::int16_t kNoDesign = 0;
inline constexpr std::int16_t kPlanned = 1;
inline constexpr std::int16_t kConstantSlope = 2;
inline constexpr std::int16_t kDualSlope = 3;
inline constexpr std::int16_t kComputerHoles = 4;
inline constexpr std::int16_t kExistingField = 5;
inline constexpr std::int16_t kLimitedHoles = 6;
inline constexpr std::int16_t kSurveyOnly = 7;  // a survey saved before any design was run

inline constexpr int kSoils = 100;  // highest row of the soils file
inline constexpr int kSoilNames = 200;
inline constexpr int kRecentFiles = 5;  // entries 0 to 3 are shown, 4 takes what falls off the end
inline constexpr int kClipboardRows = 321;
inline constexpr int kClipboardColumns = 13;

struct DesignInputs {
  // Mode
  std::int16_t DesignType = kNoDesign;
  std::string PipeKind = "L";          // "L" layflat tubing, "R" rigid gated pipe
  std::int16_t SurveyRows = 0;         // filled rows of the input sheet
  std::string FileVersion;             // program version, major.minor.revision
  std::int16_t StationInterval = 0;    // distance between surveyed stations, feet
  std::int16_t SpacingWarningOff = 0;  // 1 once the user accepted stations that fail to rise

  // Flow and head settings
  float TargetGPM = 0;
  float HazenWilliamsC = 0;  // Hazen-Williams roughness coefficient
  float DischargeCoef = 0;   // orifice discharge coefficient
  float LowQuarter = 0;      // share of the furrow length that makes the low quarter; 0.25 after start
  float SeedEndHead = 0;     // far-end head from which the march starts for design types 4 and 6
  float ManualTargetHead = 0;

  // The hole sizes that the user allows
  BoundedArray<std::string, kHoleSizes> SelectedHoleName;
  BoundedArray<Inches, kHoleSizes> SelectedHoleValue;
  FreeValue HoleSizeIndexLimit;

  // The chosen soil
  std::string SoilName;
  std::int16_t RecFurrowFlow = 0;  // recommended furrow flow
};

// The survey as it lies along the pipe, by hole row.
struct SurveyedLine {
  std::int16_t HoleRows = 0;              // hole rows; index of the far end
  RowArray<float> Station;                // feet, to hundredths; 0 ends the list beyond row 1
  RowArray<std::int16_t> HolesPerFurrow;  // 0 where the row has none
  RowArray<unsigned char> PastReach;      // 1 where the row stands past the last furrow of a watered reach
  RowArray<Feet> HoleDia;                 // the row has holes where it is above 0
  RowArray<Inches> SurveyHoleDia;
  RowArray<Feet> HoleSpacing;
  RowArray<Feet> PlantedWidth;  // planted furrow width between watered furrows
  RowArray<Inches> PipeDia;     // of the span that ends at the row
  RowArray<SquareInches> PipeArea;
  RowArray<std::string> MilText;
  RowArray<std::int16_t> FurrowLength;
  RowArray<float> CrownElev;                // existing crown, in the survey's units (rod reading or elevation)
  RowArray<float> DesignElev;               // designed crown, same units
  RowArray<float> ReservedRowValue;         // carried by design files alone; always 0
  RowArray<std::string> ReservedRowValue2;  // the same, as text

  // By whole foot of station (index = foot)
  RowArray<float> ElevByFoot;
  RowArray<double> FurrowLengthByFoot;
};

struct DesignResults {
  // How the calculation went
  std::string DesignOK;          // "True" or "False": whether the current calculation stands
  bool CancelFlag = false;       // the user cancelled, or a calculation gave up
  std::int16_t MissingData = 0;  // -1 after refused input or a run-time fault
  std::string CalcProblem;       // "Problem" after the try limit
  std::string FlowCalcStatus;    // "Ok" once the march has finished a hole trial

  // By hole row
  RowArray<double> Head;          // not rounded to 32 bits between rows
  RowArray<SquareFeet> HoleArea;  // all holes of the row
  RowArray<float> FurrowFlow;
  RowArray<float> FurrowNumber;  // running number among the watered furrows, 0 on others
  RowArray<float> FlowRatio;     // furrow length / average furrow length
  RowArray<float> RequiredFlow;
  RowArray<Inches> ComputerHoleDia;
  RowArray<Inches> LimitedHoleDia;
  RowArray<Inches> HoleSizeIdeal;
  RowArray<double> FrictionLoss;
  RowArray<float> DisplayHoleNumber;  // by row of the Summary table: flow that has left the pipe up to that row

  // By watered furrow, sorted
  RowArray<float> NormFurrowFlow;           // furrow flow / FlowRatio
  RowArray<std::int16_t> NormFurrowLength;  // furrow length / FlowRatio; follows NormFurrowFlow in the sort

  // Design summary
  std::int16_t WateredFurrows = 0;  // rows with holes, recounted by the march among rows with flow and length
  float AccumGPM = 0;               // pipe flow of the march; after a finished march the flow of all holes
  float AverageFurrowFlow = 0;
  float TotalFurrowLength = 0;
  float TotalAcres = 0;
  float MaxHead = 0;
  float MinHead = 0;
  std::int16_t MaxHeadStation = 0;
  std::int16_t MinHeadStation = 0;
  float MaxFurrowFlow = 0;
  float MinFurrowFlow = 0;
  float Uniformity = 0;  // distribution uniformity, percent, one decimal, at most 100
  float BestUniformity = 0;
  float BestHeadFound = 0;
  float CrownSlope = 0;
  float SlopeDelta = 0;  // slope under trial; scratch value of the survey interpolation
  FreeValue DualBreakStation;
  float HighestFill = 0;
  float HoursHalfInch = 0;  // hours to apply that many gross inches
  float HoursOneInch = 0;
  float HoursOneHalfInch = 0;
  float HoursTwoInch = 0;
  float HoursThreeInch = 0;

  // Hole summary texts
  std::string HoleSumStations;  // the hole size column
  std::string HoleSumSeparator;
  std::string HoleSumLengths;  // the station column
  std::string HoleSumCounts;
  RowArray<std::string> HoleSumFurrowText;
  RowArray<std::int16_t> HoleSumFromLength;  // first furrow length of the run, feet
  RowArray<std::int16_t> HoleSumToLength;
  RowArray<std::int16_t> HoleSumCount;

  float ProfileScale = 0;    // grid row at which the Summary table ends
  std::string ProfileTitle;  // table that is shown again behind the crown profile: "Summary" or "Complete Design"
};

struct Design : HoleSizeTable, DesignInputs, SurveyedLine, DesignResults {};

struct FileNames {
  std::string SaveFileName;     // full path that the design is written to
  std::string OpenedFileName;   // path that the file dialog or the recent list gave
  std::string DisplayFileName;  // name of the design, as reports print it
  BoundedArray<std::string, kRecentFiles> RecentFiles;
};

struct SoilsFile {
  BoundedArray<std::string, kSoilNames> SoilNames;    // never filled; a choice copies its empty text
  BoundedArray<std::int16_t, kSoils> SoilFurrowFlow;  // by row of the file, from 1
};

// What was cut or copied out of the sheets, apart from the desktop's clipboard.
struct BlockClipboard {
  std::int16_t PasteRow1 = 0;  // first row and column of the block copied or cut last
  std::int16_t PasteCol1 = 0;
  std::int16_t PasteRows = 0;  // height and width of the block cut last
  std::int16_t PasteCols = 0;
  // A cell stands at the row and column that it was taken from.
  TextGrid GridClipboard = TextGrid(kClipboardRows, kClipboardColumns);
};

struct DesignDesk : FileNames, SoilsFile, BlockClipboard {};

struct DesignRecord : Design, DesignDesk {};

// Whether the design lays its own crown, and whether it chooses its own holes.
inline bool IsSlopeDesign(const Design& record) {
  return record.DesignType == kConstantSlope || record.DesignType == kDualSlope;
}
inline bool IsHoleSelection(const Design& record) {
  return record.DesignType == kComputerHoles || record.DesignType == kLimitedHoles;
}

// Empties the row arrays that a new design starts without. The other fields keep their values.
void ClearRowArrays(Design& record);

}  // namespace torvale
