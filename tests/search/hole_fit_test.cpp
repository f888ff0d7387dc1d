#include "search/hole_fit.h"

#include "search_program.h"

namespace torvale {
namespace {

// One row with one hole, two feet of head and a share of one.
class HoleFitTest : public SearchTest {
 protected:
  HoleFitTest() {
    record.HoleRows = 1;
    record.HolesPerFurrow[1] = 1;
    record.FlowRatio[1] = 1;
    record.Head[1] = 2;
  }
  float FromTable(float ideal) {
    record.HoleSizeIdeal[1] = ideal;
    record.ComputerHoleDia[1] = 0;
    FitToTable(record, {5});
    return record.ComputerHoleDia[1];
  }
  float FromList(const std::vector<float>& sizes, float ideal) {
    for (std::size_t j = 0; j < sizes.size(); ++j) record.SelectedHoleValue[static_cast<int>(j)] = sizes[j];
    record.HoleSizeIdeal[1] = ideal;
    record.LimitedHoleDia[1] = 9;
    FitToList(record, {5}, static_cast<int>(sizes.size()), static_cast<int>(sizes.size()));
    return record.LimitedHoleDia[1];
  }
};

// The first size that is not smaller is found, and the one below it is taken.
TEST_F(HoleFitTest, TakesTheSizeBelow) {
  EXPECT_EQ(FromTable(0.3F), 0.25F);
  EXPECT_EQ(FromTable(1.03F), 1);
  EXPECT_EQ(FromTable(2.9F), 2.875F);
}

TEST_F(HoleFitTest, AnIdealOfATableSizeStillTakesTheSizeBelow) {
  EXPECT_EQ(FromTable(0.25F), 0.1875F);
  EXPECT_EQ(FromTable(1), 0.9375F);
  EXPECT_EQ(FromTable(2.9375F), 2.875F);
}

// The steps are 1/32 up to 1/8 and 1/16 from there.
TEST_F(HoleFitTest, KnowsTheFineStepsOfTheSmallSizes) {
  EXPECT_EQ(FromTable(0.0625F), 0.03125F);
  EXPECT_EQ(FromTable(0.1F), 0.09375F);
  EXPECT_EQ(FromTable(0.15F), 0.125F);
}

TEST_F(HoleFitTest, AnIdealOfOneThirtySecondOrLessGivesNoHole) {
  EXPECT_EQ(FromTable(0.03F), 0);
  EXPECT_EQ(FromTable(0.03125F), 0);
}

TEST_F(HoleFitTest, BetweenTheLastTwoSizesTheRowStaysDry) {
  EXPECT_EQ(FromTable(2.95F), 0);
  EXPECT_EQ(FromTable(3), 0);
}

TEST_F(HoleFitTest, AboveTheLastSizeTheLastIsTaken) {
  EXPECT_EQ(FromTable(3.01F), 3);
  EXPECT_EQ(FromTable(40), 3);
}

TEST_F(HoleFitTest, LeavesARowWithoutAnIdealAlone) {
  record.HoleSizeIdeal[1] = 0;
  record.ComputerHoleDia[1] = 7;
  FitToTable(record, {5});
  EXPECT_EQ(record.ComputerHoleDia[1], 7);
}

// The difference of the upper size is below that of no flow at all only where its flow is negative.
TEST_F(HoleFitTest, OnlyANegativeFlowTakesTheUpperSize) {
  record.DischargeCoef = -0.65F;
  EXPECT_EQ(FromTable(0.3F), 0.3125F);
  record.DischargeCoef = 0;
  EXPECT_EQ(FromTable(0.3F), 0.25F);
}

TEST_F(HoleFitTest, ANegativeHeadIsAFault) {
  record.Head[1] = -1;
  EXPECT_THROW(FromTable(0.3F), RunTimeFault);
  EXPECT_THROW(FromList({0.25F, 0.5F}, 0.3F), RunTimeFault);
}

// ---- The user's list ----

TEST_F(HoleFitTest, TakesTheListedSizeBelow) {
  const std::vector<float> sizes = {0.25F, 0.375F, 0.5F};
  EXPECT_EQ(FromList(sizes, 0.3F), 0.25F);
  EXPECT_EQ(FromList(sizes, 0.375F), 0.25F);
  EXPECT_EQ(FromList(sizes, 0.4F), 0.375F);
  EXPECT_EQ(FromList(sizes, 0.5F), 0.375F);
}

TEST_F(HoleFitTest, StaysWithinTheList) {
  const std::vector<float> sizes = {0.25F, 0.375F, 0.5F};
  EXPECT_EQ(FromList(sizes, 0.1F), 0.25F);
  EXPECT_EQ(FromList(sizes, 0.6F), 0.5F);
  EXPECT_EQ(FromList(sizes, 30), 0.5F);
}

TEST_F(HoleFitTest, AListedRowWithoutAnIdealKeepsItsSize) {
  EXPECT_EQ(FromList({0.25F, 0.375F}, 0), 9);
}

// One size serves every row, whatever its ideal and whether it has a hole; no flow is worked out, so that a head that
// would be a fault is none.
TEST_F(HoleFitTest, OneSizeServesEveryRow) {
  record.HoleRows = 3;
  record.Head[1] = -1;
  EXPECT_EQ(FromList({0.375F}, 0.1F), 0.375F);
  EXPECT_EQ(record.LimitedHoleDia[2], 0.375F);
  EXPECT_EQ(record.LimitedHoleDia[3], 0.375F);
}

// Two equal sizes: the ideal between them and the next takes the second of the pair, which is the same.
TEST_F(HoleFitTest, ASizeListedTwiceStandsTwice) {
  EXPECT_EQ(FromList({0.25F, 0.25F, 0.5F}, 0.3F), 0.25F);
  EXPECT_EQ(FromList({0.25F, 0.25F, 0.5F}, 0.2F), 0.25F);
  EXPECT_EQ(FromList({0.25F, 0.25F}, 0.3F), 0.25F);
}

// A line that is no size leaves a 0 at the end of the values. An ideal above the sizes before it is above that 0, too,
// and takes the last of those that are sizes.
TEST_F(HoleFitTest, ALineThatIsNoSizeEndsTheList) {
  record.SelectedHoleValue[0] = 0.25F;
  record.SelectedHoleValue[1] = 0.375F;
  record.SelectedHoleValue[2] = 0;
  record.HoleSizeIdeal[1] = 0.6F;
  FitToList(record, {5}, 3, 2);
  EXPECT_EQ(record.LimitedHoleDia[1], 0.375F);
  record.HoleSizeIdeal[1] = 0.3F;
  FitToList(record, {5}, 3, 2);
  EXPECT_EQ(record.LimitedHoleDia[1], 0.25F);
}

// Here both flows are worked out, and where they are negative the upper size has the lesser one.
TEST_F(HoleFitTest, TheListComparesBothFlows) {
  record.DischargeCoef = -0.65F;
  EXPECT_EQ(FromList({0.25F, 0.375F}, 0.3F), 0.375F);
}

}  // namespace
}  // namespace torvale
