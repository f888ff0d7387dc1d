#include <gtest/gtest.h>

#include "base/run_time_fault.h"
#include "display/result_tables.h"
#include "display/small_line.h"

namespace torvale {
namespace {

std::optional<Colour> RatioColour(float flow) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, flow);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  return line.main.Grid2.Back(1, kResultFlowRatio);
}

// 100 GPM are required, so a flow is its own percentage.
TEST(CompleteDesignTable, JudgesTheColourOnTheRatioAsShown) {
  struct Case {
    float flow;
    Colour colour;
  };
  for (const Case& c : {Case{89.4F, kRed},                                      // .894, shown .89
                        Case{89.5F, kPaleYellow},                               // .895, a half goes up to .90
                        Case{90.0F, kPaleYellow},                               // exactly at the limit of red
                        Case{94.4F, kPaleYellow},                               // .94
                        Case{94.5F, kStrongGreen},                              // .945 is shown as .95
                        Case{95.0F, kStrongGreen}, Case{105.4F, kStrongGreen},  // 1.05
                        Case{105.5F, kPaleYellow},                              // 1.055 is shown as 1.06
                        Case{110.4F, kPaleYellow},                              // 1.10
                        Case{110.5F, kRed}}) {                                  // 1.105 is shown as 1.11
    EXPECT_EQ(RatioColour(c.flow), c.colour) << c.flow;
  }
}

TEST(CompleteDesignTable, ListsEveryOutlet) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddHole(6, kEighthInch, 1000.5F);
  line.record.MilText[2] = "7";
  line.record.PipeDia[2] = 12.5F;
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(1), "0|1/4|1|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  // Digits beyond the pattern's places are shown: 1000.5 in "###.00", its ratio 10.005 in two decimals 10.01.
  EXPECT_EQ(line.Row(2), "6|1/8|2|1000.50|2.50|10.01|1100|60.00|1|7|12.5|6.00");
  EXPECT_EQ(line.Row(3), "|||||||||||");
  EXPECT_EQ(line.main.Grid2.Back(2, kResultFlowRatio), kRed);
  EXPECT_EQ(line.main.Grid2.Fore(2, kResultFlowRatio), kBlack);
}

TEST(CompleteDesignTable, ShowsSupplyLineAtTheHead) {
  SmallLine line;
  line.AddDry(0);
  line.AddHole(10, kQuarterInch, 95);
  line.AddSurvey("0", "");
  line.AddSurvey("10", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(1), "0|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(2), "10|1/4|1|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
}

// The survey has stations 0, 10 and 30. The pointer stands at 10: the dry row at 5 is followed by 10, and 10 < 10
// fails; the dry row at 20 is followed by 30, and 10 < 30 holds.
TEST(CompleteDesignTable, DropsDryRowsBetweenSurveyStations) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddDry(5);
  line.AddHole(10, kQuarterInch, 95);
  line.AddDry(20);
  line.AddHole(30, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  line.AddSurvey("10", "1/4");
  line.AddSurvey("30", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|1/4|2|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(3), "20|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(4), "30|1/4|3|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(5), "|||||||||||");
}

// The survey has stations 0, 10, 20 and 30. The dry row at 10 stays (10 < 15) and moves the pointer to 20; so the one
// at 15 is dropped (20 < 20 fails), and the one at 20 stays (20 < 30).
TEST(CompleteDesignTable, MovesAlongTheSurveyWithEachDryRowThatStays) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddDry(10);
  line.AddDry(15);
  line.AddDry(20);
  line.AddHole(30, kQuarterInch, 95);
  for (const std::string_view station : {"0", "10", "20", "30"}) line.AddSurvey(station, "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(3), "20|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.main.Grid2.Text(4, 0), "30");
}

// The station behind the far end counts as 0 even where a longer design left one, so the dry last row never stays: its
// five first cells stand, with no supply words and no step.
TEST(CompleteDesignTable, ClosesALineWithADryLastRow) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddDry(10);
  line.record.Station[3] = 999;
  line.AddSurvey("0", "1/4");
  line.AddSurvey("5", "");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10||||2.50|||60.00||10|15|");
}

// A row with a hole but no furrow is no hole row. It names the survey's size, in a type 4 design of rigid pipe too, and
// with flow it keeps its flow and its ratio; its length of 0 is empty in "#####".
TEST(CompleteDesignTable, NamesTheSurveyHoleWhereThereIsNoOutlet) {
  SmallLine line;
  line.record.DesignType = kComputerHoles;
  line.record.PipeKind = "R";
  line.AddDry(0);
  const int i = line.AddHole(10, kQuarterInch, 50);
  line.record.ComputerHoleDia[i] = kEighthInch;
  line.record.FurrowLength[i] = 0;
  line.AddDry(20);
  line.AddSurvey("0", "");
  line.AddSurvey("10", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|1/4||50.00|2.50|.50||60.00||10|15|");
  EXPECT_EQ(line.main.Grid2.Back(2, kResultFlowRatio), kRed);
}

// With flow such a row has its furrow's length, too.
TEST(CompleteDesignTable, ARowWithFlowButNoHoleHasItsLength) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.record.HoleDia[line.AddHole(10, kQuarterInch, 95)] = 0;
  line.AddHole(20, kQuarterInch, 95);
  for (const std::string_view station : {"0", "10", "20"}) line.AddSurvey(station, "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|1/4||95.00|2.50|.95|1100|60.00||10|15|");
}

// A furrow without a hole is watered by nothing: supply line, whatever its length.
TEST(CompleteDesignTable, ARowWithALengthButNoHoleIsSupplyLine) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.record.FurrowLength[line.AddDry(10)] = 1100;
  line.AddHole(20, kQuarterInch, 95);
  for (const std::string_view station : {"0", "10", "20"}) line.AddSurvey(station, "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(3), "20|1/4|2|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
}

// In the first row the flow alone decides, and the length stands by itself.
TEST(CompleteDesignTable, AFirstRowWithHolesButNoFlowIsSupplyLine) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 0);
  line.AddHole(10, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(1), "0|  Supply|Line||2.50||1100|60.00||10|15|");
  EXPECT_EQ(line.main.Grid2.Back(1, kResultFlowRatio), std::nullopt);
}

// A hole that draws air has a flow of 0: it keeps its number, but has no ratio and no length, and no colour either.
TEST(CompleteDesignTable, LeavesOutTheRatioOfAHoleWithoutFlow) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddHole(10, kQuarterInch, 0);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(2), "10|1/4|2|.00|2.50|||60.00|1|10|15|6.00");
  EXPECT_EQ(line.main.Grid2.Back(2, kResultFlowRatio), std::nullopt);
}

TEST(CompleteDesignTable, KeepsColoursOfCellsThatAreNotWrittenAgain) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddHole(10, kQuarterInch, 50);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  line.record.FurrowFlow[2] = 0;
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(2, kResultFlowRatio), "");
  EXPECT_EQ(line.main.Grid2.Back(2, kResultFlowRatio), kRed);
}

TEST(CompleteDesignTable, TakesTheHoleSizeAndCrownThatTheTypeWorksWith) {
  struct Case {
    std::int16_t type;
    std::string_view hole, crown;
  };
  for (const Case& c : {Case{kPlanned, "1/4", "60.00"}, Case{kConstantSlope, "1/4", "61.00"},
                        Case{kDualSlope, "1/4", "61.00"}, Case{kComputerHoles, "1/8", "60.00"},
                        Case{kExistingField, "1/4", "60.00"}, Case{kLimitedHoles, "3", "60.00"}}) {
    SmallLine line;
    line.record.DesignType = c.type;
    line.AddHole(0, kQuarterInch, 95);
    line.AddHole(6, kQuarterInch, 95);
    for (int i = 1; i <= 2; ++i) {
      line.record.ComputerHoleDia[i] = kEighthInch;
      line.record.LimitedHoleDia[i] = 3;
      line.record.DesignElev[i] = 61;
    }
    line.AddSurvey("0", "1/4");
    CompleteDesignTable(line.program);
    for (int row = 1; row <= 2; ++row) {
      EXPECT_EQ(line.main.Grid2.Text(row, kResultOpening), c.hole) << c.type;
      EXPECT_EQ(line.main.Grid2.Text(row, kResultCrown), c.crown) << c.type;
    }
  }
}

TEST(CompleteDesignTable, LeavesTheOpeningEmptyForASizeThatIsNotListed) {
  SmallLine line;
  line.AddHole(0, 0.3F, 95);
  line.AddHole(6, 0.3F, 95);
  line.AddSurvey("0", "");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(1), "0||1|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(2), "6||2|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
}

// A saved design may hold rows that no flow is required of.
TEST(CompleteDesignTable, LeavesRatioAndColourOutWhereNothingIsRequired) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  line.record.RequiredFlow[1] = 0;
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.Row(1), "0|1/4|1|95.00|2.50||1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.main.Grid2.Back(1, kResultFlowRatio), std::nullopt);
}

// 0.0125 square feet are 1.8 square inches: 1.5 inches of a gate 1.2 inches wide.
TEST(CompleteDesignTable, ShowsRectangularGatesByTheirHeight) {
  SmallLine line;
  line.record.PipeKind = "R";
  for (const float station : {0.0F, 6.0F}) line.record.HoleArea[line.AddHole(station, 2, 95)] = 0.0125F;
  line.AddSurvey("0", "2");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), "1.5");
  EXPECT_EQ(line.main.Grid2.Text(2, kResultOpening), "1.5");
}

// Half the area of a 1 inch circle, 0.3926991 square inches, is 0.002727077 square feet. The gate opens to its middle,
// 0.5 inches; half a percent of the area at a chord of 1 inch is 0.002 inches. The size is the computer's 2 inches and
// the gate the survey's 1 inch. No area at all gives an opening of 0, which is ".000" in "#.##0".
TEST(CompleteDesignTable, ShowsCircularGatesByTheirTravel) {
  SmallLine line;
  line.record.DesignType = kComputerHoles;
  line.record.PipeKind = "R";
  line.main.txtDefault[11].Set("C");
  for (const float station : {0.0F, 6.0F, 12.0F}) line.record.ComputerHoleDia[line.AddHole(station, 1, 95)] = 2;
  line.record.HoleArea[2] = 0.002727077F;
  line.AddSurvey("0", "1");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), ".000");
  EXPECT_NEAR(std::stod(line.main.Grid2.Text(2, kResultOpening)), 0.5, 0.0025);
  EXPECT_EQ(line.main.Grid2.Text(3, kResultOpening), ".000");
}

// An area over next to no width is more than a number holds.
TEST(CompleteDesignTable, PassesAFaultOfAGateToItsCaller) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  line.record.PipeKind = "R";
  line.main.txtDefault[12].Set("1E-310");
  for (int i = 1; i <= line.record.HoleRows; ++i) line.record.HoleArea[i] = 1;
  EXPECT_THROW(CompleteDesignTable(line.program), RunTimeFault);
}

// The height of a rectangular gate is its area over its width: without a width there is none to show.
TEST(CompleteDesignTable, ShowsNoOpeningOfAGateWithoutAWidth) {
  SmallLine line;
  line.record.PipeKind = "R";
  line.main.txtDefault[12].Set("0");
  line.AddHole(0, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), "");
  EXPECT_EQ(line.main.Grid2.Text(1, kResultStation), "0");
}

TEST(CompleteDesignTable, EndsOnTheResultsScreen) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  line.record.TargetGPM = 9.5F;
  line.record.WateredFurrows = 2;
  line.main.busy = true;
  line.main.mnuSurveyCopy.visible = true;
  line.main.Grid2.top_row = 7;
  line.main.Grid2.Set(5283, 11, "old");
  line.main.Grid2.Set(3, 12, "margin");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.top_row, 1);
  EXPECT_EQ(line.main.Grid2.Text(5283, 11), "");
  EXPECT_EQ(line.main.Grid2.Text(3, 12), "margin");
  EXPECT_EQ(line.main.Grid2.AlignOf(2, 11), Align::kCentreCentre);
  EXPECT_EQ(line.main.Grid2.AlignOf(0, 11), Align::kCentreBottom);
  EXPECT_FALSE(line.main.mnuSurveyCopy.visible);
  EXPECT_FALSE(line.main.Grid1.control.visible);
  EXPECT_TRUE(line.main.Grid2.control.visible);
  EXPECT_FALSE(line.main.busy);
  EXPECT_TRUE(line.main.lblAvgFurrowFlow.visible);
  EXPECT_EQ(line.main.lblAvgFurrowFlow.caption, "Average Furrow Flow = 4.8");  // 9.5 / 2 = 4.75, half away from 0
}

TEST(CompleteDesignTable, ShowsAnAverageOfZeroWithoutWateredFurrows) {
  SmallLine line;
  line.AddDry(0);
  line.record.TargetGPM = 400;
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.lblAvgFurrowFlow.caption, "Average Furrow Flow = 0");
}

TEST(CompleteDesignTable, RefusesUnderAnotherName) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.main.Grid2.top_row = 7;
  line.main.Grid2.Set(1, 0, "old");
  line.ShowTable("Summary");
  CompleteDesignTable(line.program);
  EXPECT_EQ(line.main.Grid2.top_row, 1);
  EXPECT_EQ(line.main.Grid2.Text(1, 0), "old");
  EXPECT_FALSE(line.main.Grid2.control.visible);
}

}  // namespace
}  // namespace torvale
