// The sort against its procedure written out step by step, on random lists with many equal keys.
#include <gtest/gtest.h>

#include <random>

#include "engine/sheet.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

struct List {
  std::vector<float> keys;
  std::vector<std::int16_t> followers;
};

void Swap(List& list, int a, int b) {
  const auto i = static_cast<std::size_t>(a);
  const auto j = static_cast<std::size_t>(b);
  const float key = list.keys[i];
  list.keys[i] = list.keys[j];
  list.keys[j] = key;
  const std::int16_t follower = list.followers[i];
  list.followers[i] = list.followers[j];
  list.followers[j] = follower;
}

void NaiveSort(int low, int high, List& list) {
  const auto key = [&](int place) { return list.keys.at(static_cast<std::size_t>(place)); };
  int i = low;
  int j = high;
  const float pivot = key((low + high) / 2);
  while (i <= j) {
    while (key(i) < pivot && i < high) i = i + 1;
    while (pivot < key(j) && j > low) j = j - 1;
    if (i > j) break;
    Swap(list, i, j);
    i = i + 1;
    j = j - 1;
  }
  if (low < j) NaiveSort(low, j, list);
  if (i < high) NaiveSort(i, high, list);
}

TEST(QSortReference, RandomLists) {
  std::mt19937 random(3);
  for (int round = 0; round < 2000; ++round) {
    const int size = 1 + static_cast<int>(random() % 60);
    const unsigned kinds = 1 + static_cast<unsigned>(random() % 40);  // few kinds of key: many equal ones
    List list{std::vector<float>(static_cast<std::size_t>(size) + 1), {}};
    list.followers.resize(list.keys.size());
    RowArray<float> keys;
    RowArray<std::int16_t> followers;
    for (int place = 1; place <= size; ++place) {
      const auto p = static_cast<std::size_t>(place);
      keys[place] = list.keys[p] = static_cast<float>(random() % kinds) / 4;
      followers[place] = list.followers[p] = static_cast<std::int16_t>(place);
    }
    QSort(1, static_cast<std::int16_t>(size), keys, followers);
    NaiveSort(1, size, list);
    ASSERT_EQ(RowsOf(keys, size), std::vector<float>(list.keys.begin() + 1, list.keys.end()));
    ASSERT_EQ(RowsOf(followers, size), std::vector<std::int16_t>(list.followers.begin() + 1, list.followers.end()));
    ASSERT_TRUE(std::is_sorted(list.keys.begin() + 1, list.keys.end()));
  }
}

// The longest list that a line can give, all keys equal, rising and falling.
TEST(QSortReference, LongestList) {
  for (int slope = -1; slope <= 1; ++slope) {
    RowArray<float> keys;
    RowArray<std::int16_t> followers;
    for (int place = 1; place <= kLastRow; ++place) keys[place] = static_cast<float>(10000 + slope * place);
    QSort(1, kLastRow, keys, followers);
    EXPECT_TRUE(std::is_sorted(keys.data() + 1, keys.data() + kLastRow + 1));
  }
}

}  // namespace
}  // namespace torvale
