#include "reports/hole_summary_report.h"

#include <gtest/gtest.h>

#include "display/hole_summary.h"
#include "display/small_line.h"
#include "reports/operations.h"

namespace torvale {
namespace {

struct HoleSummaryReportTest : ::testing::Test, SmallLine {
  void AddHoles(int count) {
    for (int i = 0; i < count; ++i) AddHole(static_cast<float>(10 * i), kQuarterInch, 5);
  }
};

// One size and one spacing: a line at 2.5; the spacing's title at 2.5 + 0.2 + 0.2, its headings at 3.1, its lines
// at 3.3 and 3.5; the applied water 0.6 below 3.7.
TEST_F(HoleSummaryReportTest, TheHoleSummaryHasALineForEachRun) {
  AddHoles(3);
  for (int i = 1; i <= 3; ++i) record.HoleSpacing[i] = 10;
  record.Uniformity = 93.5F;
  record.MinHeadStation = 20;
  const Document document = HoleSummaryReport(program);
  EXPECT_EQ(TextAt(document, 0.5, 1.6), "Distribution Uniformity: 93.5");
  EXPECT_EQ(TextAt(document, 3, 2), "Hole Summary");
  EXPECT_EQ(TextAt(document, 0.5, 2.5), "0 - 20");
  EXPECT_EQ(TextAt(document, 2.5, 2.5), "1100 - 1100");
  EXPECT_EQ(TextAt(document, 5, 2.5), "3");
  EXPECT_EQ(TextAt(document, 6.5, 2.5), "1 Ea. -  1/4");
  EXPECT_EQ(TextAt(document, 3, 2.9), "Hole Spacing Summary");
  EXPECT_EQ(TextAt(document, 3, 3.1), "Hole Spacing");
  EXPECT_EQ(TextAt(document, 0.5, 3.3), "0 - 20");
  EXPECT_EQ(TextAt(document, 1.7, 3.3), "Distance between punched holes  10 ft. ");
  EXPECT_EQ(TextAt(document, 1.7, 3.5), "Planted width between holes 6 ft.");
  EXPECT_EQ(TextAt(document, 0.55, 4.3), "Gross Inches");
  EXPECT_EQ(TextAt(document, 4, 4.64 + 6 * 0.17), "Minimum Head Station = 20");
  EXPECT_EQ(PagesOf(document).size(), 1U);
}

// A rectangular gate of 1.2 inches width: a hole of 0.01 square feet is 1.44 square inches, 1.2 inches high.
TEST_F(HoleSummaryReportTest, TheHoleSummaryOfGatedPipeTellsTheOpening) {
  AddHoles(1);
  record.PipeKind = "R";
  record.HoleArea[1] = 0.01F;
  EXPECT_EQ(TextAt(HoleSummaryReport(program), 6.5, 2.5), "1 Ea. -  1.2");
  record.DesignType = kComputerHoles;
  record.ComputerHoleDia[1] = kQuarterInch;
  EXPECT_EQ(TextAt(HoleSummaryReport(program), 6.5, 2.5), "1 Ea. - 1.2");
}

// Two runs of size, 0 to 10 and 20 to 40, and one of spacing. Lengths at a run's ends are those of its first and last
// row. The texts are those of the spacing afterwards, the counts those of size; the next display has the sizes again.
TEST_F(HoleSummaryReportTest, LeavesTheRunsInTheRecord) {
  const float sizes[] = {kQuarterInch, kQuarterInch, kEighthInch, kEighthInch, kEighthInch};
  for (int i = 1; i <= 5; ++i) {
    AddHole(static_cast<float>(10 * (i - 1)), sizes[i - 1], 5);
    record.FurrowLength[i] = static_cast<std::int16_t>(1000 + i);
    record.HoleSpacing[i] = 10;
  }
  record.HoleSumFromLength[4] = 7;  // of an earlier design
  const Document document = HoleSummaryReport(program);
  EXPECT_EQ(TextAt(document, 2.5, 2.5), "1001 - 1002");
  EXPECT_EQ(TextAt(document, 2.5, 2.7), "1003 - 1005");
  EXPECT_EQ(record.HoleSumFromLength[2], 1001);
  EXPECT_EQ(record.HoleSumToLength[2], 1002);
  EXPECT_EQ(record.HoleSumFromLength[4], 0);
  EXPECT_EQ(record.HoleSumFromLength[5], 1003);
  EXPECT_EQ(record.HoleSumToLength[5], 1005);
  EXPECT_EQ(record.HoleSumCount[2], 2);
  EXPECT_EQ(record.HoleSumCount[5], 3);
  EXPECT_EQ(record.HoleSumFurrowText[2], "");
  EXPECT_EQ(record.HoleSumFurrowText[5], "0 - 40");
  DisplayHoleSum(program);
  EXPECT_EQ(record.HoleSumFurrowText[2], "0 - 10");
}

// A row without flow within a run is no hole: three holes, and the start is worked out from their count, row 4 + 1 - 3.
TEST_F(HoleSummaryReportTest, ADryRowShiftsTheStartOfItsRun) {
  AddHoles(4);
  record.FurrowFlow[2] = 0;
  record.FurrowLength[2] = 900;
  const Document document = HoleSummaryReport(program);
  EXPECT_EQ(TextAt(document, 0.5, 2.5), "10 - 30");
  EXPECT_EQ(TextAt(document, 2.5, 2.5), "900 - 1100");
  EXPECT_EQ(TextAt(document, 5, 2.5), "3");
}

// Spacings 10, 20, 10: three runs, the first and the last with the same words.
TEST_F(HoleSummaryReportTest, EachRunOfSpacingHasItsOwnPairOfLines) {
  AddHoles(3);
  for (int i = 1; i <= 3; ++i) record.HoleSpacing[i] = i == 2 ? 20 : 10;
  const Document document = HoleSummaryReport(program);
  for (const double y : {3.3, 4.1}) {
    EXPECT_EQ(TextAt(document, 1.7, y), "Distance between punched holes  10 ft. ");
    EXPECT_EQ(TextAt(document, 1.7, y + 0.2), "Planted width between holes 6 ft.");
  }
  EXPECT_EQ(TextAt(document, 0.5, 3.3), "0 - 0");
  EXPECT_EQ(TextAt(document, 1.7, 3.7), "Distance between punched holes  20 ft. ");
  EXPECT_EQ(TextAt(document, 0.5, 4.1), "20 - 20");
}

// Sixty runs of size are sixty lines of 0.2 inch from 2.5 on: the last ends past the foot of the sheet.
TEST_F(HoleSummaryReportTest, ALongListRunsOffItsOnePage) {
  for (int i = 0; i < 60; ++i) AddHole(static_cast<float>(10 * i), i % 2 == 0 ? kQuarterInch : kEighthInch, 5);
  const Document document = HoleSummaryReport(program);
  EXPECT_EQ(PagesOf(document).size(), 1U);
  EXPECT_EQ(TextAt(document, 0.5, 2.5 + 59 * 0.2), "590 - 590");
}

}  // namespace
}  // namespace torvale
