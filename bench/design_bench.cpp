// The cost of a design: the march of one line, the whole way from the sheet to the results, and the result tables.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "bench_line.h"
#include "display/result_tables.h"
#include "engine/flow_calc.h"
#include "search/cal_dsign_var.h"
#include "search/design_commands.h"
#include "search/flow_run.h"
#include "search/survey_completion.h"

namespace torvale {
namespace {

// Rows marched: a rate, and its inverse in seconds a row (the unit that is printed is ns).
void CountRows(benchmark::State& state, double rows) {
  state.counters["rows/s"] = benchmark::Counter(rows, benchmark::Counter::kIsRate);
  state.counters["per_row"] = benchmark::Counter(rows, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// What a row costs at the least with the system library: one power and one root, each waiting for the one before as in
// the march, where a row's flow comes from the head and the next head from the flow.
void BaselinePowerAndRoot(benchmark::State& state) {
  const auto rows = static_cast<std::size_t>(state.range(0));
  std::vector<float> opening(rows, 0.0001F);
  for (auto _ : state) {
    double head = 2;
    float flow = 0;
    for (const float area : opening) {
      flow += static_cast<float>(static_cast<double>(area) * std::sqrt(head));
      head += 1e-9 * std::pow(static_cast<double>(flow), 1.852);
    }
    benchmark::DoNotOptimize(head);
  }
  CountRows(state, static_cast<double>(state.iterations()) * static_cast<double>(rows));
}

void March(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  mnuDesignField_Click(line.program);
  if (line.host.messages > 0 || line.program.record.HoleRows != state.range(0)) state.SkipWithError("no such line");
  int tries = 0;
  double rows = 0;
  for (auto _ : state) {
    RunFlowCalc(line.program, tries);
    rows += (tries + 1.0) * line.program.record.HoleRows;  // no head on this line is ever negative
  }
  CountRows(state, rows);
  state.counters["marches"] = tries + 1;
}

// From a sheet with gaps to the design on the screen.
void WholeDesign(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  mnuDesignField_Click(line.program);
  const TextGrid sheet = BenchLine(static_cast<int>(state.range(0))).program.main.Grid1.cells();
  for (auto _ : state) {
    state.PauseTiming();
    line.program.main.Grid1.cells() = sheet;
    state.ResumeTiming();
    cmdInterpolate_Click(line.program);
    Cal_Dsign_Var(line.program);
  }
  if (line.host.messages > 0 || line.program.record.HoleRows != state.range(0)) state.SkipWithError("no such line");
}

template <void Fill(Program&)>
void Table(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  mnuDesignField_Click(line.program);
  std::string& toggle = line.program.main.cmdDesignToggle.caption;
  toggle = Fill == CompleteDesignTable ? "Complete Design" : "Summary";
  for (auto _ : state) Fill(line.program);
  if (line.program.main.Grid2.Text(1, 0).empty()) state.SkipWithError("no table");
}

BENCHMARK(BaselinePowerAndRoot)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK(March)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK(WholeDesign)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK(Table<CompleteDesignTable>)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK(Table<SummaryTable>)->Arg(5280)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace torvale
