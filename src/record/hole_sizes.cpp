#include "record/hole_sizes.h"

namespace torvale {

int HoleSizeByName(const DesignRecord& record, std::string_view name) {
  for (int row = 1; row <= kHoleSizes; ++row) {
    if (record.HoleSizeName[row] == name) return row;
  }
  return 0;
}

int HoleSizeByValue(const DesignRecord& record, float inches) {
  for (int row = 1; row <= kHoleSizes; ++row) {
    if (record.HoleSizeValue[row] == inches) return row;
  }
  return 0;
}

std::string_view SteppedHoleSize(const DesignRecord& record, int index) {
  return index == 0 ? std::string_view() : std::string_view(record.HoleSizeName[index]);
}

}  // namespace torvale
