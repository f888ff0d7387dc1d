#include "reports/paper.h"

#include <algorithm>

namespace torvale {

std::vector<Operations> PagesOf(const Document& document) {
  std::vector<Operations> pages;
  const Operations all(document.operations);
  for (std::size_t begin = 0;;) {
    const auto end = std::find_if(all.begin() + static_cast<std::ptrdiff_t>(begin), all.end(),
                                  [](const auto& operation) { return std::holds_alternative<NewPage>(operation); });
    const auto length = static_cast<std::size_t>(end - all.begin()) - begin;
    pages.push_back(all.subspan(begin, length));
    if (end == all.end()) return pages;
    begin += length + 1;
  }
}

LongestLines::LongestLines(Operations page) {
  for (const PrintOperation& operation : page) {
    const auto* line = std::get_if<PrintedLine>(&operation);
    if (line == nullptr) continue;
    double& end = ends_.try_emplace(StartOf(*line), line->y2).first->second;
    end = std::max(end, line->y2);
  }
}

bool LongestLines::Has(const PrintedLine& line) const {
  return ends_.at(StartOf(line)) == line.y2;
}

}  // namespace torvale
