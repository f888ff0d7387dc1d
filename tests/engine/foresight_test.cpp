// The search on the far-end head with its marches foreseen, against the plain one: everything that comes out, stopped
// at any pause or not, to the bit.
#include <gtest/gtest.h>

#include <bit>
#include <memory>

#include "engine/end_head.h"
#include "support/lanes_here.h"
#include "support/long_runs.h"
#include "support/random_slope_field.h"

namespace torvale {
namespace {

struct Solved {
  // `stop_at` is the pause at which the search is stopped, 0 for never; `idle` what each answer promises.
  Solved(const SlopeField& field, double first_head, EndHeadForm form, long stop_at, long idle,
         VectorLanes lanes = WidestLanes()) {
    const auto size = static_cast<std::size_t>(field.line.rows) + 1;
    head.assign(size, -7);  // what stood there before
    flow.assign(size, 0);
    area.assign(size, 0);
    head.back() = first_head;
    const auto pause = [&](long due, float /*flow*/) {
      pauses += due;
      if (stop_at == 0) return Pause{false, idle};
      return Pause{pauses >= stop_at, std::min(idle, std::max(0L, stop_at - pauses - 1))};
    };
    try {
      SolveEndHead(field.line, field.target, {head.data(), flow.data(), area.data()}, pause, form, search, lanes);
    } catch (const RunTimeFault&) {
      fault = true;
    }
  }

  std::vector<double> head;
  std::vector<float> flow, area;
  EndHeadSearch search;
  long pauses = 0;
  bool fault = false;
};

template <typename T>
bool SameBits(const std::vector<T>& a, const std::vector<T>& b) {
  using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](T x, T y) { return std::bit_cast<Bits>(x) == std::bit_cast<Bits>(y); });
}

void ExpectSame(const Solved& plain, const Solved& fast) {
  EXPECT_TRUE(SameBits(plain.head, fast.head));
  EXPECT_TRUE(SameBits(plain.flow, fast.flow));
  EXPECT_TRUE(SameBits(plain.area, fast.area));
  EXPECT_EQ(plain.pauses, fast.pauses);
  EXPECT_EQ(plain.fault, fast.fault);
  EXPECT_EQ(plain.search.outcome, fast.search.outcome);
  EXPECT_EQ(plain.search.tries, fast.search.tries);
  EXPECT_EQ(plain.search.marches, fast.search.marches);
  EXPECT_EQ(plain.search.fail_row, fast.search.fail_row);
  EXPECT_EQ(plain.search.last_step, fast.search.last_step);
  EXPECT_EQ(plain.search.flow, fast.search.flow);
  EXPECT_EQ(plain.search.empty_row, fast.search.empty_row);
}

TEST(EndHeadForesight, ChangesNothingThatComesOut) {
  const unsigned fields = LongRun(1'000U, 20'000U, 100'000U);
  int outcomes[4] = {};
  for (unsigned seed = 1; seed <= fields && !HasFailure(); ++seed) {
    RandomSlopeField random(seed);
    const auto record = std::make_unique<DesignRecord>();
    random.Fill(*record, seed % 10 == 0 ? 300 : 60);
    const double rise = random.Real(-0.01, 0.01);
    for (int row = 1; row <= record->HoleRows; ++row) {
      record->DesignElev[row] = static_cast<float>(static_cast<double>(record->CrownElev[row]) + row * rise);
    }
    const double first_head = random.FirstHead();
    SlopeField field;
    PrepareSlopeField(*record, first_head, random.SurveyKind(), field);
    for (const long stop_at : {0, random.Whole(1, 3000)}) {
      const long idle = random.OneIn(3) ? random.Whole(0, 2000) : 1'000'000'000;
      SCOPED_TRACE("seed " + std::to_string(seed) + ", stopped at " + std::to_string(stop_at) + ", idle " +
                   std::to_string(idle));
      const Solved plain(field, first_head, EndHeadForm::kPlain, stop_at, idle);
      for (const VectorLanes lanes : LanesHere()) {
        ExpectSame(plain, Solved(field, first_head, EndHeadForm::kFast, stop_at, idle, lanes));
      }
      ++outcomes[static_cast<int>(plain.search.outcome)];
    }
  }
  EXPECT_GT(outcomes[static_cast<int>(EndHeadSearch::Outcome::kConverged)], 300);
  EXPECT_GT(outcomes[static_cast<int>(EndHeadSearch::Outcome::kStopped)], 200);
  EXPECT_GT(outcomes[static_cast<int>(EndHeadSearch::Outcome::kTryLimit)], 50);
}

}  // namespace
}  // namespace torvale
