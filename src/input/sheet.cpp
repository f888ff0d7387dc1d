#include "input/sheet.h"

#include <algorithm>
#include <array>

#include "base/format.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "engine/survey.h"
#include "input/hole_step.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr double kStationLimit = 5281;

// How a column takes an empty cell's text from the row above at Enter, how its text looks once the cursor has left, and
// what it is for.
struct ColumnTrait {
  std::string_view fill;   // pattern; empty: copied as it stands
  std::string_view leave;  // pattern; empty: the text stays
  Sentence<0> hint;
};

constexpr std::array<ColumnTrait, kSurveyColumns> kColumns = {{
    {"", "#####0", words::kHintStation},
    {"##.00", "###.00", words::kHintCrown},
    {"##.00", "#####0", words::kHintLength},
    {"##.00", "###.00", words::kHintSpacing},
    {"#####", "###.00", words::kHintPipeDiameter},
    {"", "", words::kHintHoleSize},
    {"##.00", "#####0", words::kHintHoleCount},
    {"", "#####0", words::kHintMil},
    {"#####.00", "###.00", words::kHintPlantedWidth},
}};

const ColumnTrait& TraitOf(int column) {
  return kColumns.at(static_cast<std::size_t>(column));
}

void ShowHint(Program& program) {
  Say(program, ColumnHint(program.main.Grid1.column));
}

// The cursor leaves its cell for another one.
void Go(Program& program, int row, int column) {
  LeaveCell(program);
  program.main.Grid1.SetCurrent(row, column);
  ShowHint(program);
}

void SetCurrentText(Grid& sheet, std::string_view text) {
  sheet.Set(sheet.row, sheet.column, text);
}

void RefuseStation(Program& program) {
  Tell(program, words::kStationTooLarge);
  SetCurrentText(program.main.Grid1, "");
}

void NextColumn(Program& program) {
  const int next = program.main.Grid1.column + 1;
  if (next < program.main.Grid1.column_count()) {
    Go(program, 1, next);
  } else {
    program.host.Beep();
  }
}

// Where what is typed goes: the byte ahead of which the caret stands, or the end of the text.
std::size_t TypingPlace(const Grid& sheet) {
  const std::string& text = sheet.CurrentText();
  return sheet.edit ? CharacterOffset(text, sheet.edit->caret) : text.size();
}

void TypeCharacter(Program& program, std::string_view character) {
  Grid& sheet = program.main.Grid1;
  sheet.SetFilled(sheet.row, sheet.column, false);
  std::string text = sheet.CurrentText();
  SetCurrentText(sheet, text.insert(TypingPlace(sheet), character));
  if (sheet.edit) ++sheet.edit->caret;
  if (sheet.column == kStationColumn && Val(sheet.CurrentText()) >= kStationLimit) RefuseStation(program);
}

void TakeCharacterBack(Grid& sheet) {
  sheet.SetFilled(sheet.row, sheet.column, false);
  const std::size_t place = TypingPlace(sheet);
  const std::string text = sheet.CurrentText();
  const std::string kept = WithoutLastCharacter(text.substr(0, place));
  SetCurrentText(sheet, kept + text.substr(place));
  if (sheet.edit) sheet.edit->caret = CharacterCount(kept);
}

void FillBlankCell(Program& program) {
  Grid& sheet = program.main.Grid1;
  if (!sheet.CurrentText().empty()) return;
  if (sheet.row == 1 && sheet.column == kStationColumn) SetCurrentText(sheet, "0");
  if (sheet.row < 2) return;
  const std::string above = sheet.Text(sheet.row - 1, sheet.column);
  if (sheet.column == kStationColumn) {
    SetCurrentText(sheet, GeneralText(Val(above) + program.record.StationInterval));
  } else {
    const std::string_view pattern = TraitOf(sheet.column).fill;
    SetCurrentText(sheet, pattern.empty() ? above : FormatText(above, pattern));
  }
}

// A station must rise. One that does not is emptied, and the cursor steps back so that its move down ends there again.
void CheckStationOrder(Program& program) {
  Grid& sheet = program.main.Grid1;
  if (sheet.row <= 1 || sheet.column != kStationColumn) return;
  const std::string above = sheet.Text(sheet.row - 1, kStationColumn);
  if (Val(above) < Val(sheet.CurrentText())) return;
  program.host.Beep();
  Tell(program, words::kStationTooSmall(above));
  SetCurrentText(sheet, "");
  sheet.SetCurrent(sheet.row - 1, sheet.column);
}

void MoveDown(Program& program) {
  const Grid& sheet = program.main.Grid1;
  if (sheet.row + 1 < sheet.rows()) {
    Go(program, sheet.row + 1, sheet.column);
  } else if (sheet.column + 1 < sheet.column_count()) {
    Go(program, 1, sheet.column + 1);
  } else {
    Go(program, 1, kCrownColumn);
  }
}

void EnterKey(Program& program) {
  FillBlankCell(program);
  CheckStationOrder(program);
  // Every column is held to the limit of a station here, under the station's words.
  if (Val(program.main.Grid1.CurrentText()) >= kStationLimit) RefuseStation(program);
  MoveDown(program);
}

void RunKey(Program& program, std::string_view character) {
  if (character == "*") {
    NextColumn(program);
  } else if (character == "+") {
    StepHoleSize(program, HoleStep::kLarger);
  } else if (character == "-") {
    StepHoleSize(program, HoleStep::kSmaller);
  } else if (character == "\r") {
    EnterKey(program);
  } else if (character == "\b") {
    TakeCharacterBack(program.main.Grid1);
  } else if (character == "." || (character.size() == 1 && character[0] >= '0' && character[0] <= '9')) {
    TypeCharacter(program, character);
  } else if (character.size() != 1 || static_cast<unsigned char>(character[0]) >= 32) {
    program.host.Beep();
  }
}

void HoldFirstStation(Program& program) {
  Grid& sheet = program.main.Grid1;
  if (sheet.row != 1 || sheet.column != kStationColumn || sheet.CurrentText() == "0") return;
  Tell(program, words::kFirstStationNotZero);
  SetCurrentText(sheet, "0");
}

}  // namespace

void Grid1_KeyPress(Program& program, std::string_view character) {
  Grid& sheet = program.main.Grid1;
  // The headings take no text: a key acts on the row below them.
  if (sheet.row == 0) sheet.SetCurrent(1, sheet.column);
  FollowHoleSize(program);
  RunKey(program, character);
  HoldFirstStation(program);
}

void LeaveCell(Program& program) {
  Grid& sheet = program.main.Grid1;
  const std::string_view pattern = TraitOf(sheet.column).leave;
  if (sheet.row == 0 || pattern.empty()) return;
  const bool filled = sheet.Filled(sheet.row, sheet.column);
  try {
    SetCurrentText(sheet, FormatText(sheet.CurrentText(), pattern));
    if (filled) sheet.SetFilled(sheet.row, sheet.column, true);
  } catch (const RunTimeFault&) {
    // The text stays as typed: a fault here would keep the cursor from ever leaving the cell.
  }
}

void MoveCursor(Program& program, int row, int column) {
  Grid& sheet = program.main.Grid1;
  const int to_row = std::clamp(row, 1, sheet.rows() - 1);
  const int to_column = std::clamp(column, 0, sheet.column_count() - 1);
  if (to_row == sheet.row && to_column == sheet.column) {
    sheet.SetCurrent(to_row, to_column);
    ShowHint(program);
  } else {
    Go(program, to_row, to_column);
  }
}

void ExtendSelection(Program& program, int row, int column) {
  Grid& sheet = program.main.Grid1;
  if (sheet.row == 0) MoveCursor(program, 1, sheet.column);
  sheet.SetSelection(std::clamp(row, 1, sheet.rows() - 1), std::clamp(column, 0, sheet.column_count() - 1));
}

std::string WithoutLastCharacter(std::string text) {
  if (Trim(text).empty()) return text;
  while (text.size() > 1 && ContinuesCharacter(text.back())) text.pop_back();
  text.pop_back();
  return text;
}

SpokenSentence ColumnHint(int column) {
  return column >= 0 && column < kSurveyColumns ? TraitOf(column).hint : SpokenSentence();
}

}  // namespace torvale
