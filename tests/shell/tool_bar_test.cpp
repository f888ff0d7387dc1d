#include "shell/tool_bar.h"

#include <gtest/gtest.h>

#include <set>

#include "screen/plain_caption.h"
#include "shell/commands.h"
#include "shell/level_field.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

struct ToolBarTest : StartedProgramTest {
  void Design() {
    TypeLevelField(program);
    ASSERT_EQ(Click(program, "mnuDesignField"), Reach::kUsable);
  }
};

TEST_F(ToolBarTest, HasTheButtonsInTheirOrder) {
  const char* const keys[] = {"New", "Open", "Save", "PrintHoleSummary", "PrintSummary", "PrintComplete",
                              "Cut", "Copy", "Paste"};
  ASSERT_EQ(ToolButtons().size(), std::size(keys));
  for (std::size_t i = 0; i < std::size(keys); ++i) EXPECT_EQ(ToolButtons()[i]->tool.key, keys[i]);
}

TEST_F(ToolBarTest, EveryButtonSaysWhatItDoesAndStandsInAMenu) {
  const char* const spoken[] = {"New", "Open", "Save", "Print Hole Summary", "Print Summary", "Print Complete Design",
                                "Cut", "Copy", "Paste"};
  for (std::size_t i = 0; i < std::size(spoken); ++i) {
    const ControlFacts& button = *ToolButtons()[i];
    EXPECT_EQ(PlainCaption(button.caption), spoken[i]);
    EXPECT_FALSE(ToolTipOf(button).empty()) << button.name;
    EXPECT_TRUE(HasToolCommand(button)) << button.name;
    EXPECT_NE(FindControl(program, button.parent), nullptr) << button.name;
  }
}

TEST_F(ToolBarTest, AToolTipIsThatOfTheMenuEntryWithItsKey) {
  EXPECT_EQ(ToolTipOf(*ToolButtons()[1]), program.main.mnuFileOpen.tool_tip + " (Ctrl+O)");
  EXPECT_EQ(ToolTipOf(*ToolButtons()[4]), "Print the Summary at once, one copy");
}

TEST_F(ToolBarTest, AKeyIsFoundInTheNameOfItsButton) {
  EXPECT_EQ(ToolButtonName("Save"), "tbToolBar(Save)");
  EXPECT_EQ(ToolKeyOf("tbToolBar(Save)"), "Save");
  EXPECT_EQ(ToolKeyOf("tbToolBar()"), "");
  for (const char* other : {"", "tbToolBar", "tbToolBar(", "tbToolBar)", "mnuZoomTo(1)", "tbToolBars(Save)"}) {
    EXPECT_EQ(ToolKeyOf(other), std::nullopt) << other;
  }
}

TEST_F(ToolBarTest, NewBeginsANewDesign) {
  TypeText(program, "txtInfo(0)", "North Forty");
  sheet().Set(2, 0, "100");
  EXPECT_EQ(Click(program, "tbToolBar(New)"), Reach::kUsable);
  EXPECT_EQ(Info(0), "");
  EXPECT_EQ(sheet().Text(2, 0), "");
}

TEST_F(ToolBarTest, OpenAsksForAFile) {
  EXPECT_EQ(Click(program, "tbToolBar(Open)"), Reach::kUsable);
  ASSERT_EQ(host.dialogs.size(), 1U);
  EXPECT_EQ(host.dialogs[0].title, "Open");
}

TEST_F(ToolBarTest, SaveWritesUnderTheNameThatStands) {
  const std::string path = host.ProgramFolder() + "/north";
  Design();
  program.record.OpenedFileName = path;
  EXPECT_EQ(Click(program, "tbToolBar(Save)"), Reach::kUsable);
  EXPECT_EQ(program.record.SaveFileName, path + ".PFD");
  EXPECT_TRUE(std::filesystem::exists(path + ".PFD"));
  EXPECT_TRUE(host.dialogs.empty());
}

TEST_F(ToolBarTest, PrintKeysPrintOneCopyAtOnce) {
  Design();
  host.copies = 3;  // what a dialog would give
  for (const char* key : {"PrintHoleSummary", "PrintSummary", "PrintComplete"}) {
    EXPECT_EQ(tbToolBar_ButtonClick(program, key), Reach::kUsable) << key;
  }
  ASSERT_EQ(host.printed.size(), 3U);
  EXPECT_EQ(host.printed[0].title, "Hole Summary");
  EXPECT_EQ(host.printed[1].title, "Summary");
  EXPECT_EQ(host.printed[2].title, "Complete Design");
  EXPECT_EQ(host.printer_dialogs, 0);
}

TEST_F(ToolBarTest, WithoutResultsPrintKeysOnlySayThatThereAreNone) {
  for (const bool after_a_design : {false, true}) {
    if (after_a_design) {
      Design();
      Click(program, "mnuWindowInfo");
    }
    for (const char* key : {"PrintHoleSummary", "PrintSummary", "PrintComplete"}) {
      program.main.sbStatusBar.caption.clear();
      EXPECT_EQ(tbToolBar_ButtonClick(program, key), Reach::kUsable) << key;
      EXPECT_EQ(program.main.sbStatusBar.caption, "There are no results to print: run a design first.") << key;
    }
  }
  EXPECT_TRUE(host.printed.empty());
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(ToolBarTest, AMissingPrinterIsTold) {
  Design();
  host.has_printer = false;
  tbToolBar_ButtonClick(program, "PrintSummary");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages[0].body.ends_with(" print Error")) << host.messages[0].body;
}

// Keys are compared as they are: another case is another key.
TEST_F(ToolBarTest, AnUnknownKeyDoesNothing) {
  TypeText(program, "txtInfo(0)", "North Forty");
  const std::string status = program.main.sbStatusBar.caption;
  for (const char* key : {"", "new", "Help", "New ", "PrintProfile"}) {
    EXPECT_EQ(tbToolBar_ButtonClick(program, key), Reach::kUsable) << key;
  }
  EXPECT_EQ(Info(0), "North Forty");
  EXPECT_EQ(program.main.sbStatusBar.caption, status);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.dialogs.empty());
}

// A long search locks the menus; what the buttons do is locked with them.
TEST_F(ToolBarTest, ButtonsAreLockedWithTheirMenus) {
  Design();
  TypeText(program, "txtInfo(0)", "North Forty");
  program.main.mnuFile.enabled = false;
  for (const char* key : {"New", "Open", "Save", "PrintHoleSummary", "PrintSummary", "PrintComplete"}) {
    EXPECT_EQ(tbToolBar_ButtonClick(program, key), Reach::kDisabled) << key;
  }
  EXPECT_EQ(Info(0), "North Forty");
  EXPECT_TRUE(host.printed.empty());
  program.main.mnuFile.enabled = true;
  program.main.tbToolBar.visible = false;
  EXPECT_EQ(tbToolBar_ButtonClick(program, "New"), Reach::kHidden);
  EXPECT_EQ(Info(0), "North Forty");
}

// They belong to whoever owns the clipboard: the button does what the menu entry does.
TEST_F(ToolBarTest, TheClipboardKeysRunTheirMenuEntries) {
  const char* const keys[] = {"Cut", "Copy", "Paste"};
  const char* const entries[] = {"mnuEditCut", "mnuEditCopy", "mnuEditPaste"};
  for (std::size_t i = 0; i < 3; ++i) {
    const ControlFacts& button = *ToolButtons()[6 + i];
    EXPECT_EQ(button.tool.key, keys[i]);
    EXPECT_EQ(button.name, entries[i]);
    EXPECT_EQ(button.parent, "mnuEdit");
  }
}

}  // namespace
}  // namespace torvale
