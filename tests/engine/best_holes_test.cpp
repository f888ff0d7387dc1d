#include "engine/best_holes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
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

// All plans of short lines, one by one, against the plan that is found: 1,000 lines in the long run.
TEST(BestHoles, FindsTheBestOfAllPlansOfShortLines) {
  Random random(2);
  const bool all = std::getenv("TORVALE_LONG") != nullptr;
  const int rounds = all ? 1000 : 60;
  int found_any = 0;
  for (int round = 0; round < rounds; ++round) {
    const int furrows = random.Whole(2, 14);
    const int sizes = random.Whole(1, 3);
    // Half of them steep and strange, half as planners lay them out.
    const PlanTask task = round % 2 == 0 ? RandomTask(random, furrows, sizes, random.Whole(1, 4))
                                         : RandomField(random, furrows, sizes, random.Whole(1, 4));
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

// What a plan's line comes to, as the ranges of a box speak of it.
struct PlanState {
  std::vector<double> head;  // by row
  std::vector<double> flow;  // in the pipe above the row
  double level = 0;
  double uniformity = 0;  // before it is rounded
};

PlanState StateOf(const PlanTask& task, const HolePlan& plan, double end_head) {
  const Line& line = task.line;
  PlanState state;
  state.head.resize(static_cast<std::size_t>(line.rows) + 1);
  state.flow.resize(state.head.size());
  std::vector<double> normal;
  double head = end_head;
  double flow = 0;
  std::size_t furrow = plan.size();
  for (int row = line.rows; row >= 1; --row) {
    const auto i = static_cast<std::size_t>(row);
    state.head[i] = head;
    if (furrow > 0 && task.furrows[furrow - 1].row == row) {
      --furrow;
      const double area = AreaByInches(static_cast<double>(task.sizes[plan[furrow]]), task.furrows[furrow].holes);
      const double out = OrificeFlow(area, head, line.discharge_coef);
      flow += out;
      normal.push_back(out / task.furrows[furrow].ratio);
    }
    state.flow[i] = flow;
    const double ratio = FlowPower(static_cast<float>(flow)) / line.dia_power[i];
    head = head - line.rise[i] + SpanFriction(line.length[i], ratio, line.friction_factor);
  }
  std::sort(normal.begin(), normal.end());
  const int quarter = LowQuarterCount(task);
  double sum = 0;
  for (int i = 0; i < quarter; ++i) sum += normal[static_cast<std::size_t>(i)];
  state.level = normal[static_cast<std::size_t>(quarter - 1)];
  state.uniformity = 100 * sum / quarter / static_cast<double>(task.average);
  return state;
}

bool Holds(const Range& range, double value) {
  const double stray = 1e-6 * (1 + std::fabs(value));
  return value >= range.low - stray && value <= range.high + stray;
}

bool Holds(const PlanTask& task, const PlanBox& box, const PlanState& state) {
  const std::size_t furrows = task.furrows.size();
  const std::array<std::size_t, kFlowMarks> marks = {furrows * 3 / 4, furrows / 2, furrows / 4, 0};
  bool holds = Holds(box.end_head, state.head.back()) && Holds(box.level, state.level);
  for (std::size_t mark = 0; mark < kFlowMarks; ++mark) {
    const auto row = static_cast<std::size_t>(task.furrows[marks[mark]].row);
    holds = holds && Holds(box.flow[mark], state.flow[row]);
    if (mark + 1 < kFlowMarks) holds = holds && Holds(box.head[mark], state.head[row]);
  }
  return holds && Holds(box.head.back(), state.head[1]);
}

// Follows plans of random lines down the cuts of the boxes that `proven` makes, a task that the line's own may differ
// from. How many plans fell out of their box or rose above its bound, of how many.
struct Followed {
  int lost = 0;
  int plans = 0;
};

template <typename Tamper>
Followed FollowPlans(int rounds, const Tamper& tamper) {
  Followed followed;
  Random random(7);
  for (int round = 0; round < rounds; ++round) {
    const PlanTask task =
        round % 2 == 0 ? RandomTask(random, random.Whole(4, 40), 4, 4) : RandomField(random, random.Whole(4, 40), 4, 4);
    const PlanTask proven = tamper(task);
    PlanJudge judge(task);
    PlanBounds bounds(proven);
    for (int trial = 0; trial < 12; ++trial) {
      HolePlan plan(task.furrows.size(), static_cast<std::uint16_t>(random.Whole(0, 3)));
      for (int cut = 0; cut < 3; ++cut) {
        const auto from = static_cast<std::ptrdiff_t>(random.Whole(0, static_cast<int>(plan.size()) - 1));
        std::fill(plan.begin() + from, plan.end(), static_cast<std::uint16_t>(random.Whole(0, 3)));
      }
      const std::optional<PlanOutcome> outcome = judge.Judge(plan);
      if (!outcome) continue;
      const PlanState state = StateOf(task, plan, outcome->end_head);
      const double wanted = state.uniformity - random.Real(0.01, 3);
      ++followed.plans;
      PlanBox box = bounds.Whole(wanted);
      HolePlan of_the_bound;
      bool kept = Holds(proven, box, state) && box.bound >= state.uniformity;
      for (int cut = 0; kept && cut < 40; ++cut) {
        kept = bounds.Bound(box, wanted, of_the_bound) && Holds(proven, box, state) && box.bound >= state.uniformity;
        const auto [one, other] = bounds.Split(box);
        box = Holds(proven, one, state) ? one : other;
      }
      if (!kept) ++followed.lost;
    }
  }
  return followed;
}

// A chord lies on or above what bends upward, a tangent on or below it: at flows of 10 to 30 gallons per minute, whose
// powers are far from a straight line, each bound holds everywhere, and the other one doesn't.
TEST(PlanBounds, AStraightLineBoundsFrictionFromItsSide) {
  constexpr double kSteps = 2;  // to a gallon per minute
  constexpr double kScale = 0.004;
  std::vector<double> power_at(101);
  for (std::size_t i = 0; i < power_at.size(); ++i)
    power_at[i] = FlowPower(static_cast<float>(static_cast<double>(i) / kSteps));
  for (const Range& range : {Range{10, 30}, Range{0, 3.3}, Range{17.2, 17.9}, Range{-1, 49.9}}) {
    const FlowLine chord = LineByPower(power_at, kSteps, kScale, range, true);
    const FlowLine tangent = LineByPower(power_at, kSteps, kScale, range, false);
    double above = 0;
    for (double flow = std::max(range.low, 0.0); flow <= range.high; flow += 0.1) {
      const double friction = kScale * FlowPower(static_cast<float>(flow));
      const double slack = 1e-6 * friction + 1e-9;
      EXPECT_GE(chord.at_none + chord.slope * flow, friction - slack) << flow;
      EXPECT_LE(tangent.at_none + tangent.slope * flow, friction + slack) << flow;
      above = std::max(above, (chord.slope - tangent.slope) * flow + chord.at_none - tangent.at_none);
    }
    EXPECT_GT(above, 1e-5) << "the two are far apart where the range is not narrow";
  }
}

// Whatever is paid for heads, the bound is above every plan of its box. Four furrows are a mark each, so that a box can
// hold their heads as narrowly as the plan has them, while far apart sizes leave the flow in the pipe open: what is
// left of the bound at high prices is the straight lines of friction in the long spans between them.
TEST(PlanBounds, HoldAtAnyPricesOfHeads) {
  Random random(11);
  int plans = 0;
  for (int round = 0; round < 40; ++round) {
    PlanTask task = RandomTask(random, 4, 1, 4);
    const auto middle = static_cast<double>(task.sizes.front());
    task.sizes = {static_cast<float>(middle * 0.7), static_cast<float>(middle), static_cast<float>(middle * 1.4)};
    std::fill(task.line.length.begin(), task.line.length.end(), random.Real(100, 900));
    PlanJudge judge(task);
    PlanBounds bounds(task);
    EveryPlan(task, [&](const HolePlan& plan) {
      const std::optional<PlanOutcome> outcome = judge.Judge(plan);
      if (!outcome) return;
      const PlanState state = StateOf(task, plan, outcome->end_head);
      const double wanted = state.uniformity - 1;
      PlanBox box = bounds.Whole(wanted);
      const auto narrow = [](double value) { return Range{value - 1e-4, value + 1e-4}; };
      box.end_head = narrow(state.head.back());
      for (std::size_t mark = 0; mark < kFlowMarks; ++mark) box.head[mark] = narrow(state.head[4 - mark]);
      const double most = std::pow(10, random.Real(0, 4));
      for (int i = 0; i < 4; ++i) box.head_prices.push_back(static_cast<float>(random.Real(-most, most)));
      ++plans;
      HolePlan of_the_bound;
      EXPECT_TRUE(bounds.Bound(box, wanted, of_the_bound)) << round << ", a plan of " << state.uniformity;
      EXPECT_GE(box.bound, state.uniformity) << round;
    });
  }
  EXPECT_GT(plans, 100);
}

// No cut and no narrowing loses a plan, whatever it is, and no bound is below one of its box.
TEST(PlanBounds, KeepEveryPlanInABoxAndBelowItsBound) {
  const Followed followed = FollowPlans(static_cast<int>(Rounds(60)), [](const PlanTask& task) { return task; });
  EXPECT_EQ(followed.lost, 0) << "of " << followed.plans;
  EXPECT_GT(followed.plans, 100);
}

// Bounds that are made wrong on purpose are found out: those of a line that gets less water, of one with more friction,
// of one whose heads are held lower, and of one that may change the punch less often.
TEST(PlanBounds, AreFoundOutWhereTheyAreWrong) {
  const auto lost = [](const auto& tamper) { return FollowPlans(60, tamper).lost; };
  EXPECT_GT(lost([](PlanTask task) {
              task.target *= 0.99F;
              return task;
            }),
            0);
  EXPECT_GT(lost([](PlanTask task) {
              task.line.friction_factor *= 1.5;
              return task;
            }),
            0);
  EXPECT_GT(lost([](PlanTask task) {
              task.highest_head *= 0.8;
              return task;
            }),
            0);
  EXPECT_GT(lost([](PlanTask task) {
              task.stretches = 1;
              return task;
            }),
            0);
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

// Each number of stretches allows the plans of the one before it, too. Of so few furrows every plan is looked at, so
// that each figure is the best of all plans with as many stretches.
TEST(BestHoles, TellsWhatOneMoreStretchBuys) {
  Random random(8);
  int rounds_with_plans = 0;
  for (int round = 0; round < 12; ++round) {
    const PlanTask task = RandomField(random, 9, 3, 3);
    PlanJudge judge(task);
    std::vector<float> all(5, 0);
    PlanTask wide = task;
    wide.stretches = 5;
    EveryPlan(wide, [&](const HolePlan& plan) {
      const auto outcome = judge.Judge(plan);
      if (!outcome) return;
      for (auto i = static_cast<std::size_t>(outcome->stretches - 1); i < all.size(); ++i) {
        all[i] = std::max(all[i], outcome->uniformity);
      }
    });
    rounds_with_plans += all.back() > 0;
    EXPECT_EQ(BestByStretches(task, FindBestHoles(task, {}, {}), 5, {}), all) << round;
  }
  EXPECT_GT(rounds_with_plans, 6);
}

// On a long line the search itself leaves the figures for its own numbers of stretches.
TEST(BestHoles, KeepsTheBestByStretchesOfALongLine) {
  Random random(4);
  const PlanTask task = RandomField(random, 90, 5, 3);
  const BestHoles found = FindBestHoles(task, {}, {});
  ASSERT_TRUE(found.best.has_value());
  ASSERT_EQ(found.by_stretches.size(), 3U);
  const std::vector<float> best = BestByStretches(task, found, 5, {});
  ASSERT_EQ(best.size(), 5U);
  EXPECT_TRUE(std::is_sorted(best.begin(), best.end()));
  EXPECT_GE(best[2], found.best->outcome.uniformity);
  // A plan known beforehand says nothing of fewer stretches than it has.
  const BestHoles knowing = FindBestHoles(task, {{found.best->plan, task.first_head}}, {});
  ASSERT_GT(found.best->outcome.stretches, 1);
  EXPECT_EQ(knowing.by_stretches[0], found.by_stretches[0]);
  EXPECT_LT(knowing.by_stretches[0], found.best->outcome.uniformity);
  int told = 0;
  EXPECT_LT(BestByStretches(task, {}, 5, [&](const BestHolesProgress&) { return ++told < 3; }).size(), 5U);
}

// Where the search for the head begins turns the last decimal of some plans. Whatever head a known plan is known at,
// the plan found is not below it.
TEST(BestHoles, AreNeverBelowAKnownPlan) {
  Random random(9);
  int apart = 0;
  for (int round = 0; round < 40; ++round) {
    const PlanTask task = RandomField(random, 12, 2, 2);
    PlanJudge judge(task);
    const HolePlan plain(12, static_cast<std::uint16_t>(round % 2));
    const double head = random.Real(0.5, 3);
    const auto known = judge.Judge(plain, head);
    if (!known) continue;
    apart += known->uniformity != judge.Judge(plain)->uniformity;
    const BestHoles found = FindBestHoles(task, {{plain, head}}, {});
    ASSERT_TRUE(found.best.has_value()) << round;
    EXPECT_GE(found.best->outcome.uniformity, known->uniformity) << round;
    EXPECT_GE(found.bound, found.best->outcome.uniformity) << round;
    const auto again = judge.Judge(found.best->plan, found.best->outcome.first_head);
    EXPECT_EQ(again->uniformity, found.best->outcome.uniformity) << round;
  }
  EXPECT_GT(apart, 0);
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
