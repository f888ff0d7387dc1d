// A script and the windows are two ways to drive one program: each statement of every script leaves both in one state.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "gui/hand_driver.h"
#include "record/record_fields.h"
#include "shell/main_form.h"
#include "shell/start_up.h"
#include "support/source_folder.h"
#include "support/without_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// What differs between two states, a line for each thing. Each names the folder it works in as "<folder>".
class Differences {
 public:
  Differences(fs::path script_folder, fs::path window_folder)
      : script_folder_(std::move(script_folder)), window_folder_(std::move(window_folder)) {}

  template <typename T>
  void Compare(std::string_view what, const T& script, const T& window) {
    if (!(script == window)) found_ << "  " << what << '\n';
  }
  void Compare(std::string_view what, const std::string& script, const std::string& window) {
    if (script == window) return;
    const std::string ours = WithoutFolder(script, script_folder_);
    const std::string theirs = WithoutFolder(window, window_folder_);
    if (ours != theirs) found_ << "  " << what << ": script " << Quoted(ours) << ", window " << Quoted(theirs) << '\n';
  }
  void Compare(std::string_view what, int script, int window) {
    if (script != window) found_ << "  " << what << ": script " << script << ", window " << window << '\n';
  }
  void Compare(std::string_view what, const TextGrid& script, const TextGrid& window) {
    Compare(what, script.rows(), window.rows());
    Compare(what, script.columns(), window.columns());
    for (int row = 0; row < std::min(script.rows(), window.rows()); ++row) {
      for (int column = 0; column < std::min(script.columns(), window.columns()); ++column) {
        if (script.Text(row, column) == window.Text(row, column)) continue;
        Compare(std::string(what) + " " + std::to_string(row) + "," + std::to_string(column), script.Text(row, column),
                window.Text(row, column));
      }
    }
  }
  std::string text() const { return found_.str(); }

 private:
  fs::path script_folder_;
  fs::path window_folder_;
  std::ostringstream found_;
};

void CompareControls(Differences& all, std::string_view name, const Control& script, const Control& window) {
  const std::string what(name);
  all.Compare(what + " caption", script.caption, window.caption);
  all.Compare(what + " tool tip", script.tool_tip, window.tool_tip);
  all.Compare(what + " place", script.place, window.place);
  all.Compare(what + " visible", int{script.visible}, int{window.visible});
  all.Compare(what + " enabled", int{script.enabled}, int{window.enabled});
  all.Compare(what + " ticked", int{script.ticked}, int{window.ticked});
  all.Compare(what + " back", script.back, window.back);
  all.Compare(what + " fore", script.fore, window.fore);
}

void CompareGrids(Differences& all, std::string_view name, const Grid& script, const Grid& window) {
  const std::string what(name);
  all.Compare(what, script.cells(), window.cells());
  all.Compare(what + " columns", script.columns, window.columns);
  all.Compare(what + " heading height", script.heading_height, window.heading_height);
  all.Compare(what + " top row", script.top_row, window.top_row);
  all.Compare(what + " row", script.row, window.row);
  all.Compare(what + " column", script.column, window.column);
  all.Compare(what + " far row", script.row_sel, window.row_sel);
  all.Compare(what + " far column", script.column_sel, window.column_sel);
  if (script.rows() != window.rows() || script.column_count() != window.column_count()) return;
  for (int row = 0; row < script.rows(); ++row) {
    for (int column = 0; column < script.column_count(); ++column) {
      if (script.Back(row, column) == window.Back(row, column) &&
          script.Fore(row, column) == window.Fore(row, column) &&
          script.AlignOf(row, column) == window.AlignOf(row, column)) {
        continue;
      }
      all.Compare(what + " look of " + std::to_string(row) + "," + std::to_string(column), 0, 1);
    }
  }
}

void CompareLists(Differences& all, std::string_view name, const ListBox& script, const ListBox& window) {
  all.Compare(std::string(name) + " lines", script.count(), window.count());
  for (int i = 0; i < std::min(script.count(), window.count()); ++i) {
    const std::string line = std::string(name) + " line " + std::to_string(i);
    all.Compare(line, script.Line(i), window.Line(i));
    all.Compare(line + " selected", int{script.Selected(i)}, int{window.Selected(i)});
  }
}

template <typename Screen>
void CompareScreens(Differences& all, Screen& script, Screen& window) {
  const std::vector<NamedControl> ours = ControlsOf(script);
  const std::vector<NamedControl> theirs = ControlsOf(window);
  for (std::size_t i = 0; i < ours.size(); ++i) {
    CompareControls(all, ours[i].name, *ours[i].control, *theirs[i].control);
    if (ours[i].field != nullptr) {
      all.Compare(std::string(ours[i].name) + " text", ours[i].field->text(), theirs[i].field->text());
      all.Compare(std::string(ours[i].name) + " longest", ours[i].field->max_length, theirs[i].field->max_length);
    }
    if (ours[i].grid != nullptr) CompareGrids(all, ours[i].name, *ours[i].grid, *theirs[i].grid);
    if (ours[i].list != nullptr) CompareLists(all, ours[i].name, *ours[i].list, *theirs[i].list);
  }
}

std::string DifferencesOf(Program& script, Program& window, Differences all) {
  CompareScreens(all, script.main, window.main);
  CompareScreens(all, script.soils, window.soils);
  CompareScreens(all, script.profile, window.profile);
  CompareScreens(all, script.splash, window.splash);
  CompareScreens(all, script.help, window.help);
  CompareScreens(all, script.versions, window.versions);
  all.Compare("focus", script.main.focus, window.main.focus);
  all.Compare("title", script.main.title, window.main.title);
  all.Compare("zoom", script.main.zoom, window.main.zoom);
  all.Compare("busy", int{script.main.busy || script.main.main_busy}, int{window.main.busy || window.main.main_busy});
  all.Compare("closed", int{script.main.closed}, int{window.main.closed});
  all.Compare("soils shown", int{script.soils.visible}, int{window.soils.visible});
  all.Compare("help page", script.help.place, window.help.place);
  all.Compare("chart", script.profile.chart.Points, window.profile.chart.Points);
  ForEachRecordField(
      [&](const auto& field) { all.Compare(field.name, script.record.*field.member, window.record.*field.member); });
  return all.text();
}

// What a user would notice, but for clicks that are refused: a hand can't even make them.
std::string Noticed(const std::string& transcript) {
  std::istringstream lines(transcript);
  std::string noticed;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("refused: ")) noticed.append(line).append("\n");
  }
  return noticed;
}

std::vector<fs::path> ScriptFiles() {
  std::vector<fs::path> files;
  for (const char* folder : {"tests/scripts", "data/samples"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(kSourceFolder) / folder)) {
      if (entry.path().extension() == ".script") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string TestName(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

// A cursor that moves is scrolled to, as a user would do it by hand: how many rows are in view depends on the letters
// of the desktop, which a script has none of. A grid whose cursor stays must not scroll.
class Scrolling {
 public:
  Scrolling(Program& script, Program& window) : script_(GridsOf(script)), window_(GridsOf(window)) {}

  void Follow() {
    for (std::size_t i = 0; i < window_.size(); ++i) {
      if (std::exchange(seen_.at(i), window_[i]->row_sel) != window_[i]->row_sel) {
        script_[i]->top_row = window_[i]->top_row;
      }
    }
  }

 private:
  static std::vector<Grid*> GridsOf(Program& program) {
    return {&program.main.Grid1, &program.main.Grid2, &program.soils.Grd_Soils_FurrowFlow};
  }
  std::vector<Grid*> script_;
  std::vector<Grid*> window_;
  std::array<int, 3> seen_ = {1, 1, 1};
};

class TwinTest : public testing::TestWithParam<fs::path> {};

TEST_P(TwinTest, AScriptAndTheWindowsEndEachStatementInOneState) {
  std::ifstream script_file(GetParam());
  std::ifstream window_file(GetParam());
  ScriptLines script_lines(script_file);
  ScriptLines window_lines(window_file);
  const fs::path before = fs::current_path();
  const TemporaryFolder script_folder;
  const TemporaryFolder window_folder;
  std::ostringstream script_transcript;
  std::ostringstream window_transcript;
  Session script(script_transcript);
  HandDriver hand(window_transcript);
  ASSERT_TRUE(hand.Ready());
  // The desktop activates a window that comes up; a script begins with the program started.
  Guarded(script.program, [&] { Form_Activate(script.program); });
  const auto differences_of_both = [&] {
    return DifferencesOf(script.program, hand.session.program, Differences(script_folder.path(), window_folder.path()));
  };
  EXPECT_EQ(differences_of_both(), "");
  Scrolling scrolling(script.program, hand.session.program);
  std::string line;
  std::string ignored;
  while (script_lines.Next(line) && window_lines.Next(ignored)) {
    fs::current_path(script_folder.path());
    RunStatement(script, line, script_lines);
    fs::current_path(window_folder.path());
    hand.Run(line, window_lines);
    scrolling.Follow();
    const std::string differences = differences_of_both();
    if (differences.empty()) continue;
    ADD_FAILURE() << GetParam().filename() << " line " << script_lines.number() << ": " << line << '\n' << differences;
    break;
  }
  fs::current_path(before);
  EXPECT_EQ(hand.missed, "");
  EXPECT_EQ(WithoutFolder(Noticed(script_transcript.str()), script_folder.path()),
            WithoutFolder(Noticed(window_transcript.str()), window_folder.path()));
}

INSTANTIATE_TEST_SUITE_P(Scripts, TwinTest, testing::ValuesIn(ScriptFiles()), TestName);

}  // namespace
}  // namespace torvale
