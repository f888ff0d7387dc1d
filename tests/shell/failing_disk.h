// A folder of work as a planner has it, a program in it, and a disk that fails or a program that dies at any step.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/file_store.h"
#include "files/soils.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/history.h"
#include "shell/inputs.h"
#include "shell/recovery.h"
#include "shell/start_up.h"
#include "support/fake_host.h"
#include "support/file_bytes.h"
#include "support/level_line.h"
#include "support/usual_preferences.h"

namespace torvale {

// The files below a folder, by their path in it.
using Snapshot = std::map<std::string, std::string>;

// The name of a file that no user has asked for: it differs from run to run.
inline bool IsJournal(const std::string& name) {
  return name.starts_with("user/journal/");
}

struct WorkFolder {
  // Puts the folder back to where every run begins: a design, a table, a report and the program's own files, all with
  // something in them that a failure must not take.
  void Reset() {
    program.reset();
    host.disk = nullptr;
    host.messages.clear();
    host.settings.clear();
    host.paths.clear();
    host.now = kNoon;
    for (const auto& entry : std::filesystem::directory_iterator(host.ProgramFolder())) {
      std::filesystem::remove_all(entry.path());
    }
    host.WriteFile("SoilsName.txt", "\"Sand\",\"10\"\r\n\"Loam\",\"7\"\r\n");
    host.WriteFile("Default50.TVL", Defaults());
    host.WriteFile("RecentTORVALEFileName.Dat", Path("other.PFD") + "\r\n\r\n\r\n\r\n");
    for (const char* name : {"table.csv", "summary.pdf", "crown.png"}) host.WriteFile(name, "former");
    Start();
    TypeDesign();
    program->record.SaveFileName = Path("dunn.PFD");
    Click(*program, "mnuFileSave");
    host.messages.clear();
    // What is typed from here on is in no file but the journal.
    TypeText(*program, "txtInfo(4)", "South");
    Wait();
  }

  void Start() {
    program = std::make_unique<Program>(host);
    StartProgram(*program);
    host.write_file = [this](const std::string& path) { return WriteQuietly(host, path, "drawn"); };
    host.write_profile = nullptr;
    MenuOpened(*program, "mnuFile");
  }

  void Wait() {
    host.now += 2000;
    Idle(*program);
  }

  std::string Path(const std::string& name) const { return folder + "/" + name; }

  Snapshot Files() const {
    Snapshot files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      files[std::filesystem::relative(entry.path(), folder).generic_string()] = BytesOf(entry.path());
    }
    return files;
  }

  static constexpr std::int64_t kNoon = 1'795'262'400'000;
  FakeHost host;
  const std::string folder = host.ProgramFolder();
  std::unique_ptr<Program> program;

 private:
  static std::string Defaults() {
    std::string text;
    for (const char* value : kUsualPreferences) text += std::string(value) + "\r\n";
    return text;
  }

  void TypeDesign() {
    const char* const info[] = {"Dunn", "5/14/2026", "30", "2", "Levee Road", "E"};
    for (int i = 0; i < 6; ++i) TypeText(*program, "txtInfo(" + std::to_string(i) + ")", info[i]);
    FillLevelLine(program->main.Grid1);
    Click(*program, "mnuDesignField");
    ASSERT_TRUE(program->main.Grid2.control.visible);
  }
};

// A command that writes, and what leads up to it.
struct Writing {
  const char* name;
  std::function<void(WorkFolder&)> prepare;  // before the disk fails
  std::function<void(WorkFolder&)> run;
  std::vector<std::string> writes;  // the user's files, and the program's, that it writes
};

inline void PrintTo(const Writing& writing, std::ostream* out) {
  *out << writing.name;
}

// Another name of a file, for which it is written in place.
constexpr std::string_view kAgain = "again-";

inline void LinkAgain(WorkFolder& work, const std::string& name) {
  std::filesystem::create_hard_link(work.Path(name), work.Path(std::string(kAgain) + name));
}

// The picture of the crown profile, as the window would write it.
inline void ShowProfile(WorkFolder& work) {
  work.host.paths = {work.Path("crown.png")};
  Click(*work.program, "mnuProfile");
  work.host.write_profile = [&work](const std::string& path) {
    work.host.refused_file = WriteQuietly(work.host, path, "drawn");
    return work.host.refused_file.error == 0;
  };
}

inline std::vector<Writing> AllWritings() {
  using Work = WorkFolder&;
  const auto nothing = [](Work) {};
  const auto click = [](const char* name) { return [name](Work w) { Click(*w.program, name); }; };
  const auto to = [](const char* file) { return [file](Work w) { w.host.paths = {w.Path(file)}; }; };
  const auto linked = [](const char* file) {
    return [file](Work w) {
      LinkAgain(w, file);
      w.host.paths = {w.Path(file)};
    };
  };
  const auto type_preference = [](Work w) {
    Click(*w.program, "mnuPreference");
    TypeText(*w.program, "txtDefault(3)", "117");
    w.Wait();
  };
  const auto type_soil = [](Work w) {
    Click(*w.program, "mnuSoils_and_Furrow");
    w.program->soils.Grd_Soils_FurrowFlow.Set(3, 0, "Clay");
  };
  const auto show_linked_profile = [](Work w) {
    LinkAgain(w, "crown.png");
    ShowProfile(w);
  };
  const auto die_and_start = [](Work w) {
    w.program.reset();
    w.Start();
  };
  const auto show_versions = [](Work w) {
    Click(*w.program, "mnuFileSave");
    Click(*w.program, "mnuFileEarlier");
  };
  constexpr const char* kRecent = "RecentTORVALEFileName.Dat";
  constexpr const char* kDefaults = "Default50.TVL";
  return {
      {"Save", nothing, click("mnuFileSave"), {"dunn.PFD", kRecent}},
      {"SaveInPlace", linked("dunn.PFD"), click("mnuFileSave"), {"dunn.PFD", "again-dunn.PFD", kRecent}},
      {"SaveAs", to("new"), click("mnuFileSaveAs"), {"new.PFD", kDefaults, kRecent}},
      {"Open", to("dunn.PFD"), click("mnuFileOpen"), {kDefaults, kRecent}},
      {"Preferences", type_preference, click("btnDefaultExit"), {kDefaults}},
      {"PreferencesInPlace",
       [=](Work w) {
         LinkAgain(w, kDefaults);
         type_preference(w);
       },
       click("btnDefaultExit"),
       {kDefaults, "again-Default50.TVL"}},
      {"Soils", type_soil, click("mnu_Save_Exit"), {"SoilsName.txt"}},
      {"Table", to("table.csv"), click("mnuExportCsv"), {"table.csv"}},
      {"TableInPlace", linked("table.csv"), click("mnuExportCsv"), {"table.csv", "again-table.csv"}},
      {"HoleSummaryTable", to("table.csv"), click("mnuExportHoleCsv"), {"table.csv"}},
      {"Report", to("summary.pdf"), click("mnuExportPdf(0)"), {"summary.pdf"}},
      {"ReportInPlace", linked("summary.pdf"), click("mnuExportPdf(0)"), {"summary.pdf", "again-summary.pdf"}},
      {"Picture", ShowProfile, click("btnExportPicture"), {"crown.png"}},
      {"PictureInPlace", show_linked_profile, click("btnExportPicture"), {"crown.png", "again-crown.png"}},
      {"BringBack", die_and_start, click("mnuFileBringBack"), {}},
      {"OpenVersion", show_versions, click("btnOpenVersion"), {kDefaults}},
      {"Exit", nothing, click("mnuFileExit"), {kDefaults}},
  };
}

}  // namespace torvale
