#include "display/cell_texts.h"

#include <cmath>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "engine/hole_geometry.h"
#include "record/hole_sizes.h"
#include "record/kinds.h"
#include "screen/fields.h"

namespace torvale {
namespace {

constexpr double kSquareInches = 144;  // in a square foot

// Patterns of columns that no row writes otherwise.
constexpr NumberPattern kFeet("####0");
constexpr NumberPattern kRatio("###.00");
constexpr NumberPattern kLength("#####");
constexpr NumberPattern kElevation("####.00");
constexpr NumberPattern kPlantedWidth("###.00");

// The number as it is, and that text in the pattern where there is one. Whole numbers of up to seven digits are what
// their text says.
std::string HoleNumberText(const DesignRecord& record, int i, const NumberPattern& pattern) {
  constexpr float kWhole = 1e6F;
  const float number = AtRow(record, record.FurrowNumber, i);
  if (pattern.text().empty()) return GeneralText(number);
  const bool whole = number >= 0 && number < kWhole && number == std::floor(number);
  return Format(whole ? number : Val(GeneralText(number)), pattern);
}

// Flow over required flow to two decimals; empty where nothing is required.
std::string FlowRatioText(const DesignRecord& record, int i) {
  const float required = AtRow(record, record.RequiredFlow, i);
  if (required == 0) return "";
  const float flow = AtRow(record, record.FurrowFlow, i);
  return Format(Divide(flow, required), kRatio);
}

// How far the gates of row i open where their row has so many of them, inches.
double OpeningFor(const Program& program, int i, int gates) {
  const DesignRecord& record = program.record;
  const double area = AtRow(record, record.HoleArea, i) * kSquareInches / gates;
  if (HasRectangularGates(program.main)) return Divide(area, Val(TextOf(program.main, Preference::kGateSize)));
  double opening = 0;
  GateMove(area, AtRow(record, record.SurveyHoleDia, i), opening);
  return opening;
}

// Hole of row i: the name of its size for layflat tubing, the gate opening for rigid pipe. Empty for size index 0.
std::string OpeningText(const Program& program, int i, int size_index, const NumberPattern& circular_gate) {
  if (size_index == 0) return "";
  if (IsLayflat(program.record)) return program.record.HoleSizeName[size_index];
  const bool rectangular = HasRectangularGates(program.main);
  if (rectangular && Val(TextOf(program.main, Preference::kGateSize)) == 0) return "";
  return Format(GateOpening(program, i), rectangular ? kShortGate : circular_gate);
}

}  // namespace

int ChosenSizeIndex(const DesignRecord& record, int i) {
  return HoleSizeByValue(record, AtRow(record, ChosenHoleDia(record), i));
}

std::string StationText(const DesignRecord& record, int i) {
  return Format(AtRow(record, record.Station, i), kFeet);
}

std::string AverageFurrowFlowText(const DesignRecord& record, std::string_view pattern) {
  if (record.WateredFurrows == 0) return "0";
  return Format(Wide(record.TargetGPM) / record.WateredFurrows, pattern);
}

double GateOpening(const Program& program, int i) {
  return OpeningFor(program, i, 1);
}

std::string EachGateText(const Program& program, int i) {
  const int gates = AtRow(program.record, program.record.HolesPerFurrow, i);
  if (IsLayflat(program.record) || gates < 2) return "";
  try {
    return "Each of the " + GeneralText(gates) + " gates of a furrow opens " +
           Format(OpeningFor(program, i, gates), "0.000") + " in.";
  } catch (const RunTimeFault&) {
    return "";
  }
}

std::string CellText(const Program& program, ResultColumn column, int i, const RowPatterns& patterns) {
  const DesignRecord& record = program.record;
  switch (column) {
    case kResultStation:
      return StationText(record, i);
    case kResultOpening:
      return OpeningText(program, i, ChosenSizeIndex(record, i), patterns.circular_gate);
    case kResultHoleNumber:
      return HoleNumberText(record, i, patterns.hole_number);
    case kResultFlow:
      return Format(AtRow(record, record.FurrowFlow, i), patterns.flow);
    case kResultHead:
      return Format(AtRow(record, record.Head, i), patterns.head);
    case kResultFlowRatio:
      return FlowRatioText(record, i);
    case kResultFurrowLength:
      return Format(AtRow(record, record.FurrowLength, i), kLength);
    case kResultCrown:
      return Format(AtRow(record, CrownOfDesign(record), i), kElevation);
    case kResultHoleCount:
      return GeneralText(AtRow(record, record.HolesPerFurrow, i));
    case kResultMil:
      return AtRow(record, record.MilText, i);
    case kResultPipeDia:
      return GeneralText(AtRow(record, record.PipeDia, i));
    case kResultPlantedWidth:
      return Format(AtRow(record, record.PlantedWidth, i), kPlantedWidth);
    case kResultMargin:
      return "";
  }
  return "";
}

}  // namespace torvale
