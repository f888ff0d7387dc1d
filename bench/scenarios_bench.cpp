// What a scenario costs beside its design: a quiet program's start, the copy of the inputs, and the way back to the
// state after the start that each run begins with.
#include <benchmark/benchmark.h>

#include "bench_line.h"
#include "scenarios/scenario.h"
#include "screen/fields.h"

namespace torvale {
namespace {

void QuietProgramStart(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(QuietProgram());
}
BENCHMARK(QuietProgramStart)->Unit(benchmark::kMicrosecond);

void CopyOfInputs(benchmark::State& state) {
  QuietProgram quiet;
  for (auto _ : state) benchmark::DoNotOptimize(InputOf(quiet.program()));
}
BENCHMARK(CopyOfInputs)->Unit(benchmark::kMicrosecond);

void StartAnew(benchmark::State& state) {
  QuietProgram quiet;
  for (auto _ : state) quiet.StartAnew();
}
BENCHMARK(StartAnew)->Unit(benchmark::kMicrosecond);

// Refused at its first check: all that a run costs but the design.
void RefusedRun(benchmark::State& state) {
  QuietProgram quiet;
  const ScenarioInput input = InputOf(quiet.program());
  for (auto _ : state) benchmark::DoNotOptimize(quiet.Run(input, kPlanned));
}
BENCHMARK(RefusedRun)->Unit(benchmark::kMicrosecond);

// A design beside the one on the screen, from the copied inputs to its figures.
void ScenarioRun(benchmark::State& state, std::int16_t design_type) {
  BenchLine line(static_cast<int>(state.range(0)));
  line.program.main.txtDefault[Preference::kHighestHead].Set("2");
  line.program.main.txtDefault[Preference::kHeadStep].Set(".2");
  for (const char* size : {"1/16", "1/8", "1/4", "3/8", "1/2"}) line.program.main.listHolesSelected.Add(size);
  const ScenarioInput input = InputOf(line.program);
  QuietProgram quiet;
  ScenarioResult result;
  for (auto _ : state) result = quiet.Run(input, design_type);
  if (result.outcome != ScenarioOutcome::kDone) state.SkipWithError("no design");
}
BENCHMARK_CAPTURE(ScenarioRun, planned, kPlanned)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScenarioRun, constant_slope, kConstantSlope)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScenarioRun, dual_slope, kDualSlope)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScenarioRun, limited_holes, kLimitedHoles)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
