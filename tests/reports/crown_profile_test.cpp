#include "reports/crown_profile.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "display/design_display.h"
#include "display/small_line.h"

namespace torvale {
namespace {

struct CrownProfileTest : ::testing::Test, SmallLine {
  LineChart& chart() { return program.profile.chart; }

  // A line with a 1/4 inch hole each 10 feet, at 0, 10, 20 ... The crown is given for each.
  void AddLine(std::initializer_list<float> crown) {
    for (const float feet : crown) {
      const int i = AddHole(static_cast<float>(10 * record.HoleRows), kQuarterInch, 100);
      record.CrownElev[i] = feet;
    }
  }

  // Rows of the chart that hold something, cells joined by "|".
  std::vector<std::string> Points() {
    std::vector<std::string> rows;
    for (int row = 0; row < chart().rows; ++row) {
      std::string joined;
      for (int c = 0; c <= chart().series; ++c) joined += (c > 0 ? "|" : "") + chart().Points.Text(row, c);
      rows.push_back(joined);
    }
    return rows;
  }
};

using Rows = std::vector<std::string>;

// The survey has stations 0 and 30. At 10 and 20 the next survey station, 30, lies ahead, and nothing else changes: the
// hole is the same before and after. At 30 the station is reached.
TEST_F(CrownProfileTest, APlannedDesignHasOneSeriesOfTheRowsWhereSomethingChanges) {
  AddLine({10.5F, 10.3F, 10.1F, 9.25F});
  AddSurvey("0", "1/4");
  AddSurvey("30", "1/4");
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.50", "30 |9.25"}));
  EXPECT_EQ(chart().series, 1);
  EXPECT_EQ(chart().rows, 3);  // the next free row
  EXPECT_FALSE(program.profile.lblFillHeight.visible);
  // Int(10.5 + 0.9) + 1 = 12; Int(9.25 + 0.9) - 1 = 9.
  EXPECT_EQ(chart().maximum, 12.0F);
  EXPECT_EQ(chart().minimum, 9.0F);
}

TEST_F(CrownProfileTest, TheChartIsScaledAndTitled) {
  AddLine({10, 10});
  BuildCrownChart(program);
  EXPECT_EQ(chart().title, "PROFILE of CROWN ELEVATIONS");
  EXPECT_EQ(chart().value_title, "Elevations (ft.)");
  EXPECT_EQ(chart().value_title_size, 14);
  EXPECT_TRUE(chart().value_title_visible);
  EXPECT_TRUE(chart().legend_visible);
  EXPECT_FALSE(chart().automatic_scale);
  EXPECT_EQ(chart().major_divisions, 12);
  EXPECT_EQ(chart().minor_divisions, 6);
}

// Readings of 4.25 to 5.5: -5.5 is the lowest ground. Int(-4.25 + 0.9) + 1 = Int(-3.35) + 1 = -3;
// Int(-5.5 - 0.9) + 1 = Int(-6.4) + 1 = -6.
TEST_F(CrownProfileTest, RodReadingsRunThroughNegativeNumbers) {
  main.txtInfo[5].Set("R");
  AddLine({4.25F, 5, 5.5F});
  AddSurvey("0", "1/4");
  AddSurvey("20", "1/4");
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|-4.25", "20 |-5.50"}));
  EXPECT_EQ(chart().value_title, "Rod Readings (ft.)");
  EXPECT_EQ(chart().maximum, -3.0F);
  EXPECT_EQ(chart().minimum, -6.0F);
}

TEST_F(CrownProfileTest, AnyLetterButACapitalECountsAsRods) {
  for (const char* letter : {"e", "", "R"}) {
    main.txtInfo[5].Set(letter);
    record.HoleRows = 0;
    AddLine({4});
    BuildCrownChart(program);
    EXPECT_EQ(Points().at(1), "0|-4.00") << letter;
  }
}

// High starts at 0: a crown below sea level keeps the top at Int(0.9) + 1 = 1. Int(-3.5 + 0.9) - 1 = -4.
TEST_F(CrownProfileTest, ElevationsBelowZeroKeepZeroInSight) {
  AddLine({-3.5F, -2});
  BuildCrownChart(program);
  EXPECT_EQ(chart().maximum, 1.0F);
  EXPECT_EQ(chart().minimum, -4.0F);
}

TEST_F(CrownProfileTest, TheLowerLimitIsRoundedUpBeforeAFootIsTakenOff) {
  AddLine({9.125F, 9});
  BuildCrownChart(program);
  EXPECT_EQ(chart().maximum, 11.0F);  // Int(10.025) + 1
  EXPECT_EQ(chart().minimum, 8.0F);   // Int(9.9) - 1
}

// The designed crown reaches 12, above the existing one.
TEST_F(CrownProfileTest, SlopeDesignsShowTheDesignedCrownBeside) {
  for (const std::int16_t type : {kConstantSlope, kDualSlope}) {
    record.HoleRows = 0;
    record.SurveyRows = 0;
    record.DesignType = type;
    record.HighestFill = 1.256F;
    AddLine({10, 11, 9});
    record.DesignElev[1] = 12;
    record.DesignElev[2] = 11.5F;
    record.DesignElev[3] = 11;
    AddSurvey("0", "1/4");
    AddSurvey("20", "1/4");
    BuildCrownChart(program);
    EXPECT_EQ(Points(), (Rows{"|Existing Crown|Designed Crown", "0|10.00|12.00", "20 |9.00|11.00"}));
    EXPECT_EQ(chart().maximum, 13.0F);  // Int(12.9) + 1
    EXPECT_EQ(chart().minimum, 8.0F);   // Int(9.9) - 1
    EXPECT_TRUE(program.profile.lblFillHeight.visible);
    EXPECT_EQ(program.profile.lblFillHeight.caption, "Highest Fill in Crown is 1.26");
  }
}

TEST_F(CrownProfileTest, ADesignedCrownByRodsIsNegatedToo) {
  main.txtInfo[5].Set("R");
  record.DesignType = kConstantSlope;
  AddLine({5, 6});
  record.DesignElev[1] = 3.5F;
  record.DesignElev[2] = 4;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown|Designed Crown", "0|-5.00|-3.50", "10 |-6.00|-4.00"}));
  EXPECT_EQ(chart().maximum, -2.0F);  // Int(-3.5 + 0.9) + 1 = -3 + 1
  EXPECT_EQ(chart().minimum, -6.0F);  // Int(-6 - 0.9) + 1 = -7 + 1
}

// After the change of size at 20, the rows on both sides of it are points: 10 differs from the row behind it, 20 from
// the row ahead. 30 is like both its neighbours.
TEST_F(CrownProfileTest, AChangeOfHoleSizeMarksTheRowsOnBothSides) {
  AddLine({10, 10, 10, 10, 10});
  for (int i = 3; i <= 5; ++i) record.SurveyHoleDia[i] = kEighthInch;
  AddSurvey("0", "1/4");
  AddSurvey("40", "1/8");
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "10 |10.00", "20 |10.00", "40 |10.00"}));
}

// The survey's sizes all agree; the computer's change at 20. Only the row that differs from the one ahead is a point:
// no rule looks at the chosen size of the row behind.
TEST_F(CrownProfileTest, SizesThatTheComputerChoseMarkTheirFirstRow) {
  AddLine({10, 10, 10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("40", "1/4");
  for (int i = 1; i <= 5; ++i) record.ComputerHoleDia[i] = i < 3 ? 0.5F : 0.75F;
  for (int i = 1; i <= 5; ++i) record.LimitedHoleDia[i] = i < 4 ? 0.5F : 0.75F;
  record.DesignType = kComputerHoles;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "20 |10.00", "40 |10.00"}));
  record.DesignType = kLimitedHoles;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "30 |10.00", "40 |10.00"}));
  record.DesignType = kPlanned;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "40 |10.00"}));
}

// In a computer selection the survey's size is compared with the row behind alone: the change at 20 marks 10, not 20.
TEST_F(CrownProfileTest, AComputerSelectionComparesTheSurveySizeBehindAlone) {
  AddLine({10, 10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("30", "1/4");
  record.DesignType = kComputerHoles;
  record.SurveyHoleDia[3] = record.SurveyHoleDia[4] = kEighthInch;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "10 |10.00", "30 |10.00"}));
}

TEST_F(CrownProfileTest, AChangeOfPipeIsAPoint) {
  AddLine({10, 10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("30", "1/4");
  record.PipeDia[3] = record.PipeDia[4] = 12;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "20 |10.00", "30 |10.00"}));
}

// The survey station 25 is no row of the line. The first row past it, 30, stands for it.
TEST_F(CrownProfileTest, ASurveyStationBetweenHolesMarksTheNextHole) {
  AddLine({10, 10, 10, 10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("25", "1/4");
  AddSurvey("50", "1/4");
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "30 |10.00", "50 |10.00"}));
}

// The survey station of the last row lies ahead, at 100; the size 0 behind the far end makes it a point. What a longer
// design left behind the far end counts for nothing.
TEST_F(CrownProfileTest, TheFarEndCountsAsAChange) {
  AddLine({10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("100", "1/4");
  record.SurveyHoleDia[4] = kQuarterInch;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "20 |10.00"}));
}

TEST_F(CrownProfileTest, AFarEndWithoutAHoleIsNoChange) {
  AddLine({10, 10});
  record.SurveyHoleDia[2] = 0;
  AddDry(20);
  AddSurvey("0", "1/4");
  AddSurvey("100", "");
  BuildCrownChart(program);
  // 10 differs from the hole behind it; 20 is as dry as 10 and as what lies behind the far end.
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "10 |10.00"}));
}

// The Summary is told to end at row 1, so the list begins with rows 0 and 1 and grows.
TEST_F(CrownProfileTest, ThePointsGrowPastTheSummary) {
  AddLine({10, 11, 12});
  for (int i = 1; i <= 3; ++i) record.SurveyHoleDia[i] = static_cast<float>(i);
  record.ProfileScale = 1;
  BuildCrownChart(program);
  EXPECT_EQ(chart().Points.rows(), 4);
  EXPECT_EQ(Points().back(), "20 |12.00");
}

// 4.5 goes to the even 4: rows 0 to 4, of which the last two stay empty.
TEST_F(CrownProfileTest, TheListHasAsManyRowsAsTheSummary) {
  AddLine({10, 11});
  record.ProfileScale = 4.5F;
  BuildCrownChart(program);
  EXPECT_EQ(chart().Points.rows(), 5);
  EXPECT_EQ(chart().rows, 3);
  EXPECT_EQ(chart().Points.Text(3, 0), "");
}

TEST_F(CrownProfileTest, ASecondChartHoldsNothingOfTheFirst) {
  record.DesignType = kDualSlope;
  AddLine({10, 11, 12, 13});
  BuildCrownChart(program);
  record.DesignType = kPlanned;
  record.HoleRows = 2;
  record.ProfileScale = 4;
  BuildCrownChart(program);
  EXPECT_EQ(Points(), (Rows{"|Existing Crown", "0|10.00", "10 |11.00"}));
  EXPECT_EQ(chart().Points.Text(3, 0), "");
  EXPECT_EQ(chart().Points.columns(), 2);
}

TEST_F(CrownProfileTest, TheLabelsTellHeadAndUniformity) {
  AddLine({10, 10});
  record.MaxHead = 2.5F;
  record.Uniformity = 93.2F;
  BuildCrownChart(program);
  EXPECT_EQ(program.profile.lblProfileHiHead.caption, "Highest Head = 2.5");
  EXPECT_EQ(program.profile.lblDistUnif.caption, " Distribution Uniformity = 93.2 Percent ");
}

TEST_F(CrownProfileTest, OpensOverTheSummaryAndGivesTheToggleItsCaptionBack) {
  AddLine({10, 10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("30", "1/4");
  main.txtInfo[0].Set("North");
  main.txtInfo[4].Set("Creek");
  ShowTable("Complete Design");
  DisplayDesign(program);
  ASSERT_EQ(main.Grid2.Text(3, 0), "20");  // every hole
  mnuProfile_Click(program);
  EXPECT_TRUE(program.profile.CrownProfile.visible);
  EXPECT_EQ(program.profile.lblProfileName.caption, "North   Creek");
  EXPECT_EQ(record.ProfileTitle, "Complete Design");
  EXPECT_EQ(main.cmdDesignToggle.caption, "Summary");
  EXPECT_EQ(record.ProfileScale, 2.0F);  // stations 0 and 30
  btnBack_Click(program);
  EXPECT_FALSE(program.profile.CrownProfile.visible);
  EXPECT_EQ(main.cmdDesignToggle.caption, "Complete Design");
  EXPECT_EQ(main.Grid2.Text(2, 0), "30") << "the Summary stays beneath";
}

TEST_F(CrownProfileTest, FromTheSummaryTheToggleStaysAsItWas) {
  AddLine({10, 10});
  ShowTable("Summary");
  mnuProfile_Click(program);
  EXPECT_EQ(record.ProfileTitle, "Summary");
  btnBack_Click(program);
  EXPECT_EQ(main.cmdDesignToggle.caption, "Summary");
}

// A survey station that is no number stops the Summary, and with it the profile. What is left is the sheet, to see what
// is wrong with it.
TEST_F(CrownProfileTest, AFaultOnTheWayIsToldAndClosesItAgain) {
  AddLine({10, 10, 10});
  AddSurvey("0", "1/4");
  AddSurvey("x", "1/4");
  ShowTable("Complete Design");
  mnuProfile_Click(program);
  EXPECT_EQ(host.messages, 1);
  EXPECT_FALSE(program.profile.CrownProfile.visible);
  EXPECT_EQ(main.cmdDesignToggle.caption, "Complete Design");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
}

TEST_F(CrownProfileTest, TheSlopeStandsOnTheProfileOfSlopeDesignsAlone) {
  AddLine({10, 10});
  record.DesignType = kConstantSlope;
  record.CrownSlope = 0.00125F;
  mnuProfile_Click(program);
  EXPECT_TRUE(program.profile.lblSlope.visible);
  // The summary of holes is made ahead of the slope's own label: the caption is the one of the display before.
  DisplayDesign(program);
  EXPECT_EQ(program.profile.lblSlope.caption, "Crown Slope = .125 feet per 100 feet");
  record.DesignType = kPlanned;
  DisplayDesign(program);
  EXPECT_FALSE(program.profile.lblSlope.visible);
}

}  // namespace
}  // namespace torvale
