// The cost of the searches: the trials of a slope, the passes of a hole selection, and what of it is not calculation.
#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <string>

#include "bench_line.h"
#include "engine/uniformity.h"
#include "screen/fields.h"
#include "screen/screen_engine_host.h"
#include "script/statements.h"
#include "search/cal_dsign_var.h"
#include "search/design_commands.h"
#include "search/flow_run.h"
#include "search/head_loop.h"
#include "search/hole_selection_panel.h"
#include "search/plain_selection.h"
#include "search/slope_search.h"

namespace torvale {
namespace {

// What a search does, counted by running its calculations again.
struct Work {
  double trials = 0;
  double marches = 0;
  double rows = 0;
};

// One trial without the search around it: the march to convergence, the sort, the uniformity. No head on these lines is
// ever negative, so that the marches are the tries and one.
void Trial(Program& program, float slope, Work& work) {
  DesignRecord& record = program.record;
  LayCrown(program, slope);
  int tries = 0;
  RunFlowCalc(program, tries);
  SortFurrows(record);
  ScreenEngineHost host(program);
  DistributionEffic(record, host);
  work.trials += 1;
  work.marches += tries + 1.0;
  work.rows += (tries + 1.0) * record.HoleRows;
}

// The calculations of a slope search that ended at `last`, and nothing else of it. A falling search has stepped once
// past its last trial; the level march ahead of the trials and the one over the final crown count as trials here.
Work TrialsAlone(Program& program, float last) {
  DesignRecord& record = program.record;
  Work work;
  record.DesignElev[1] = record.CrownElev[1];
  Trial(program, 0, work);
  const double step = last < 0 ? -0.00001 : 0.00001;
  float slope = last < 0 ? -0.00001F : 0.0F;
  while (last < 0 ? slope >= last : slope < last) {
    Trial(program, slope, work);
    slope = static_cast<float>(static_cast<double>(slope) + step);
  }
  Trial(program, record.CrownSlope, work);
  return work;
}

void Count(benchmark::State& state, const Work& work) {
  state.counters["trials"] = work.trials;
  state.counters["marches"] = work.marches;
  state.counters["row_passes"] = work.rows;
  state.counters["per_row"] =
      benchmark::Counter(work.rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

bool Designed(const Program& program) {
  return program.record.DesignOK == "True" && program.record.MissingData == 0 && program.record.DesignType != kNoDesign;
}

void SearchSlope(benchmark::State& state, Program& program) {
  for (auto _ : state) mnuDesignConstSlope_Click(program);
  if (!Designed(program)) state.SkipWithError("no design");
  Count(state, TrialsAlone(program, program.record.SlopeDelta));
}

void SearchNothing(benchmark::State& state, Program& program) {
  mnuDesignConstSlope_Click(program);
  if (!Designed(program)) state.SkipWithError("no design");
  const float last = program.record.SlopeDelta;
  Work work;
  for (auto _ : state) work = TrialsAlone(program, last);
  Count(state, work);
}

void SlopeSearch(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  SearchSlope(state, line.program);
}

void SlopeSearchTrialsAlone(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  SearchNothing(state, line.program);
}

// The fields that come with the program, as far as their scripts fill them in.
struct SampleField {
  explicit SampleField(const std::string& name) : session(transcript) {
    std::ifstream script("data/samples/" + name + ".script");
    ScriptLines lines(script);
    for (std::string line; lines.Next(line);) RunStatement(session, line, lines);
  }
  std::ostringstream transcript;
  Session session;
};

void SampleSearch(benchmark::State& state, const char* name) {
  SampleField field(name);
  SearchSlope(state, field.session.program);
}

void SampleTrialsAlone(benchmark::State& state, const char* name) {
  SampleField field(name);
  SearchNothing(state, field.session.program);
}

void ComputerSelection(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  for (auto _ : state) mnuComputerHoleSelection_Click(line.program);
  if (!Designed(line.program)) state.SkipWithError("no design");
}

void ChooseFiveSizes(Program& program) {
  program.main.txtDefault[Preference::kHighestHead].Set("2");
  program.main.txtDefault[Preference::kHeadStep].Set(".2");
  for (const char* size : {"1/16", "1/8", "1/4", "3/8", "1/2"}) program.main.listHolesSelected.Add(size);
}

// Five sizes, heads from 1.8 feet down by 0.2: eight trials and the run of the best.
void LimitedSelection(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  ChooseFiveSizes(line.program);
  for (auto _ : state) {
    mnuManHoleSelection_Click(line.program);
    cmdExitHoleSelect_Click(line.program);
  }
  if (!Designed(line.program)) state.SkipWithError("no design");
}

// The selections from the completed sheet to the shown table, plain against fast.
enum class Form { kPlain, kFast };

template <Form kForm>
void ComputerHoles(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  mnuComputerHoleSelection_Click(line.program);
  if (kForm == Form::kPlain) line.host.on_yield = [](long) { return plain::kRowsAhead; };
  for (auto _ : state) {
    if (kForm == Form::kPlain) {
      plain::ComputerSelection(line.program);
    } else {
      Cal_Dsign_Var(line.program);
    }
  }
  if (!Designed(line.program)) state.SkipWithError("no design");
}

// The same without what is around it: the rows stand, and no table is shown.
template <Form kForm>
void ComputerHolesAlone(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  DesignRecord& record = line.program.record;
  mnuComputerHoleSelection_Click(line.program);
  if (kForm == Form::kPlain) line.host.on_yield = [](long) { return plain::kRowsAhead; };
  plain::BuildRows(line.program);
  const std::int16_t furrows = record.WateredFurrows;
  const RowArray<float> area = record.PipeArea;
  for (auto _ : state) {
    record.WateredFurrows = furrows;
    record.PipeArea = area;
    if (kForm == Form::kPlain) {
      plain::SelectTwice(line.program);
    } else {
      MultiHoleSizeTwice(line.program);
    }
  }
  if (!Designed(line.program)) state.SkipWithError("no design");
}

template <Form kForm>
void ListedHoles(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  ChooseFiveSizes(line.program);
  mnuManHoleSelection_Click(line.program);
  cmdExitHoleSelect_Click(line.program);
  if (kForm == Form::kPlain) line.host.on_yield = [](long) { return plain::kRowsAhead; };
  for (auto _ : state) {
    line.program.record.BestUniformity = 0;
    if (kForm == Form::kPlain) {
      plain::LimitedSelection(line.program);
    } else {
      EfficAdjust(line.program);
    }
  }
  if (!Designed(line.program)) state.SkipWithError("no design");
}

BENCHMARK(SlopeSearch)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(SlopeSearchTrialsAlone)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleSearch, level_field_by_rods, "level_field_by_rods")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleTrialsAlone, level_field_by_rods, "level_field_by_rods")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleSearch, short_corner, "short_corner")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleTrialsAlone, short_corner, "short_corner")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleSearch, gated_pipe, "gated_pipe")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SampleTrialsAlone, gated_pipe, "gated_pipe")->Unit(benchmark::kMillisecond);
BENCHMARK(ComputerSelection)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(LimitedSelection)->Arg(264)->Arg(1056)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ComputerHoles<Form::kPlain>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ComputerHoles<Form::kFast>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ComputerHolesAlone<Form::kPlain>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ComputerHolesAlone<Form::kFast>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ListedHoles<Form::kPlain>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK(ListedHoles<Form::kFast>)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
