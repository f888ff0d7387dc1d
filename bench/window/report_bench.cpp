// The Complete Design report of the longest line, from the click to the finished PDF: what laying out its pages costs,
// and what drawing them does.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "../bench_line.h"
#include "engine/flow_calc.h"
#include "qt/qt_host.h"
#include "reports/design_reports.h"
#include "screen/fields.h"
#include "search/cal_dsign_var.h"
#include "search/design_commands.h"
#include "search/flow_run.h"

namespace torvale {
namespace {

constexpr int kLongest = 5282;  // rows: what can be laid out of a hole every half foot
constexpr int kSurveyed = 101;  // rows of the sheet

struct LongestLine : BenchLine {
  LongestLine() : BenchLine(5280) {
    MainScreen& main = program.main;
    for (int row = 1; row <= kSurveyed; ++row) {
      main.Grid1.Set(row, kStationColumn, std::to_string(5280 * (row - 1) / (kSurveyed - 1)));
    }
    main.Grid1.Set(1, kSpacingColumn, "0.5");
    main.Grid1.Set(1, kPipeDiaColumn, "36");
    main.txtInfo[InfoField::kGpm].Set("1500");
    host.messages = 0;  // of the soils that are not in the folder
    mnuDesignField_Click(program);
  }
  bool Laid() const { return host.messages == 0 && program.record.HoleRows == kLongest; }
};

// The marches of the line to convergence: what the other figures are compared with.
void MarchOfLongestLine(benchmark::State& state) {
  LongestLine line;
  int tries = 0;
  for (auto _ : state) RunFlowCalc(line.program, tries);
  if (!line.Laid()) state.SkipWithError("no such line");
  state.counters["marches"] = tries + 1;
}

// The table on the screen and every drawing operation of the pages.
void ReportDocument(benchmark::State& state) {
  LongestLine line;
  std::size_t operations = 0;
  for (auto _ : state) operations = CompleteReport(line.program).operations.size();
  if (!line.Laid()) state.SkipWithError("no such line");
  state.counters["operations"] = static_cast<double>(operations);
}

// The same and the file on the disk.
void ReportToPdf(benchmark::State& state) {
  LongestLine line;
  QtHost desktop("");
  const QTemporaryDir folder;
  const std::string path = folder.filePath("report.pdf").toStdString();
  bool written = line.Laid();
  for (auto _ : state) written = written && desktop.WritePdf(CompleteReport(line.program), path).error == 0;
  if (!written) state.SkipWithError("not written");
}

BENCHMARK(MarchOfLongestLine)->Unit(benchmark::kMillisecond);
BENCHMARK(ReportDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(ReportToPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
