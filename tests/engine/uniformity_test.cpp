// The sort of the furrows and the distribution uniformity.
#include "engine/uniformity.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "engine/fake_engine_host.h"
#include "engine/sheet.h"

namespace torvale {
namespace {

using Keys = std::vector<float>;
using Followers = std::vector<std::int16_t>;

struct Sorted {
  Sorted(const Keys& given_keys, const Followers& given_followers)
      : size(static_cast<std::int16_t>(given_keys.size())) {
    for (int i = 1; i <= size; ++i) {
      keys[i] = given_keys[static_cast<std::size_t>(i - 1)];
      followers[i] = given_followers[static_cast<std::size_t>(i - 1)];
    }
    QSort(1, size, keys, followers);
  }
  std::int16_t size;
  RowArray<float> keys;
  RowArray<std::int16_t> followers;
};

TEST(QSort, CarriesTheFollowersAlong) {
  const Sorted sorted({3, 1, 2}, {30, 10, 20});
  EXPECT_EQ(RowsOf(sorted.keys, 3), (Keys{1, 2, 3}));
  EXPECT_EQ(RowsOf(sorted.followers, 3), (Followers{10, 20, 30}));
}

TEST(QSort, OneEntryStays) {
  const Sorted sorted({5}, {50});
  EXPECT_EQ(sorted.keys[1], 5);
  EXPECT_EQ(sorted.followers[1], 50);
}

// No furrow at all: places 1 to 0. Nothing is touched.
TEST(QSort, NoEntry) {
  DesignRecord record;
  record.NormFurrowFlow[1] = 5;
  record.NormFurrowFlow[0] = 9;
  SortFurrows(record);
  EXPECT_EQ(record.NormFurrowFlow[1], 5);
  EXPECT_EQ(record.NormFurrowFlow[0], 9);
}

// Two equal keys: i = 1 and j = 2 both stop at the pivot and are swapped; i = 2, j = 1 end it.
TEST(QSort, TwoEqualKeysChangePlaces) {
  const Sorted sorted({7, 7}, {1, 2});
  EXPECT_EQ(RowsOf(sorted.followers, 2), (Followers{2, 1}));
}

// Three: 1 and 3 are swapped, then the middle with itself; the parts have one entry each.
TEST(QSort, ThreeEqualKeys) {
  const Sorted sorted({7, 7, 7}, {1, 2, 3});
  EXPECT_EQ(RowsOf(sorted.followers, 3), (Followers{3, 2, 1}));
}

// Four: swaps 1-4, 2-3 give 4 3 2 1; the halves 1..2 and 3..4 are swapped again: 3 4 1 2.
TEST(QSort, FourEqualKeys) {
  const Sorted sorted({7, 7, 7, 7}, {1, 2, 3, 4});
  EXPECT_EQ(RowsOf(sorted.followers, 4), (Followers{3, 4, 1, 2}));
}

// Keys 2a 1 2b 1': the pivot is the second, 1. i stops at place 1 (2a), j at place 4 (1'): swapped, 1' 1 2b 2a. i = 2
// stops (1 is the pivot), j = 3 goes down to 2: swapped with itself; i = 3, j = 1. Left part: one entry. Right
// part 3..4, both 2: swapped. The order ends as 1' 1 2a 2b.
TEST(QSort, MixedEqualKeys) {
  const Sorted sorted({2, 1, 2, 1}, {21, 11, 22, 12});
  EXPECT_EQ(RowsOf(sorted.keys, 4), (Keys{1, 1, 2, 2}));
  EXPECT_EQ(RowsOf(sorted.followers, 4), (Followers{12, 11, 21, 22}));
}

TEST(QSort, PartOfAList) {
  RowArray<float> keys;
  RowArray<std::int16_t> followers;
  const float given[] = {0, 9, 5, 4, 3, 1};
  for (int i = 0; i <= 5; ++i) keys[i] = given[i];
  QSort(2, 4, keys, followers);
  EXPECT_EQ(RowsOf(keys, 5), (Keys{9, 3, 4, 5, 1}));
}

// The sum of the two places must fit 16 bits, and the list the array.
TEST(QSort, PlacesOutOfRangeAreAFault) {
  RowArray<float> keys;
  RowArray<std::int16_t> followers;
  EXPECT_EQ(FaultOf([&] { QSort(20000, 20000, keys, followers); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([&] { QSort(1, 6000, keys, followers); }), Fault::kSubscript);
}

// A finished march ready for its uniformity: the furrows sorted, a quarter of their length counts.
struct Furrows {
  Furrows(const Keys& flows, const Followers& lengths, float average) {
    record.LowQuarter = 0.25F;
    record.HoleRows = static_cast<std::int16_t>(flows.size());
    record.AverageFurrowFlow = average;
    for (int i = 1; i <= record.HoleRows; ++i) {
      record.NormFurrowFlow[i] = flows[static_cast<std::size_t>(i - 1)];
      record.NormFurrowLength[i] = lengths[static_cast<std::size_t>(i - 1)];
      record.TotalFurrowLength += static_cast<float>(record.NormFurrowLength[i]);
    }
  }
  float Uniformity() {
    DistributionEffic(record, host);
    return record.Uniformity;
  }
  DesignRecord record;
  FakeEngineHost host;
};

TEST(DistributionEffic, EqualFurrowsAreAllEven) {
  Furrows furrows({10, 10, 10, 10}, {600, 600, 600, 600}, 10);
  EXPECT_EQ(furrows.Uniformity(), 100);
  EXPECT_EQ(furrows.host.uniformity_changes, 1);
}

TEST(DistributionEffic, OneFurrow) {
  EXPECT_EQ(Furrows({8}, {600}, 10).Uniformity(), 80);
  EXPECT_EQ(Furrows({12}, {600}, 10).Uniformity(), 100);  // never above 100
}

// 400 of 1,600 ft are a quarter: the first furrow reaches exactly that and stands alone: 8 of 10.
TEST(DistributionEffic, QuarterReachedExactly) {
  EXPECT_EQ(Furrows({8, 9, 10, 11}, {400, 400, 400, 400}, 10).Uniformity(), 80);
}

// 399 ft fall short, so that the second furrow counts whole: the mean of 8 and 9.
TEST(DistributionEffic, FurrowThatCrossesTheQuarterCountsWhole) {
  EXPECT_EQ(Furrows({8, 9, 10, 11}, {399, 401, 400, 400}, 10).Uniformity(), 85);
}

// The denominator is the target mean, 20 here, and not the 10 of the flows themselves.
TEST(DistributionEffic, DenominatorIsTheTargetMean) {
  EXPECT_EQ(Furrows({10, 10}, {600, 600}, 20).Uniformity(), 50);
}

// Entries of no flow at the front add no length but are counted among the places: (0 + 0 + 9) / 3 = 3 of 10.
TEST(DistributionEffic, ZeroFlowsAreWalkedOver) {
  EXPECT_EQ(Furrows({0, 0, 9, 10}, {400, 400, 400, 400}, 10).Uniformity(), 30);
}

// To one decimal: 8.996 of 10 is 89.96, 90.0; 8.994 is 89.9. 8.995 lies in between: 89.95 in 32 bits times 10 is half
// way between the floats 899.4999 and 899.5, to the even one, and so comes to 90.0.
TEST(DistributionEffic, OneDecimalHalfUp) {
  EXPECT_EQ(Furrows({8.996F}, {600}, 10).Uniformity(), 90.0F);
  EXPECT_EQ(Furrows({8.994F}, {600}, 10).Uniformity(), 89.9F);
  EXPECT_EQ(Furrows({8.995F}, {600}, 10).Uniformity(), 90.0F);
}

// 99.96 rounds to 100.0.
TEST(DistributionEffic, RoundsUpToAHundred) {
  EXPECT_EQ(Furrows({9.996F}, {600}, 10).Uniformity(), 100);
}

// A quarter that is never reached: the fault goes to the caller and the figure stays what it was.
TEST(DistributionEffic, QuarterNeverReachedIsAFault) {
  Furrows furrows({10, 10}, {600, 600}, 10);
  furrows.record.TotalFurrowLength = 100000;
  furrows.record.Uniformity = 77;
  EXPECT_EQ(FaultOf([&] { furrows.Uniformity(); }), Fault::kDivisionByZero);
  EXPECT_EQ(furrows.record.Uniformity, 77);
  EXPECT_EQ(furrows.host.uniformity_changes, 0);
}

TEST(DistributionEffic, NoTargetIsAFault) {
  EXPECT_EQ(FaultOf([] { Furrows({10}, {600}, 0).Uniformity(); }), Fault::kDivisionByZero);
}

// A length of 0 in all: the first place reaches its quarter of nothing.
TEST(DistributionEffic, NoLengthTakesTheFirstFurrow) {
  EXPECT_EQ(Furrows({8, 10}, {0, 0}, 10).Uniformity(), 80);
}

}  // namespace
}  // namespace torvale
