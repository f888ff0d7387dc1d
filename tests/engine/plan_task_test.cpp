#include "engine/plan_task.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace torvale {
namespace {

// Four rows: a supply line, two furrows of 600 and 1200 feet, and a row with a hole but no furrow length.
DesignRecord SmallRecord() {
  DesignRecord record;
  record.HoleRows = 4;
  record.WateredFurrows = 2;
  record.HazenWilliamsC = 140;
  record.DischargeCoef = 0.65F;
  record.LowQuarter = 0.25F;
  record.TargetGPM = 20;
  record.AverageFurrowFlow = 10;
  for (int row = 1; row <= 4; ++row) {
    record.Station[row] = static_cast<float>(10 * row);
    record.PipeDia[row] = 10;
    record.CrownElev[row] = 100;
  }
  record.CrownElev[0] = 100;
  for (int row = 2; row <= 4; ++row) {
    record.HoleDia[row] = 0.0625F;
    record.HolesPerFurrow[row] = 1;
  }
  record.HolesPerFurrow[3] = 2;
  record.FurrowLength[2] = 600;
  record.FurrowLength[3] = 1200;
  record.FlowRatio[2] = 2.0F / 3;
  record.FlowRatio[3] = 4.0F / 3;
  record.FlowRatio[4] = 7;  // of a design before
  return record;
}

PlanLimits SmallLimits() {
  return {{0.75F, 0.5F, 0.75F, 0}, 3, 0.5, 2, 1.5};
}

TEST(PlanTaskOf, TakesTheRowsWithHolesOneByOne) {
  const PlanTask task = PlanTaskOf(SmallRecord(), true, SmallLimits());
  EXPECT_EQ(task.sizes, (std::vector<float>{0.5F, 0.75F}));  // each once, ascending, and 0 is none
  ASSERT_EQ(task.furrows.size(), 3U);
  EXPECT_EQ(task.furrows[0].row, 2);
  EXPECT_EQ(task.furrows[1].row, 3);
  EXPECT_EQ(task.furrows[1].holes, 2);
  EXPECT_EQ(task.furrows[1].ratio, static_cast<double>(4.0F / 3));
  // 1200 / (4/3) and 600 / (2/3) are both 900 feet.
  EXPECT_EQ(task.furrows[0].normal_length, 900);
  EXPECT_EQ(task.furrows[1].normal_length, 900);
  EXPECT_EQ(task.furrows[2].ratio, 0);  // no length, no share
  EXPECT_EQ(task.furrows[2].normal_length, 0);
  EXPECT_EQ(task.quarter, 450);  // a quarter of 600 + 1200
  EXPECT_EQ(task.average, 10);
  EXPECT_EQ(task.target, 20);
  EXPECT_EQ(task.first_head, 1.5);
  EXPECT_EQ(task.stretches, 3);
}

// A row with a hole size and no holes gives no flow: no size need be chosen for it.
TEST(PlanTaskOf, PassesOverRowsWithoutHoles) {
  DesignRecord record = SmallRecord();
  record.HolesPerFurrow[3] = 0;
  const PlanTask task = PlanTaskOf(record, true, SmallLimits());
  ASSERT_EQ(task.furrows.size(), 2U);
  EXPECT_EQ(task.furrows[1].row, 4);
  EXPECT_EQ(task.quarter, 150);
}

TEST(LayPlan, GivesTheRowsTheirSizesAndTheOthersNone) {
  DesignRecord record = SmallRecord();
  const PlanTask task = PlanTaskOf(record, true, SmallLimits());
  record.LimitedHoleDia[1] = 3;
  const HolePlan plan = {1, 0, 1};
  LayPlan(task, plan, record.LimitedHoleDia);
  EXPECT_EQ(record.LimitedHoleDia[1], 0);
  EXPECT_EQ(record.LimitedHoleDia[2], 0.75F);
  EXPECT_EQ(record.LimitedHoleDia[3], 0.5F);
  EXPECT_EQ(record.LimitedHoleDia[4], 0.75F);
  EXPECT_EQ(LaidPlan(task, record.LimitedHoleDia), plan);
  record.LimitedHoleDia[3] = 1;
  EXPECT_FALSE(LaidPlan(task, record.LimitedHoleDia).has_value());
}

}  // namespace
}  // namespace torvale
