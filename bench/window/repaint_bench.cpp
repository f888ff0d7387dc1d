// Repaints of the window on the offscreen platform, which draws into memory: what the program itself spends, without a
// display server.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>

#include "../bench_line.h"
#include "qt/main_window.h"
#include "search/design_commands.h"

namespace torvale {
namespace {

// The window with a finished design of `rows` hole rows.
struct ShownDesign {
  explicit ShownDesign(int rows) : line(rows) {
    mnuDesignField_Click(line.program);
    window.Open();
    QApplication::processEvents();
  }

  BenchLine line;
  MainWindow window{line.program};
};

// Comparing the structures with what was drawn, where nothing has changed: what every event and yield costs.
void SyncWithoutChange(benchmark::State& state) {
  ShownDesign shown(static_cast<int>(state.range(0)));
  for (auto _ : state) shown.window.Sync();
}
BENCHMARK(SyncWithoutChange)->Arg(264)->Arg(5280)->Unit(benchmark::kMicrosecond);

// The whole window, every widget drawn anew.
void RepaintWhole(benchmark::State& state) {
  ShownDesign shown(static_cast<int>(state.range(0)));
  QPixmap picture(shown.window.size());
  for (auto _ : state) shown.window.render(&picture);
}
BENCHMARK(RepaintWhole)->Arg(264)->Arg(5280)->Unit(benchmark::kMillisecond);

// A label changed, as at each trial of a search, and what follows from it is drawn.
void RepaintOneLabel(benchmark::State& state) {
  ShownDesign shown(static_cast<int>(state.range(0)));
  long trial = 0;
  for (auto _ : state) {
    shown.line.program.main.lblEffic.caption = "Distribution Uniformity = " + std::to_string(++trial % 100);
    shown.window.Sync();
    QApplication::processEvents();
  }
}
BENCHMARK(RepaintOneLabel)->Arg(264)->Arg(5280)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace torvale

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
