#include "files/file_commands.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/paths.h"
#include "files/code_page.h"
#include "files/design_files.h"
#include "files/fields.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "files/new_design.h"
#include "files/preferences_panel.h"
#include "input/focus.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr int kShownRecent = 4;

constexpr std::string_view kAllFiles = "*.*";

// A survey that is saved before any design was run.
constexpr std::string_view kSurveyFilter = "Limit Computer Hole Selection(*.DAT)|*.DAT";

// The types in the order of the open dialog's filters.
constexpr std::array<std::int16_t, 6> kOpenOrder = {kLimitedHoles, kPlanned,       kConstantSlope,
                                                    kDualSlope,    kComputerHoles, kExistingField};

std::string OpenFilters() {
  std::string filters;
  for (const std::int16_t type : kOpenOrder) {
    const DesignKind& kind = *FindDesignKind(type);
    filters.append(kind.open_filter).append(" (*").append(kind.extension).append(")|*");
    filters.append(kind.extension).append("|");
  }
  return filters + " All file types (*.*) | *.*";
}

// Who has no design yet finds the samples; others begin where their last dialog was.
std::string FolderToOpenFrom(Program& program) {
  const std::filesystem::path folder = PathOf(program.host.ProgramFolder());
  std::error_code ignored;
  const bool has_designs = std::filesystem::exists(folder / kRecentFile, ignored);
  const std::filesystem::path samples = folder / "samples";
  return has_designs || !std::filesystem::exists(samples, ignored) ? "" : Utf8Of(samples);
}

// The one that the preference names by its extension, from 1. Any other text stands for the first.
int OpenFilter(const Program& program) {
  const std::string& wanted = TextOf(program.main, Preference::kOpenFilter);
  if (wanted == kAllFiles) return static_cast<int>(kOpenOrder.size()) + 1;
  const auto* const found = std::find_if(kOpenOrder.begin(), kOpenOrder.end(), [&](std::int16_t type) {
    return wanted == FindDesignKind(type)->extension.substr(1);
  });
  return found == kOpenOrder.end() ? 1 : static_cast<int>(found - kOpenOrder.begin()) + 1;
}

// A survey can be saved before any design was run; it then counts as a kind of its own.
std::string SaveFilter(Program& program) {
  if (const DesignKind* kind = FindDesignKind(program.record.DesignType)) {
    return std::string(kind->save_filter).append("(*").append(kind->extension).append(")|*").append(kind->extension);
  }
  if (!program.main.Grid1.control.visible || program.main.Grid2.control.visible) return "";
  program.record.DesignType = kSurveyOnly;
  return std::string(kSurveyFilter);
}

void ShowRecent(Program& program, int index) {
  Control& entry = program.main.mnuFileList.at(static_cast<std::size_t>(index));
  entry.caption = program.record.RecentFiles[index];
  entry.visible = !entry.caption.empty();
  if (entry.visible) program.main.mnuFileBar3.visible = true;
}

// The names as the file of the list has them: in the code page, and a name with a comma in it as two.
std::string RecentText(const Program& program) {
  std::string text;
  for (int i = 0; i < kShownRecent; ++i) text.append(program.record.RecentFiles[i]).append("\r\n");
  return ToCodePage(text);
}

std::string RecentKey(int index) {
  return "RecentFile" + std::to_string(index);
}

// The whole names are kept with the user's settings. They count as long as the file says the same as they do.
void TakeWholeNames(Program& program, std::string_view file) {
  std::vector<std::string> names;
  std::string text;
  for (int i = 0; i < kShownRecent; ++i) {
    names.push_back(program.host.Setting(RecentKey(i)).value_or(""));
    text.append(names.back()).append("\r\n");
  }
  if (ToCodePage(text) != file) return;
  for (int i = 0; i < kShownRecent; ++i) program.record.RecentFiles[i] = names[static_cast<std::size_t>(i)];
}

void SaveRecentFiles(Program& program) {
  for (int i = 0; i < kShownRecent; ++i) program.host.SaveSetting(RecentKey(i), program.record.RecentFiles[i]);
  try {
    WriteBytes(program, InProgramFolder(program.host, kRecentFile), RecentText(program));
  } catch (const FileFault& fault) {
    AddNews(program, words::kRecentFilesNotWritten(WhyNotWritten(fault.number)));
    return;
  }
  for (int i = 0; i < kShownRecent; ++i) ShowRecent(program, i);
}

void AddRecent(Program& program, std::string_view name) {
  DesignRecord& record = program.record;
  for (int i = kShownRecent - 1; i >= 0; --i) {
    if (!record.RecentFiles[i].empty()) record.RecentFiles[i + 1] = record.RecentFiles[i];
  }
  record.RecentFiles[0] = name;
  SaveRecentFiles(program);
}

}  // namespace

void OpenNamedFile(Program& program, std::string_view path) {
  program.record.OpenedFileName = path;
  program.record.DisplayFileName = path;
  mnuFileNew_Click(program);
  OpenFile(program);
  if (!program.record.OpenedFileName.empty()) AddRecent(program, std::string(program.record.OpenedFileName));
}

void mnuFileOpen_Click(Program& program) {
  const auto name = program.host.OpenDialog({.title = "Open",
                                             .filters = OpenFilters(),
                                             .filter = OpenFilter(program),
                                             .name = "",
                                             .folder = FolderToOpenFrom(program)});
  if (name && !name->empty()) OpenNamedFile(program, *name);
}

void mnuFileSave_Click(Program& program) {
  SaveFile(program);
  if (!program.record.SaveFileName.empty()) AddRecent(program, std::string(program.record.SaveFileName));
}

void mnuFileSaveAs_Click(Program& program) {
  DesignRecord& record = program.record;
  const std::string filter = SaveFilter(program);
  record.OpenedFileName = WithoutExtension(record.OpenedFileName);
  if (const std::string_view extension = ExtensionOf(record.DesignType); !extension.empty()) {
    record.SaveFileName = record.OpenedFileName + std::string(extension);
  }
  const auto written = [&program](const std::string& chosen) {
    std::string path = chosen;
    ErrorOf([&] { path = NameToWrite(program, chosen); });
    return path;
  };
  const auto name = program.host.SaveDialog({"Save As", filter, 1, record.SaveFileName, written});
  if (!name || name->empty()) return;
  record.SaveFileName = *name;
  ForgetNews(program);
  btnDefaultExit_Click(program);
  const std::string trouble = NewsOf(program);
  record.DisplayFileName = record.SaveFileName;
  SaveFile(program);
  SayAgain(program, trouble);
  if (!record.SaveFileName.empty()) AddRecent(program, std::string(record.SaveFileName));
}

void mnuFileList_Click(Program& program, int index) {
  program.record.OpenedFileName = program.main.mnuFileList.at(static_cast<std::size_t>(index)).caption;
  OpenFile(program);
}

void EnablePrinting(MainScreen& main, bool enabled) {
  for (Control* entry : {&main.mnuPrintComplete, &main.mnuPrintSummary, &main.mnuPrtHoleSummary, &main.mnuPrintPreview,
                         &main.mnuExport}) {
    entry->enabled = enabled;
  }
}

void mnuFile_Click(Program& program) {
  EnablePrinting(program.main, program.main.Grid2.control.visible);
}

void OpenRecentFiles(Program& program) {
  std::string text;
  try {
    text = ReadText(InProgramFolder(program.host, kRecentFile));
  } catch (const FileFault& fault) {
    // There may be no list yet.
    if (fault.number != ENOENT) {
      AddNews(program, words::kRecentFilesNotRead(std::generic_category().message(fault.number)));
    }
  }
  FieldReader reader(text);
  for (int i = 0; i < kShownRecent; ++i) {
    try {
      program.record.RecentFiles[i] = reader.Text();
    } catch (const FileFault&) {
      // A missing entry stays as it was.
    }
  }
  TakeWholeNames(program, ToCodePage(text));
  for (int i = 0; i < kShownRecent; ++i) ShowRecent(program, i);
}

}  // namespace torvale
