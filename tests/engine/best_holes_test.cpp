#include "engine/best_holes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <queue>

#include "engine/plan_bound.h"
#include "random_plan_task.h"

namespace torvale {
namespace {

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
