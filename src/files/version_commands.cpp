#include "files/version_commands.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "base/paths.h"
#include "files/design_files.h"
#include "files/earlier_versions.h"
#include "files/new_design.h"
#include "input/focus.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// The name that an opened version goes by: beside its file, with the moment in it.
std::string CopyName(Program& program, const EarlierVersion& version) {
  std::string moment = program.host.TimeText(version.moment);
  for (char& c : moment) {
    if (c == '/' || c == '\\' || c == ':') c = '-';
  }
  const fs::path file = PathOf(version.file);
  const std::string extension = Utf8Of(file.extension());
  return Utf8Of(file.parent_path() / PathOf(Utf8Of(file.stem()) + " as of " + moment + extension));
}

struct Column {
  std::string_view heading;
  int width;
};

constexpr Column kColumns[] = {
    {"File", 2900}, {"Saved Over", 2300}, {"Design", 3000}, {"Type", 2300}, {"Uniformity", 900}};

void FillRow(Program& program, int row, const EarlierVersion& version) {
  Grid& grid = program.versions.Grd_EarlierVersions;
  const std::string texts[] = {Utf8Of(PathOf(version.file).filename()), program.host.TimeText(version.moment),
                               version.name, version.type, version.uniformity};
  for (int column = 0; column < grid.column_count(); ++column) grid.Set(row, column, texts[column]);
}

void LayOut(Grid& grid, std::size_t rows) {
  constexpr int kHeadingHeight = 360;
  constexpr int kCount = static_cast<int>(std::size(kColumns));
  grid.Resize(static_cast<int>(std::max<std::size_t>(rows, 1)) + 1, kCount);
  grid.Clear();
  grid.heading_height = kHeadingHeight;
  grid.fixed_back = kTeal;
  grid.fixed_fore = kWhite;
  for (int column = 0; column < kCount; ++column) {
    grid.columns[static_cast<std::size_t>(column)].width = kColumns[column].width;
    grid.Set(0, column, kColumns[column].heading);
  }
  grid.SetCurrent(1, 0);
  grid.top_row = 1;
}

}  // namespace

void mnuFileEarlier_Click(Program& program) {
  EarlierVersionsScreen& screen = program.versions;
  screen.versions = EarlierVersions(program.host);
  const DesignRecord& record = program.record;
  const std::string open = TruePath(record.SaveFileName.empty() ? record.OpenedFileName : record.SaveFileName);
  std::stable_partition(screen.versions.begin(), screen.versions.end(),
                        [&](const EarlierVersion& version) { return version.file == open; });
  LayOut(screen.Grd_EarlierVersions, screen.versions.size());
  int row = 0;
  for (const EarlierVersion& version : screen.versions) FillRow(program, ++row, version);
  screen.btnOpenVersion.enabled = row > 0;
  ShowVersionPath(program);
  screen.frmEarlierVersions.visible = true;
  MoveFocus(program, "Grd_EarlierVersions");
}

void ShowVersionPath(Program& program) {
  EarlierVersionsScreen& screen = program.versions;
  const auto row = static_cast<std::size_t>(screen.Grd_EarlierVersions.row) - 1;
  screen.lblVersionFile.caption = row < screen.versions.size()
                                      ? screen.versions[row].file
                                      : "No file has been saved over yet. Each save keeps what the file held before.";
}

void btnOpenVersion_Click(Program& program) {
  EarlierVersionsScreen& screen = program.versions;
  const auto row = static_cast<std::size_t>(screen.Grd_EarlierVersions.row) - 1;
  if (row >= screen.versions.size()) return;
  const EarlierVersion version = screen.versions[row];
  screen.frmEarlierVersions.visible = false;
  DesignRecord& record = program.record;
  record.OpenedFileName = version.stored;
  mnuFileNew_Click(program);
  OpenFile(program);
  const std::string trouble = NewsOf(program);
  const std::string copy = CopyName(program, version);
  for (std::string* name : {&record.OpenedFileName, &record.SaveFileName, &record.DisplayFileName}) *name = copy;
  Say(program, words::kEarlierVersionOpen(copy));
  SayAgain(program, trouble);
}

void btnCloseVersions_Click(Program& program) {
  program.versions.frmEarlierVersions.visible = false;
}

}  // namespace torvale
