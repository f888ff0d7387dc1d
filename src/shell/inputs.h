#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/survey.h"
#include "screen/field_facts.h"
#include "screen/program.h"

namespace torvale {

// Everything that a user puts in, as texts, each at a place of its own: the cells of the survey sheet row by row, the
// information fields, the preferences, the kind of pipe, the chosen hole sizes (one to a line), the chosen line of the
// list of soils (a number, empty for none), the limits of the best holes, and the names of the design's files
// (SaveFileName, OpenedFileName, DisplayFileName). Results are no inputs.

enum class InputKind { kCell, kInfoField, kPreference, kPipe, kHoles, kSoil, kBestLimit, kFileName };

// How many places a kind has. The kinds follow one another in this order.
struct KindPlaces {
  InputKind kind;
  std::size_t count;
};
inline constexpr std::array<KindPlaces, 8> kKindPlaces = {{
    {InputKind::kCell, std::size_t{kSurveyGridRows - 1} * kSurveyColumns},
    {InputKind::kInfoField, kInfoFacts.size()},
    {InputKind::kPreference, kPreferenceFacts.size()},
    {InputKind::kPipe, 1},
    {InputKind::kHoles, 1},
    {InputKind::kSoil, 1},
    {InputKind::kBestLimit, 3},
    {InputKind::kFileName, 3},
}};

// A place as its kind and its index among those of the kind.
struct KindOfPlace {
  InputKind kind;
  std::size_t index;
};
constexpr KindOfPlace KindAt(int place) {
  auto index = static_cast<std::size_t>(place);
  for (const KindPlaces& places : kKindPlaces) {
    if (index < places.count) return {places.kind, index};
    index -= places.count;
  }
  return {InputKind::kFileName, kKindPlaces.back().count};
}

// And back.
constexpr int PlaceOf(InputKind kind, std::size_t index = 0) {
  std::size_t first = 0;
  for (const KindPlaces& places : kKindPlaces) {
    if (places.kind == kind) break;
    first += places.count;
  }
  return static_cast<int>(first + index);
}

inline constexpr int kInputPlaces = PlaceOf(InputKind::kFileName, kKindPlaces.back().count);

// The places of cells are the first ones.
inline constexpr int kCellPlaces = PlaceOf(InputKind::kInfoField);
constexpr bool IsCell(int place) {
  return place < kCellPlaces;
}
constexpr SheetCell CellAt(int place) {
  return {place / kSurveyColumns + 1, place % kSurveyColumns};
}
constexpr int PlaceOfCell(SheetCell cell) {
  return (cell.row - 1) * kSurveyColumns + cell.column;
}

// The names of files go with what the user did; alone they are nothing to take back.
constexpr bool IsFileName(int place) {
  return KindAt(place).kind == InputKind::kFileName;
}
constexpr bool IsPreference(int place) {
  return KindAt(place).kind == InputKind::kPreference;
}

using InputTexts = std::vector<std::string>;  // by place

struct InputChange {
  int place;
  std::string before;
  std::string after;
  bool operator==(const InputChange&) const = default;
};

InputTexts InputsOf(const Program& program);

// Where the program's inputs differ from `known`, by rising place; `known` becomes what they are. `sheet_revision` is
// that of the sheet's cells when `known` was taken: cells that have not changed since are not looked at.
std::vector<InputChange> TakeInputChanges(const Program& program, InputTexts& known, std::uint64_t& sheet_revision);

// Puts texts into their places, with the change handling of the fields. What a field's value can't be used for stands
// in the field all the same. Nothing is calculated and the preferences are not written to their file.
void SetInputs(Program& program, const std::vector<std::pair<int, std::string>>& texts);

// The place that the user is at: the active field, or the current cell of the sheet. -1 anywhere else.
int ActivePlace(Program& program);
// The place of a text field by its control's name, or -1.
int FieldPlace(std::string_view control);
// The control that a place stands on: "Grid1", "txtInfo(3)"; empty where it has none that takes the focus.
std::string ControlOfPlace(int place);

// What a place is called: "row 3, Furrow Length", "Target Head".
std::string PlaceName(const Program& program, int place);

}  // namespace torvale
