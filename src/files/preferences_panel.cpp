#include "files/preferences_panel.h"

#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/input_screen.h"
#include "files/code_page.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "files/preferences.h"
#include "input/focus.h"
#include "record/hole_sizes.h"
#include "screen/field_facts.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr int kFields = kPreferenceFacts.size();
constexpr int kUpFromFirst = 12;  // where Up goes from the first field, on purpose not to the last
constexpr double kLowestHighestHead = 0.5;

TextField& Field(Program& program, int index) {
  return program.main.txtDefault.at(static_cast<std::size_t>(index));
}

void FocusField(Program& program, int index) {
  MoveFocus(program, NameOf(static_cast<Preference::Index>(index)));
}

// Runs one statement; a failing one is passed over.
template <typename Statement>
void Attempt(Statement statement) {
  try {
    statement();
  } catch (const RunTimeFault&) {
    return;
  } catch (const FileFault&) {
    return;
  }
}

void FillBlankFields(Program& program) {
  for (int i = 0; i < kFields; ++i) {
    if (!Field(program, i).text().empty()) continue;
    Attempt([&] { Field(program, i).Set(kPreferenceFacts.at(static_cast<std::size_t>(i)).factory); });
  }
}

// The sixteen texts, two empty lines and the recent files, where a name that repeats the one before leaves no line.
std::string DefaultsText(Program& program) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::string text;
  for (const TextField& field : program.main.txtDefault) text.append(field.text()).append(kLineEnd);
  text.append(kLineEnd).append(kLineEnd);
  const auto& recent = program.main.mnuFileList;
  text.append(recent[0].caption).append(kLineEnd);
  for (std::size_t i = 1; i < recent.size(); ++i) {
    if (recent.at(i).caption == recent.at(i - 1).caption) continue;
    text.append(recent.at(i).caption).append(kLineEnd);
    program.record.RecentFiles[static_cast<int>(i)] = recent.at(i).caption;
  }
  return text;
}

void BringScreenBack(Program& program) {
  ShowBehindPreferences(program);
  if (program.record.DesignType == kNoDesign) MoveFocus(program, NameOf(InfoField::kDesignName));
}

void StepHoleSize(Program& program, std::string_view key) {
  FreeValue& limit = program.record.HoleSizeIndexLimit;
  int index = ToWhole(Number(limit));
  if (key == "+") index = index < kHoleSizes ? index + 1 : 0;
  if (key == "-") index = index > 0 ? index - 1 : kHoleSizes;
  limit = index;
  Field(program, Preference::kHoleSize).Set(SteppedHoleSize(program.record, index));
}

void RepairLetter(Program& program, int index, std::string_view other, std::string_view standard) {
  TextField& field = Field(program, index);
  if (field.text() == other || field.text() == standard) return;
  field.Set(standard);
  program.host.Beep();
}

// Gives back 0, or the number of the error.
int WriteDefaults(Program& program) {
  const int error = ErrorOf(
      [&] { WriteBytes(program, InProgramFolder(program.host, kDefaultsFile), ToCodePage(DefaultsText(program))); });
  if (error == 0) ++program.preferences_count;
  return error;
}

void TellNotWritten(Program& program, int error) {
  if (error != 0) AddNews(program, words::kPreferencesNotWritten(WhyNotWritten(error)));
}

void ApplyPreferences(Program& program) {
  ApplyCoefficients(program);
  Attempt(
      [&] { program.record.StationInterval = StoreInt16(Val(TextOf(program.main, Preference::kStationInterval))); });
}

}  // namespace

void mnuPreference_Click(Program& program) {
  MainScreen& main = program.main;
  main.Frame1.visible = true;
  main.Grid2.control.visible = false;
  main.cmdReCalc.visible = false;
  main.cmdDesignToggle.visible = false;
}

void TakePreferences(Program& program) {
  FillBlankFields(program);
  ApplyPreferences(program);
}

void btnDefaultExit_Click(Program& program) {
  program.main.Frame1.visible = false;
  FillBlankFields(program);
  const int error = WriteDefaults(program);
  const std::string news = News(program);
  BringScreenBack(program);
  ApplyPreferences(program);
  if (error == 0) return;
  // What the focus is for can be read another time.
  ForgetNews(program);
  SayAgain(program, news);
  TellNotWritten(program, error);
}

void StorePreferences(Program& program) {
  TellNotWritten(program, WriteDefaults(program));
  ApplyPreferences(program);
}

void txtDefault_LostFocus(Program& program, int index) {
  if (index == Preference::kSurveyKind) RepairLetter(program, index, kRods, kElevations);
  if (index == Preference::kGateForm) RepairLetter(program, index, kCircular, kRectangular);
  TextField& highest = Field(program, Preference::kHighestHead);
  if (Val(highest.text()) >= kLowestHighestHead) return;
  program.host.Beep();
  highest.Set("0.5");
}

void txtDefault_KeyDown(Program& program, int index, FieldKeyKind key) {
  if (key == FieldKeyKind::kDown && index < kFields - 1) FocusField(program, index + 1);
  if (key == FieldKeyKind::kUp) FocusField(program, index == 0 ? kUpFromFirst : index - 1);
}

bool txtDefault_KeyPress(Program& program, int index, std::string_view character) {
  const bool enter = character == "\r";
  const int next = enter ? index + 1 : index;
  if (enter) FocusField(program, next == kFields ? 0 : next);
  // Any key in the hole size and Enter in the field ahead of it come to this step: it can't be typed in.
  if (next == Preference::kHoleSize) StepHoleSize(program, character);
  return enter || next == Preference::kHoleSize;
}

}  // namespace torvale
