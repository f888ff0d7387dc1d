#include "batch/cell_words.h"

#include <cmath>

#include "base/numbers.h"
#include "batch/words.h"

namespace torvale {

std::string PlaceOfRow(const std::string& file, int line) {
  return file + ", row " + std::to_string(line);
}

std::string PlaceOfCell(const std::string& file, int line, std::size_t column) {
  return PlaceOfRow(file, line) + ", column " + std::to_string(column + 1);
}

std::string At(const std::string& place, const SpokenComplaint& complaint) {
  return place + ": " + complaint.text();
}

std::string At(const std::string& file, const CsvFault& fault) {
  return PlaceOfCell(file, fault.line, static_cast<std::size_t>(fault.column) - 1) + ": " + fault.what();
}

SpokenComplaint NumberMisread(const std::string& cell) {
  if (cell.empty() || IsNumber(cell)) return {};
  const double read = Val(cell);
  return std::isfinite(read) ? batch_words::kReadAs(cell, GeneralText(read)) : batch_words::kReadAsEndless(cell);
}

}  // namespace torvale
