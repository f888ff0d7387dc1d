#include "reports/crew_sheet.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "base/run_time_fault.h"
#include "display/cell_texts.h"
#include "display/hole_summary.h"
#include "reports/print_frame.h"
#include "reports/stale_mark.h"
#include "screen/fields.h"

namespace torvale {
namespace {

std::string SizeText(const Program& program, int row) {
  if (IsLayflat(program.record)) {
    const std::string name = ChosenSizeName(program, row);
    return name.empty() ? "?" : name + " in";
  }
  try {
    return "open " + Format(GateOpening(program, row), "0.000") + " in";
  } catch (const RunTimeFault&) {
    return "?";
  }
}

std::string Counted(int number, const std::string& thing) {
  return GeneralText(number) + " " + thing + (number == 1 ? "" : "s");
}

int HolesOf(const DesignRecord& record, const HoleRun& run) {
  int holes = 0;
  for (int i = run.first; i <= run.last; ++i) {
    if (record.FurrowFlow[i] > 0) holes += record.HolesPerFurrow[i];
  }
  return holes;
}

// One hole at each furrow goes without saying.
std::string CountText(const DesignRecord& record, int furrows, int holes) {
  const std::string thing = IsLayflat(record) ? "hole" : "gate";
  if (holes == furrows) return Counted(holes, thing);
  return Counted(furrows, "furrow") + ", " + Counted(holes, thing);
}

std::string WhereText(const DesignRecord& record, const HoleRun& run) {
  if (run.first == run.last) return "at " + StationText(record, run.last) + " ft";
  return StationText(record, run.first) + " to " + StationText(record, run.last) + " ft";
}

struct Total {
  std::string size;
  int furrows = 0;
  int holes = 0;
};

void TakeRuns(const Program& program, CrewSheet& sheet) {
  const DesignRecord& record = program.record;
  std::vector<Total> totals;
  for (const HoleRun& run : SizeRuns(record)) {
    const std::string size = SizeText(program, run.last);
    const int holes = HolesOf(record, run);
    sheet.runs.push_back({size, WhereText(record, run), CountText(record, run.count, holes)});
    auto total = std::find_if(totals.begin(), totals.end(), [&](const Total& one) { return one.size == size; });
    if (total == totals.end()) total = totals.insert(totals.end(), {size, 0, 0});
    total->furrows += run.count;
    total->holes += holes;
  }
  for (const Total& total : totals) {
    sheet.totals.push_back(total.size + ": " + CountText(record, total.furrows, total.holes));
  }
}

void TakeSpacings(const DesignRecord& record, CrewSheet& sheet) {
  const std::string thing = IsLayflat(record) ? "holes" : "gates";
  for (const HoleRun& run : SpacingRuns(record)) {
    sheet.spacings.push_back(RunStations(record, run) + " ft: " + thing + " " +
                             GeneralText(record.HoleSpacing[run.last]) + " ft apart");
  }
}

void TakeFigures(const Program& program, CrewSheet& sheet) {
  const DesignRecord& record = program.record;
  const auto add = [&](std::string label, std::string text) { sheet.figures.emplace_back(std::move(label), text); };
  add("Flow", TextOf(program.main, InfoField::kGpm) + " GPM");
  add("Highest head", Format(record.MaxHead, "0.00") + " ft at station " + GeneralText(record.MaxHeadStation));
  add("Lowest head", Format(record.MinHead, "0.00") + " ft at station " + GeneralText(record.MinHeadStation));
  add("Uniformity", GeneralText(record.Uniformity) + " percent");
  add("Acres", Format(record.TotalAcres, "###0.0"));
  add("Hours for 1 inch", Format(record.HoursOneInch, "###0.0"));
  add("Hours for 2 inches", Format(record.HoursTwoInch, "###0.0"));
}

}  // namespace

CrewSheet CrewSheetOf(const Program& program) {
  const auto& info = program.main.txtInfo;
  CrewSheet sheet;
  sheet.name = Trim(info[InfoField::kDesignName].text());
  sheet.date = Trim(info[InfoField::kDate].text());
  sheet.location = Trim(info[InfoField::kLocation].text());
  sheet.design = DesignLine(program.record, &DesignKind::in_hole_report);
  sheet.stale = {StaleHeading(program), StaleSentence(program)};
  TakeRuns(program, sheet);
  TakeSpacings(program.record, sheet);
  TakeFigures(program, sheet);
  return sheet;
}

}  // namespace torvale
