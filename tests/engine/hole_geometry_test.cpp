// Openings of round gates.
#include "engine/hole_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "base/fault_of.h"

namespace torvale {
namespace {

constexpr double kPi = std::numbers::pi;

double AreaOfAngle(double radius, double theta) {
  double area = -1;
  SegmentArea(radius, theta, area);
  return area;
}
double AreaOfHeight(double radius, double height) {
  double area = -1;
  SegmentAreaD(radius, height, area);
  return area;
}
double Opening(double wanted, double diameter) {
  double opening = -1;
  GateMove(wanted, diameter, opening);
  return opening;
}
// The area that an opening gives.
double AreaOfOpening(double opening, double diameter) {
  return AreaOfHeight(diameter / 2, opening);
}

// Angle pi is half the circle, 2 pi the whole, pi/2 the quarter less its triangle: r^2 (pi/4 - 1/2).
TEST(SegmentArea, OfKnownAngles) {
  EXPECT_EQ(AreaOfAngle(2, 0), 0);
  EXPECT_NEAR(AreaOfAngle(2, kPi), 2 * kPi, 1e-12);
  EXPECT_NEAR(AreaOfAngle(2, 2 * kPi), 4 * kPi, 1e-12);
  EXPECT_NEAR(AreaOfAngle(2, kPi / 2), kPi - 2, 1e-12);
  EXPECT_EQ(AreaOfAngle(0, 1), 0);
}

// A height of the radius is half the circle, of the diameter the whole; a quarter of the diameter subtends 2 pi / 3:
// r^2 / 2 (2 pi / 3 - sqrt(3) / 2).
TEST(SegmentAreaD, OfKnownHeights) {
  EXPECT_EQ(AreaOfHeight(2, 0), 0);
  EXPECT_NEAR(AreaOfHeight(2, 2), 2 * kPi, 1e-12);
  EXPECT_NEAR(AreaOfHeight(2, 4), 4 * kPi, 1e-12);
  EXPECT_NEAR(AreaOfHeight(2, 1), 2 * (2 * kPi / 3 - std::sqrt(3.0) / 2), 1e-12);
  EXPECT_EQ(AreaOfHeight(0, 1), 0);
}

TEST(SegmentAreaD, HeightsOutsideTheCircleAreAFault) {
  EXPECT_EQ(FaultOf([] { AreaOfHeight(2, -0.1); }), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf([] { AreaOfHeight(2, 4.1); }), Fault::kInvalidArgument);
}

TEST(GateMove, NoAreaOrNoGateIsNoOpening) {
  EXPECT_EQ(Opening(0, 2), 0);
  EXPECT_EQ(Opening(1, 0), 0);
  EXPECT_EQ(Opening(0, 0), 0);
}

// Half the area wants half the gate, within the half percent that the area may be off.
TEST(GateMove, HalfTheAreaIsAboutTheRadius) {
  EXPECT_NEAR(Opening(kPi / 2, 2), 1, 0.01);
}

// Where the iteration meets its tolerance, the opening gives the wanted area within half a percent.
TEST(GateMove, OpeningGivesTheWantedArea) {
  int solved = 0;
  for (double diameter : {0.5, 1.0, 2.0, 3.0}) {
    for (double share = 0.02; share < 1; share += 0.01) {
      const double wanted = share * diameter * diameter / 4 * kPi;
      double opening = 0;
      if (FaultOf([&] { opening = Opening(wanted, diameter); })) continue;
      if (opening == 0) continue;
      ++solved;
      EXPECT_LE(opening, diameter);
      EXPECT_NEAR(AreaOfOpening(opening, diameter) / wanted, 1, 0.0051) << share << " of " << diameter;
    }
  }
  EXPECT_GT(solved, 300);
}

// A first angle that meets the tolerance at once leaves the angle of the opening unset: no opening. For a small share s
// of a gate of radius 1 the first angle is 540 s and its segment (540 s)^3 / 12; that is the wanted pi s near s
// = 4.9e-4.
TEST(GateMove, FirstAngleThatFitsGivesNothing) {
  bool met = false;
  for (double share = 4e-4; share < 6e-4; share += 1e-7) {
    const double angle = (1.5 - share) * 360 * share;
    const double wanted = share * kPi;
    if (std::fabs((angle - std::sin(angle)) / 2 - wanted) / wanted > 0.004) continue;
    met = true;
    EXPECT_EQ(Opening(wanted, 2), 0) << share;
  }
  EXPECT_TRUE(met);
}

// No angle below a full turn gives more than the gate's area. Whatever the iteration comes to, it ends: with an opening
// no wider than the gate, or with a fault.
TEST(GateMove, MoreThanTheGateEnds) {
  for (double share = 1.0; share < 80; share *= 1.07) {
    double opening = 0;
    const auto fault = FaultOf([&] { opening = Opening(share * kPi, 2); });
    if (fault) continue;
    EXPECT_GE(opening, 0);
    EXPECT_LE(opening, 2);
  }
}

// A negative area is met by any angle: the error is below the tolerance from the start.
TEST(GateMove, NegativeAreaIsNoOpening) {
  EXPECT_EQ(Opening(-1, 2), 0);
}

}  // namespace
}  // namespace torvale
