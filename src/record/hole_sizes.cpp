#include "record/hole_sizes.h"

namespace torvale {

int HoleSizeByName(const HoleSizeTable& sizes, std::string_view name) {
  for (int row = 1; row <= kHoleSizes; ++row) {
    if (sizes.HoleSizeName[row] == name) return row;
  }
  return 0;
}

int HoleSizeByValue(const HoleSizeTable& sizes, Inches value) {
  for (int row = 1; row <= kHoleSizes; ++row) {
    if (sizes.HoleSizeValue[row] == value) return row;
  }
  return 0;
}

std::string_view SteppedHoleSize(const HoleSizeTable& sizes, int index) {
  return index == 0 ? std::string_view() : std::string_view(sizes.HoleSizeName[index]);
}

}  // namespace torvale
