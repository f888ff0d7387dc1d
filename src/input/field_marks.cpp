#include "input/field_marks.h"

#include <array>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "input/info_fields.h"

namespace torvale {
namespace {

using enum FieldForm;

constexpr std::array<FieldForm, 6> kInfoForms = {kText, kText, kNumber, kNumber, kText, kRodsOrElevations};
constexpr std::array<FieldForm, 16> kPreferenceForms = {kNumber, kText,
                                                        kNumber, kNumber,
                                                        kNumber, kNumber,
                                                        kNumber, kNumber,
                                                        kNumber, kRodsOrElevations,
                                                        kNumber, kRectangularOrCircular,
                                                        kNumber, kNumber,
                                                        kNumber, kText};

constexpr std::string_view kFormerStays = " The number before it stays in force.";

constexpr int kLongestShown = 20;  // characters of a text that a mark repeats

bool FitsField(double number) {
  try {
    Store32(number);
    return true;
  } catch (const RunTimeFault&) {
    return false;
  }
}

// The text without a blank and a word of two letters or more at its end: a unit, with which a number is read as it is
// meant. A single letter may be a digit mistyped.
std::string_view WithoutUnit(std::string_view text) {
  const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  std::size_t end = text.size();
  while (end > 0 && is_letter(text[end - 1])) --end;
  return end > 0 && text[end - 1] == ' ' && text.size() - end >= 2 ? text.substr(0, end) : text;
}

std::string WrongWithNumber(const std::string& shown, std::string_view text) {
  const double read = Val(text);
  if (!FitsField(read)) return shown + " is too large a number.";
  if (IsNumber(WithoutUnit(text))) return "";
  return shown + " is read as " + GeneralText(read) +
         ". Write digits and, for decimals, one point: no commas, no letters.";
}

void GiveMark(TextField& field, const std::string& words) {
  field.control.mark = words;
}

std::string Shown(std::string_view text) {
  // A text out of a file may be of any length.
  const std::string_view begin = text.substr(0, CharacterOffset(text, kLongestShown));
  return "\u201C" + std::string(begin) + (begin.size() < text.size() ? "\u2026" : "") + "\u201D";
}

bool IsOneOf(std::string_view text, std::string_view one, std::string_view other) {
  if (text.size() != 1) return false;
  const std::string letter = UpperCase(std::string(text));
  return letter == one || letter == other;
}

}  // namespace

FieldForm FormOfInfo(int index) {
  return kInfoForms.at(static_cast<std::size_t>(index));
}

FieldForm FormOfPreference(int index) {
  return kPreferenceForms.at(static_cast<std::size_t>(index));
}

std::string WrongWith(std::string_view text, FieldForm form) {
  if (text.empty()) return "";
  const std::string shown = Shown(text);
  switch (form) {
    case kNumber:
      return WrongWithNumber(shown, text);
    case kRodsOrElevations:
      return IsOneOf(text, "R", "E") ? "" : shown + " is neither R nor E.";
    case kRectangularOrCircular:
      return IsOneOf(text, "R", "C") ? "" : shown + " is neither R nor C.";
    case kText:
      return text.find('"') == std::string_view::npos ? "" : "Straight quotation marks are saved as closing ones.";
  }
  return "";
}

void MarkField(TextField& field, FieldForm form) {
  GiveMark(field, WrongWith(field.text(), form));
}

void TakeNumber(TextField& field, float& place) {
  const bool told = field.control.mark.ends_with(kFormerStays);
  MarkField(field, kNumber);
  try {
    place = Store32(Val(field.text()));
  } catch (const RunTimeFault&) {
    const std::string shown = Shown(field.text());
    GiveMark(field, shown + " is too large a number." + std::string(kFormerStays));
    if (!told) throw;
  }
}

void TellMark(Program& program, std::string_view field, const std::string& before) {
  std::string& told = program.main.sbStatusBar.caption;
  const std::string& mark = FindField(program, field)->control.mark;
  if (!mark.empty()) {
    told = mark;
  } else if (!before.empty() && told == before) {
    told = FocusHint(program, field);
  }
}

}  // namespace torvale
