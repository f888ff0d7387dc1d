// The keys and menu entries of cut, copy and paste.
#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/events.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

struct EditKeysTest : StartedProgramTest {
  EditKeysTest() {
    soils().Set(2, 0, "Loam");
    sheet().Set(5, 2, "600");
  }
  Grid& soils() { return program.soils.Grd_Soils_FurrowFlow; }
  const std::string& Clip(int row, int column) { return program.record.GridClipboard.Text(row, column); }
  TextField& Field(std::size_t index) { return program.main.txtInfo[index]; }
  bool FieldKeyed(std::string_view field, Key key) { return FieldKey(program, field, {key, ""}); }
};

// In the sheet

TEST_F(EditKeysTest, TheSheetsKeysRunTheCommands) {
  sheet().SetCurrent(5, 2);
  Press(Key::kCopy);
  EXPECT_EQ(Clip(5, 2), "600");
  sheet().SetCurrent(6, 2);
  Press(Key::kPaste);
  EXPECT_EQ(sheet().Text(6, 2), "600");
  ExpectAt(sheet(), 5, 2);
  Press(Key::kCut);
  EXPECT_EQ(sheet().Text(5, 2), "");
}

TEST_F(EditKeysTest, DeleteIsACut) {
  sheet().SetCurrent(5, 2);
  Press(Key::kDelete);
  EXPECT_EQ(sheet().Text(5, 2), "");
  EXPECT_EQ(Clip(5, 2), "600");
  EXPECT_EQ(program.record.PasteRows, 1);
}

// A key that reaches the sheet makes it the active control, whatever had the focus before.
TEST_F(EditKeysTest, AKeyOfTheSheetWorksOnTheSheet) {
  FocusGained(program, "txtInfo(0)");
  Field(0).Set("North");
  Field(0).SelectAll();
  sheet().SetCurrent(5, 2);
  Press(Key::kCut);
  EXPECT_EQ(Field(0).text(), "North");
  EXPECT_EQ(Clip(5, 2), "600");
  EXPECT_EQ(program.main.focus, "Grid1");
}

TEST_F(EditKeysTest, TheFirstStationMayBeCutUntilTheNextKey) {
  sheet().SetCurrent(1, 0);
  Press(Key::kDelete);
  EXPECT_EQ(sheet().Text(1, 0), "");
  EXPECT_TRUE(host.messages.empty());
  Press("5");
  EXPECT_EQ(sheet().Text(1, 0), "0");
  EXPECT_EQ(host.messages.size(), 1U);
}

// In the results

TEST_F(EditKeysTest, ResultsAreCopiedAndNeitherCutNorPastedOver) {
  results().control.visible = true;
  results().Set(3, 1, "5/8");
  results().SetCurrent(3, 1);
  host.clipboard = "9\r\n";
  sheet().SetCurrent(5, 2);
  for (const Key key : {Key::kCut, Key::kPaste, Key::kDelete}) {
    GridKey(program, "Grid2", {key, ""});
    EXPECT_EQ(results().Text(3, 1), "5/8");
    EXPECT_EQ(sheet().Text(5, 2), "600");
    EXPECT_EQ(host.clipboard, "9\r\n");
  }
  GridKey(program, "Grid2", {Key::kCopy, ""});
  EXPECT_EQ(host.clipboard, "5/8\r\n");
}

// In the soils editor

TEST_F(EditKeysTest, TheEditorsKeysRunItsCommands) {
  program.soils.visible = true;
  soils().SetCurrent(2, 0);
  GridKey(program, "Grd_Soils_FurrowFlow", {Key::kCopy, ""});
  EXPECT_EQ(Clip(2, 0), "Loam");
  soils().SetCurrent(7, 0);
  GridKey(program, "Grd_Soils_FurrowFlow", {Key::kPaste, ""});
  EXPECT_EQ(soils().Text(7, 0), "Loam");
  ExpectAt(soils(), 2, 0);
  GridKey(program, "Grd_Soils_FurrowFlow", {Key::kDelete, ""});
  EXPECT_EQ(soils().Text(2, 0), "");
  soils().SetCurrent(7, 0);
  GridKey(program, "Grd_Soils_FurrowFlow", {Key::kCut, ""});
  EXPECT_EQ(soils().Text(7, 0), "");
  EXPECT_EQ(Clip(7, 0), "Loam");
}

TEST_F(EditKeysTest, TheEditorsMenuRunsItsCommands) {
  program.soils.visible = true;
  soils().SetCurrent(2, 0);
  EXPECT_EQ(Click(program, "mnuCut"), Reach::kUsable);
  EXPECT_EQ(soils().Text(2, 0), "");
  EXPECT_EQ(Click(program, "mnuPaste"), Reach::kUsable);
  EXPECT_EQ(soils().Text(2, 0), "Loam");
  EXPECT_EQ(Click(program, "mnuCopy"), Reach::kUsable);
  EXPECT_EQ(Clip(2, 0), "Loam");
  EXPECT_EQ(program.soils.mnuCut.caption, "Cu&t");
  EXPECT_EQ(program.soils.mnuCopy.caption, "&Copy");
  EXPECT_EQ(program.soils.mnuPaste.caption, "&Paste");
}

// In a field

TEST_F(EditKeysTest, AFieldsKeysEndAsTheMenuDoes) {
  for (const bool by_key : {false, true}) {
    Field(0).Set("North field");
    FocusGained(program, "txtInfo(0)");
    const auto run = [&](Key key, std::string_view entry) {
      if (by_key) {
        EXPECT_TRUE(FieldKeyed("txtInfo(0)", key));
      } else {
        EXPECT_EQ(Click(program, entry), Reach::kUsable);
      }
    };
    program.record.GridClipboard.Set(5, 2, "x");
    SelectText(program, "txtInfo(0)", {0, 5});
    run(Key::kCopy, "mnuEditCopy");
    EXPECT_EQ(host.clipboard, "North");
    EXPECT_EQ(Clip(5, 2), "");
    SelectText(program, "txtInfo(0)", {5, 6});
    run(Key::kCut, "mnuEditCut");
    EXPECT_EQ(Info(0), "North");
    host.clipboard = "\"South\"\n";
    SelectText(program, "txtInfo(0)", {0, 3});
    run(Key::kPaste, "mnuEditPaste");
    EXPECT_EQ(Info(0), "\xE2\x80\x9DSouth\xE2\x80\x9Dth");
    EXPECT_EQ(Field(0).selection(), (TextSelection{7, 0}));
  }
}

TEST_F(EditKeysTest, AKeyOfAFieldWorksOnThatField) {
  FocusGained(program, "Grid1");
  Field(0).Set("North");
  EXPECT_TRUE(FieldKeyed("txtInfo(0)", Key::kCut));
  EXPECT_EQ(host.clipboard, "North");  // the focus that it gained selected it whole
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

// The hole size of the preferences takes no typing; its text can be copied all the same.
TEST_F(EditKeysTest, APreferenceIsCopied) {
  program.main.Frame1.visible = true;
  for (const std::size_t index : {0U, 1U}) {
    const std::string name = "txtDefault(" + std::to_string(index) + ")";
    program.main.txtDefault[index].Set("7/16");
    FocusGained(program, name);
    host.clipboard.clear();
    EXPECT_TRUE(FieldKeyed(name, Key::kCopy));
    EXPECT_EQ(host.clipboard, "7/16");
    EXPECT_EQ(program.main.txtDefault[index].text(), "7/16");
  }
}

// The widget must not go on to paste a second time.
TEST_F(EditKeysTest, AKeyIsSwallowedAlsoWhereItsTextCannotBeUsed) {
  FocusGained(program, "txtInfo(2)");
  host.clipboard = "1e99";  // more than TargetGPM holds
  EXPECT_TRUE(FieldKeyed("txtInfo(2)", Key::kPaste));
  EXPECT_EQ(Info(2), "1e99");
  EXPECT_EQ(host.messages.size(), 1U);
}

TEST_F(EditKeysTest, AFieldThatIsLeftKeepsNoSelection) {
  Field(0).Set("North");
  FocusGained(program, "txtInfo(0)");
  EXPECT_EQ(Field(0).SelectedText(), "North");
  FocusGained(program, "txtInfo(1)");
  EXPECT_EQ(Field(0).SelectedText(), "");
}

TEST_F(EditKeysTest, TextIsSelectedWhereTheUserCanReachIt) {
  Field(0).Set("North");
  SelectText(program, "txtInfo(0)", {1, 2});
  EXPECT_EQ(Field(0).SelectedText(), "or");
  Field(0).control.enabled = false;
  SelectText(program, "txtInfo(0)", {0, 5});
  SelectText(program, "txtInfo(9)", {0, 5});
  EXPECT_EQ(Field(0).SelectedText(), "or");
}

TEST_F(EditKeysTest, TypedLinesAreJoinedInOne) {
  TypeText(program, "txtInfo(4)", "County road\r\ngate 2\n");
  EXPECT_EQ(Info(4), "County road gate 2");
  EXPECT_EQ(Field(4).selection(), (TextSelection{18, 0}));
}

// The menu

TEST_F(EditKeysTest, TheEditMenuIsInTheMenuBar) {
  EXPECT_EQ(program.main.mnuEditCut.caption, "Cu&t");
  EXPECT_EQ(program.main.mnuEditCopy.caption, "&Copy");
  EXPECT_EQ(program.main.mnuEditPaste.caption, "&Paste");
  EXPECT_EQ(program.main.mnuSurveyCopy.caption, "Paste Excel Survey");
  FocusGained(program, "Grid1");
  sheet().SetCurrent(5, 2);
  EXPECT_EQ(Click(program, "mnuEditCut"), Reach::kUsable);
  EXPECT_EQ(Clip(5, 2), "600");
  program.main.mnuEdit.enabled = false;
  EXPECT_EQ(Click(program, "mnuEditPaste"), Reach::kDisabled);
}

TEST_F(EditKeysTest, ASurveyIsPastedWhileTheSheetIsShown) {
  host.clipboard = "0\t5\n50\t6\n";
  EXPECT_EQ(Click(program, "mnuSurveyCopy"), Reach::kUsable);
  EXPECT_EQ(sheet().Text(2, 1), "6");
  program.main.mnuSurveyCopy.visible = false;
  EXPECT_EQ(Click(program, "mnuSurveyCopy"), Reach::kHidden);
}

}  // namespace
}  // namespace torvale
