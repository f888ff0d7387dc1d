// What the type of the design and the kind of pipe change in the reports.
#include <gtest/gtest.h>

#include "display/small_line.h"
#include "reports/design_reports.h"
#include "reports/hole_summary_report.h"
#include "reports/operations.h"

namespace torvale {
namespace {

// A design type with a kind of pipe, and what they change.
struct Kind {
  std::int16_t type;
  const char* pipe;
  const char* opening;
  const char* hole_text;
  const char* crown;
};

// By type.
const char* const kNames[] = {"",
                              "Planned Design",
                              "Constant Slope Design",
                              "Dual Slope Design",
                              "Multiple Hole Design",
                              "Existing Slope Design",
                              "Limited Computer Hole Selection Design"};

// The label of a constant slope has the slope times 100, that of a dual slope its double.
const char* const kSlopes[] = {
    "", "", "Crown Slope = 25. feet per 100 feet", "Crown Slope = .50 ft. /100 ft. from Station  0 to 180", "", "", ""};

constexpr float kThreeEighths = 0.375F;

// Two holes of 1/4 inch by the survey, of 1/8 by the computer's choice, of 3/8 by that among the allowed sizes. Gates
// of 0.005 square feet are 0.72 square inches: .6 inches high at a width of 1.2. The existing crown is level at 60, the
// designed one falls from 61.5 to 61.25.
struct ReportKinds : ::testing::TestWithParam<Kind>, SmallLine {
  ReportKinds() {
    for (int i = 1; i <= 2; ++i) {
      AddHole(static_cast<float>(10 * (i - 1)), kQuarterInch, 5);
      record.ComputerHoleDia[i] = kEighthInch;
      record.LimitedHoleDia[i] = kThreeEighths;
      record.HoleArea[i] = 0.005F;
    }
    AddSurvey("0", "1/4");
    AddSurvey("10", "1/4");
    record.DesignElev[1] = 61.5F;
    record.DesignElev[2] = 61.25F;
    record.CrownSlope = 0.25F;
    record.DualBreakStation = 180;
    record.SelectedHoleName[0] = "3/8";
    record.SelectedHoleValue[0] = kThreeEighths;
    main.listHolesSelected.Add("3/8");
    record.DesignType = GetParam().type;
    record.PipeKind = GetParam().pipe;
  }
};

TEST_P(ReportKinds, TellTypePipeOpeningAndCrown) {
  const Kind& kind = GetParam();
  const std::string using_pipe = kind.pipe == std::string("L") ? " using Layflat Pipe" : " using Rigid Pipe";
  const double second = 4.85 + 0.165;
  for (const Document& document : {CompleteReport(program), SummaryReport(program)}) {
    EXPECT_EQ(TextAt(document, 4, 0.8), kNames[kind.type] + using_pipe);
    EXPECT_EQ(TextAt(document, 0.45, second), "10");
    EXPECT_EQ(TextAt(document, 0.95, second), kind.opening);
    EXPECT_EQ(TextAt(document, 4.65, second), kind.crown);
    EXPECT_EQ(TextAt(document, 0.5, 2.8), kSlopes[kind.type]);
  }
  const Document holes = HoleSummaryReport(program);
  // The Hole Summary has its own words for the limited selection.
  const std::string limited = "Limited Computer Selected Hole Design";
  EXPECT_EQ(TextAt(holes, 4, 0.8), (kind.type == kLimitedHoles ? limited : kNames[kind.type]) + using_pipe);
  EXPECT_EQ(TextAt(holes, 0.5, 2.5), "0 - 10");
  EXPECT_EQ(TextAt(holes, 5, 2.5), "2");
  EXPECT_EQ(TextAt(holes, 6.5, 2.5), kind.hole_text);
}

INSTANTIATE_TEST_SUITE_P(
    LayflatPipe, ReportKinds,
    ::testing::Values(Kind{1, "L", "1/4", "1 Ea. -  1/4", "60.00"}, Kind{2, "L", "1/4", "1 Ea. -  1/4", "61.25"},
                      Kind{3, "L", "1/4", "1 Ea. -  1/4", "61.25"}, Kind{4, "L", "1/8", "1 Ea. -  1/8", "60.00"},
                      Kind{5, "L", "1/4", "1 Ea. -  1/4", "60.00"}, Kind{6, "L", "3/8", "1 Ea. -  3/8", "60.00"}));

// The computer's choice with rectangular gates has one blank behind its dash.
INSTANTIATE_TEST_SUITE_P(
    RigidPipe, ReportKinds,
    ::testing::Values(Kind{1, "R", ".6", "1 Ea. -  .6", "60.00"}, Kind{2, "R", ".6", "1 Ea. -  .6", "61.25"},
                      Kind{3, "R", ".6", "1 Ea. -  .6", "61.25"}, Kind{4, "R", ".6", "1 Ea. - .6", "60.00"},
                      Kind{5, "R", ".6", "1 Ea. -  .6", "60.00"}, Kind{6, "R", ".6", "1 Ea. -  .6", "60.00"}));

}  // namespace
}  // namespace torvale
