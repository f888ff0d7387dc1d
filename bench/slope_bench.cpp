// The pure searches, plain against fast in one run: the slope search by lanes and threads, the search on the far-end
// head.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "bench_line.h"
#include "engine/slope_trials.h"
#include "search/design_commands.h"

namespace torvale {
namespace {

// What a search works on, taken out of a program that has run it.
struct PureSearch {
  SlopeField field;
  LevelMarch level;
  CrownDirection direction = CrownDirection::kFalling;
  double trials = 0;
  double marches = 0;
  double rows = 0;
};

void Prepare(const DesignRecord& record, double first_head, const char* survey_kind, CrownDirection direction,
             PureSearch& search) {
  PrepareSlopeField(record, first_head, survey_kind, search.field);
  search.direction = direction;
  search.rows = search.field.line.rows;
  PlainTrialWork work;
  PreparePlainTrial(search.field, work);
  SlopeTrial trial;
  TryPlainly(search.field, 0, work, trial);
  search.level = {trial.lowest_head, trial.end_head, trial.search.flow};
  SearchSlopesPlainly(search.field, direction, search.level.lowest_head, [&](const SlopeTrial& each) {
    search.trials += 1;
    search.marches += each.search.marches;
    return true;
  });
}

// A mile of line, as the other benchmarks have it, surveyed by elevations that fall; the longer furrows are at its
// head.
void PrepareMile(int rows, PureSearch& search) {
  BenchLine line(rows);
  mnuDesignConstSlope_Click(line.program);
  Prepare(line.program.record, 2, "E", CrownDirection::kRising, search);
}

// The same mile with two slopes.
void PrepareDual(PureSearch& search) {
  BenchLine line(264);
  mnuDesignDualSlope_Click(line.program);
  Prepare(line.program.record, 2, "E", CrownDirection::kFalling, search);
}

// The same mile, level by rod readings, its furrows of one length.
void PrepareRods(PureSearch& search) {
  BenchLine line(264);
  line.program.main.txtInfo[5].Set("R");
  line.program.main.Grid1.Set(1, kCrownColumn, "5");
  line.program.main.Grid1.Set(101, kCrownColumn, "5");
  line.program.main.Grid1.Set(1, kFurrowLengthColumn, "1000");
  mnuDesignConstSlope_Click(line.program);
  Prepare(line.program.record, 2, "R", CrownDirection::kFalling, search);
}

// A short steep line: forty holes of an inch thirty feet apart under four feet of head.
void PrepareSteep(PureSearch& search) {
  const auto record = std::make_unique<DesignRecord>();
  DesignRecord& r = *record;
  r.DesignType = kConstantSlope;
  r.HoleRows = r.WateredFurrows = 40;
  r.LowQuarter = 0.25F;
  r.HazenWilliamsC = 140;
  r.DischargeCoef = 0.65F;
  r.TargetGPM = 1340;
  r.AverageFurrowFlow = r.TargetGPM / 40;
  for (int row = 1; row <= 40; ++row) {
    r.Station[row] = static_cast<float>((row - 1) * 30);
    r.HoleDia[row] = 1.0F / 12;
    r.HolesPerFurrow[row] = 1;
    r.PipeDia[row] = 8;
    r.FurrowLength[row] = 1000;
    r.FlowRatio[row] = 1;
    r.CrownElev[row] = r.DesignElev[row] = 100;
  }
  Prepare(r, 2, "E", CrownDirection::kFalling, search);
}

void Count(benchmark::State& state, const PureSearch& search) {
  state.counters["trials"] = search.trials;
  state.counters["a_trial"] =
      benchmark::Counter(search.trials, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["marches"] = search.marches;
}

void SearchPlainly(benchmark::State& state, const PureSearch& search) {
  for (auto _ : state) {
    SearchSlopesPlainly(search.field, search.direction, search.level.lowest_head,
                        [](const SlopeTrial&) { return true; });
  }
  Count(state, search);
}

void SearchFast(benchmark::State& state, const PureSearch& search) {
  const auto lanes = static_cast<VectorLanes>(state.range(1));
  if (lanes > WidestLanes()) {
    state.SkipWithError("the processor has no such lanes");
    return;
  }
  const SlopeSearchManner manner = {lanes, static_cast<int>(state.range(2)), 1};
  for (auto _ : state) {
    SearchSlopes(search.field, search.direction, search.level, manner, [](const SlopeTrial&) { return true; });
  }
  Count(state, search);
}

void PlainSlopes(benchmark::State& state) {
  PureSearch search;
  PrepareMile(static_cast<int>(state.range(0)), search);
  SearchPlainly(state, search);
}

void FastSlopes(benchmark::State& state) {
  PureSearch search;
  PrepareMile(static_cast<int>(state.range(0)), search);
  SearchFast(state, search);
}

template <void PrepareSearch(PureSearch&)>
void Plain(benchmark::State& state) {
  PureSearch search;
  PrepareSearch(search);
  SearchPlainly(state, search);
}

template <void PrepareSearch(PureSearch&)>
void Fast(benchmark::State& state) {
  PureSearch search;
  PrepareSearch(search);
  SearchFast(state, search);
}

void PrepareShortMile(PureSearch& search) {
  PrepareMile(264, search);
}
void PrepareLongMile(PureSearch& search) {
  PrepareMile(5280, search);
}

// The search on the far-end head of one line, from a target head of two feet.
template <EndHeadForm kForm, void PrepareSearch(PureSearch&)>
void EndHead(benchmark::State& state) {
  const auto lanes = static_cast<VectorLanes>(state.range(0));
  if (lanes > WidestLanes()) {
    state.SkipWithError("the processor has no such lanes");
    return;
  }
  PureSearch search;
  PrepareSearch(search);
  const auto size = static_cast<std::size_t>(search.rows) + 1;
  std::vector<double> head(size);
  std::vector<float> flow(size);
  std::vector<float> area(size);
  EndHeadSearch found;
  for (auto _ : state) {
    head.back() = 2;
    SolveEndHead(search.field.line, search.field.target, {head.data(), flow.data(), area.data()}, {}, kForm, found,
                 lanes);
  }
  if (found.outcome != EndHeadSearch::Outcome::kConverged) state.SkipWithError("no end");
  state.counters["marches"] = found.marches;
}

BENCHMARK(PlainSlopes)->Arg(264)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK(FastSlopes)
    ->ArgsProduct({{264}, {1, 4, 8}, {1}})
    ->ArgsProduct({{5280}, {1, 4, 8}, {1, 2}})
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Plain<PrepareDual>)->Name("PlainDual")->Unit(benchmark::kMicrosecond);
BENCHMARK(Fast<PrepareDual>)->Name("FastDual")->ArgsProduct({{264}, {1, 4, 8}, {1}})->Unit(benchmark::kMicrosecond);
BENCHMARK(Plain<PrepareRods>)->Name("PlainRods")->Unit(benchmark::kMicrosecond);
BENCHMARK(Fast<PrepareRods>)->Name("FastRods")->ArgsProduct({{264}, {1, 4, 8}, {1}})->Unit(benchmark::kMicrosecond);
BENCHMARK(Plain<PrepareSteep>)->Name("PlainSteep")->Unit(benchmark::kMicrosecond);
BENCHMARK(Fast<PrepareSteep>)->Name("FastSteep")->ArgsProduct({{40}, {1, 4, 8}, {1}})->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kPlain, PrepareShortMile>)
    ->Name("PlainEndHead264")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kPlain, PrepareLongMile>)
    ->Name("PlainEndHead5280")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kPlain, PrepareRods>)
    ->Name("PlainEndHeadRods264")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kFast, PrepareShortMile>)
    ->Name("FastEndHead264")
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kFast, PrepareLongMile>)
    ->Name("FastEndHead5280")
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(EndHead<EndHeadForm::kFast, PrepareRods>)
    ->Name("FastEndHeadRods264")
    ->Arg(1)
    ->Arg(4)
    ->Arg(8)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace torvale
