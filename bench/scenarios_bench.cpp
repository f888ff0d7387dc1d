// What a scenario costs beside its design: a quiet program's start, the copy of the inputs, and the way back to the
// state after the start that each run begins with.
#include <benchmark/benchmark.h>

#include "scenarios/scenario.h"

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

}  // namespace
}  // namespace torvale
