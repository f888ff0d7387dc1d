// One correction of the far-end head.
#include "engine/end_head.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torvale {
namespace {

struct Corrected {
  double head;
  EndHeadStep last_step;
};

constexpr float kTarget = 100;

Corrected TooMuch(double head, EndHeadStep last_step) {
  CorrectEndHead(head, last_step, Compare(101, kTarget));
  return {head, last_step};
}
Corrected TooLittle(double head, EndHeadStep last_step) {
  CorrectEndHead(head, last_step, Compare(99, kTarget));
  return {head, last_step};
}

struct Stage {
  double step;
  EndHeadStep lowered;
  EndHeadStep raised;
};
constexpr EndHeadStep kFirst;
constexpr EndHeadStep Lowered(int stage) {
  return {stage, EndHeadStep::kLowered};
}
constexpr EndHeadStep Raised(int stage) {
  return {stage, EndHeadStep::kRaised};
}
constexpr Stage kStages[] = {{0.5, Lowered(0), Raised(0)},
                             {0.1, Lowered(1), Raised(1)},
                             {0.01, Lowered(2), Raised(2)},
                             {0.001, Lowered(3), Raised(3)},
                             {0.0001, Lowered(4), Raised(4)}};

TEST(CorrectEndHead, BeginsWithHalfFeet) {
  EXPECT_EQ(TooMuch(2, kFirst).head, 1.5);
  EXPECT_EQ(TooMuch(2, kFirst).last_step, Lowered(0));
  EXPECT_EQ(TooLittle(2, kFirst).head, 2.5);
  EXPECT_EQ(TooLittle(2, kFirst).last_step, Raised(0));
}

// The same way as before: the same step again.
TEST(CorrectEndHead, GoesOnInItsStage) {
  for (const Stage& stage : kStages) {
    EXPECT_EQ(TooMuch(2, stage.lowered).head, 2 - stage.step);
    EXPECT_EQ(TooMuch(2, stage.lowered).last_step, stage.lowered);
    EXPECT_EQ(TooLittle(2, stage.raised).head, 2 + stage.step);
    EXPECT_EQ(TooLittle(2, stage.raised).last_step, stage.raised);
  }
}

// The target was crossed: at once the next finer step the other way. The last stage has none finer and turns.
TEST(CorrectEndHead, CrossingRefinesByOneStage) {
  for (std::size_t k = 0; k < 5; ++k) {
    const Stage& next = kStages[std::min<std::size_t>(k + 1, 4)];
    EXPECT_EQ(TooMuch(2, kStages[k].raised).head, 2 - next.step);
    EXPECT_EQ(TooMuch(2, kStages[k].raised).last_step, next.lowered);
    EXPECT_EQ(TooLittle(2, kStages[k].lowered).head, 2 + next.step);
    EXPECT_EQ(TooLittle(2, kStages[k].lowered).last_step, next.raised);
  }
}

// Lowering is refused at or below 0.5, 0.1, 0.01 and 0.0001: the next stage takes the step in the same pass.
TEST(CorrectEndHead, LoweringIsRefusedNearZero) {
  EXPECT_EQ(TooMuch(0.4, kFirst).head, 0.4 - 0.1);
  EXPECT_EQ(TooMuch(0.4, kFirst).last_step, Lowered(1));
  const double limits[] = {0.5, 0.1, 0.01, 0.0001};
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_EQ(TooMuch(limits[k], kStages[k].lowered).last_step, kStages[k + 1].lowered);
    EXPECT_EQ(TooMuch(limits[k], kStages[k].lowered).head, limits[k] - kStages[k + 1].step);
    const double above = std::nextafter(limits[k], 1);
    EXPECT_EQ(TooMuch(above, kStages[k].lowered).last_step, kStages[k].lowered);
    EXPECT_EQ(TooMuch(above, kStages[k].lowered).head, above - kStages[k].step);
  }
}

// 0.005 is at or below 0.5, 0.1 and 0.01: three refusals in one pass, and a thousandth is taken off.
TEST(CorrectEndHead, RefusalsFallThroughSeveralStages) {
  EXPECT_EQ(TooMuch(0.005, kFirst).head, 0.005 - 0.001);
  EXPECT_EQ(TooMuch(0.005, kFirst).last_step, Lowered(3));
  EXPECT_EQ(TooMuch(0, kFirst).head, -0.0001);
  EXPECT_EQ(TooMuch(0, kFirst).last_step, Lowered(4));
}

// The fourth stage refuses only at 0.0001, below its own step: the head may go as low as -0.0009.
TEST(CorrectEndHead, FourthStageMayGoBelowZero) {
  EXPECT_EQ(TooMuch(0.0002, Lowered(3)).head, 0.0002 - 0.001);
  EXPECT_EQ(TooMuch(0.0002, Lowered(3)).last_step, Lowered(3));
}

// The last stage never refuses.
TEST(CorrectEndHead, LastStageHasNoFloor) {
  EXPECT_EQ(TooMuch(-3, Lowered(4)).head, -3 - 0.0001);
  EXPECT_EQ(TooMuch(-3, Raised(4)).head, -3 - 0.0001);
}

// Raising is never refused, however low the head.
TEST(CorrectEndHead, RaisingIsNeverRefused) {
  EXPECT_EQ(TooLittle(-7, kFirst).head, -6.5);
  EXPECT_EQ(TooLittle(0, Raised(3)).head, 0.001);
}

TEST(CorrectEndHead, ExactlyTheTargetChangesNothing) {
  for (const EndHeadStep mark : {kFirst, Lowered(0), Raised(2), Raised(4)}) {
    double head = 1.25;
    EndHeadStep last_step = mark;
    CorrectEndHead(head, last_step, Compare(kTarget, kTarget));
    EXPECT_EQ(head, 1.25);
    EXPECT_EQ(last_step, mark);
  }
}

}  // namespace
}  // namespace torvale
