#pragma once

#include <string_view>

namespace torvale {

// The hole sizes that are listed, rows 0 to 50: the vocabulary of every hole size in the program. Row 0 is "0" with the
// value 0; the rows rise by 1/32 of an inch to row 3 and by 1/16 from row 4 on.
std::string_view ListedSizeName(int row);
float ListedSizeValue(int row);  // inches

}  // namespace torvale
