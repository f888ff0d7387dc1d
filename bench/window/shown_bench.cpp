// From what has been calculated, or from the click, to the painted table: what a planner waits for. The offscreen
// platform draws into memory, so that nothing of a display server is in it.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <string>
#include <utility>

#include "../bench_line.h"
#include "display/design_display.h"
#include "qt/main_window.h"
#include "screen/fields.h"
#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {
namespace {

// The window over a line of `rows` hole rows.
struct OpenWindow {
  explicit OpenWindow(int rows) : line(rows) {
    window.Open();
    QApplication::processEvents();
  }
  // As the window itself does it.
  void Click(const std::string& name) {
    Guarded(line.program, [&] { torvale::Click(line.program, name); });
    Paint();
  }
  void Paint() {
    window.Sync();
    QApplication::processEvents();
  }
  bool Shown() const {
    const Program& program = line.program;
    return line.host.messages == 0 && program.record.DesignOK == "True" && program.main.Grid2.control.visible &&
           !program.main.Grid2.Text(1, kResultStation).empty();
  }

  BenchLine line;
  MainWindow window{line.program};
};

// What one `std::pow` of this machine takes, each waiting for the one before.
void BaselinePower(benchmark::State& state) {
  double value = 1.5;
  for (auto _ : state) {
    value = 1 + 1e-3 * std::pow(value, 1.852);
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BaselinePower);

// From the finished calculation to the painted table. Two results of the line, for two target heads, take turns, so
// that flows, heads and ratios of every row are new.
void ShowResult(benchmark::State& state, const char* table) {
  OpenWindow shown(static_cast<int>(state.range(0)));
  Program& program = shown.line.program;
  shown.Click("mnuDesignField");
  Design other = program.record;
  program.main.txtInfo[InfoField::kTargetHead].Set("1.9");
  shown.Click("mnuDesignField");
  program.main.cmdDesignToggle.caption = table;
  for (auto _ : state) {
    state.PauseTiming();
    std::swap<Design>(program.record, other);
    state.ResumeTiming();
    Guarded(program, [&] { DisplayDesign(program); });
    shown.Paint();
  }
  if (!shown.Shown()) state.SkipWithError("no table");
}
BENCHMARK_CAPTURE(ShowResult, complete_design, "Complete Design")->Arg(264)->Arg(5280)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShowResult, summary, "Summary")->Arg(264)->Arg(5280)->Unit(benchmark::kMicrosecond);

// From the click on a design type to its painted table, the history of edits included. The panel of the limited
// selection is open already.
void ClickToTable(benchmark::State& state, const char* entry) {
  OpenWindow shown(static_cast<int>(state.range(0)));
  Program& program = shown.line.program;
  program.main.txtDefault[Preference::kHighestHead].Set("2");
  program.main.txtDefault[Preference::kHeadStep].Set(".2");
  const bool by_list = entry == std::string_view("mnuManHoleSelection");
  for (const char* size : {"1/16", "1/8", "1/4", "3/8", "1/2"}) program.main.listHolesSelected.Add(size);
  for (auto _ : state) {
    if (by_list) {
      state.PauseTiming();
      shown.Click(entry);
      state.ResumeTiming();
    }
    shown.Click(by_list ? "cmdExitHoleSelect" : entry);
  }
  if (!shown.Shown()) state.SkipWithError("no table");
}
BENCHMARK_CAPTURE(ClickToTable, planned, "mnuDesignField")->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickToTable, constant_slope, "mnuDesignConstSlope")
    ->Arg(264)
    ->Arg(5280)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickToTable, dual_slope, "mnuDesignDualSlope")->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickToTable, computer_holes, "mnuComputerHoleSelection")
    ->Arg(264)
    ->Arg(5280)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickToTable, existing_field, "mnuExistingDesign")
    ->Arg(264)
    ->Arg(5280)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickToTable, limited_holes, "mnuManHoleSelection")
    ->Arg(264)
    ->Arg(5280)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
