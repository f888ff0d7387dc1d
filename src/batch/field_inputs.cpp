#include "batch/field_inputs.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/paths.h"
#include "base/platform.h"
#include "batch/cell_words.h"
#include "batch/csv_text.h"
#include "batch/survey_table.h"
#include "batch/text_files.h"
#include "batch/words.h"
#include "files/design_files.h"
#include "files/new_design.h"
#include "files/preferences_panel.h"
#include "record/hole_sizes.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/words.h"
#include "search/design_commands.h"
#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr std::string_view kSurveyFile = ".DAT";

bool IsDesignFile(std::string_view name) {
  const std::string upper = UpperCase(name);
  const auto kinds = DesignKinds();
  return upper.ends_with(kSurveyFile) || std::any_of(kinds.begin(), kinds.end(), [&](const DesignKind& kind) {
           return upper.ends_with(kind.extension);
         });
}

std::string Placed(const FieldRow& field, const SpokenComplaint& complaint) {
  return At(batch_words::kRowOfTheTable(std::to_string(field.line)).text(), complaint);
}

[[noreturn]] void Fail(const FieldRow& field, const SpokenComplaint& complaint) {
  throw FieldFault(Placed(field, complaint));
}

// Types as into a field that is in reach, whether its panel is open or not.
void Type(const FieldRow& field, TextField& target, const std::string& text) {
  try {
    target.SelectAll();
    target.ReplaceSelected(text);
  } catch (const RunTimeFault&) {
    Fail(field, batch_words::kNumberTooLarge(text));
  }
}

void SetPreferences(Program& program, const FieldRow& field, std::vector<std::string>& remarks) {
  for (const auto& [index, text] : field.preferences) {
    if (index == Preference::kHoleSize && HoleSizeByName(program.record, text) == 0) {
      Fail(field, batch_words::kNoHoleSize(text));
    }
    Type(field, program.main.txtDefault.at(index), text);
    txtDefault_LostFocus(program, static_cast<int>(index));
    const std::string& taken = program.main.txtDefault.at(index).text();
    if (taken != text) remarks.push_back(Placed(field, batch_words::kTakenAs(text, taken)));
  }
  TakePreferences(program);
}

// An empty cell leaves what stands in the field, from a preference or from the design that was opened.
void TypeInfo(Program& program, const FieldRow& field) {
  const std::array<const std::string*, 6> texts = {&field.name,        &field.date,     &field.gpm,
                                                   &field.target_head, &field.location, &field.survey_kind};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts.at(i)->empty()) Type(field, program.main.txtInfo.at(i), *texts.at(i));
  }
}

void ChoosePipeKind(Program& program, const FieldRow& field) {
  if (field.pipe.empty() || field.pipe == program.record.PipeKind) return;
  // Results that are shown would be worked out anew for the other pipe.
  if (program.main.Grid2.control.visible) mnuWindowInfo_Click(program);
  Click(program, field.pipe == kRigid ? "mnuRigidPipe" : "mnuLayflatPipe");
}

void ChooseSoil(Program& program, const FieldRow& field) {
  if (field.soil.empty()) return;
  const ListBox& soils = program.main.listSoils;
  for (int line = 0; line < soils.count(); ++line) {
    if (Trim(soils.Line(line)) != Trim(field.soil)) continue;
    SelectLines(program, "listSoils", {line});
    return;
  }
  Fail(field, soils.count() == 0 ? batch_words::kNoListOfSoils(field.soil) : batch_words::kNoSuchSoil(field.soil));
}

void ChooseHoles(Program& program, const FieldRow& field) {
  if (field.holes.empty()) return;
  program.main.listHolesSelected.Clear();
  for (const std::string& size : field.holes) {
    if (HoleSizeByName(program.record, size) == 0) Fail(field, batch_words::kNoHoleSize(size));
    program.main.listHolesSelected.Add(size);
  }
}

// An empty cell of the first row leaves the preference there; station and reading are always the survey's.
void EnterSurvey(Program& program, const FieldRow& field, const SurveyTable& survey) {
  Grid& sheet = program.main.Grid1;
  const std::string hole = TextOf(program.main, Preference::kHoleSize);
  for (std::size_t i = 0; i < survey.rows.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    for (int column = 0; column < kSurveyColumns; ++column) {
      const auto at = static_cast<std::size_t>(column);
      const std::string& cell = survey.rows[i].cells.at(at);
      if (survey.given.at(at) && (!cell.empty() || column <= kCrownColumn)) sheet.Set(row, column, cell);
    }
    if (!survey.given[kHoleSizeColumn]) sheet.Set(row, kHoleSizeColumn, hole);
    if (!survey.given[kFurrowLengthColumn]) sheet.Set(row, kFurrowLengthColumn, field.furrow_length);
  }
}

// The file as the program opens it, in its own words where it can't. Results and preferences of the design don't come
// into the inputs.
void OpenDesign(Program& program, const FieldRow& field, const std::filesystem::path& path) {
  program.record.OpenedFileName = Utf8Of(path);
  if (const int error = OpenFile(program); error != 0) {
    throw FieldFault(field.survey + ": " + words::kOpenFailed(GeneralText(error)).text());
  }
  program.record.OpenedFileName.clear();
}

// A name of its own, or one that is meant from the folder on.
std::filesystem::path SurveyPath(const FieldRow& field, const std::filesystem::path& folder) {
  const std::filesystem::path path = PathOf(field.survey);
  return IsWholePath(path) ? path : folder / path;
}

}  // namespace

std::string ReadSurveyFile(const FieldRow& field, const std::filesystem::path& folder) {
  try {
    return ReadTextFile(SurveyPath(field, folder));
  } catch (const TextFileFault& fault) {
    throw FieldFault(field.survey + ": " + fault.what());
  }
}

FieldInputs TypeField(QuietProgram& quiet, const FieldRow& field, const std::filesystem::path& folder,
                      const std::string& survey) {
  quiet.StartAnew();
  Program& program = quiet.program();
  FieldInputs inputs;
  inputs.remarks = field.remarks;
  SetPreferences(program, field, inputs.remarks);
  mnuFileNew_Click(program);
  if (IsDesignFile(field.survey)) {
    OpenDesign(program, field, SurveyPath(field, folder));
  } else {
    try {
      const SurveyTable table = ReadSurveyTable(TextOfFile(survey), field.layout, field.survey);
      EnterSurvey(program, field, table);
      inputs.remarks.insert(inputs.remarks.end(), table.remarks.begin(), table.remarks.end());
    } catch (const SurveyTableFault& fault) {
      throw FieldFault(fault.what());
    }
  }
  ChoosePipeKind(program, field);
  TypeInfo(program, field);
  ChooseSoil(program, field);
  ChooseHoles(program, field);
  inputs.input = InputOf(program);
  return inputs;
}

}  // namespace torvale
