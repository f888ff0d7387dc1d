// Lines that the benchmarks work on: watered furrows at one spacing, a gentle fall, holes small enough that the flow of
// any number of them fits a 15 inch pipe.
#pragma once

#include <cerrno>
#include <string>

#include "display/grid_layout.h"
#include "engine/survey.h"
#include "screen/program.h"
#include "shell/start_up.h"

namespace torvale {

// A desktop on which nothing happens.
class QuietHost final : public Host {
 public:
  long Yield(long) override { return 1'000'000; }
  void Message(std::string_view, std::string_view) override { ++messages; }
  bool Question(std::string_view, std::string_view) override { return true; }
  void Beep() override {}
  std::optional<std::string> OpenDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  std::optional<std::string> SaveDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  bool HasPrinter() override { return false; }
  std::optional<int> PrinterDialog() override { return std::nullopt; }
  bool Print(const Document& /*document*/) override { return false; }
  void Preview(const Document& /*document*/) override {}
  WholeFileResult WritePdf(const Document& /*document*/, const std::string& /*path*/) override { return {EIO, {}}; }
  std::string ClipboardText() override { return ""; }
  void SetClipboardText(std::string_view) override {}
  std::optional<std::string> Setting(std::string_view) override { return std::nullopt; }
  void SaveSetting(std::string_view, std::string_view) override {}
  std::string Today() override { return "1/1/2030"; }
  std::string ProgramFolder() override { return "."; }
  std::string UserDataFolder() override { return ""; }

  int messages = 0;  // a benchmark that draws one measures a failure
};

// The program with a survey on its sheet that gives `rows` hole rows: every hundredth of the line surveyed, crown
// readings and lengths at both ends alone, so that the interpolation has its work to do.
struct BenchLine {
  explicit BenchLine(int rows) {
    StartProgram(program);
    host.messages = 0;  // of the soils that the current folder may lack
    const int feet = 5280 / rows;
    MainScreen& main = program.main;
    main.txtInfo[2].Set("1000");
    main.txtInfo[3].Set("2");
    main.txtInfo[5].Set("E");
    const int length = (rows - 1) * feet;
    const std::string hole = rows > 2000 ? "1/8" : rows > 500 ? "1/4" : "1/2";
    const std::string first[] = {"0", "101", "1200", std::to_string(feet), "15", hole, "1", "10", std::to_string(feet)};
    for (int column = 0; column < kSurveyColumns; ++column) main.Grid1.Set(1, column, first[column]);
    constexpr int kSpans = 100;
    for (int row = 2; row <= kSpans + 1; ++row) {
      main.Grid1.Set(row, kStationColumn, std::to_string(length * (row - 1) / kSpans));
      main.Grid1.Set(row, kHoleSizeColumn, hole);
    }
    main.Grid1.Set(kSpans + 1, kCrownColumn, "100");
    main.Grid1.Set(kSpans + 1, kFurrowLengthColumn, "1000");
  }

  QuietHost host;
  Program program{host};
};

}  // namespace torvale
