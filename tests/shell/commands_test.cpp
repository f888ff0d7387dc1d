#include "shell/commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "shell/events.h"
#include "shell/level_field.h"
#include "shell/main_form.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct CommandsTest : ::testing::Test {
  CommandsTest() { StartProgram(program); }
  FakeHost host;
  Program program{host};
};

TEST_F(CommandsTest, EveryCommandBelongsToAMenuEntryOrButtonOfItsName) {
  std::set<std::string_view> names;
  for (const Command& command : Commands()) {
    EXPECT_TRUE(names.insert(command.name).second) << command.name << " stands twice";
    EXPECT_NE(FindControl(program, command.name), nullptr) << command.name;
  }
  EXPECT_GE(names.size(), 20U);
}

TEST_F(CommandsTest, EveryButtonHasACommand) {
  for (const NamedControl& named : ControlsOf(program.main)) {
    if (named.kind == ControlKind::kButton) {
      EXPECT_TRUE(HasCommand(named.name)) << named.name;
    }
  }
}

TEST_F(CommandsTest, EveryMenuEntryHasACommand) {
  const auto rows = MainScreen::Rows();
  int entries = 0;
  for (const ControlFacts& facts : rows) {
    const bool opens = std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.parent == facts.name; });
    if (facts.kind != ControlKind::kMenu || opens || facts.caption == "-") continue;
    ++entries;
    EXPECT_TRUE(HasCommand(facts.name)) << facts.name;
  }
  EXPECT_GE(entries, 40);
}

TEST_F(CommandsTest, AControlWithoutACommandIsUnknown) {
  EXPECT_FALSE(HasCommand("lblEffic"));
  EXPECT_EQ(Click(program, "lblEffic"), Reach::kUnknown);
  EXPECT_EQ(Click(program, "mnuNothing"), Reach::kUnknown);
}

TEST_F(CommandsTest, AHiddenControlRefuses) {
  EXPECT_EQ(Click(program, "cmdCancel"), Reach::kHidden);
  EXPECT_FALSE(program.record.CancelFlag);
  program.main.mnuEdit.visible = false;
  program.main.Grid1.Set(1, 2, "900");
  EXPECT_EQ(Click(program, "mnuInsertRow"), Reach::kHidden);  // with the menu that it stands in
  EXPECT_EQ(program.main.Grid1.Text(1, 2), "900");
}

TEST_F(CommandsTest, ADisabledControlRefuses) {
  program.main.cmdCancel.visible = true;
  program.main.cmdCancel.enabled = false;
  EXPECT_EQ(Click(program, "cmdCancel"), Reach::kDisabled);
  EXPECT_FALSE(program.record.CancelFlag);
  program.main.mnuFile.enabled = false;
  EXPECT_EQ(Click(program, "mnuFileExit"), Reach::kDisabled);
  EXPECT_FALSE(program.main.closed);
}

TEST_F(CommandsTest, AClickRunsTheCommand) {
  program.main.cmdCancel.visible = true;
  EXPECT_EQ(Click(program, "cmdCancel"), Reach::kUsable);
  EXPECT_TRUE(program.record.CancelFlag);
  EXPECT_FALSE(program.main.cmdCancel.visible);
}

TEST_F(CommandsTest, TheZoomEntriesSetTheirPercentage) {
  for (std::size_t i = 0; i < kZoomSteps.size(); ++i) {
    EXPECT_EQ(Click(program, "mnuZoomTo(" + std::to_string(i) + ")"), Reach::kUsable);
    EXPECT_EQ(program.main.zoom, kZoomSteps[i]);
    EXPECT_TRUE(program.main.mnuZoomTo[i].ticked);
  }
}

TEST_F(CommandsTest, ExitClosesTheScreenAndSavesItsPlace) {
  EXPECT_EQ(Click(program, "mnuFileExit"), Reach::kUsable);
  EXPECT_TRUE(program.main.closed);
  EXPECT_EQ(host.settings["MainLeft"], "1000");
  EXPECT_TRUE(host.questions.empty());  // the design is dropped without a word
}

// The preferences are stored by their panel's Exit, by Save As, and by the end of the program, open panel or not.
TEST_F(CommandsTest, ExitStoresThePreferences) {
  const std::string file = host.ProgramFolder() + "/Default50.TVL";
  ASSERT_FALSE(std::filesystem::exists(file));
  Click(program, "mnuPreference");
  TypeText(program, "txtDefault(0)", "75");
  TypeText(program, "txtDefault(3)", "");
  ASSERT_FALSE(std::filesystem::exists(file)) << "what is typed is in the fields alone";
  EXPECT_EQ(Click(program, "mnuFileExit"), Reach::kUsable);
  std::ifstream stored(file, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stored, line);) lines.push_back(line);
  ASSERT_GE(lines.size(), 16U);
  EXPECT_EQ(lines[0], "75\r");
  EXPECT_EQ(lines[3], "140\r") << "a blank one takes its factory default";
  EXPECT_FALSE(program.main.Frame1.visible);
}

// A whole planned design by clicks and typing: a hole of 5/8 inch each 20 feet on 100 feet of level 15 inch pipe.
struct ClickedDesignTest : CommandsTest {
  ClickedDesignTest() { TypeLevelField(program); }
};

TEST_F(ClickedDesignTest, APlannedDesignIsShownAndTheWayBackIsOpen) {
  EXPECT_EQ(Click(program, "mnuDesignField"), Reach::kUsable);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(program.main.Grid2.control.visible);
  EXPECT_GE(program.record.Uniformity, 99.0F);  // level ground, wide pipe, equal furrows
  EXPECT_EQ(Click(program, "cmdDesignToggle"), Reach::kUsable);
  EXPECT_EQ(Click(program, "cmdReCalc"), Reach::kUsable);
  EXPECT_EQ(Click(program, "mnuWindowInfo"), Reach::kUsable);
  EXPECT_FALSE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.record.DesignType, kNoDesign);
}

TEST_F(ClickedDesignTest, AClickOnCancelDuringTheMarchStopsIt) {
  host.event_at = 1;
  host.event = [&] { EXPECT_EQ(Click(program, "cmdCancel"), Reach::kUsable); };
  Click(program, "mnuDesignField");
  EXPECT_FALSE(host.event) << "the march never yielded";
  EXPECT_TRUE(program.record.CancelFlag);
  EXPECT_FALSE(program.main.Grid2.control.visible);
  EXPECT_TRUE(program.main.Grid1.control.visible);
}

TEST_F(ClickedDesignTest, ClosingDuringTheMarchStopsIt) {
  host.event_at = 1;
  host.event = [&] { Form_Unload(program); };
  Click(program, "mnuExistingDesign");
  EXPECT_FALSE(host.event) << "the march never yielded";
  EXPECT_TRUE(program.main.closed);
  EXPECT_FALSE(program.main.Grid2.control.visible);
}

TEST_F(ClickedDesignTest, NewLeavesNothingOfTheDesign) {
  Click(program, "mnuDesignField");
  EXPECT_EQ(Click(program, "mnuFileNew"), Reach::kUsable);
  EXPECT_FALSE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.main.Grid1.Text(2, 0), "");
  EXPECT_EQ(program.record.Station[2], 0.0F);
}

}  // namespace
}  // namespace torvale
