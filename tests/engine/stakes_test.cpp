#include "engine/stakes.h"

#include <gtest/gtest.h>

#include "engine/survey.h"

namespace torvale {
namespace {

// A line of rows at given stations with a designed crown, over a survey of two or more rows.
struct StakesTest : ::testing::Test {
  StakesTest() : sheet(kSurveyGridRows, kSurveyColumns) { record.DesignType = kConstantSlope; }

  void Survey(const char* station, const char* crown) {
    const int row = ++record.SurveyRows;
    sheet.Set(row, kStationColumn, station);
    sheet.Set(row, kCrownColumn, crown);
  }
  void Row(float station, float designed) {
    const int row = ++record.HoleRows;
    record.Station[row] = station;
    record.DesignElev[row] = designed;
  }
  // Rises from 10 to 10.3 feet under a crown that falls by a tenth of a foot in 100 feet and meets it at the end.
  void RisingGround() {
    Survey("0", "10.00");
    Survey("200", "10.30");
    Row(0, 10.5F);
    Row(50, 10.45F);
    Row(200, 10.3F);
  }

  DesignRecord record;
  TextGrid sheet;
};

TEST_F(StakesTest, StakesStandAtTheSurveyAndAtEveryInterval) {
  RisingGround();
  const Stakes all = LayStakes(record, sheet, true, 100, 6);
  ASSERT_EQ(all.stakes.size(), 3U);
  EXPECT_EQ(all.stakes[1].station, 100);
  // Half way from 10 to 10.3; a third of the way from 10.45 at 50 to 10.3 at 200.
  EXPECT_NEAR(all.stakes[1].existing, 10.15, 1e-9);
  EXPECT_NEAR(all.stakes[1].designed.value(), 10.4, 1e-5);
  EXPECT_NEAR(all.stakes[1].fill, 0.25, 1e-5);
  EXPECT_NEAR(all.stakes[1].fall.value(), 0.1, 1e-5);
  EXPECT_EQ(LayStakes(record, sheet, true, 50, 6).stakes.size(), 5U);
  // 0, 120 and the end.
  EXPECT_EQ(LayStakes(record, sheet, true, 120, 6).stakes.size(), 3U);
}

// Cross sections of 6 feet times .5, .25 and 0: (3 + 1.5) / 2 x 100 and (1.5 + 0) / 2 x 100 cubic feet, 27 to the yard.
TEST_F(StakesTest, EarthIsTheAverageEndAreaTimesTheDistance) {
  RisingGround();
  const Stakes all = LayStakes(record, sheet, true, 100, 6);
  EXPECT_NEAR(all.stakes[1].fill_earth, 225.0 / 27, 1e-3);
  EXPECT_NEAR(all.stakes[2].fill_earth, 75.0 / 27, 1e-3);
  EXPECT_NEAR(all.fill_earth, 300.0 / 27, 1e-3);
  EXPECT_NEAR(all.cut_earth, 0, 1e-4);
  EXPECT_EQ(LayStakes(record, sheet, true, 100, 0).fill_earth, 0);
}

// Twice as high as deep, so that the crowns meet at two thirds of 30 feet: .2 x 27 / 2 x 20 cubic feet of fill and
// .1 x 27 / 2 x 10 of cut.
TEST_F(StakesTest, WhereFillTurnsToCutEachEndsAtNothing) {
  const Earth falling = EarthBetween(0.2, -0.1, 30, 27);
  EXPECT_NEAR(falling.fill, 2, 1e-12);
  EXPECT_NEAR(falling.cut, 0.5, 1e-12);
  const Earth rising = EarthBetween(-0.1, 0.2, 30, 27);
  EXPECT_NEAR(rising.fill, 2, 1e-12);
  EXPECT_NEAR(rising.cut, 0.5, 1e-12);
  // (.1 + .3) / 2 x 27 x 10 / 27.
  EXPECT_NEAR(EarthBetween(-0.1, -0.3, 10, 27).cut, 2, 1e-12);
}

// A larger rod reading is lower ground: 5.00 read on the ground and 4.80 on the crown are a fill of .2.
TEST_F(StakesTest, RodReadingsAreTheOtherWayRound) {
  Survey("0", "5.00");
  Survey("100", "5.30");
  Row(0, 4.8F);
  Row(100, 5.4F);
  const Stakes all = LayStakes(record, sheet, false, 100, 6);
  EXPECT_NEAR(all.stakes[0].fill, 0.2, 1e-6);
  EXPECT_NEAR(all.stakes[1].fill, -0.1, 1e-6);
  EXPECT_NEAR(all.stakes[1].fall.value(), 0.6, 1e-5);
}

TEST_F(StakesTest, ADualSlopeIsLevelPastItsBreakAndHasAStakeThere) {
  record.DesignType = kDualSlope;
  Survey("0", "10.00");
  Survey("400", "10.00");
  Row(0, 10.6F);
  Row(130, 10.3F);
  Row(260, 10.3F);
  Row(400, 10.3F);
  const Stakes all = LayStakes(record, sheet, true, 100, 6);
  EXPECT_EQ(all.level_from, 130);
  ASSERT_EQ(all.stakes.size(), 6U);
  EXPECT_EQ(all.stakes[2].station, 130);
  for (std::size_t i = 3; i < all.stakes.size(); ++i) EXPECT_EQ(all.stakes[i].fall, 0) << i;
}

TEST_F(StakesTest, ASlopeToTheEndIsNowhereLevel) {
  RisingGround();
  EXPECT_EQ(LayStakes(record, sheet, true, 100, 6).level_from, std::nullopt);
}

TEST_F(StakesTest, PastTheLastHoleThereIsNoDesignedCrown) {
  RisingGround();
  Survey("300", "10.40");
  const Stakes all = LayStakes(record, sheet, true, 100, 6);
  ASSERT_EQ(all.stakes.size(), 4U);
  EXPECT_EQ(all.stakes[3].designed, std::nullopt);
  EXPECT_EQ(all.stakes[3].fill_earth, 0);
}

TEST_F(StakesTest, OtherDesignsAndShortLinesHaveNone) {
  RisingGround();
  record.DesignType = kPlanned;
  EXPECT_TRUE(LayStakes(record, sheet, true, 100, 6).stakes.empty());
  record.DesignType = kConstantSlope;
  record.HoleRows = 1;
  EXPECT_TRUE(LayStakes(record, sheet, true, 100, 6).stakes.empty());
}

}  // namespace
}  // namespace torvale
