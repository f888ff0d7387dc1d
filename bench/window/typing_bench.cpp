// What a key costs the window while all designs are worked out beside it: 500 keys, one each 20 ms, with the results
// that come meanwhile taken and drawn. Told are the stretches in which the window heard nothing, a median over the keys
// and the longest of all, and the longest that its own thread worked, however busy the machine is with the designs.
#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <string>
#include <vector>

#include "../bench_line.h"
#include "engine/survey.h"
#include "qt/main_window.h"
#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr double kKeyMilliseconds = 20;  // between two keys of a fast typist
constexpr int kKeys = 500;
constexpr int kKeysInCell = 5;
constexpr int kFirstRow = 2;
constexpr double kPatience = 60'000;
constexpr int kNap = 200;  // microseconds between two looks at what there is to do

double Waited() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

// Of this thread alone.
double Worked() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The longest stretches of one key, from it to the next, in milliseconds.
struct Stretches {
  double waited = 0;
  double worked = 0;

  template <typename Work>
  void Time(const Work& work) {
    const double before = Waited();
    const double worked_before = Worked();
    work();
    waited = std::max(waited, Waited() - before);
    worked = std::max(worked, Worked() - worked_before);
  }
};

bool AllTried(const DeskScreen& desk) {
  return !desk.designs.empty() &&
         std::all_of(desk.designs.begin(), desk.designs.end(), [](const ComparedDesign& d) { return d.tried; });
}

void WaitForDesigns(const DeskScreen& desk) {
  for (const double begun = Waited(); !AllTried(desk) && Waited() < begun + kPatience;) {
    QApplication::processEvents();
    QThread::usleep(kNap);
  }
}

double MedianOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Each digit makes another planted width, and so every design is asked for anew.
void TypeWithComparison(benchmark::State& state) {
  BenchLine line(static_cast<int>(state.range(0)));
  Program& program = line.program;
  MainWindow window(program);
  window.Open();
  auto* entry = window.findChild<QAction*>("mnuDesk(0)");
  entry->trigger();
  WaitForDesigns(program.desk);
  auto* sheet = window.findChild<QWidget*>("Grid1");
  std::vector<double> waited;
  std::vector<double> worked;
  int typed = 0;
  std::string keys;
  std::string read;
  for (auto _ : state) {
    const double begun = Waited();
    const int row = kFirstRow + typed / kKeysInCell;
    if (typed % kKeysInCell == 0) {
      program.main.Grid1.Set(row, kPlantedWidthColumn, "");
      GridPoint(program, "Grid1", row, kPlantedWidthColumn, false);
    }
    const char digit = static_cast<char>('1' + typed++ % 9);
    keys += digit;
    QKeyEvent key(QEvent::KeyPress, digit, Qt::NoModifier, QString(QChar(digit)));
    Stretches stretches;
    stretches.Time([&] {
      QApplication::sendEvent(sheet, &key);
      QApplication::processEvents();
    });
    while (Waited() < begun + kKeyMilliseconds) {
      stretches.Time([] { QApplication::processEvents(); });
      QThread::usleep(kNap);
    }
    waited.push_back(stretches.waited);
    worked.push_back(stretches.worked);
    if (typed % kKeysInCell == 0) read += program.main.Grid1.Text(row, kPlantedWidthColumn);
  }
  if (!AllTried(program.desk) || !program.desk.designs.front().made) state.SkipWithError("no comparison");
  if (read != keys) state.SkipWithError("a key was dropped");
  state.counters["median_ms"] = MedianOf(waited);
  state.counters["longest_ms"] = *std::max_element(waited.begin(), waited.end());
  state.counters["worked_ms"] = *std::max_element(worked.begin(), worked.end());
}
BENCHMARK(TypeWithComparison)->Arg(264)->Arg(5280)->Iterations(kKeys)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
