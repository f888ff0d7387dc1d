// The hole sizes that are listed: the vocabulary of every hole size in the program.
#pragma once

#include <string>

#include "record/row_array.h"
#include "record/units.h"

namespace torvale {

inline constexpr int kHoleSizes = 50;  // listed hole sizes, rows 1 to 50 of the table

using HoleSizeNames = BoundedArray<std::string, kHoleSizes + 1>;
using HoleSizeValues = BoundedArray<Inches, kHoleSizes + 1>;

HoleSizeNames ListedSizeNames();
HoleSizeValues ListedSizeValues();

// Rows 0 to 50, and an empty row to spare. Row 0 is "0" with the value 0; the rows rise by 1/32 of an inch to row 3 and
// by 1/16 from row 4 on. It is the same in every program and never changes.
struct HoleSizeTable {
  HoleSizeNames HoleSizeName = ListedSizeNames();
  HoleSizeValues HoleSizeValue = ListedSizeValues();
};

}  // namespace torvale
