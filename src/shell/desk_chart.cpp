#include "shell/desk_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "base/format.h"
#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/grid_layout.h"
#include "display/hole_summary.h"
#include "record/kinds.h"

namespace torvale {
namespace {

// The head itself where all of the tubing that is known of bears the same.
std::string SafeWords(const std::vector<double>& heads) {
  const double most = heads.empty() ? 0 : *std::max_element(heads.begin(), heads.end());
  const bool alike = std::all_of(heads.begin(), heads.end(), [&](double head) { return head == 0 || head == most; });
  if (most == 0) return "";
  return alike ? "Safe head " + Format(most, "##0.00") + " ft" : "Safe head";
}

void TakeDesign(const Program& program, SupplyChart& chart) {
  const DesignRecord& record = program.record;
  const RowArray<Inches>& sizes = ChosenHoleDia(record);
  for (int i = 1; i <= record.HoleRows; ++i) {
    const bool hole = record.FurrowFlow[i] > 0;
    chart.stations.push_back(record.Station[i]);
    chart.heads.push_back(record.Head[i]);
    chart.flows.push_back(record.FurrowFlow[i]);
    chart.sizes.push_back(hole ? sizes[i] : 0);
    chart.safe_heads.push_back(SafeHeadAt(record, program.pipe_strengths, i).value_or(0));
  }
  if (record.AverageFurrowFlow > 0) {
    chart.wanted_flow = record.AverageFurrowFlow;
    chart.wanted_words = "Wanted flow " + Format(*chart.wanted_flow, "##0.00") + " GPM";
  }
  chart.safe_words = SafeWords(chart.safe_heads);
}

// The design's row that the results' current row shows. Of several at one whole foot it is the one of that number.
int LitRow(const Program& program, const SupplyChart& chart) {
  const Grid& results = program.main.Grid2;
  if (chart.stations.empty() || results.row < 1 || results.row >= results.rows()) return 0;
  const std::string& station = results.Text(results.row, kResultStation);
  return station.empty() ? 0 : NearestStation(chart.stations, Val(station)) + 1;
}

std::string PointText(const Program& program, const SupplyChart& chart) {
  if (chart.stations.empty()) return "No design is shown.";
  if (chart.row == 0) return "";
  const auto at = static_cast<std::size_t>(chart.row - 1);
  std::string text =
      "Station " + Format(chart.stations[at], "####0") + ": head " + Format(chart.heads[at], "##0.00") + " feet";
  if (chart.flows[at] > 0) text += ", furrow flow " + Format(chart.flows[at], "###0.00") + " GPM";
  const std::string size = chart.sizes[at] > 0 ? ChosenSizeName(program, chart.row) : "";
  if (!size.empty()) text += ", hole " + size;
  if (chart.safe_heads[at] > 0) text += "; the tubing is to bear " + Format(chart.safe_heads[at], "##0.00") + " feet";
  return text;
}

}  // namespace

int NearestStation(const std::vector<double>& stations, double station) {
  int nearest = -1;
  double least = std::numeric_limits<double>::max();
  for (std::size_t i = 0; i < stations.size(); ++i) {
    const double gap = std::fabs(stations[i] - station);
    if (gap >= least) continue;
    least = gap;
    nearest = static_cast<int>(i);
  }
  return nearest;
}

void ShowDeskChart(Program& program) {
  DeskScreen& desk = program.desk;
  if (!desk.frmChart.visible) return;
  SupplyChart fresh;
  if (program.main.Grid2.control.visible) TakeDesign(program, fresh);
  SupplyChart& chart = desk.chart;
  const bool same = fresh.stations == chart.stations && fresh.heads == chart.heads && fresh.flows == chart.flows &&
                    fresh.sizes == chart.sizes && fresh.safe_heads == chart.safe_heads &&
                    fresh.wanted_flow == chart.wanted_flow;
  fresh.revision = same ? chart.revision : chart.revision + 1;
  fresh.row = LitRow(program, fresh);
  chart = std::move(fresh);
  desk.lblChartPoint.caption = PointText(program, chart);
}

}  // namespace torvale
