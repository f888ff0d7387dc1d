#include "files/design_files.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/utf8.h"
#include "base/version.h"
#include "display/design_display.h"
#include "display/grid_layout.h"
#include "display/input_screen.h"
#include "engine/stations.h"
#include "engine/survey.h"
#include "files/code_page.h"
#include "files/design_format.h"
#include "files/earlier_versions.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "files/new_design.h"
#include "files/preferences_panel.h"
#include "files/soils.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/file_choice.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"

namespace torvale {
namespace {

constexpr double kSoilVersion = 6;  // first version that recommended a furrow flow

// Where the last character of a text begins.
std::size_t LastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && ContinuesCharacter(text[at])) --at;
  return at;
}

// The last part of a path, empty for a folder's with its separator.
std::string FileNameOf(std::string_view path) {
  return Utf8Of(PathOf(path).filename());
}

// What an unnamed design is saved as.
std::string OwnName(const Program& program) {
  const std::string& name = TextOf(program.main, InfoField::kDesignName);
  return name.empty() ? "NoName" : name;
}

// An extension alone is no name, but for the types that have none themselves.
std::string NameWithin(const DesignRecord& record, std::string_view name) {
  const std::string last = FileNameOf(name);
  const bool alone = !last.empty() && WithoutExtension(last).empty() && !ExtensionOf(record.DesignType).empty();
  return std::string(name.substr(0, alone ? name.size() - last.size() : name.size()));
}

// What was typed is saved, whether a design was run or not.
void CountTypedRows(Program& program) {
  const Grid& sheet = program.main.Grid1;
  for (int row = sheet.rows() - 1; row > program.record.SurveyRows; --row) {
    if (sheet.Text(row, kStationColumn).empty()) continue;
    program.record.SurveyRows = StoreInt16(row);
    return;
  }
}

// Gives back what there is to say of the version that was kept.
SpokenSentence Save(Program& program) {
  program.record.SaveFileName = NameToWrite(program, program.record.SaveFileName);
  program.record.FileVersion = ProgramVersion();
  CountTypedRows(program);
  const std::string bytes = ToCodePage(WriteDesign(program));
  SpokenSentence kept = KeepEarlierVersion(program, program.record.SaveFileName, bytes);
  WriteBytes(program, program.record.SaveFileName, bytes);
  ++program.stored_count;
  return kept;
}

void ChooseSoil(Program& program, const DesignExtras& extras) {
  ListBox& soils = program.main.listSoils;
  if (extras.soil < -1 || extras.soil >= soils.count()) throw FileFault{kOutOfBounds};
  if (extras.soil < 0) {
    soils.Deselect();
  } else {
    soils.Select(extras.soil, true);
  }
  listSoils_Click(program);
  // One row ahead of the soil's own flow: the table counts from 1, the list from 0.
  if (extras.soil >= 0) program.record.RecFurrowFlow = program.record.SoilFurrowFlow[extras.soil];
  if (extras.version < kSoilVersion) program.main.lblRecFurrowFlow.caption.clear();
}

// The flow ratio is not in the file; the required flow is, and stays as read.
void RestoreFlowRatio(DesignRecord& record) {
  if (record.WateredFurrows == 0) return;
  const RowArray<float> required = record.RequiredFlow;
  FlowRatio(record);
  record.RequiredFlow = required;
}

void Load(Program& program, int& sizes) {
  DesignRecord& record = program.record;
  program.main.Grid1.cells().Erase(1, 0, kSurveyGridRows - 1, kSurveyColumns - 1);
  record.DesignType = kNoDesign;
  std::string text = ReadText(record.OpenedFileName);
  sizes = ReadDesign(program, std::move(text), [&](const DesignExtras& extras) { ChooseSoil(program, extras); }).sizes;
  ++program.stored_count;
}

// Brings the title and the tick of the type that was read, and works out anew the holes that no file holds.
void ShowType(Program& program) {
  MainScreen& main = program.main;
  UntickDesignsOnTheWayBack(program);
  const DesignKind* kind = FindDesignKind(program.record.DesignType);
  if (kind == nullptr) return;
  FindControl(program, kind->entry)->ticked = true;
  main.title = TitleWith(kind->opened_title);
  if (kind->type != kLimitedHoles) main.listHolesSelected.Clear();
  if (kind->type == kComputerHoles) mnuComputerHoleSelection_Click(program);
}

// The run that makes a selection of holes anew was refused or cancelled: no half of it is shown.
bool GaveUp(const DesignRecord& record) {
  return record.DesignType == kNoDesign || record.MissingData == -1;
}

void ShowOpened(Program& program, int sizes) {
  DesignRecord& record = program.record;
  MainScreen& main = program.main;
  RestoreFlowRatio(record);
  main.listHolesSelected.Clear();
  for (int i = 0; i < sizes; ++i) main.listHolesSelected.Add(record.SelectedHoleName[i]);
  if (record.PipeKind.empty()) record.PipeKind = kLayflat;
  TickPipe(program);
  const bool made_anew = record.DesignType == kComputerHoles;
  ShowType(program);
  if (made_anew && GaveUp(record)) {
    mnuWindowInfo_Click(program);
    btnDefaultExit_Click(program);
    return;
  }
  const double acres = Int(Wide(record.TotalAcres) * 10 + 0.5) / 10;
  main.lblAcresTotal.caption = "Total Acres = " + GeneralText(acres);
  DisplayDesign(program);
  main.mnuWindowInfo.visible = true;
  btnDefaultExit_Click(program);
}

// A recent entry opens over whatever is shown, and the sheet is another one since. Where no design came of the file,
// the results of the one before go.
void LeaveResults(Program& program) {
  if (!DesignStands(program) && !program.main.Grid2.control.visible) return;
  const std::int16_t read = program.record.DesignType;
  ShowInputScreen(program);
  ForgetDesign(program);
  program.record.DesignType = read;
}

void FallBackToDefaults(Program& program) {
  Default_Values(program);
  constexpr std::array<std::string_view, 3> kFirstRow = {"0", "10.00", "1320"};
  for (int column = 0; column < static_cast<int>(kFirstRow.size()); ++column) {
    Grid& sheet = program.main.Grid1;
    if (sheet.Text(1, column).empty()) sheet.Set(1, column, kFirstRow.at(static_cast<std::size_t>(column)));
  }
}

}  // namespace

std::string_view ExtensionOf(std::int16_t design_type) {
  const DesignKind* kind = FindDesignKind(design_type);
  return kind == nullptr ? std::string_view() : kind->extension;
}

std::string WithoutExtension(std::string_view name) {
  constexpr int kExtensionLength = 4;
  std::string_view rest = name;
  for (int i = 0; i < kExtensionLength; ++i) {
    if (rest.empty()) return std::string(name);
    rest.remove_suffix(rest.size() - LastCharacter(rest));
  }
  return std::string(name[rest.size()] == '.' ? rest : name);
}

std::string NameToWrite(Program& program, std::string_view name) {
  const DesignRecord& record = program.record;
  std::string chosen = NameWithin(record, name);
  if (chosen.empty()) chosen = record.OpenedFileName;
  if (FileNameOf(chosen).empty()) chosen += OwnName(program);
  // A name that is shorter than an extension and begins with its point has nothing to be cut from.
  if (chosen.starts_with('.') && chosen.size() < 4) throw FileFault{EINVAL};
  const std::string written = WithoutExtension(chosen).append(ExtensionOf(record.DesignType));
  return written.empty() ? program.host.ProgramFolder() + "/" + TextOf(program.main, InfoField::kDesignName) : written;
}

void SaveFile(Program& program) {
  SpokenSentence kept;
  ForgetNews(program);
  const int error = ErrorOf([&] { kept = Save(program); });
  if (error != 0) {
    Tell(program, words::kSaveFailed(GeneralText(error)));
    SayToo(program, words::kNotSaved(WhyNotWritten(error)));
    return;
  }
  SayWritten(program, program.record.SaveFileName);
  if (!kept.empty()) SayToo(program, kept);
}

int OpenFile(Program& program) {
  const int error = ErrorOf([&] {
    int sizes = 0;
    Load(program, sizes);
    if (program.record.DesignType != kSurveyOnly) ShowOpened(program, sizes);
  });
  if (error != 0 || program.record.DesignType == kSurveyOnly) LeaveResults(program);
  if (error != 0) {
    Tell(program, words::kOpenFailed(GeneralText(error)));
    FallBackToDefaults(program);
  }
  return error;
}

}  // namespace torvale
