#include <gtest/gtest.h>

#include "base/run_time_fault.h"
#include "display/result_tables.h"
#include "display/small_line.h"

namespace torvale {
namespace {

// The size of row 1 is 1/4, row 6 of the size table, so the row tested for the supply line is row 6. Every line below
// that means row 1 to be shown as it is has flow there.

// Nine outlets 5 feet apart, 1/4 up to row 4 and 1/8 from row 5, each with 95 GPM; stations surveyed at the ends alone.
void AddTwoSizes(SmallLine& line) {
  for (int i = 1; i <= 9; ++i) line.AddHole(static_cast<float>(5 * (i - 1)), i <= 4 ? kQuarterInch : kEighthInch, 95);
  line.AddSurvey("0", "1/4");
  line.AddSurvey("40", "1/8");
  line.ShowTable("Summary");
}

TEST(SummaryTable, ShowsTheLastRowOfASizeAndTheFirstOfTheNext) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.DisplayHoleNumber[5] = 77;  // of an earlier table
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(1), "0|1/4|1|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(2), "15|1/4|4|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(3), "20|1/8|5|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(4), "40|1/8|9|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(5), "|||||||||||");
  EXPECT_EQ(line.record.ProfileScale, 4);
  // 95 GPM leave the pipe at each of rows 1; 1 to 4; 1 to 5; 1 to 9.
  EXPECT_EQ(line.record.DisplayHoleNumber[1], 95);
  EXPECT_EQ(line.record.DisplayHoleNumber[2], 380);
  EXPECT_EQ(line.record.DisplayHoleNumber[3], 475);
  EXPECT_EQ(line.record.DisplayHoleNumber[4], 855);
  EXPECT_EQ(line.record.DisplayHoleNumber[5], 0);
}

// The test on the row after is always on the survey's size, the test on the row before on the size that the type works
// with: row 4 comes by the survey, row 7 by the selection.
TEST(SummaryTable, LooksAtTheChosenSizeOfTheRowBefore) {
  for (const std::int16_t type : {kComputerHoles, kLimitedHoles}) {
    SmallLine line;
    AddTwoSizes(line);
    line.record.DesignType = type;
    RowArray<float>& chosen = type == kComputerHoles ? line.record.ComputerHoleDia : line.record.LimitedHoleDia;
    for (int i = 1; i <= 9; ++i) chosen[i] = i < 7 ? kQuarterInch : 2.0F;
    SummaryTable(line.program);
    EXPECT_EQ(line.Row(2), "15|1/4|4|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
    EXPECT_EQ(line.Row(3), "30|2|7|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
    EXPECT_EQ(line.Row(4), "40|2|9|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  }
}

TEST(SummaryTable, ShowsAChangeOfPipe) {
  SmallLine line;
  for (int i = 1; i <= 9; ++i) line.AddHole(static_cast<float>(5 * (i - 1)), kQuarterInch, 95);
  for (int i = 6; i <= 9; ++i) line.record.PipeDia[i] = 12;
  line.AddSurvey("0", "1/4");
  line.AddSurvey("40", "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(2), "25|1/4|6|95.00|2.50|.95|1100|60.00|1|10|12|6.00");
  EXPECT_EQ(line.record.ProfileScale, 3);
}

// A surveyed station shows the row that stands on it and the one after: only a row beyond the station moves the pointer
// on. Against the whole part of 14.5 the survey's 14.2 is not reached.
TEST(SummaryTable, ShowsSurveyedStations) {
  SmallLine line;
  for (const float station : {0.0F, 5.0F, 10.0F, 14.5F, 20.0F, 25.0F, 30.0F}) line.AddHole(station, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  line.AddSurvey("5", "1/4");
  line.AddSurvey("14.2", "1/4");
  line.AddSurvey("30", "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  // 5 <= 5 shows row 2, 5 <= 10 shows row 3 and passes on to 14.2; 14.2 <= 14 fails; 14.2 <= 20 shows row 5.
  EXPECT_EQ(line.main.Grid2.Text(2, 0), "5");
  EXPECT_EQ(line.main.Grid2.Text(3, 0), "10");
  EXPECT_EQ(line.main.Grid2.Text(4, 0), "20");
  EXPECT_EQ(line.main.Grid2.Text(5, 0), "30");
  EXPECT_EQ(line.record.ProfileScale, 5);
}

TEST(SummaryTable, ShowsSupplyLineInTheMiddle) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddHole(10, kQuarterInch, 95);
  line.AddDry(20);
  line.AddDry(30);
  line.AddHole(40, kQuarterInch, 95);
  line.AddHole(50, kQuarterInch, 95);
  for (const std::string_view station : {"0", "10", "20", "30", "40", "50"}) line.AddSurvey(station, "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(2), "10|1/4|2|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(3), "20|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(4), "30|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(5), "40|1/4|3|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  // The far end shows the number of watered furrows.
  EXPECT_EQ(line.Row(6), "50|1/4|4|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
}

// The dry rows come by the change of size on either side. At 20 the supply pointer's 40 is not below the next station
// 30, so its five cells are overwritten by the row at 30, where 40 is not below 40 either; the hole at 40 takes the
// same row.
TEST(SummaryTable, OverwritesDryRowsBetweenSurveyStations) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddDry(20);
  line.AddDry(30);
  line.AddHole(40, kQuarterInch, 95);
  line.AddHole(45, kQuarterInch, 95);
  line.AddHole(50, kQuarterInch, 95);
  line.AddSurvey("0", "1/4");
  line.AddSurvey("40", "1/4");
  line.AddSurvey("50", "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(2), "40|1/4|2|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.main.Grid2.Text(3, 0), "45");  // 40 <= 45: the row behind the surveyed station
  EXPECT_EQ(line.main.Grid2.Text(4, 0), "50");
}

// All three dry rows stand at or behind a surveyed station. The one at 10 stays (10 < 15) and moves the supply pointer
// to 20; so the one at 15 is dropped (20 < 20 fails), and the one at 20 stays (20 < 30).
TEST(SummaryTable, MovesAlongTheSurveyWithEachDryRowThatStays) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.AddDry(10);
  line.AddDry(15);
  line.AddDry(20);
  line.AddHole(30, kQuarterInch, 95);
  line.AddHole(40, kQuarterInch, 95);
  for (const std::string_view station : {"0", "10", "20", "30", "40"}) line.AddSurvey(station, "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(2), "10|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(3), "20|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.main.Grid2.Text(4, 0), "30");
}

// A row with a hole size but without a hole names the size, also in rigid pipe, and with flow shows its ratio.
TEST(SummaryTable, NamesTheSurveyHoleWhereThereIsNoHole) {
  SmallLine line;
  line.record.PipeKind = "R";
  for (const float station : {0.0F, 10.0F, 20.0F, 30.0F, 40.0F, 50.0F}) line.AddHole(station, kQuarterInch, 95);
  line.record.HoleDia[3] = 0;
  for (const std::string_view station : {"0", "10", "20", "30", "40", "50"}) line.AddSurvey(station, "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(3), "20|1/4|||2.50|.95|1100|60.00||10|15|");
  EXPECT_EQ(line.record.DisplayHoleNumber[3], 285);
}

// The row tested for the supply line is the one whose number is the place of the size in the size table: 14 for 3/4.
// This line has 12 rows, so that row counts as dry whatever a longer design left there; with 11/16, place 13, too.
// 1/2, place 10, lies within.
TEST(SummaryTable, TestsTheSupplyLineAtThePlaceOfTheFirstSize) {
  struct Case {
    float size;
    std::string_view row;
  };
  for (const Case& c : {Case{0.75F, "0|  Supply|Line||2.50|.95|1100|60.00|1|10|15|6.00"},
                        Case{0.6875F, "0|  Supply|Line||2.50|.95|1100|60.00|1|10|15|6.00"},
                        Case{0.5F, "0|1/2|1|95.00|2.50|.95|1100|60.00|1|10|15|6.00"}}) {
    SmallLine line;
    for (int i = 1; i <= 12; ++i) line.AddHole(static_cast<float>(i - 1), c.size, 95);
    line.record.FurrowFlow[13] = line.record.FurrowFlow[14] = 95;
    line.AddSurvey("0", "1/2");
    line.AddSurvey("11", "1/2");
    line.ShowTable("Summary");
    SummaryTable(line.program);
    EXPECT_EQ(line.Row(1), c.row) << c.size;
  }
}

// A first row without a hole has no listed size: row 51 is tested. Where that has flow, the words stay in columns 2 and
// 3, where they were first put; where it is dry, columns 1 and 2 take them.
TEST(SummaryTable, ShowsSupplyLineAtTheHead) {
  SmallLine line;
  line.AddDry(0);
  for (int i = 2; i <= 60; ++i) line.AddHole(static_cast<float>(i), kQuarterInch, 95);
  line.AddSurvey("0", "");
  line.AddSurvey("60", "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(1), "0||  Supply|Line|2.50|||60.00||10|15|");

  line.record.FurrowFlow[51] = 0;
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(1), "0|  Supply|Line||2.50|||60.00||10|15|");
}

// An area over next to no width is more than a number holds.
TEST(SummaryTable, PassesAFaultOfAGateToItsCaller) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.PipeKind = "R";
  line.main.txtDefault[12].Set("1E-310");
  for (int i = 1; i <= line.record.HoleRows; ++i) line.record.HoleArea[i] = 1;
  EXPECT_THROW(SummaryTable(line.program), RunTimeFault);
}

// The first outlet stands at its own station. Where there is none the sheet's station is named.
TEST(SummaryTable, TheFirstOutletNamesItsOwnStation) {
  for (const bool hole : {true, false}) {
    SmallLine line;
    AddTwoSizes(line);
    if (!hole) line.record.HoleDia[1] = 0;
    line.main.Grid1.Set(1, 0, "7");
    SummaryTable(line.program);
    EXPECT_EQ(line.main.Grid2.Text(1, 0), hole ? "0" : "7");
  }
}

// Holes that draw air, at each place of the table. The first row says supply line by its flow in columns 2 and 3, and
// keeps its length and the number of its holes; the opening stands at the last row alone, by its size.
TEST(SummaryTable, RowsWithHolesButNoFlow) {
  SmallLine line;
  for (const float station : {0.0F, 10.0F, 20.0F, 30.0F, 40.0F, 50.0F, 60.0F}) {
    line.AddHole(station, kQuarterInch, station == 20 || station == 40 || station == 50 ? 95 : 0);
  }
  for (const std::string_view station : {"0", "30", "60"}) line.AddSurvey(station, "1/4");
  line.ShowTable("Summary");
  line.record.FurrowFlow[6] = 95;  // the row of the size's place
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(1), "0||  Supply|Line|2.50||1100|60.00|1|10|15|");
  EXPECT_EQ(line.Row(2), "30||4|.00|2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(3), "40|1/4|5|95.00|2.50|.95|1100|60.00|1|10|15|6.00");  // behind the surveyed station
  EXPECT_EQ(line.Row(4), "60|1/4|7||2.50||1100|60.00|1|10|15|6.00");
  // What has left the pipe: nothing; 95 at station 20; 95 at 40; 95 at 50.
  EXPECT_EQ(line.record.DisplayHoleNumber[1], 0);
  EXPECT_EQ(line.record.DisplayHoleNumber[2], 95);
  EXPECT_EQ(line.record.DisplayHoleNumber[3], 190);
  EXPECT_EQ(line.record.DisplayHoleNumber[4], 285);
}

// A supply line in the middle takes the words whatever its length; the far end has a length and a hole count where the
// survey gives them, though nothing flows. (The station of the far end is that of the survey row behind the last that
// was passed: 9 is, by the row at 10.)
TEST(SummaryTable, SupplyRowsWithALength) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 95);
  line.record.FurrowLength[line.AddDry(10)] = 1100;
  const int end = line.AddDry(20);
  line.record.FurrowLength[end] = 900;
  line.record.HolesPerFurrow[end] = 2;
  for (const std::string_view station : {"0", "9", "20"}) line.AddSurvey(station, "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  EXPECT_EQ(line.Row(2), "10|  Supply|Line||2.50|||60.00||10|15|");
  EXPECT_EQ(line.Row(3), "20||||2.50||900|60.00|2|10|15|.00");
}

TEST(SummaryTable, ShowsADryFarEndByItsSurveyStation) {
  SmallLine line;
  for (const float station : {0.0F, 10.0F, 20.0F, 30.0F, 40.0F, 50.0F}) line.AddHole(station, kQuarterInch, 95);
  line.AddDry(60);
  line.AddSurvey("0", "1/4");
  line.AddSurvey("59.6", "1/4");
  line.ShowTable("Summary");
  SummaryTable(line.program);
  // Row 6 comes by the change of size behind it. Column 2 is written by the survey's size and emptied for want of a
  // hole.
  EXPECT_EQ(line.Row(2), "50|1/4|6|95.00|2.50|.95|1100|60.00|1|10|15|6.00");
  EXPECT_EQ(line.Row(3), "60||||2.50|||60.00||10|15|.00");
}

// Compared as texts: an empty cell and "0" are not greater than "0"; "Line" is.
TEST(SummaryTable, NumbersTheFarEndByTheTextOfItsSurveyHole) {
  struct Case {
    std::string_view cell, number;
  };
  for (const Case& c : {Case{"", ""}, Case{"0", ""}, Case{"/", ""}, Case{"0.", "9"}, Case{"Line", "9"}}) {
    SmallLine line;
    AddTwoSizes(line);
    line.main.Grid1.Set(2, 5, c.cell);
    SummaryTable(line.program);
    EXPECT_EQ(line.main.Grid2.Text(4, kResultHoleNumber), c.number) << c.cell;
  }
}

// Without a crown above 0 in the survey's first row the first outlet has no number.
TEST(SummaryTable, NumbersTheFirstOutletByTheFirstCrown) {
  SmallLine line;
  AddTwoSizes(line);
  line.main.Grid1.Set(1, 1, "0");
  SummaryTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultHoleNumber), "");
}

// No area gives an opening of 0: "." in the first row's "#.###", ".000" in "#.##0" below it.
TEST(SummaryTable, ShowsTheFirstCircularGateInAPatternOfItsOwn) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.PipeKind = "R";
  line.main.txtDefault[11].Set("C");
  SummaryTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), ".");
  EXPECT_EQ(line.main.Grid2.Text(2, kResultOpening), ".000");
  EXPECT_EQ(line.main.Grid2.Text(4, kResultOpening), ".000");
}

// 0.0125 square feet are 1.8 square inches: 1.5 inches of a gate 1.2 inches wide.
TEST(SummaryTable, ShowsRectangularGatesByTheirHeight) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.PipeKind = "R";
  for (int i = 1; i <= 9; ++i) line.record.HoleArea[i] = 0.0125F;
  SummaryTable(line.program);
  for (int row = 1; row <= 4; ++row) EXPECT_EQ(line.main.Grid2.Text(row, kResultOpening), "1.5");
}

TEST(SummaryTable, EndsWithoutColour) {
  SmallLine line;
  AddTwoSizes(line);
  for (int row = 1; row <= 9; ++row) line.main.Grid2.SetBack(row, kResultFlowRatio, kRed);
  SummaryTable(line.program);
  for (int row = 1; row <= 9; ++row) {
    EXPECT_EQ(line.main.Grid2.Back(row, kResultFlowRatio), kWhite);
    EXPECT_EQ(line.main.Grid2.Fore(row, kResultFlowRatio), kBlack);
  }
}

TEST(SummaryTable, EndsOnTheResultsScreen) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.TargetGPM = 855;
  line.main.busy = true;
  line.main.mnuSurveyCopy.visible = true;
  line.main.Grid2.top_row = 7;
  line.main.Grid2.Set(5283, 0, "old");
  SummaryTable(line.program);
  EXPECT_EQ(line.main.Grid2.top_row, 1);
  EXPECT_EQ(line.main.Grid2.Text(5283, 0), "");
  EXPECT_EQ(line.main.Grid2.row, 2);
  EXPECT_EQ(line.main.Grid2.column, 11);
  EXPECT_EQ(line.main.Grid2.AlignOf(2, 11), Align::kCentreCentre);
  EXPECT_TRUE(line.main.Grid2.control.visible);
  EXPECT_TRUE(line.main.Grid1.control.visible);  // the Complete Design table alone hides the survey
  EXPECT_FALSE(line.main.mnuSurveyCopy.visible);
  EXPECT_FALSE(line.main.busy);
  EXPECT_EQ(line.main.lblAvgFurrowFlow.caption, "Average Furrow Flow = 95.");  // 855 / 9
}

TEST(SummaryTable, OnlyShowsTheGridUnderAnotherName) {
  SmallLine line;
  AddTwoSizes(line);
  line.ShowTable("summary");
  line.main.Grid2.Set(1, 0, "old");
  SummaryTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, 0), "old");
  EXPECT_TRUE(line.main.Grid2.control.visible);
  EXPECT_EQ(line.record.ProfileScale, 1);
}

// "4o" reads as 4 where the station is looked for, and as no number where the pointer is to move on. The last row and
// all that follows it are left out: the grid stays hidden, and the first row keeps the colour of its ratio.
TEST(SummaryTable, EndsAtASurveyStationThatIsNoNumber) {
  struct Case {
    float flow;
    Colour colour;
  };
  for (const Case& c : {Case{89.4F, kRed}, Case{89.5F, kYellow}, Case{110, kYellow}, Case{111, kRed}}) {
    SmallLine line;
    AddTwoSizes(line);
    line.record.FurrowFlow[1] = c.flow;
    line.main.Grid1.Set(2, 0, "4o");
    line.record.ProfileScale = 3;
    EXPECT_THROW(SummaryTable(line.program), RunTimeFault);
    EXPECT_EQ(line.main.Grid2.Back(1, kResultFlowRatio), c.colour) << c.flow;
    EXPECT_EQ(line.main.Grid2.Text(2, 0), "5");
    EXPECT_EQ(line.main.Grid2.Text(3, 0), "");
    EXPECT_FALSE(line.main.Grid2.control.visible);
    EXPECT_EQ(line.record.ProfileScale, 3);
  }
}

TEST(SummaryTable, ShowsNoOpeningOfAGateWithoutAWidth) {
  SmallLine line;
  AddTwoSizes(line);
  line.record.PipeKind = "R";
  line.main.txtDefault[12].Set("");
  SummaryTable(line.program);
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), "");
}

}  // namespace
}  // namespace torvale
