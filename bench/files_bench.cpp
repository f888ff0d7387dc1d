// The cost of a design file: writing and reading its fields, and the whole way from the screen to the disk and back.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "base/version.h"
#include "bench_line.h"
#include "files/design_files.h"
#include "files/design_format.h"
#include "search/design_commands.h"

namespace torvale {
namespace {

// The longest design that the result table has rows for; a line of a mile has 5281 at most.
constexpr int kRows = 5283;

// The current folder, which stands for the program's here, is one of its own for the files, removed with them.
struct FileLine {
  FileLine() : line(5280), folder(std::filesystem::temp_directory_path() / "torvale-bench") {
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    mnuDesignField_Click(line.program);
    line.program.record.HoleRows = kRows;
    line.program.record.FileVersion = ProgramVersion();
    name = (folder / "long").string();
  }
  ~FileLine() {
    std::error_code ignored;
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder, ignored);
  }
  FileLine(const FileLine&) = delete;
  FileLine& operator=(const FileLine&) = delete;

  void Save() {
    line.program.record.SaveFileName = name;
    SaveFile(line.program);
  }

  BenchLine line;
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder;
  std::string name;
};

void WriteFields(benchmark::State& state) {
  FileLine file;
  std::size_t bytes = 0;
  for (auto _ : state) bytes += WriteDesign(file.line.program).size();
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void ReadFields(benchmark::State& state) {
  FileLine file;
  const std::string text = WriteDesign(file.line.program);
  for (auto _ : state) ReadDesign(file.line.program, text, [](const DesignExtras&) {});
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void SaveDesign(benchmark::State& state) {
  FileLine file;
  for (auto _ : state) file.Save();
  if (file.line.host.messages > 0) state.SkipWithError("not saved");
}

void OpenDesign(benchmark::State& state) {
  FileLine file;
  file.Save();
  file.line.program.record.OpenedFileName = file.line.program.record.SaveFileName;
  for (auto _ : state) OpenFile(file.line.program);
  if (file.line.host.messages > 0 || file.line.program.record.HoleRows != kRows) state.SkipWithError("not opened");
}

BENCHMARK(WriteFields)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadFields)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDesign)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenDesign)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvale
