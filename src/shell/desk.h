#pragma once

#include <cstddef>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The desk's sections: opening and closing them, what stands in them, and the order of the comparison.

// The sections that were open when the program ended last are open again.
void OpenDesk(Program& program);
// Opens the section with that index, or closes it; remembered for the next start.
void ToggleDeskSection(Program& program, std::size_t section);
// Brings the list of remarks up to date with `Program::remarks`.
void ShowRemarks(Program& program);

// Whether the grid of that name stands on the desk.
bool IsDeskGrid(std::string_view grid);
// Sorts by a column; by the same once more the other way round, and then in the order of their making.
void SortComparisonBy(Program& program, int column);

}  // namespace torvale
