#include "reports/csv.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "display/grid_layout.h"
#include "record/kinds.h"
#include "reports/stale_mark.h"

namespace torvale {
namespace {

std::string Field(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

// The unit of a column whose heading on the screen has no room for it.
std::string_view MissingUnit(int column) {
  if (column == kResultPipeDia) return " (inches)";
  if (column == kResultMil) return " (thousandths of an inch)";
  if (column == kResultPlantedWidth) return " (feet)";
  return "";
}

int LastFilledRow(const Grid& grid) {
  for (int row = grid.rows() - 1; row > 0; --row) {
    for (int c = 0; c < kResultMargin; ++c) {
      if (!grid.Text(row, c).empty()) return row;
    }
  }
  return 0;
}

// The entries of a column of the hole summary, its heading left out. They are read off the texts that are shown, which
// stay as they are when a preference changes that openings are worked out with.
std::vector<std::string> Entries(std::string_view column) {
  std::vector<std::string> entries;
  column.remove_prefix(std::min(column.find('\n') + 1, column.size()));
  for (std::size_t end = column.find('\r'); end != std::string_view::npos; end = column.find('\r')) {
    entries.emplace_back(column.substr(0, end));
    column.remove_prefix(end + 1);
  }
  return entries;
}

}  // namespace

std::string Csv(const std::vector<std::vector<std::string>>& rows) {
  std::string text;
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "," : "") + Field(row[i]);
    text += "\r\n";
  }
  return text;
}

std::string ResultTableCsv(const Program& program) {
  const Grid& grid = program.main.Grid2;
  std::vector<std::vector<std::string>> rows(1);
  for (int c = 0; c < kResultMargin; ++c) {
    // What is typed into a field puts the name of the crown column over the hole numbers.
    const std::string_view heading = c == kResultHoleNumber ? ResultHeading(program, c) : grid.Text(0, c);
    rows[0].push_back(std::string(heading).append(MissingUnit(c)));
  }
  const int last = LastFilledRow(grid);
  for (int row = 1; row <= last; ++row) {
    rows.emplace_back();
    for (int c = 0; c < kResultMargin; ++c) rows.back().push_back(Trim(grid.Text(row, c)));
  }
  MarkStaleRows(program, rows);
  return Csv(rows);
}

std::string HoleSummaryCsv(const Program& program) {
  const DesignRecord& record = program.record;
  const std::vector<std::string> sizes = Entries(record.HoleSumStations);
  const std::vector<std::string> stations = Entries(record.HoleSumLengths);
  const std::vector<std::string> counts = Entries(record.HoleSumCounts);
  std::vector<std::vector<std::string>> rows = {{IsLayflat(record) ? "Hole Diameter (inches)" : "Gate Opening (inches)",
                                                 "First Station (feet)", "Last Station (feet)", "Number of Holes"}};
  for (std::size_t i = 0; i < std::min({sizes.size(), stations.size(), counts.size()}); ++i) {
    constexpr std::string_view kBetween = " - ";
    const std::size_t dash = stations[i].find(kBetween);
    const bool range = dash != std::string::npos;
    rows.push_back({sizes[i], stations[i].substr(0, dash),
                    range ? stations[i].substr(dash + kBetween.size()) : stations[i], counts[i]});
  }
  MarkStaleRows(program, rows);
  return Csv(rows);
}

}  // namespace torvale
