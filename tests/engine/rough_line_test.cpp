// A line told in fewer rows.
#include "engine/rough_line.h"

#include <gtest/gtest.h>

#include "engine/slope_curve.h"
#include "engine/wide_march.h"
#include "support/lanes_here.h"

namespace torvale {
namespace {

// Rows 1 to `rows` ten feet apart, rising by a foot from each to the next upstream.
std::vector<WideRow> EvenRows(int rows, double opening) {
  std::vector<WideRow> row(static_cast<std::size_t>(rows) + 1);
  for (int i = 1; i <= rows; ++i) row[static_cast<std::size_t>(i)] = {opening, 10, 7, 1};
  return row;
}

// Ten rows in three groups and the far end: rows 9 to 7 stand on average at row 8, 20 feet and 2 feet of rise up from
// the far end, rows 6 to 4 at row 5, 30 feet and 3 feet further up.
TEST(RoughLine, JoinsRowsInTheirMiddle) {
  const std::vector<WideRow> row = EvenRows(10, 2);
  const std::vector<WideRow> rough = RoughRows(row.data(), 10, 4);
  ASSERT_EQ(rough.size(), 5U);
  const double opening[] = {0, 6, 6, 6, 2};
  const double length[] = {0, 0, 30, 30, 20};
  const double rise[] = {0, 0, 3, 3, 2};
  for (std::size_t i = 1; i <= 4; ++i) {
    EXPECT_DOUBLE_EQ(rough[i].opening, opening[i]);
    EXPECT_DOUBLE_EQ(rough[i].length, length[i]);
    EXPECT_DOUBLE_EQ(rough[i].rise, rise[i]);
    EXPECT_DOUBLE_EQ(rough[i].dia_power, 7);
  }
}

// All holes of rows 9 to 7 are at row 7, 30 feet from the far end; a group without holes stands in its middle, row 5.
TEST(RoughLine, WeighsByTheHoles) {
  std::vector<WideRow> row = EvenRows(10, 0);
  row[7].opening = 3;
  const std::vector<WideRow> rough = RoughRows(row.data(), 10, 4);
  ASSERT_EQ(rough.size(), 5U);
  EXPECT_DOUBLE_EQ(rough[4].length, 30);
  EXPECT_DOUBLE_EQ(rough[3].opening, 3);
  EXPECT_DOUBLE_EQ(rough[3].length, 20);
}

TEST(RoughLine, LeavesAShortLineAsItIs) {
  const std::vector<WideRow> row = EvenRows(3, 2);
  const std::vector<WideRow> rough = RoughRows(row.data(), 3, 48);
  ASSERT_EQ(rough.size(), 4U);
  for (std::size_t i = 2; i <= 3; ++i) {
    EXPECT_DOUBLE_EQ(rough[i].opening, 2);
    EXPECT_DOUBLE_EQ(rough[i].length, 10);
    EXPECT_DOUBLE_EQ(rough[i].rise, 1);
  }
}

// 500 rows of a wide pipe with hardly any friction: the head over the holes is the far end's less their mean rise r, so
// that the target Q = W sqrt(h - r) is met at r + (Q / W)^2, whatever the slope.
TEST(SlopeCurve, FollowsTheMeanRiseWithoutFriction) {
  std::vector<WideRow> row(501);
  for (std::size_t i = 1; i <= 500; ++i) row[i] = {0.001, 1, 1e12, 0};
  const WideLine line = {row.data(), 500, 0.1, 0.65, true, -5};
  const double w = 500 * 0.001 * 8.024961059 * 448.8 * 0.65;  // the root of 64.4
  const auto target = static_cast<float>(w * 1.5);
  for (const VectorLanes lanes : LanesHere()) {
    const SlopeCurve curve = LookAlongSlopes(FormOf(lanes), line, target, 2.25, 0.5);
    ASSERT_TRUE(curve.known);
    EXPECT_NEAR(curve.RootAt(0), 2.25, 1e-3);
    EXPECT_NEAR(curve.RootAt(0.1), 2.35, 2e-3);
    EXPECT_NEAR(curve.DropAt(0.1), 0.2, 5e-3);  // row 1 stands twice the mean higher than the far end
  }
}

}  // namespace
}  // namespace torvale
