#include "input/field_marks.h"

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "record/kinds.h"
#include "screen/words.h"

namespace torvale {
namespace {

using enum FieldForm;

// What the mark of a number ends with that was beyond its place.
constexpr std::string_view kEndOfFormerStays =
    words::kTooLargeFormerStays.text().substr(words::kTooLarge.text().size());

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

SpokenSentence WrongWithNumber(const std::string& shown, std::string_view text) {
  const double read = Val(text);
  if (!FitsField(read)) return words::kTooLarge(shown);
  if (IsNumber(WithoutUnit(text))) return {};
  return words::kReadInPart(shown, GeneralText(read));
}

void GiveMark(TextField& field, const SpokenSentence& wrong) {
  field.control.mark = wrong.text();
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

SpokenSentence WrongWith(std::string_view text, FieldForm form) {
  if (text.empty()) return {};
  const std::string shown = Shown(text);
  switch (form) {
    case kNumber:
      return WrongWithNumber(shown, text);
    case kRodsOrElevations:
      return IsOneOf(text, kRods, kElevations) ? SpokenSentence() : words::kNeitherRodNorElevation(shown);
    case kRectangularOrCircular:
      return IsOneOf(text, kRectangular, kCircular) ? SpokenSentence() : words::kNeitherRectangleNorCircle(shown);
    case kText:
      return text.find('"') == std::string_view::npos ? SpokenSentence() : words::kStraightQuotes;
  }
  return {};
}

void MarkField(TextField& field, FieldForm form) {
  GiveMark(field, WrongWith(field.text(), form));
}

void TakeNumber(TextField& field, float& place) {
  const bool told = field.control.mark.ends_with(kEndOfFormerStays);
  MarkField(field, kNumber);
  try {
    place = Store32(Val(field.text()));
  } catch (const RunTimeFault&) {
    GiveMark(field, words::kTooLargeFormerStays(Shown(field.text())));
    if (!told) throw;
  }
}

}  // namespace torvale
