#include "engine/safe_head.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

const PipeStrengths kTable = {{15, 10, 2.2}, {12, 10, 2.8}};

TEST(SafeHead, IsThatOfThePipeAndOfNoOther) {
  EXPECT_EQ(SafeHead(kTable, 15, 10), 2.2);
  EXPECT_EQ(SafeHead(kTable, 12, 10), 2.8);
  EXPECT_EQ(SafeHead(kTable, 14, 10), std::nullopt);  // between two that are known
  EXPECT_EQ(SafeHead(kTable, 15, 9), std::nullopt);
  EXPECT_EQ(SafeHead({}, 15, 10), std::nullopt);
}

struct OverloadTest : ::testing::Test {
  void Row(float diameter, const char* mil, double head) {
    const int i = ++record.HoleRows;
    record.PipeDia[i] = diameter;
    record.MilText[i] = mil;
    record.Head[i] = head;
  }
  DesignRecord record;
};

TEST_F(OverloadTest, TheHeadFurthestAboveItsPipeCounts) {
  Row(12, "10", 3.0);  // .2 above 2.8
  Row(15, "10", 2.7);  // .5 above 2.2
  Row(15, "10", 2.1);
  const auto worst = WorstOverload(record, kTable);
  ASSERT_TRUE(worst);
  // The 15-inch pipe begins at row 1, where 3.0 is .8 above what it bears.
  EXPECT_EQ(worst->row, 1);
  EXPECT_EQ(worst->pipe, 2);
  EXPECT_EQ(worst->head, 3.0);
  EXPECT_EQ(worst->safe, 2.2);
}

TEST_F(OverloadTest, WhatIsShownAsTheLimitIsNotAboveIt) {
  Row(15, "10", 2.2049);  // shown as 2.20
  EXPECT_FALSE(WorstOverload(record, kTable));
  record.Head[1] = 2.2051;  // 2.21
  EXPECT_TRUE(WorstOverload(record, kTable));
}

TEST_F(OverloadTest, OfRigidPipeAndUnknownTubingNothingIsSaid) {
  Row(15, "10", 9);
  record.PipeKind = "R";
  EXPECT_FALSE(WorstOverload(record, kTable));
  record.PipeKind = "L";
  record.MilText[1] = "thick";
  EXPECT_FALSE(WorstOverload(record, kTable));
  record.MilText[1] = "8";
  EXPECT_FALSE(WorstOverload(record, kTable));
}

}  // namespace
}  // namespace torvale
