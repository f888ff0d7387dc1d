#include "scenarios/comparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"

namespace torvale {
namespace {

std::string HeadAt(float head, int station) {
  return Format(head, "##.00") + " at " + std::to_string(station);
}

// "9/16  1/2", from the largest on, as the sizes follow one another along most lines.
std::string SizesText(const std::vector<SizeCount>& sizes) {
  std::string text;
  for (auto size = sizes.rbegin(); size != sizes.rend(); ++size)
    text.append(text.empty() ? "" : ", ").append(size->name);
  return text;
}

// A level crown has neither digit ahead of the point nor behind it.
std::string SlopeText(const ScenarioResult& result) {
  if (!result.slope) return "";
  if (!result.slope_ends) {
    const std::string slope = Format(*result.slope, "##.###");
    return slope == "." ? "0" : slope;
  }
  return Format(*result.slope, "##.00") + " to " + Format(*result.slope_ends, "#######");
}

// Of the marks of `kWarningFigures`.
constexpr std::array<std::size_t, kWarningFigures.size()> kMarkedColumns = {kComparedHighestHead, kComparedLeastFlow};

struct Cell {
  ComparisonColumn column;
  std::string text;
  std::optional<double> value;
};

std::vector<Cell> CellsOf(const ScenarioResult& result) {
  const auto number = [](float value) { return std::optional<double>(value); };
  return {{kComparedUniformity, GeneralText(result.uniformity), number(result.uniformity)},
          {kComparedHighestHead, HeadAt(result.max_head, result.max_head_station), number(result.max_head)},
          {kComparedLowestHead, HeadAt(result.min_head, result.min_head_station), number(result.min_head)},
          {kComparedLeastFlow, Format(result.min_furrow_flow, "####.00"), number(result.min_furrow_flow)},
          {kComparedGreatestFlow, Format(result.max_furrow_flow, "####.00"), number(result.max_furrow_flow)},
          {kComparedSizes, SizesText(result.sizes), static_cast<double>(result.sizes.size())},
          {kComparedChanges, std::to_string(result.size_changes), result.size_changes},
          {kComparedSlope, SlopeText(result), result.slope},
          {kComparedFill, result.highest_fill ? Format(*result.highest_fill, "##.00") : "",
           result.highest_fill ? number(*result.highest_fill) : std::nullopt},
          {kComparedHours, Format(result.hours_for_inch, "###.0"), number(result.hours_for_inch)}};
}

void ListDesigns(DeskScreen& desk) {
  if (!desk.designs.empty()) return;
  for (const ComparisonRow& row : ComparisonRows()) {
    ComparedDesign design;
    design.key = row.kind->key;
    design.commands.emplace_back(row.kind->entry);
    if (!row.kind->panel_button.empty()) design.commands.emplace_back(row.kind->panel_button);
    design.texts[kComparedName] = row.name;
    desk.designs.push_back(std::move(design));
  }
}

std::vector<const DesignKind*> KindsToTry() {
  std::vector<const DesignKind*> kinds;
  for (const ComparisonRow& row : ComparisonRows()) kinds.push_back(row.kind);
  return kinds;
}

ComparedDesign* FindDesign(DeskScreen& desk, std::string_view key) {
  const auto design =
      std::find_if(desk.designs.begin(), desk.designs.end(), [&](const ComparedDesign& d) { return d.key == key; });
  return design == desk.designs.end() ? nullptr : &*design;
}

// "Uniformity 0.5 above User Holes, 2.5 above Computer Holes." Empty where neither selection can be made.
std::string GainText(DeskScreen& desk, float uniformity) {
  std::string text;
  for (const std::int16_t type : {kLimitedHoles, kComputerHoles}) {
    const ComparedDesign* other = FindDesign(desk, FindDesignKind(type)->key);
    if (other == nullptr || !other->made) continue;
    const double gain = Wide(uniformity) - *other->values.at(kComparedUniformity);
    text += text.empty() ? "Uniformity " : ", ";
    text += Format(std::abs(gain), "##0.0") + (gain < 0 ? " below " : " above ") + other->texts.at(kComparedName);
  }
  return text.empty() ? text : text + ".";
}

std::vector<std::string> WordsOf(DeskScreen& desk, const ScenarioResult& result) {
  if (result.outcome != ScenarioOutcome::kDone) return result.words;
  std::vector<std::string> words;
  if (!result.proof.empty()) words = {GainText(desk, result.uniformity), result.proof};
  std::erase(words, "");
  words.insert(words.end(), result.warnings.begin(), result.warnings.end());
  return words;
}

}  // namespace

const std::vector<ComparisonRow>& ComparisonRows() {
  static const std::vector<ComparisonRow> kRows = {
      {FindDesignKind(kPlanned), "Planned Design"},
      {FindDesignKind(kExistingField), "Existing Field"},
      {FindDesignKind(kComputerHoles), "Computer Holes"},
      {FindDesignKind(kLimitedHoles), "User Holes"},
      {FindDesignKind(kConstantSlope), "Constant Slope"},
      {FindDesignKind(kDualSlope), "Dual Slope"},
      {&BestHolesKind(), "Best Holes"},  // the last: it takes the longest and is held against two of the others
  };
  return kRows;
}

void TakeResult(DeskScreen& desk, const ScenarioResult& result) {
  ComparedDesign* design = FindDesign(desk, result.key);
  if (design == nullptr || result.outcome == ScenarioOutcome::kCancelled) return;
  design->tried = true;
  design->made = result.outcome == ScenarioOutcome::kDone;
  design->words = WordsOf(desk, result);
  design->cell = result.cell;
  for (std::size_t i = 0; i < result.marks.size(); ++i) {
    design->marks.at(kMarkedColumns.at(i)) = design->made ? result.marks.at(i) : std::string();
  }
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
  latest_->Ask(InputOf(program_), KindsToTry());
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
  for (const DesignKind* kind : KindsToTry()) TakeResult(program_.desk, quiet_->Run(input, *kind));
  SortComparison(program_.desk);
  ShowComparison(program_.desk);
}

}  // namespace torvale
