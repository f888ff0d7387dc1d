#include "input/hole_step.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

// Rows of the hole size table used here: 1 is 1/32, 10 is 1/2, 11 is 9/16, 12 is 5/8, 13 is 11/16, 49 is 2-15/16,
// 50 is 3.
struct HoleStepTest : ::testing::Test, InputProgram {
  double Index() { return Number(program.record.HoleSizeIndexLimit); }
};

TEST_F(HoleStepTest, PlusAndMinusStepTheRowsOwnSize) {
  sheet().Set(3, 5, "5/8");
  At(3, 5);
  Key("+");
  EXPECT_EQ(Text(3, 5), "11/16");
  EXPECT_EQ(Index(), 13);
  Keys("--");
  EXPECT_EQ(Text(3, 5), "9/16");
  EXPECT_EQ(Index(), 11);
}

TEST_F(HoleStepTest, TheStepWorksFromAnyColumn) {
  sheet().Set(3, 5, "5/8");
  sheet().Set(3, 2, "1320");
  At(3, 2);
  Key("+");
  EXPECT_EQ(Text(3, 5), "11/16");
  EXPECT_EQ(Text(3, 2), "1320");
  EXPECT_EQ(Cursor(), "3,2");
}

TEST_F(HoleStepTest, EveryKeyPutsTheIndexOnTheRowsOwnSize) {
  sheet().Set(3, 5, "5/8");
  program.record.HoleSizeIndexLimit = 40;
  At(3, 2);
  Key("1");
  EXPECT_EQ(Index(), 12);
  At(4, 2);  // no size in this row: the index stays
  Key("1");
  EXPECT_EQ(Index(), 12);
}

TEST_F(HoleStepTest, PlusWrapsPastTheLastSizeToNothingAndThenToTheFirst) {
  sheet().Set(1, 5, "3");
  At(1, 5);
  Key("+");
  EXPECT_EQ(Text(1, 5), "");
  Key("+");
  EXPECT_EQ(Text(1, 5), "1/32");
}

TEST_F(HoleStepTest, MinusWrapsPastTheFirstSizeToNothingAndThenToTheLast) {
  sheet().Set(1, 5, "1/32");
  At(1, 5);
  Key("-");
  EXPECT_EQ(Text(1, 5), "");
  Key("-");
  EXPECT_EQ(Text(1, 5), "3");
}

TEST_F(HoleStepTest, AnEmptySheetStepsFromNothingWhateverTheIndexWas) {
  for (const int left_over : {0, 12, 50}) {
    At(1, 5);
    sheet().Set(1, 5, "");
    program.record.HoleSizeIndexLimit = left_over;
    Key("+");
    EXPECT_EQ(Text(1, 5), "1/32") << left_over;
    sheet().Set(1, 5, "");
    program.record.HoleSizeIndexLimit = left_over;
    Key("-");
    EXPECT_EQ(Text(1, 5), "3") << left_over;
  }
}

TEST_F(HoleStepTest, AnIndexNeverSetCountsAsNothing) {
  program.record.HoleSizeIndexLimit.reset();
  At(1, 5);
  Key("-");
  EXPECT_EQ(Text(1, 5), "3");
}

TEST_F(HoleStepTest, TheFirstStepBelowAFilledCellCopiesItAndStepsOnce) {
  sheet().Set(2, 5, "5/8");
  At(3, 5);
  Key("+");
  EXPECT_EQ(Text(3, 5), "11/16");
  EXPECT_EQ(Text(2, 5), "5/8");
  At(4, 5);
  Key("-");
  EXPECT_EQ(Text(4, 5), "5/8");
}

TEST_F(HoleStepTest, AnEmptyCellAboveIsNoSizeToCopy) {
  sheet().Set(1, 5, "5/8");
  At(3, 5);  // row 2 is empty
  Key("+");
  EXPECT_EQ(Text(3, 5), "1/32");
}

// The index is put next to the size above before that size is copied, so that at an end of the table it wraps from
// there: one step past "2-15/16" (49) is the end already, and so is one step below "1/32" (1).
TEST_F(HoleStepTest, BelowTheSizesNextToTheEndsTheStepWraps) {
  sheet().Set(1, 5, "2-15/16");
  At(2, 5);
  Key("+");
  EXPECT_EQ(Text(2, 5), "");

  sheet().Set(1, 5, "3");
  sheet().Set(2, 5, "");
  Key("+");
  EXPECT_EQ(Text(2, 5), "");

  sheet().Set(1, 5, "1/32");
  sheet().Set(2, 5, "");
  Key("-");
  EXPECT_EQ(Text(2, 5), "3");
}

TEST_F(HoleStepTest, ATextOutsideTheTableGivesWayToTheSizeOfTheIndex) {
  sheet().Set(2, 5, "2-1/8");  // the table writes 2.125 as "2-/8"
  program.record.HoleSizeIndexLimit = 12;
  At(2, 5);
  Key("+");
  EXPECT_EQ(Text(2, 5), "5/8");
  sheet().Set(3, 5, "x");
  program.record.HoleSizeIndexLimit = 0;
  At(3, 5);
  Key("+");
  EXPECT_EQ(Text(3, 5), "");
}

TEST_F(HoleStepTest, AZeroCountsAsNoHole) {
  for (const int left_over : {0, 12}) {
    sheet().Set(2, 5, "0");
    program.record.HoleSizeIndexLimit = left_over;
    At(2, 5);
    Key("-");
    EXPECT_EQ(Text(2, 5), "3");
    sheet().Set(2, 5, "0");
    program.record.HoleSizeIndexLimit = left_over;
    Key("+");
    EXPECT_EQ(Text(2, 5), "1/32");
  }
}

TEST_F(HoleStepTest, FiftyOneStepsGoOnceThroughTheTable) {
  At(1, 5);
  sheet().Set(1, 5, "");
  for (int index = 1; index <= kHoleSizes; ++index) {
    Key("+");
    EXPECT_EQ(Text(1, 5), program.record.HoleSizeName[index]);
  }
  Key("+");
  EXPECT_EQ(Text(1, 5), "");
}

TEST_F(HoleStepTest, TheStepInTheFirstStationStillRestoresIt) {
  At(1, 0);
  sheet().Set(1, 0, "1");
  sheet().Set(1, 5, "1/2");
  Key("+");
  EXPECT_EQ(Text(1, 5), "9/16");
  EXPECT_EQ(Text(1, 0), "0");
  EXPECT_EQ(host.messages.size(), 1U);
}

TEST_F(HoleStepTest, AStepInTheHeadingRowActsOnTheRowBelow) {
  At(0, 5);
  const std::string heading = Text(0, 5);
  sheet().Set(1, 5, "1/2");
  Key("+");
  EXPECT_EQ(Text(0, 5), heading);
  EXPECT_EQ(Text(1, 5), "9/16");
}

}  // namespace
}  // namespace torvale
