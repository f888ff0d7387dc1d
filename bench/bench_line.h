// Lines that the benchmarks work on: watered furrows at one spacing, a gentle fall, holes small enough that the flow of
// any number of them fits a 15 inch pipe.
#pragma once

#include <string>

#include "display/grid_layout.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/program.h"
#include "shell/start_up.h"
#include "support/silent_host.h"

namespace torvale {

// The program with a survey on its sheet that gives `rows` hole rows: every hundredth of the line surveyed, crown
// readings and lengths at both ends alone, so that the interpolation has its work to do.
struct BenchLine {
  explicit BenchLine(int rows) {
    host.folder = ".";
    host.on_question = [] { return true; };
    StartProgram(program);
    host.messages = 0;  // of the soils that the current folder may lack
    const int feet = 5280 / rows;
    MainScreen& main = program.main;
    main.txtInfo[InfoField::kGpm].Set("1000");
    main.txtInfo[InfoField::kTargetHead].Set("2");
    main.txtInfo[InfoField::kSurveyKind].Set("E");
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

  SilentHost host;  // a benchmark that draws a message measures a failure
  Program program{host};
};

}  // namespace torvale
