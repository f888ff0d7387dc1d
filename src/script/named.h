// What a script names, found on the screens. A name that nothing has is a ScriptError.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

Grid& NamedGrid(Program& program, std::string_view name);
TextField& NamedField(Program& program, std::string_view name);
const ListBox& NamedList(Program& program, std::string_view name);

// Throws ScriptError where the grid has no such cell.
void NeedCell(const Grid& grid, int row, int column);

}  // namespace torvale
