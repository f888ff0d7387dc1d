#include "script/named.h"

#include <string>

#include "script/quoting.h"
#include "script/words.h"

namespace torvale {

Grid& NamedGrid(Program& program, std::string_view name) {
  Grid* grid = FindGrid(program, name);
  if (grid == nullptr) throw ScriptError(script_words::kNoGrid(name));
  return *grid;
}

TextField& NamedField(Program& program, std::string_view name) {
  TextField* field = FindField(program, name);
  if (field == nullptr) throw ScriptError(script_words::kNoField(name));
  return *field;
}

const ListBox& NamedList(Program& program, std::string_view name) {
  const ListBox* list = FindList(program, name);
  if (list == nullptr) throw ScriptError(script_words::kNoList(name));
  return *list;
}

void NeedCell(const Grid& grid, int row, int column) {
  if (row >= 0 && row < grid.rows() && column >= 0 && column < grid.column_count()) return;
  throw ScriptError(script_words::kNoCell(std::to_string(row), std::to_string(column)));
}

}  // namespace torvale
