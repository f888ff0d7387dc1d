#include "record/hole_sizes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/fault_of.h"

namespace torvale {
namespace {

// The catalogue as punches and gates are sold: thirty-seconds up to 3/32, sixteenths from 1/8 up. Every value is a
// binary fraction and so exact in 32 bits. "2-/8" is how the catalogue writes 2-1/8.
const std::vector<std::pair<std::string, float>> kCatalogue = {
    {"0", 0},          {"1/32", 0.03125F},   {"1/16", 0.0625F}, {"3/32", 0.09375F},
    {"1/8", 0.125F},   {"3/16", 0.1875F},    {"1/4", 0.25F},    {"5/16", 0.3125F},
    {"3/8", 0.375F},   {"7/16", 0.4375F},    {"1/2", 0.5F},     {"9/16", 0.5625F},
    {"5/8", 0.625F},   {"11/16", 0.6875F},   {"3/4", 0.75F},    {"13/16", 0.8125F},
    {"7/8", 0.875F},   {"15/16", 0.9375F},   {"1", 1},          {"1-1/16", 1.0625F},
    {"1-1/8", 1.125F}, {"1-3/16", 1.1875F},  {"1-1/4", 1.25F},  {"1-5/16", 1.3125F},
    {"1-3/8", 1.375F}, {"1-7/16", 1.4375F},  {"1-1/2", 1.5F},   {"1-9/16", 1.5625F},
    {"1-5/8", 1.625F}, {"1-11/16", 1.6875F}, {"1-3/4", 1.75F},  {"1-13/16", 1.8125F},
    {"1-7/8", 1.875F}, {"1-15/16", 1.9375F}, {"2", 2},          {"2-1/16", 2.0625F},
    {"2-/8", 2.125F},  {"2-3/16", 2.1875F},  {"2-1/4", 2.25F},  {"2-5/16", 2.3125F},
    {"2-3/8", 2.375F}, {"2-7/16", 2.4375F},  {"2-1/2", 2.5F},   {"2-9/16", 2.5625F},
    {"2-5/8", 2.625F}, {"2-11/16", 2.6875F}, {"2-3/4", 2.75F},  {"2-13/16", 2.8125F},
    {"2-7/8", 2.875F}, {"2-15/16", 2.9375F}, {"3", 3},
};

TEST(HoleSizes, TableRowByRow) {
  const HoleSizeTable sizes;
  ASSERT_EQ(kCatalogue.size(), 51U);
  for (int row = 0; row <= 50; ++row) {
    EXPECT_EQ(sizes.HoleSizeName[row], kCatalogue[static_cast<std::size_t>(row)].first) << row;
    EXPECT_EQ(sizes.HoleSizeValue[row], kCatalogue[static_cast<std::size_t>(row)].second) << row;
  }
  EXPECT_EQ(sizes.HoleSizeName[51], "");
  EXPECT_EQ(sizes.HoleSizeValue[51], 0);
}

TEST(HoleSizes, NameIsFoundByItsExactText) {
  const HoleSizeTable sizes;
  EXPECT_EQ(HoleSizeByName(sizes, "1/32"), 1);
  EXPECT_EQ(HoleSizeByName(sizes, "1-1/4"), 22);
  EXPECT_EQ(HoleSizeByName(sizes, "3"), 50);
  EXPECT_EQ(HoleSizeByName(sizes, "2-/8"), 36);
  for (const char* const other : {"2-1/8", "1/4 ", " 1/4", "0.25", "", "4", "1 /4"}) {
    EXPECT_EQ(HoleSizeByName(sizes, other), 0) << other;
  }
}

// Row 0 is no hole: looking "0" up finds nothing, which is row 0 all the same.
TEST(HoleSizes, ZeroIsNoListedSize) {
  const HoleSizeTable sizes;
  EXPECT_EQ(HoleSizeByName(sizes, "0"), 0);
  EXPECT_EQ(HoleSizeByValue(sizes, 0), 0);
}

TEST(HoleSizes, ValueIsFoundByItsExactBits) {
  const HoleSizeTable sizes;
  EXPECT_EQ(HoleSizeByValue(sizes, 0.25F), 6);
  EXPECT_EQ(HoleSizeByValue(sizes, 2.125F), 36);
  EXPECT_EQ(HoleSizeByValue(sizes, 3.0F), 50);
  EXPECT_EQ(HoleSizeByValue(sizes, 0.2500001F), 0);
  EXPECT_EQ(HoleSizeByValue(sizes, 3.0625F), 0);
}

TEST(HoleSizes, SteppingToZeroShowsNothing) {
  const HoleSizeTable sizes;
  EXPECT_EQ(SteppedHoleSize(sizes, 0), "");
  EXPECT_EQ(SteppedHoleSize(sizes, 1), "1/32");
  EXPECT_EQ(SteppedHoleSize(sizes, 50), "3");
}

}  // namespace
}  // namespace torvale
