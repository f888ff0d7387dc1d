#include "record/row_array.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "base/fault_of.h"

namespace torvale {
namespace {

TEST(BoundedArray, HoldsElementsFromZeroToItsLast) {
  BoundedArray<int, 3> list;
  EXPECT_EQ(list.last(), 3);
  list[0] = 7;
  list[3] = 9;
  EXPECT_EQ(list[0], 7);
  EXPECT_EQ(list[3], 9);
}

TEST(BoundedArray, BeginsWithZerosAndEmptyTexts) {
  const BoundedArray<double, 2> numbers;
  const BoundedArray<std::string, 2> texts;
  for (int i = 0; i <= 2; ++i) {
    EXPECT_EQ(numbers[i], 0);
    EXPECT_EQ(texts[i], "");
  }
}

TEST(BoundedArray, FaultsOutsideItsBounds) {
  BoundedArray<int, 3> list;
  const BoundedArray<int, 3>& constant = list;
  for (const int outside : {-1, 4, 5285, -32768}) {
    EXPECT_EQ(FaultOf([&] { list[outside] = 1; }), Fault::kSubscript) << outside;
    EXPECT_EQ(FaultOf([&] { (void)constant[outside]; }), Fault::kSubscript) << outside;
  }
}

TEST(BoundedArray, ClearKeepsTheBounds) {
  BoundedArray<std::string, 2> texts;
  texts[2] = "text";
  texts.Clear();
  EXPECT_EQ(texts[2], "");
  EXPECT_EQ(texts.last(), 2);
  EXPECT_EQ(FaultOf([&] { texts[2] = "more"; }), std::nullopt);
  EXPECT_EQ(FaultOf([&] { texts[3] = "more"; }), Fault::kSubscript);
}

TEST(BoundedArray, DataIsTheElementsInOrder) {
  BoundedArray<int, 2> list;
  list[1] = 5;
  EXPECT_EQ(list.data() + 1, &list[1]);
  EXPECT_EQ(list.data()[1], 5);
}

TEST(BoundedArray, EqualWhereAllElementsAre) {
  BoundedArray<int, 2> a;
  BoundedArray<int, 2> b;
  EXPECT_EQ(a, b);
  b[2] = 1;
  EXPECT_NE(a, b);
}

// A line of 5,280 one-foot holes and the look-ahead of four rows.
TEST(RowArray, ReachesTo5284) {
  RowArray<std::int16_t> rows;
  EXPECT_EQ(FaultOf([&] { rows[5284] = 1; }), std::nullopt);
  EXPECT_EQ(FaultOf([&] { rows[5285] = 1; }), Fault::kSubscript);
}

}  // namespace
}  // namespace torvale
