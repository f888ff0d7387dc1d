#include "engine/dry_furrows.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

struct DryFurrowsTest : ::testing::Test {
  void Row(float size, std::int16_t length, float flow) {
    const int i = ++record.HoleRows;
    record.SurveyHoleDia[i] = size;
    record.FurrowLength[i] = length;
    record.FurrowFlow[i] = flow;
  }
  DesignRecord record;
};

TEST_F(DryFurrowsTest, AreThoseThatTheSurveyWaters) {
  Row(0, 0, 0);       // supply line
  Row(.5F, 600, 5);   // has water
  Row(.5F, 600, 0);   // dry
  Row(.5F, 0, 0);     // a hole, and no furrow below it
  Row(.25F, 600, 0);  // dry too
  Row(0, 600, 0);     // no hole was wanted
  const DryFurrows dry = FindDryFurrows(record);
  EXPECT_EQ(dry.count, 2);
  EXPECT_EQ(dry.first, 3);
}

TEST_F(DryFurrowsTest, AnEarlierLongerDesignIsNotLookedAt) {
  Row(.5F, 600, 5);
  Row(.5F, 600, 0);
  record.HoleRows = 1;
  EXPECT_EQ(FindDryFurrows(record).count, 0);
  EXPECT_EQ(FindDryFurrows(record).first, 0);
}

}  // namespace
}  // namespace torvale
