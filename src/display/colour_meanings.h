#pragma once

#include <string_view>

#include "screen/controls.h"

namespace torvale {

// What a colour of the results says, in words for who can't tell it: no colour is the only sign of anything. Empty
// where the colour says nothing, or where the control's own text says it.
std::string_view MeaningOfColour(std::string_view control, Colour back);
// The same of a cell in that column of a grid.
std::string_view MeaningOfCellColour(std::string_view grid, int column, Colour back);

}  // namespace torvale
