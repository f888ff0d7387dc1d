#include "record/hole_size_table.h"

#include <array>
#include <string_view>

namespace torvale {
namespace {

// "2-/8" at row 36 is the table's own text for 2.125; a hole typed as 2-1/8 does not match it.
constexpr std::array<std::string_view, 51> kNames = {
    "0",       "1/32",    "1/16",   "3/32",    "1/8",    "3/16",    "1/4",    "5/16",    "3/8",    "7/16",    "1/2",
    "9/16",    "5/8",     "11/16",  "3/4",     "13/16",  "7/8",     "15/16",  "1",       "1-1/16", "1-1/8",   "1-3/16",
    "1-1/4",   "1-5/16",  "1-3/8",  "1-7/16",  "1-1/2",  "1-9/16",  "1-5/8",  "1-11/16", "1-3/4",  "1-13/16", "1-7/8",
    "1-15/16", "2",       "2-1/16", "2-/8",    "2-3/16", "2-1/4",   "2-5/16", "2-3/8",   "2-7/16", "2-1/2",   "2-9/16",
    "2-5/8",   "2-11/16", "2-3/4",  "2-13/16", "2-7/8",  "2-15/16", "3"};

}  // namespace

HoleSizeNames ListedSizeNames() {
  HoleSizeNames names;
  for (int row = 0; row <= kHoleSizes; ++row) names[row] = kNames.at(static_cast<std::size_t>(row));
  return names;
}

HoleSizeValues ListedSizeValues() {
  HoleSizeValues values;
  for (int row = 0; row <= kHoleSizes; ++row) {
    values[row] = row <= 3 ? static_cast<float>(row) / 32.0F : static_cast<float>(row - 2) / 16.0F;
  }
  return values;
}

}  // namespace torvale
