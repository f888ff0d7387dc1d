// The table of hole sizes, asked by name and by value.
#pragma once

#include <string_view>

#include "record/hole_size_table.h"

namespace torvale {

// First row 1 to 50 whose name equals `name` exactly, or 0 where there is none. A trailing blank makes another name.
int HoleSizeByName(const HoleSizeTable& sizes, std::string_view name);

// First row 1 to 50 whose value equals `value` exactly as 32-bit floats, or 0. There is no rounding to a near size.
int HoleSizeByValue(const HoleSizeTable& sizes, Inches value);

// The text that a step of the hole size to `index` (0 to 50) shows: `HoleSizeName`, but nothing at index 0.
std::string_view SteppedHoleSize(const HoleSizeTable& sizes, int index);

}  // namespace torvale
