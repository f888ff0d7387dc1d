// A program as far as files need it, and a look at what they leave on the disk.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "display/grid_layout.h"
#include "files/design_files.h"
#include "files/preferences.h"
#include "files/soils.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "search/design_commands.h"
#include "support/fake_host.h"
#include "support/file_bytes.h"
#include "support/usual_preferences.h"

namespace torvale {

inline void WriteTestFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline bool Exists(const std::string& path) {
  return std::filesystem::exists(path);
}

// A started program on a desktop of its own.
struct FileProgram {
  FileProgram() {
    ConnectInfoFields(program);
    ConnectPreferences(program);
    SetGrd_Soils_FurrowFlow(program);
    GridSet(program);
    record.LowQuarter = 0.25F;
  }

  std::string Path(const std::string& name) { return host.ProgramFolder() + "/" + name; }

  // Fills the preferences so that leaving their panel changes none.
  void FillPreferences() {
    for (std::size_t i = 0; i < kUsualPreferences.size(); ++i) main.txtDefault[i].Set(kUsualPreferences.at(i));
  }

  // Eleven furrows ten feet apart on a crown that is all but level, at 6.4 GPM: rows that every kind of design accepts.
  void TypeSurvey() {
    FillPreferences();
    const std::vector<std::string> info = {"East 40", "5/14/2026", "6.4", "2", "Levee Road, gate 2", "E"};
    for (std::size_t i = 0; i < info.size(); ++i) main.txtInfo[i].Set(info[i]);
    const std::vector<std::vector<std::string>> rows = {{"0", "100.10", "1000", "10", "15", "3/8", "1", "10", "10"},
                                                        {"100", "100.00", "1000", "10", "15", "3/8", "1", "10", "10"}};
    for (std::size_t r = 0; r < rows.size(); ++r) {
      for (std::size_t c = 0; c < rows[r].size(); ++c) {
        main.Grid1.Set(static_cast<int>(r) + 1, static_cast<int>(c), rows[r][c]);
      }
    }
  }

  // Opens the file and gives back the message that came, if one did.
  std::string Open(const std::string& path) {
    host.messages.clear();
    record.OpenedFileName = path;
    OpenFile(program);
    return host.messages.empty() ? "" : host.messages.front().body;
  }

  // Saves under exactly that name, and gives back the message that came, if one did.
  std::string Save(const std::string& path) {
    host.messages.clear();
    record.SaveFileName = path;
    SaveFile(program);
    return host.messages.empty() ? "" : host.messages.front().body;
  }

  FakeHost host;
  Program program{host};
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
};

struct FilesTest : FileProgram, ::testing::Test {};

inline constexpr std::string_view kOpeningFailed = "Error opening file! Check location of file.,  ";
inline constexpr std::string_view kSavingFailed = "Error saving file, file not saved! ";

}  // namespace torvale
