#include "batch/result_rows.h"

#include <array>
#include <optional>
#include <string_view>

#include "base/numbers.h"
#include "reports/csv.h"
#include "screen/design_types.h"

namespace torvale {
namespace {

constexpr std::string_view kBetween = " / ";  // between sentences of a cell

// The columns of the table of results. A figure is the shortest number that reads back to the same bits.
struct ResultColumn {
  std::string_view heading;
  std::string (*text)(const ScenarioResult& result);
};

template <typename Number>
std::string Optional(const std::optional<Number>& value) {
  return value ? ShortestText(*value) : "";
}

std::string SizesText(const ScenarioResult& result) {
  std::string text;
  for (const SizeCount& size : result.sizes) {
    text += (text.empty() ? "" : "; ") + size.name + ": " + std::to_string(size.holes);
  }
  return text;
}

constexpr ResultColumn kFigures[] = {
    {"Uniformity (percent)", [](const ScenarioResult& r) { return ShortestText(r.uniformity); }},
    {"Highest Head (feet)", [](const ScenarioResult& r) { return ShortestText(r.max_head); }},
    {"at Station", [](const ScenarioResult& r) { return std::to_string(r.max_head_station); }},
    {"Lowest Head (feet)", [](const ScenarioResult& r) { return ShortestText(r.min_head); }},
    {"at Station", [](const ScenarioResult& r) { return std::to_string(r.min_head_station); }},
    {"Greatest Furrow Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.max_furrow_flow); }},
    {"Least Furrow Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.min_furrow_flow); }},
    {"Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.flow); }},
    {"Slope (feet per 100 feet)", [](const ScenarioResult& r) { return Optional(r.slope); }},
    {"Slope to Station", [](const ScenarioResult& r) { return Optional(r.slope_ends); }},
    {"Highest Fill (feet)", [](const ScenarioResult& r) { return Optional(r.highest_fill); }},
    {"Holes by Size", SizesText},
    {"Changes of Size", [](const ScenarioResult& r) { return std::to_string(r.size_changes); }},
    {"Acres", [](const ScenarioResult& r) { return ShortestText(r.acres); }},
    {"Hours for an Inch", [](const ScenarioResult& r) { return ShortestText(r.hours_for_inch); }},
    {"Target Head (feet)", [](const ScenarioResult& r) { return r.target_head; }},
};

std::string Joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) {
    if (!text.empty()) text += kBetween;
    for (const char c : sentence) text += c == '\r' || c == '\n' ? ' ' : c;
  }
  return text;
}

// By RowOutcome.
constexpr std::array<std::string_view, 5> kOutcomes = {"done", "not written", "refused", "failed", "out of time"};

ResultRow StartOfRow(const FieldRow& field, std::int16_t type, RowOutcome outcome) {
  return {std::to_string(field.number), field.name, std::string(FindDesignKind(type)->key),
          std::string(kOutcomes.at(static_cast<std::size_t>(outcome)))};
}

// The figures of a design that is done, empty cells for one that isn't.
void AddFigures(ResultRow& row, const ScenarioResult* result) {
  for (const ResultColumn& column : kFigures) row.push_back(result != nullptr ? column.text(*result) : "");
}

void AddWords(ResultRow& row, const std::vector<std::string>& warnings, const std::vector<std::string>& words,
              SheetCell cell) {
  row.push_back(Joined(warnings));
  row.push_back(Joined(words));
  row.push_back(cell.row > 0 ? std::to_string(cell.row) : "");
  row.push_back(cell.row > 0 ? std::to_string(cell.column + 1) : "");
}

}  // namespace

std::string ResultHeading() {
  ResultRow row = {"Field", "Name", "Design", "Outcome"};
  for (const ResultColumn& column : kFigures) row.emplace_back(column.heading);
  for (const std::string_view heading : {"Warnings", "Refused because", "Survey Row", "Survey Column"}) {
    row.emplace_back(heading);
  }
  return Csv({row});
}

ResultRow RowOf(const FieldRow& field, const ScenarioResult& result, const std::vector<std::string>& remarks,
                const std::vector<std::string>& trouble) {
  const bool done = result.outcome == ScenarioOutcome::kDone;
  RowOutcome outcome = RowOutcome::kRefused;
  if (done) outcome = trouble.empty() ? RowOutcome::kDone : RowOutcome::kNotWritten;
  ResultRow row = StartOfRow(field, result.design_type, outcome);
  AddFigures(row, done ? &result : nullptr);
  std::vector<std::string> warnings = remarks;
  warnings.insert(warnings.end(), result.warnings.begin(), result.warnings.end());
  AddWords(row, warnings, done ? trouble : result.words, result.cell);
  return row;
}

ResultRow RowWithout(const FieldRow& field, std::int16_t type, RowOutcome outcome,
                     const std::vector<std::string>& words) {
  ResultRow row = StartOfRow(field, type, outcome);
  AddFigures(row, nullptr);
  AddWords(row, {}, words, {});
  return row;
}

}  // namespace torvale
