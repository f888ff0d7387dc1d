// One correction of the far-end head.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/flow_calc.h"

namespace torvale {
namespace {

struct Corrected {
  double head;
  std::string last_step;
};

constexpr float kTarget = 100;

Corrected TooMuch(double head, std::string_view last_step) {
  CorrectEndHead(head, last_step, 101, kTarget);
  return {head, std::string(last_step)};
}
Corrected TooLittle(double head, std::string_view last_step) {
  CorrectEndHead(head, last_step, 99, kTarget);
  return {head, std::string(last_step)};
}

struct Stage {
  double step;
  const char* lowered;
  const char* raised;
};
constexpr Stage kStages[] = {{0.5, "highflow", "lowflow"},
                             {0.1, "highflow1", "lowflow1"},
                             {0.01, "highflow2", "lowflow2"},
                             {0.001, "highflow3", "lowflow3"},
                             {0.0001, "highflow4", "lowflow4"}};

TEST(CorrectEndHead, BeginsWithHalfFeet) {
  EXPECT_EQ(TooMuch(2, "").head, 1.5);
  EXPECT_EQ(TooMuch(2, "").last_step, "highflow");
  EXPECT_EQ(TooLittle(2, "").head, 2.5);
  EXPECT_EQ(TooLittle(2, "").last_step, "lowflow");
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
  EXPECT_EQ(TooMuch(0.4, "").head, 0.4 - 0.1);
  EXPECT_EQ(TooMuch(0.4, "").last_step, "highflow1");
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
  EXPECT_EQ(TooMuch(0.005, "").head, 0.005 - 0.001);
  EXPECT_EQ(TooMuch(0.005, "").last_step, "highflow3");
  EXPECT_EQ(TooMuch(0, "").head, -0.0001);
  EXPECT_EQ(TooMuch(0, "").last_step, "highflow4");
}

// The fourth stage refuses only at 0.0001, below its own step: the head may go as low as -0.0009.
TEST(CorrectEndHead, FourthStageMayGoBelowZero) {
  EXPECT_EQ(TooMuch(0.0002, "highflow3").head, 0.0002 - 0.001);
  EXPECT_EQ(TooMuch(0.0002, "highflow3").last_step, "highflow3");
}

// The last stage never refuses.
TEST(CorrectEndHead, LastStageHasNoFloor) {
  EXPECT_EQ(TooMuch(-3, "highflow4").head, -3 - 0.0001);
  EXPECT_EQ(TooMuch(-3, "lowflow4").head, -3 - 0.0001);
}

// Raising is never refused, however low the head.
TEST(CorrectEndHead, RaisingIsNeverRefused) {
  EXPECT_EQ(TooLittle(-7, "").head, -6.5);
  EXPECT_EQ(TooLittle(0, "lowflow3").head, 0.001);
}

TEST(CorrectEndHead, ExactlyTheTargetChangesNothing) {
  for (const char* const mark : {"", "highflow", "lowflow2", "lowflow4"}) {
    double head = 1.25;
    std::string_view last_step = mark;
    CorrectEndHead(head, last_step, kTarget, kTarget);
    EXPECT_EQ(head, 1.25);
    EXPECT_EQ(last_step, mark);
  }
}

}  // namespace
}  // namespace torvale
