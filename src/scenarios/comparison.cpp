#include "scenarios/comparison.h"

#include <algorithm>
#include <utility>

#include "base/format.h"
#include "base/numbers.h"

namespace torvale {
namespace {

// A head or a flow as the read-outs of a design have it.
std::string Figure(float value, std::string_view pattern) {
  return Format(static_cast<double>(value), pattern);
}

std::string HeadAt(float head, int station) {
  return Figure(head, "##.00") + " at " + std::to_string(station);
}

// "9/16  1/2", from the largest on, as the sizes follow one another along most lines.
std::string SizesText(const std::vector<SizeCount>& sizes) {
  std::string text;
  for (auto size = sizes.rbegin(); size != sizes.rend(); ++size)
    text.append(text.empty() ? "" : ", ").append(size->name);
  return text;
}

std::string SlopeText(const ScenarioResult& result) {
  if (!result.slope) return "";
  if (!result.slope_ends) return Format(*result.slope, "##.###");
  return Format(*result.slope, "##.00") + " to " + Format(*result.slope_ends, "#######");
}

struct Cell {
  ComparisonColumn column;
  std::string text;
  std::optional<double> value;
};

std::vector<Cell> CellsOf(const ScenarioResult& result) {
  const auto number = [](float value) { return std::optional(static_cast<double>(value)); };
  return {{kComparedUniformity, GeneralText(result.uniformity), number(result.uniformity)},
          {kComparedHighestHead, HeadAt(result.max_head, result.max_head_station), number(result.max_head)},
          {kComparedLowestHead, HeadAt(result.min_head, result.min_head_station), number(result.min_head)},
          {kComparedLeastFlow, Figure(result.min_furrow_flow, "####.00"), number(result.min_furrow_flow)},
          {kComparedGreatestFlow, Figure(result.max_furrow_flow, "####.00"), number(result.max_furrow_flow)},
          {kComparedSizes, SizesText(result.sizes), static_cast<double>(result.sizes.size())},
          {kComparedChanges, std::to_string(result.size_changes), result.size_changes},
          {kComparedSlope, SlopeText(result), result.slope},
          {kComparedFill, result.highest_fill ? Figure(*result.highest_fill, "##.00") : "",
           result.highest_fill ? number(*result.highest_fill) : std::nullopt},
          {kComparedHours, Figure(result.hours_for_inch, "###.0"), number(result.hours_for_inch)}};
}

std::string KeyOf(std::int16_t design_type) {
  return std::to_string(design_type);
}

void ListDesigns(DeskScreen& desk) {
  if (!desk.designs.empty()) return;
  for (const ComparisonRow& row : ComparisonRows()) {
    ComparedDesign design;
    design.key = KeyOf(row.design_type);
    design.commands = row.commands;
    design.texts[kComparedName] = row.name;
    desk.designs.push_back(std::move(design));
  }
}

std::vector<std::int16_t> DesignTypes() {
  std::vector<std::int16_t> types;
  for (const ComparisonRow& row : ComparisonRows()) types.push_back(row.design_type);
  return types;
}

}  // namespace

const std::vector<ComparisonRow>& ComparisonRows() {
  static const std::vector<ComparisonRow> kRows = {
      {kPlanned, "Planned Design", {"mnuDesignField"}},
      {kExistingField, "Existing Field", {"mnuExistingDesign"}},
      {kComputerHoles, "Computer Holes", {"mnuComputerHoleSelection"}},
      {kLimitedHoles, "User Holes", {"mnuManHoleSelection", "cmdExitHoleSelect"}},
      {kConstantSlope, "Constant Slope", {"mnuDesignConstSlope"}},
      {kDualSlope, "Dual Slope", {"mnuDesignDualSlope"}},
  };
  return kRows;
}

void TakeResult(DeskScreen& desk, const ScenarioResult& result) {
  const std::string key = KeyOf(result.design_type);
  const auto design =
      std::find_if(desk.designs.begin(), desk.designs.end(), [&](const ComparedDesign& d) { return d.key == key; });
  if (design == desk.designs.end() || result.outcome == ScenarioOutcome::kCancelled) return;
  design->tried = true;
  design->made = result.outcome == ScenarioOutcome::kDone;
  design->words = design->made ? result.warnings : result.words;
  design->cell = result.cell;
  for (Cell& cell : CellsOf(result)) {
    const auto column = static_cast<std::size_t>(cell.column);
    design->texts.at(column) = design->made ? std::move(cell.text) : std::string();
    design->values.at(column) = design->made ? cell.value : std::nullopt;
  }
}

LiveComparison::LiveComparison(Program& program, std::function<void()> on_result)
    : program_(program), on_result_(std::move(on_result)) {}

bool LiveComparison::Due() {
  DeskScreen& desk = program_.desk;
  if (!desk.frmComparison.visible || program_.main.closed) return false;
  if (program_.running.calculations > 0 || program_.events.open > 0) return false;
  ListDesigns(desk);
  return std::exchange(desk.compared_inputs, program_.inputs_count) != program_.inputs_count;
}

void LiveComparison::Follow() {
  if (!Due()) return;
  if (!latest_) latest_ = std::make_unique<LatestScenarios>(on_result_);
  latest_->Ask(InputOf(program_), DesignTypes());
  taken_ = 0;
  ShowComparison(program_.desk);
}

bool LiveComparison::Take() {
  if (!latest_) return false;
  const LatestScenarios::Answer answer = latest_->Look();
  if (answer.results.size() == taken_) return false;
  for (; taken_ < answer.results.size(); ++taken_) TakeResult(program_.desk, answer.results[taken_]);
  // Rows change places only when all of them are known.
  if (answer.complete) SortComparison(program_.desk);
  ShowComparison(program_.desk);
  return true;
}

void LiveComparison::Settle() {
  if (!Due()) return;
  if (!quiet_) quiet_ = std::make_unique<QuietProgram>();
  const ScenarioInput input = InputOf(program_);
  for (const std::int16_t type : DesignTypes()) TakeResult(program_.desk, quiet_->Run(input, type));
  SortComparison(program_.desk);
  ShowComparison(program_.desk);
}

}  // namespace torvale
