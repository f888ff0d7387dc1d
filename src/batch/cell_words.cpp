#include "batch/cell_words.h"

#include <cmath>

#include "base/numbers.h"

namespace torvale {

std::string PlaceOfCell(const std::string& file, int line, std::size_t column) {
  return file + ", row " + std::to_string(line) + ", column " + std::to_string(column + 1);
}

std::string NumberMisread(const std::string& cell) {
  if (cell.empty() || IsNumber(cell)) return "";
  const double read = Val(cell);
  return "\"" + cell + "\" is read as " + (std::isfinite(read) ? GeneralText(read) : "a number without end");
}

}  // namespace torvale
