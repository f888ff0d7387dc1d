// What is known of the information fields and the preferences beyond their controls: one row each, in the order of
// `txtInfo` and of `txtDefault`.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "record/kinds.h"
#include "screen/words.h"

namespace torvale {

// What a field holds.
enum class FieldForm { kText, kNumber, kRodsOrElevations, kRectangularOrCircular };

// The designs that go by a field's text, whose figures are out of date once it is another.
enum class EntersDesign { kNever, kAlways, kOnRigidPipe, kOverHeads };  // the last: a limited selection's loop of heads

struct InfoFacts {
  std::string_view name;  // in the list of what can be undone
  FieldForm form = FieldForm::kText;
  EntersDesign enters = EntersDesign::kNever;
  Sentence<0> hint;
  int longest = 0;             // characters that may be typed
  std::string_view help = {};  // the place of the guide that tells of it
};

inline constexpr std::array<InfoFacts, 6> kInfoFacts = {{
    {.name = "Name", .hint = words::kHintDesignName, .longest = 60, .help = "field-name"},
    {.name = "Date", .hint = words::kHintDesignDate, .longest = 12, .help = "field-date"},
    {"GPM", FieldForm::kNumber, EntersDesign::kAlways, words::kHintGpm, 10, "field-gpm"},
    {"Target Head", FieldForm::kNumber, EntersDesign::kAlways, words::kHintTargetHead, 10, "field-head"},
    {.name = "Location", .hint = words::kHintLocation, .longest = 60, .help = "field-location"},
    {"Rod Readings or Elevations", FieldForm::kRodsOrElevations, EntersDesign::kAlways, words::kHintSurveyKind, 1,
     "field-rod"},
}};

// What a blank preference begins with and what the panel puts into it differ in several rows on purpose.
struct PreferenceFacts {
  std::string_view name;  // in the list of what can be undone
  FieldForm form = FieldForm::kText;
  std::string_view start = {};  // what it begins with where the defaults file leaves it blank; empty for nothing
  std::string_view factory;     // what it takes where it is left blank in its panel
  bool two_decimals = false;    // what the defaults file has is shown with them
  EntersDesign enters = EntersDesign::kNever;
  Sentence<0> hint;
  std::string_view column;  // its heading in a table of fields, and what stands below it
  std::string_view column_help;
};

inline constexpr std::array<PreferenceFacts, 16> kPreferenceFacts = {{
    {.name = "Distance Between Stations",
     .form = FieldForm::kNumber,
     .factory = "100",
     .hint = words::kHintStationInterval,
     .column = "station interval",
     .column_help = "feet between stations of the survey"},
    {.name = "Hole Size",
     .factory = "5/8",
     .hint = words::kHintNewHoleSize,
     .column = "hole size",
     .column_help = "of a new survey, and of every row of one that has no such column"},
    {.name = "Orifice Coefficient",
     .form = FieldForm::kNumber,
     .start = "0.65",
     .factory = ".65",
     .two_decimals = true,
     .enters = EntersDesign::kAlways,
     .hint = words::kHintOrifice,
     .column = "orifice coefficient",
     .column_help = "usually 0.65"},
    {.name = "Hazen-Williams C",
     .form = FieldForm::kNumber,
     .start = "140",
     .factory = "140",
     .two_decimals = true,
     .enters = EntersDesign::kAlways,
     .hint = words::kHintRoughness,
     .column = "hazen williams c",
     .column_help = "layflat 140, smooth steel commonly 100"},
    {.name = "Crown Warning",
     .form = FieldForm::kNumber,
     .factory = "1.2",
     .two_decimals = true,
     .hint = words::kHintFillWarning,
     .column = "crown warning",
     .column_help = "highest crown above the field, feet"},
    {.name = "Pipe Diameter",
     .form = FieldForm::kNumber,
     .factory = "15",
     .two_decimals = true,
     .hint = words::kHintNewPipeDiameter,
     .column = "pipe diameter",
     .column_help = "of a new survey, inches"},
    {.name = "Distance Between Furrows",
     .form = FieldForm::kNumber,
     .factory = "6.0",
     .two_decimals = true,
     .hint = words::kHintNewSpacing,
     .column = "furrow spacing",
     .column_help = "feet between watered furrows of a new survey"},
    {.name = "Holes per Furrow",
     .form = FieldForm::kNumber,
     .factory = "1",
     .hint = words::kHintNewHoleCount,
     .column = "holes per furrow",
     .column_help = "of a new survey"},
    {.name = "Mil",
     .form = FieldForm::kNumber,
     .factory = "7",
     .hint = words::kHintNewMil,
     .column = "mil",
     .column_help = "pipe wall of a new survey, thousandths of an inch"},
    {.name = "Elevations or Rod Readings",
     .form = FieldForm::kRodsOrElevations,
     .start = kElevations,
     .factory = kRods,
     .hint = words::kHintNewSurveyKind,
     .column = "default survey kind",
     .column_help = "R or E, where the field names none"},
    {.name = "Target Head",
     .form = FieldForm::kNumber,
     .start = "2",
     .factory = "2.0",
     .hint = words::kHintNewTargetHead,
     .column = "default target head",
     .column_help = "feet, where the field names none"},
    {.name = "Type of Gate",
     .form = FieldForm::kRectangularOrCircular,
     .start = kRectangular,
     .factory = kRectangular,
     .enters = EntersDesign::kOnRigidPipe,
     .hint = words::kHintGateForm,
     .column = "gate shape",
     .column_help = "R for rectangular gates, C for circular ones"},
    {.name = "Size of Gate",
     .form = FieldForm::kNumber,
     .start = "1.2",
     .factory = "1.2",
     .enters = EntersDesign::kOnRigidPipe,
     .hint = words::kHintGateSize,
     .column = "gate size",
     .column_help = "diameter or height of a gate, inches"},
    {.name = "Highest Target Head",
     .form = FieldForm::kNumber,
     .start = "3.5",
     .factory = "2",
     .enters = EntersDesign::kOverHeads,
     .hint = words::kHintHighestHead,
     .column = "highest head",
     .column_help = "highest target head of a limited selection, feet"},
    {.name = "Step of the Head",
     .form = FieldForm::kNumber,
     .start = ".5",
     .factory = ".2",
     .enters = EntersDesign::kOverHeads,
     .hint = words::kHintHeadStep,
     .column = "head step",
     .column_help = "step of the head in a limited selection, feet"},
    {.name = "Kind of File",
     .start = "*.*",
     .factory = "*.*",
     .hint = words::kHintOpenFilter,
     .column = "open filter",
     .column_help = "kind of file that the open dialog begins with"},
}};

// The index of an information field or a preference by the name of its control ("txtInfo(3)"), or -1 for any other.
inline int IndexIn(std::string_view fields, std::size_t count, std::string_view control) {
  if (!control.starts_with(fields) || !control.ends_with(')')) return -1;
  int index = -1;
  std::from_chars(control.data() + fields.size(), control.data() + control.size(), index);
  return index < static_cast<int>(count) ? index : -1;
}
inline int InfoIndex(std::string_view control) {
  return IndexIn("txtInfo(", kInfoFacts.size(), control);
}
inline int PreferenceIndex(std::string_view control) {
  return IndexIn("txtDefault(", kPreferenceFacts.size(), control);
}

}  // namespace torvale
