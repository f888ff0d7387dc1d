#pragma once

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
// list of soils (a number, empty for none), the limits of the best holes, and the names of the design's files. Results
// are no inputs.

inline constexpr int kSheetPlaces = (kSurveyGridRows - 1) * kSurveyColumns;
inline constexpr int kInfoPlace = kSheetPlaces;
inline constexpr int kPreferencePlace = kInfoPlace + static_cast<int>(kInfoFacts.size());
inline constexpr int kPipePlace = kPreferencePlace + static_cast<int>(kPreferenceFacts.size());
inline constexpr int kHolesPlace = kPipePlace + 1;
inline constexpr int kSoilPlace = kHolesPlace + 1;
inline constexpr int kBestPlace = kSoilPlace + 1;  // the limits of the best holes
inline constexpr int kNamePlace = kBestPlace + 3;  // SaveFileName, OpenedFileName, DisplayFileName
inline constexpr int kInputPlaces = kNamePlace + 3;

// The names of files go with what the user did; alone they are nothing to take back.
inline bool IsFileName(int place) {
  return place >= kNamePlace;
}

inline int CellPlace(int row, int column) {
  return (row - 1) * kSurveyColumns + column;
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
