#include "engine/best_holes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <queue>

#include "base/power.h"
#include "engine/hydraulics.h"
#include "engine/plan_bound.h"
#include "properties/random.h"

namespace torvale {
namespace {

// A line with a hole at each row, furrows of about 1000 feet, and some neighbouring sizes around the one that would let
// the average flow out under 1.3 feet.
PlanTask RandomTask(Random& random, int furrows, int sizes, int stretches) {
  PlanTask task;
  Line& line = task.line;
  line.rows = furrows;
  const auto size = static_cast<std::size_t>(furrows) + 1;
  const double gpm = random.Real(60, 500);
  const double inches = std::round(std::pow(gpm, 0.38) * 0.72 * random.Real(0.95, 1.5));
  line.length.assign(size, random.Real(5, 60));
  line.dia_power.assign(size, Power(inches, kDiameterExponent));
  line.rise.assign(size, 0);
  for (std::size_t i = 2; i < size; ++i) line.rise[i] = random.Real(-0.03, 0.05);
  line.friction_factor = FrictionFactor(150);
  line.discharge_coef = 0.65;
  task.target = static_cast<float>(gpm);
  task.average = AverageFlow(task.target, furrows);
  double total = 0;
  std::vector<double> lengths;
  for (int i = 0; i < furrows; ++i) lengths.push_back(random.Whole(800, 1200));
  for (const double length : lengths) total += length;
  for (int i = 0; i < furrows; ++i) {
    const double length = lengths[static_cast<std::size_t>(i)];
    PlanFurrow furrow;
    furrow.row = i + 1;
    furrow.ratio = static_cast<double>(static_cast<float>(length / (total / furrows)));
    furrow.normal_length = static_cast<int>(std::nearbyint(length / furrow.ratio));
    task.furrows.push_back(furrow);
  }
  task.quarter = static_cast<float>(0.25 * total);
  task.least_head = 0.2;
  task.highest_head = random.Real(2, 6);
  task.first_head = 2;
  task.stretches = stretches;
  const double area = static_cast<double>(task.average) / OrificeFlow(1, 1.3, line.discharge_coef);
  const int middle = std::max(1 + sizes / 2, static_cast<int>(std::round(std::sqrt(area * 144 * 4 / 3.14) * 16)));
  for (int i = 0; i < sizes; ++i) task.sizes.push_back(static_cast<float>((middle - sizes / 2 + i) / 16.0));
  return task;
}

// Calls `look` with every plan, counting up furrow by furrow.
template <typename Look>
void EveryPlan(const PlanTask& task, const Look& look) {
  HolePlan plan(task.furrows.size(), 0);
  for (;;) {
    if (StretchesOf(plan) <= task.stretches) look(plan);
    std::size_t place = 0;
    while (place < plan.size() && ++plan[place] == task.sizes.size()) plan[place++] = 0;
    if (place == plan.size()) return;
  }
}

TEST(HolePlan, CountsItsRuns) {
  EXPECT_EQ(StretchesOf({}), 0);
  EXPECT_EQ(StretchesOf({1}), 1);
  EXPECT_EQ(StretchesOf({1, 1, 2, 2, 1}), 3);
}

// With j stretches there are C(furrows - 1, j - 1) ways to part them and sizes (sizes - 1)^(j - 1) to size them: for 4
// furrows and 3 sizes 3, 3 * 6 and 3 * 12 for one, two and three.
TEST(BestHoles, CountsThePlans) {
  Random random(1);
  PlanTask task = RandomTask(random, 4, 3, 3);
  EXPECT_EQ(CountPlans(task), 3 + 18 + 36);
  double counted = 0;
  EveryPlan(task, [&](const HolePlan&) { ++counted; });
  EXPECT_EQ(counted, 3 + 18 + 36);
}

// All plans of short lines, one by one, against the plan that is found.
TEST(BestHoles, FindsTheBestOfAllPlansOfShortLines) {
  Random random(2);
  int found_any = 0;
  const int rounds = static_cast<int>(Rounds(120));
  for (int round = 0; round < rounds; ++round) {
    const PlanTask task = RandomTask(random, random.Whole(2, 8), random.Whole(1, 3), random.Whole(1, 4));
    PlanJudge judge(task);
    std::optional<PlanOutcome> best;
    EveryPlan(task, [&](const HolePlan& plan) {
      const std::optional<PlanOutcome> outcome = judge.Judge(plan);
      if (!outcome) return;
      const auto order = [](const PlanOutcome& o) { return std::tuple(-o.uniformity, o.stretches, o.highest_head); };
      if (!best || order(*outcome) < order(*best)) best = outcome;
    });
    const BestHoles found = FindBestHoles(task, {}, {});
    ASSERT_EQ(found.best.has_value(), best.has_value()) << round;
    if (!best) continue;
    ++found_any;
    EXPECT_TRUE(found.every_plan);
    EXPECT_EQ(found.best->outcome.uniformity, best->uniformity) << round;
    EXPECT_EQ(found.best->outcome.stretches, best->stretches) << round;
    EXPECT_EQ(found.best->outcome.highest_head, best->highest_head) << round;
    EXPECT_EQ(found.bound, best->uniformity) << round;
  }
  EXPECT_GT(found_any, rounds / 2);
}

// The boxes that are left after some cuts always hold a bound that the best of all plans doesn't pass.
TEST(PlanBounds, NeverPassOverTheBestPlan) {
  Random random(3);
  int bounded = 0;
  const int rounds = static_cast<int>(Rounds(60));
  for (int round = 0; round < rounds; ++round) {
    const PlanTask task = RandomTask(random, random.Whole(4, 8), random.Whole(2, 3), random.Whole(1, 4));
    PlanJudge judge(task);
    double best = 0;
    EveryPlan(task, [&](const HolePlan& plan) {
      double head = 0;
      if (!judge.Judge(plan)) return;
      if (const auto estimate = judge.Estimate(plan, head)) best = std::max(best, *estimate);
    });
    if (best == 0) continue;
    ++bounded;
    const double wanted = best - 0.5;
    PlanBounds bounds(task);
    const auto less = [](const PlanBox& a, const PlanBox& b) { return a.bound < b.bound; };
    std::priority_queue<PlanBox, std::vector<PlanBox>, decltype(less)> open(less);
    open.push(bounds.Whole(wanted));
    HolePlan plan;
    for (int cut = 0; cut < 200 && !open.empty(); ++cut) {
      const auto [one, other] = bounds.Split(open.top());
      open.pop();
      for (PlanBox box : {one, other}) {
        if (bounds.Bound(box, wanted, plan)) open.push(box);
      }
    }
    ASSERT_FALSE(open.empty()) << round << ": every box was passed over, one of them with a plan of " << best;
    EXPECT_GE(open.top().bound, best) << round;
  }
  EXPECT_GT(bounded, rounds / 2);
}

// A line of many plans: what is proven holds for the plan found and for the classic one of a single size.
TEST(BestHoles, ProvesABoundForALongLine) {
  Random random(4);
  const PlanTask task = RandomTask(random, 60, 5, 4);
  ASSERT_GT(CountPlans(task), 170000);
  const BestHoles found = FindBestHoles(task, {}, {});
  ASSERT_TRUE(found.best.has_value());
  EXPECT_FALSE(found.every_plan);
  EXPECT_GE(found.bound, found.best->outcome.uniformity);
  EXPECT_LE(found.bound, 100);
  PlanJudge judge(task);
  for (std::size_t size = 0; size < task.sizes.size(); ++size) {
    const auto plain = judge.Judge(HolePlan(task.furrows.size(), static_cast<std::uint16_t>(size)));
    if (plain) {
      EXPECT_LE(plain->uniformity, found.best->outcome.uniformity);
    }
  }
}

TEST(BestHoles, StopsWhenItIsTold) {
  Random random(5);
  const PlanTask task = RandomTask(random, 60, 5, 4);
  int told = 0;
  const BestHoles found = FindBestHoles(task, {}, [&](const BestHolesProgress&) { return ++told < 80; });
  EXPECT_TRUE(found.stopped);
  EXPECT_EQ(told, 80);
}

}  // namespace
}  // namespace torvale
