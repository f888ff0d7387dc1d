#include "files/preferences.h"

#include <cerrno>
#include <string>
#include <system_error>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "files/fields.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "input/field_marks.h"
#include "input/focus.h"
#include "screen/field_facts.h"
#include "screen/fields.h"
#include "screen/words.h"

namespace torvale {
namespace {

// The coefficients by their fields. A RunTimeFault (kOverflow) where one is too large.
void ApplyDischargeCoef(Program& program) {
  TakeNumber(program.main.txtDefault[Preference::kDischargeCoef], program.record.DischargeCoef);
}

void ApplyHazenWilliamsC(Program& program) {
  TakeNumber(program.main.txtDefault[Preference::kHazenWilliamsC], program.record.HazenWilliamsC);
}

void txtDefault_Change(Program& program, std::size_t index) {
  // The coefficients get their marks with the rest of what becomes of them.
  if (index != Preference::kDischargeCoef && index != Preference::kHazenWilliamsC) {
    MarkField(program.main.txtDefault[index], kPreferenceFacts.at(index).form);
  }
  ApplyDischargeCoef(program);
  ApplyHazenWilliamsC(program);
  if (index != Preference::kSurveyKind && index != Preference::kGateForm) return;
  TextField& field = program.main.txtDefault[index];
  field.Set(UpperCase(std::string(field.text())));
}

std::string AsShown(std::size_t index, const std::string& field) {
  return kPreferenceFacts.at(index).two_decimals ? FormatText(field, "0.00") : field;
}

// A value that its place can't hold is passed over, as if nothing had been.
void TakeField(Program& program, std::size_t index, const std::string& field) {
  try {
    program.main.txtDefault.at(index).Set(AsShown(index, field));
  } catch (const RunTimeFault&) {
    return;
  }
}

}  // namespace

void ConnectPreferences(Program& program) {
  for (std::size_t i = 0; i < program.main.txtDefault.size(); ++i) {
    program.main.txtDefault[i].on_change = [&program, i] { txtDefault_Change(program, i); };
  }
}

void ApplyCoefficients(Program& program) {
  for (void (*apply)(Program&) : {ApplyDischargeCoef, ApplyHazenWilliamsC}) {
    try {
      apply(program);
    } catch (const RunTimeFault&) {
      continue;
    }
  }
}

void ReadDefaultsFile(Program& program) {
  std::size_t read = 0;
  try {
    FieldReader reader(ReadText(InProgramFolder(program.host, kDefaultsFile)));
    for (; read < program.main.txtDefault.size(); ++read) TakeField(program, read, reader.Text());
  } catch (const FileFault& fault) {
    // What is missing stays as it was.
    if (fault.number == kPastTheEnd) {
      AddNews(program, words::kPreferencesReadInPart(std::to_string(read), kDefaultsFile));
    } else if (fault.number != ENOENT) {
      AddNews(program, words::kPreferencesNotRead(std::generic_category().message(fault.number)));
    }
  }
}

}  // namespace torvale
