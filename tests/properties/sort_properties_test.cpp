// The sort's order and pairing on any list.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "engine/uniformity.h"

namespace torvale {
namespace {

RC_GTEST_PROP(SortProperties, AscendingAndPaired, ()) {
  // Few kinds of key, so that equal ones abound.
  const auto given = *rc::gen::container<std::vector<int>>(rc::gen::inRange(-20, 20));
  const int size = static_cast<int>(std::min<std::size_t>(given.size(), kLastRow));
  RowArray<float> keys;
  RowArray<std::int16_t> followers;
  std::multimap<std::int16_t, float> key_of;
  for (int place = 1; place <= size; ++place) {
    keys[place] = static_cast<float>(given[static_cast<std::size_t>(place - 1)]) / 3;
    followers[place] = static_cast<std::int16_t>(place);
    key_of.emplace(followers[place], keys[place]);
  }
  keys[size + 1] = -99;  // past the list: must stay
  QSort(1, static_cast<std::int16_t>(size), keys, followers);
  for (int place = 2; place <= size; ++place) RC_ASSERT(keys[place - 1] <= keys[place]);
  for (int place = 1; place <= size; ++place) {
    const auto found = key_of.find(followers[place]);
    RC_ASSERT(found != key_of.end());
    RC_ASSERT(found->second == keys[place]);
    key_of.erase(found);
  }
  RC_ASSERT(key_of.empty());
  RC_ASSERT(keys[size + 1] == -99);
}

}  // namespace
}  // namespace torvale
