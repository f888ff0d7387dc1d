#include "display/hole_summary.h"

#include "base/format.h"
#include "base/numbers.h"
#include "base/run_time_fault.h"
#include "display/cell_texts.h"
#include "record/kinds.h"
#include "screen/fields.h"

namespace torvale {
namespace {

bool Flows(const DesignRecord& record, int i) {
  return record.FurrowFlow[i] > 0;
}

std::vector<HoleRun> FindRuns(const DesignRecord& record, const RowArray<float>& field) {
  std::vector<HoleRun> runs;
  std::int16_t count = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!Flows(record, i)) continue;
    ++count;
    if (field[i] == AtRow(record, field, i + 1)) continue;
    runs.push_back({i + 1 - count, i, count});
    count = 0;
  }
  return runs;
}

void WriteStations(DesignRecord& record, const std::vector<HoleRun>& runs) {
  record.HoleSumFurrowText.Clear();
  for (const HoleRun& run : runs) record.HoleSumFurrowText[run.last] = RunStations(record, run);
}

void StartTexts(Program& program) {
  DesignRecord& record = program.record;
  record.HoleSumStations = " Hole Diameter \n";
  record.HoleSumLengths = " Stations \n";
  record.HoleSumCounts = " Number of Holes \n";
  record.HoleSumSeparator = HasCircularGates(program.main) ? "Fraction Hole Equivalent using a Round Hole = "
                                                           : "Fraction Hole Equivalent using a Rectangular Hole = ";
}

// The crown profile repeats the slope as the main screen has it at this moment.
void ShowProfileSlope(Program& program) {
  const MainScreen& main = program.main;
  Control& slope = program.profile.lblSlope;
  slope.visible = IsSlopeDesign(program.record);
  if (slope.visible) slope.caption = main.lblCrownSlope.caption;
}

void WriteRuns(Program& program) {
  DesignRecord& record = program.record;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!Flows(record, i) || record.HoleSumFurrowText[i].empty()) continue;
    record.HoleSumLengths += record.HoleSumFurrowText[i] + "\r";
    record.HoleSumCounts += GeneralText(record.HoleSumCount[i]) + "\r";
    const std::string name = ChosenSizeName(program, i);
    if (IsLayflat(record)) {
      record.HoleSumStations += name + "\r";
      continue;
    }
    record.HoleSumStations += Format(GateOpening(program, i), "#.###") + "\r";
    record.HoleSumSeparator += name + "\" ";
  }
}

// The openings of single gates, run by run, where furrows have several.
std::string EachGateTip(const Program& program) {
  const DesignRecord& record = program.record;
  std::string tip;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!Flows(record, i) || record.HoleSumFurrowText[i].empty()) continue;
    const std::string each = EachGateText(program, i);
    if (!each.empty()) tip += "\nStations " + record.HoleSumFurrowText[i] + ": " + each;
  }
  return tip;
}

}  // namespace

std::vector<HoleRun> SizeRuns(const DesignRecord& record) {
  return FindRuns(record, ChosenHoleDia(record));
}

std::vector<HoleRun> SpacingRuns(const DesignRecord& record) {
  return FindRuns(record, record.HoleSpacing);
}

std::string RunStations(const DesignRecord& record, const HoleRun& run) {
  return StationText(record, run.first) + " - " + StationText(record, run.last);
}

void FindSizeRuns(DesignRecord& record) {
  const std::vector<HoleRun> runs = SizeRuns(record);
  WriteStations(record, runs);
  record.HoleSumCount.Clear();
  for (const HoleRun& run : runs) record.HoleSumCount[run.last] = run.count;
}

void FindSpacingRuns(DesignRecord& record) {
  WriteStations(record, SpacingRuns(record));
}

std::string ChosenSizeName(const Program& program, int i) {
  const DesignRecord& record = program.record;
  if (record.DesignType != kLimitedHoles) {
    const int size = ChosenSizeIndex(record, i);
    return size == 0 ? "" : record.HoleSizeName[size];
  }
  for (int k = 0; k < program.main.listHolesSelected.count(); ++k) {
    if (record.SelectedHoleValue[k] == record.LimitedHoleDia[i]) return record.SelectedHoleName[k];
  }
  return "";
}

void DisplayHoleSum(Program& program) {
  MainScreen& main = program.main;
  try {
    StartTexts(program);
    ShowProfileSlope(program);
    FindSizeRuns(program.record);
    WriteRuns(program);
    main.lblSumHoleDia.tool_tip =
        IsLayflat(program.record) ? "" : program.record.HoleSumSeparator + EachGateTip(program);
  } catch (const RunTimeFault&) {
    // The texts stay as far as they came; the design is shown without a message.
  }
}

}  // namespace torvale
