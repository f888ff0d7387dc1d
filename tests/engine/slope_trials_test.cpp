// The fast slope search against the plain one: every figure of every trial, to the bit.
#include "engine/slope_trials.h"

#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <cstdlib>
#include <memory>
#include <new>

#include "support/lanes_here.h"
#include "support/long_runs.h"
#include "support/random_slope_field.h"

namespace {
std::atomic<long> allocations{0};
}  // namespace

// Counts what is allocated, for the search that must allocate nothing after its start.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace torvale {
namespace {

bool SameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool SameTrial(const SlopeTrial& a, const SlopeTrial& b) {
  return SameBits(a.slope, b.slope) && SameBits(a.uniformity, b.uniformity) && SameBits(a.lowest_head, b.lowest_head) &&
         SameBits(a.highest_head, b.highest_head) &&
         std::bit_cast<std::uint64_t>(a.end_head) == std::bit_cast<std::uint64_t>(b.end_head) &&
         a.search.tries == b.search.tries && a.search.marches == b.search.marches &&
         a.search.fail_row == b.search.fail_row && a.search.last_step == b.search.last_step &&
         SameBits(a.search.flow, b.search.flow);
}

struct Found {
  std::vector<SlopeTrial> trials;
  SlopeSearchEnd end;
};

bool SameSearch(const Found& a, const Found& b) {
  if (a.end.way != b.end.way || a.trials.size() != b.trials.size()) return false;
  if (a.end.way == SlopeSearchEnd::Way::kGaveUp && !SameBits(a.end.slope, b.end.slope)) return false;
  for (std::size_t i = 0; i < a.trials.size(); ++i) {
    if (!SameTrial(a.trials[i], b.trials[i])) return false;
  }
  return true;
}

// A field and its plain search, of at most so many trials.
struct Searched {
  Searched(unsigned seed, int most_rows, std::size_t most) : limit(most) {
    RandomSlopeField random(seed);
    const auto record = std::make_unique<DesignRecord>();
    random.Fill(*record, most_rows);
    const double first_head = random.FirstHead();
    PrepareSlopeField(*record, first_head, random.SurveyKind(), field);
    direction = random.OneIn(2) ? CrownDirection::kFalling : CrownDirection::kRising;
    level = LevelOf(field);
    plain.end = SearchSlopesPlainly(field, direction, level.lowest_head, Keep(plain));
  }
  SlopeTrialFn Keep(Found& found) const {
    return [this, &found](const SlopeTrial& trial) {
      found.trials.push_back(trial);
      return found.trials.size() < limit;
    };
  }
  Found Fast(const SlopeSearchManner& manner) const {
    Found found;
    found.end = SearchSlopes(field, direction, level, manner, Keep(found));
    return found;
  }

  std::size_t limit;
  SlopeField field;
  CrownDirection direction = CrownDirection::kFalling;
  LevelMarch level;
  Found plain;
};

unsigned Fields() {
  return LongRun(1'000U, 30'000U, 100'000U);
}

TEST(SlopeTrials, FastIsPlainToTheBit) {
  int ways[3] = {};
  std::size_t trials = 0;
  for (unsigned seed = 1; seed <= Fields() && !HasFailure(); ++seed) {
    const Searched searched(seed, seed % 10 == 0 ? 300 : 60, 60);
    for (const VectorLanes lanes : LanesHere()) {
      for (const int threads : {1, 4}) {
        // Threads wait for each other, which is slow where others keep the processor busy.
        if (threads > 1 && seed % 8 != 0) continue;
        EXPECT_TRUE(SameSearch(searched.plain, searched.Fast({lanes, threads, 1})))
            << "seed " << seed << ", lanes " << static_cast<int>(lanes) << ", threads " << threads;
      }
    }
    ++ways[static_cast<int>(searched.plain.end.way)];
    trials += searched.plain.trials.size();
  }
  // Every way out must have been taken often, or the comparison would say little.
  EXPECT_GT(ways[static_cast<int>(SlopeSearchEnd::Way::kSpent)], 200);
  EXPECT_GT(ways[static_cast<int>(SlopeSearchEnd::Way::kStopped)], 100);
  EXPECT_GT(ways[static_cast<int>(SlopeSearchEnd::Way::kGaveUp)], 5);
  EXPECT_GT(trials, 20000U);
}

// FNV-1a over the bits of a list.
template <typename T>
std::uint64_t HashOf(const std::vector<T>& list) {
  std::uint64_t hash = 14695981039346656037U;
  for (const T each : list) {
    hash = (hash ^ std::bit_cast<std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>>(each)) *
           std::uint64_t{1099511628211U};
  }
  return hash;
}

// The heads and the flows of every trial: those that the plain search leaves, against the march from the far-end head
// that the fast one tells of, over the crown of its slope.
TEST(SlopeTrials, EveryTrialHasTheHeadsAndFlowsOfThePlainOne) {
  std::size_t compared = 0;
  for (unsigned seed = 1; seed <= Fields() / 10 && !HasFailure(); ++seed) {
    const Searched searched(seed, 60, 60);
    const SlopeField& field = searched.field;
    PlainTrialWork plain;
    PlainTrialWork fast;
    PreparePlainTrial(field, plain);
    PreparePlainTrial(field, fast);
    for (const SlopeTrial& told : searched.Fast({WidestLanes(), 1, 1}).trials) {
      SlopeTrial trial;
      ASSERT_TRUE(TryPlainly(field, told.slope, plain, trial));
      fast.crown[0] = field.crown_beyond;
      fast.crown[1] = field.first_crown;
      LayCrownAt(told.slope, field.span.data(), field.line.rows, field.grows_downward, fast.crown.data());
      LayOnLine(fast.crown.data(), field.elevations, fast.line);
      std::fill(fast.flow.begin(), fast.flow.end(), 0.0F);
      fast.head[static_cast<std::size_t>(field.line.rows)] = told.end_head;
      const Profile profile = {fast.head.data(), fast.flow.data(), fast.area.data()};
      MarchPlace place = {field.line.rows, 0};
      MarchRows(fast.line, profile, place, field.line.rows);
      TakeOrifice(fast.line, profile, place);
      fast.head[0] = plain.head[0];  // of the march before, which no design looks at
      ASSERT_EQ(HashOf(plain.head), HashOf(fast.head)) << "seed " << seed << ", slope " << told.slope;
      ASSERT_EQ(HashOf(plain.flow), HashOf(fast.flow)) << "seed " << seed << ", slope " << told.slope;
      ++compared;
    }
  }
  EXPECT_GT(compared, 2000U);
}

// Bounds that promise three times what is proved are found out.
TEST(SlopeTrials, AWrongBoundIsSeen) {
  int wrong = 0;
  for (unsigned seed = 1; seed <= 150; ++seed) {
    const Searched searched(seed, 60, 60);
    if (!SameSearch(searched.plain, searched.Fast({WidestLanes(), 1, 3}))) ++wrong;
  }
  EXPECT_GT(wrong, 0);
}

Searched LongSearch() {
  for (unsigned seed = 1;; ++seed) {
    Searched searched(seed, 120, 300);
    if (searched.plain.trials.size() == 300) return searched;
  }
}

TEST(SlopeTrials, NothingIsAllocatedAfterTheStart) {
  const Searched searched = LongSearch();
  for (const int threads : {1, 4}) {
    long first = 0;
    long last = 0;
    int told = 0;
    SearchSlopes(searched.field, searched.direction, searched.level, {WidestLanes(), threads, 1},
                 [&](const SlopeTrial&) {
                   (told++ == 0 ? first : last) = allocations;
                   return told < 300;
                 });
    EXPECT_EQ(told, 300);
    EXPECT_EQ(first, last);
  }
}

// What the caller throws comes through, and the threads have ended.
TEST(SlopeTrials, AnExceptionEndsTheSearch) {
  const Searched searched = LongSearch();
  for (const int threads : {1, 4}) {
    int told = 0;
    EXPECT_THROW(SearchSlopes(searched.field, searched.direction, searched.level, {WidestLanes(), threads, 1},
                              [&](const SlopeTrial&) -> bool {
                                if (++told == 20) throw RunTimeFault{Fault::kOverflow};
                                return true;
                              }),
                 RunTimeFault);
    EXPECT_EQ(told, 20);
  }
}

TEST(SlopeTrials, StopsWhenTold) {
  const Searched searched = LongSearch();
  int told = 0;
  const SlopeSearchEnd end = SearchSlopes(searched.field, searched.direction, searched.level, {},
                                          [&](const SlopeTrial&) { return ++told < 7; });
  EXPECT_EQ(end.way, SlopeSearchEnd::Way::kStopped);
  EXPECT_EQ(told, 7);
}

}  // namespace
}  // namespace torvale
