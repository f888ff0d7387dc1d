#include "display/hole_summary.h"

#include <gtest/gtest.h>

#include "display/small_line.h"

namespace torvale {
namespace {

constexpr std::string_view kRectangular = "Fraction Hole Equivalent using a Rectangular Hole = ";

void AddHoles(SmallLine& line, int count, float size) {
  for (int k = 0; k < count; ++k) line.AddHole(static_cast<float>(6 * line.record.HoleRows), size, 95);
}

TEST(DisplayHoleSum, GathersRunsOfEqualSize) {
  SmallLine line;
  AddHoles(line, 3, kQuarterInch);  // stations 0 to 12
  AddHoles(line, 2, kEighthInch);   // 18 and 24
  AddHoles(line, 1, kQuarterInch);  // 30
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n1/4\r1/8\r1/4\r");
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n0 - 12\r18 - 24\r30 - 30\r");
  EXPECT_EQ(line.record.HoleSumCounts, " Number of Holes \n3\r2\r1\r");
  EXPECT_EQ(line.record.HoleSumSeparator, kRectangular);
  EXPECT_EQ(line.record.HoleSumFurrowText[3], "0 - 12");
  EXPECT_EQ(line.record.HoleSumCount[3], 3);
  EXPECT_EQ(line.record.HoleSumFurrowText[4], "");
}

// The row behind the far end counts as empty, whatever a longer design left there.
TEST(DisplayHoleSum, AlwaysClosesTheLastRun) {
  SmallLine line;
  AddHoles(line, 2, kQuarterInch);
  line.record.SurveyHoleDia[3] = kQuarterInch;
  line.record.HoleSumFurrowText[3] = "old";
  line.record.HoleSumCount[3] = 9;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n0 - 6\r");
  EXPECT_EQ(line.record.HoleSumFurrowText[3], "");
  EXPECT_EQ(line.record.HoleSumCount[3], 0);
}

// A dry row at the end that carries the size keeps the run open, and so nothing is listed.
TEST(DisplayHoleSum, LosesARunThatADryRowOfTheSameSizeFollows) {
  SmallLine line;
  AddHoles(line, 2, kQuarterInch);
  line.record.SurveyHoleDia[line.AddDry(12)] = kQuarterInch;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumCounts, " Number of Holes \n");
}

// Rows at 0, 6, 12 and 18, the one at 6 dry: three holes, and the start of the range is row 4 + 1 - 3 = 2.
TEST(DisplayHoleSum, ShiftsTheStartOfARunWithADryRow) {
  SmallLine line;
  AddHoles(line, 4, kQuarterInch);
  line.record.FurrowFlow[2] = 0;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n6 - 18\r");
  EXPECT_EQ(line.record.HoleSumCounts, " Number of Holes \n3\r");
}

TEST(DisplayHoleSum, WritesTheTableNamesAsTheyStand) {
  SmallLine line;
  AddHoles(line, 1, 2.125F);
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n2-/8\r");
}

// An entry without a name keeps its line, so that the three columns stay in step.
TEST(DisplayHoleSum, KeepsTheLineOfASizeThatIsNotListed) {
  SmallLine line;
  AddHoles(line, 1, 0.3F);
  AddHoles(line, 1, kQuarterInch);
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n\r1/4\r");
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n0 - 0\r6 - 6\r");
}

TEST(DisplayHoleSum, NamesTheComputersChoice) {
  SmallLine line;
  line.record.DesignType = kComputerHoles;
  AddHoles(line, 3, kQuarterInch);
  for (int i = 1; i <= 3; ++i) line.record.ComputerHoleDia[i] = i < 3 ? 0.5F : kEighthInch;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n1/2\r1/8\r");
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n0 - 6\r12 - 12\r");
}

// The allowed sizes count up to the first empty name. 1/8 stands behind it, so it is not found although the hole size
// table has it; the names are the list's own.
TEST(DisplayHoleSum, NamesALimitedSelectionFromTheAllowedSizes) {
  SmallLine line;
  line.record.DesignType = kLimitedHoles;
  line.record.SelectedHoleName[0] = "half";
  line.record.SelectedHoleValue[0] = 0.5F;
  line.record.SelectedHoleName[1] = "3/4";
  line.record.SelectedHoleValue[1] = 0.75F;
  line.main.listHolesSelected.Add("half");
  line.main.listHolesSelected.Add("3/4");
  // Left from an earlier, longer list: the list has two lines, so this entry names nothing.
  line.record.SelectedHoleName[2] = "1/8";
  line.record.SelectedHoleValue[2] = kEighthInch;
  AddHoles(line, 3, kQuarterInch);
  line.record.LimitedHoleDia[1] = 0.75F;
  line.record.LimitedHoleDia[2] = 0.5F;
  line.record.LimitedHoleDia[3] = kEighthInch;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n3/4\rhalf\r\r");
}

// 0.0125 square feet are 1.8 square inches: 1.5 inches of a gate 1.2 inches wide. The names stand behind the words.
TEST(DisplayHoleSum, GivesTheOpeningsOfRigidPipeAndTheirEquivalents) {
  SmallLine line;
  line.record.PipeKind = "R";
  line.main.mnuRigidPipe.ticked = true;
  AddHoles(line, 1, kQuarterInch);
  AddHoles(line, 1, kEighthInch);
  line.record.HoleArea[1] = line.record.HoleArea[2] = 0.0125F;
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n1.5\r1.5\r");
  EXPECT_EQ(line.record.HoleSumSeparator, std::string(kRectangular) + "1/4\" 1/8\" ");
  EXPECT_EQ(line.main.lblSumHoleDia.tool_tip, line.record.HoleSumSeparator);
}

// The words ask for "C", the opening for "R": any other letter has a circular gate under a rectangular name. A gate
// with no area does not open, and 0 in "#.###" is the point alone.
TEST(DisplayHoleSum, TakesAnyLetterButRForACircularGate) {
  SmallLine line;
  line.record.PipeKind = "R";
  AddHoles(line, 1, kQuarterInch);
  line.main.txtDefault[11].Set("C");
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n.\r");
  EXPECT_EQ(line.record.HoleSumSeparator, "Fraction Hole Equivalent using a Round Hole = 1/4\" ");

  line.main.txtDefault[11].Set("r");
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n.\r");
  EXPECT_EQ(line.record.HoleSumSeparator, std::string(kRectangular) + "1/4\" ");
}

TEST(DisplayHoleSum, TipsTheEquivalentsForRigidPipeAlone) {
  SmallLine line;
  line.main.lblSumHoleDia.tool_tip = "old";
  AddHoles(line, 1, kQuarterInch);
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.main.lblSumHoleDia.tool_tip, "");
}

// A gate of no width is a division by zero: the texts stay as far as they came, the tip is not reached.
TEST(DisplayHoleSum, AbsorbsAFault) {
  SmallLine line;
  line.record.PipeKind = "R";
  line.main.txtDefault[12].Set("0");
  line.main.lblSumHoleDia.tool_tip = "old";
  AddHoles(line, 2, kQuarterInch);
  EXPECT_NO_THROW(DisplayHoleSum(line.program));
  EXPECT_EQ(line.record.HoleSumLengths, " Stations \n0 - 6\r");
  EXPECT_EQ(line.record.HoleSumCounts, " Number of Holes \n2\r");
  EXPECT_EQ(line.record.HoleSumStations, " Hole Diameter \n");
  EXPECT_EQ(line.main.lblSumHoleDia.tool_tip, "old");
  EXPECT_EQ(line.host.messages, 0);
}

}  // namespace
}  // namespace torvale
