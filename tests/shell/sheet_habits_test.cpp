// What a hand is used to from other sheets, where the rules leave it free.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/soils.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "input/sheet.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SheetHabitsTest : StartedProgramTest {
  // A survey of three stations; the other cells of rows 2 and 3 are empty.
  void TypeStations() {
    for (int row = 1; row <= 3; ++row) sheet().Set(row, 0, std::to_string((row - 1) * 100));
  }
  void ExpectSelected(int row, int column, int row_sel, int column_sel) {
    ExpectAt(sheet(), row, column);
    EXPECT_EQ(sheet().row_sel, row_sel);
    EXPECT_EQ(sheet().column_sel, column_sel);
  }
};

TEST_F(SheetHabitsTest, TabGoesAlongTheRowAndOnToTheNextAndShiftTabBack) {
  sheet().SetCurrent(2, 7);
  sheet().Set(2, 7, "7.4");
  Press(Key::kTab);
  ExpectAt(sheet(), 2, 8);
  EXPECT_EQ(sheet().Text(2, 7), "7");  // the cell that is left takes its form
  Press(Key::kTab);
  ExpectAt(sheet(), 3, 0);
  Press(Key::kTab, true);
  ExpectSelected(2, 8, 2, 8);
}

TEST_F(SheetHabitsTest, TabLeavesTheSheetAtItsEndsAndCtrlTabFromAnywhere) {
  FocusGained(program, "Grid1");
  sheet().SetCurrent(319, 8);
  Press(Key::kTab);
  EXPECT_EQ(program.main.focus, "cmdInterpolate");
  ExpectAt(sheet(), 319, 8);
  FocusGained(program, "Grid1");
  sheet().SetCurrent(1, 0);
  Press(Key::kTab, true);
  EXPECT_EQ(program.main.focus, "txtInfo(5)");
  FocusGained(program, "Grid1");
  sheet().SetCurrent(5, 5);
  Press(Key::kCtrlTab);
  EXPECT_EQ(program.main.focus, "cmdInterpolate");
  FocusGained(program, "Grid1");
  Press(Key::kCtrlTab, true);
  EXPECT_EQ(program.main.focus, "txtInfo(5)");
}

TEST_F(SheetHabitsTest, TabLeadsPastWhatCannotBeReachedAndOutOfTheResults) {
  results().control.visible = true;
  program.main.cmdInterpolate.visible = false;
  program.main.cmdReCalc.visible = true;
  FocusGained(program, "Grid2");
  GridKey(program, "Grid2", {Key::kTab, ""});
  EXPECT_EQ(program.main.focus, "cmdReCalc");
}

TEST_F(SheetHabitsTest, ACaretTypesAndTakesAwayInTheMiddle) {
  sheet().SetCurrent(2, 2);
  sheet().Set(2, 2, "1320");
  Press(Key::kEdit);
  Press(Key::kLeft);
  Press(Key::kLeft);
  Press("5");
  EXPECT_EQ(sheet().Text(2, 2), "13520");
  Press(Key::kBackspace);
  Press(Key::kBackspace);
  EXPECT_EQ(sheet().Text(2, 2), "120");
  Press(Key::kDelete);
  EXPECT_EQ(sheet().Text(2, 2), "10");
  Press(Key::kHome);
  Press(Key::kBackspace);
  Press("9");
  EXPECT_EQ(sheet().Text(2, 2), "910");
  Press(Key::kEnd);
  Press(Key::kDelete);
  Press(Key::kRight);
  Press("8");
  EXPECT_EQ(sheet().Text(2, 2), "9108");
  ExpectAt(sheet(), 2, 2);
  Press(Key::kEnter);
  ExpectAt(sheet(), 3, 2);
  EXPECT_FALSE(sheet().edit);
  Press("1");  // to the end again
  Press(Key::kLeft);
  ExpectAt(sheet(), 3, 1);
}

// The sheet has the focus already, which is how a desktop sees it: no event, and the sentence stays.
TEST_F(SheetHabitsTest, TheFocusThatStaysLeavesTheStatusBarItsNews) {
  FocusGained(program, "Grid1");
  Press(Key::kEdit);
  const std::string said = program.main.sbStatusBar.caption;
  ASSERT_NE(said, FocusHint(program, "Grid1"));
  FocusGained(program, "Grid1");
  EXPECT_EQ(program.main.sbStatusBar.caption, said);
  FocusGained(program, "txtInfo(0)");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Name of the design");
}

TEST_F(SheetHabitsTest, EscapeTakesBackWhatTheCaretDidAndF2LetsItStand) {
  sheet().SetCurrent(2, 2);
  sheet().Set(2, 2, "1320");
  Press(Key::kEdit);
  Press(Key::kBackspace);
  Press("7");
  EXPECT_EQ(sheet().Text(2, 2), "1327");
  Press(Key::kEscape);
  EXPECT_EQ(sheet().Text(2, 2), "1320");
  EXPECT_FALSE(sheet().edit);
  Press(Key::kEdit);
  Press("9");
  Press(Key::kEdit);
  EXPECT_EQ(sheet().Text(2, 2), "13209");
  EXPECT_FALSE(sheet().edit);
}

// What the caret types comes under the same rules as what goes to the end.
TEST_F(SheetHabitsTest, AStationTooLargeIsRefusedUnderTheCaretToo) {
  sheet().SetCurrent(2, 0);
  sheet().Set(2, 0, "280");
  Press(Key::kEdit);
  Press(Key::kHome);
  Press("6");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "Station Length");
  EXPECT_EQ(sheet().Text(2, 0), "");
  Press("1");
  EXPECT_EQ(sheet().Text(2, 0), "1");
}

TEST_F(SheetHabitsTest, CtrlASelectsWhatIsFilledAndLeavesTheViewWhereItIs) {
  TypeStations();
  sheet().Set(60, 4, "15");
  Press(Key::kSelectAll);
  ExpectSelected(1, 0, 60, 8);
  EXPECT_EQ(sheet().top_row, 1);
  results().control.visible = true;
  results().Set(7, 0, "12");
  GridKey(program, "Grid2", {Key::kSelectAll, ""});
  EXPECT_EQ(results().row_sel, 7);
  EXPECT_EQ(results().column_sel, 11);  // column 12 is a margin without a heading
}

TEST_F(SheetHabitsTest, CtrlArrowsGoToTheEndOfWhatIsFilled) {
  TypeStations();
  sheet().SetCurrent(1, 0);
  Press(Key::kCtrlDown);
  ExpectAt(sheet(), 3, 0);
  Press(Key::kCtrlUp, true);
  ExpectSelected(3, 0, 1, 0);
  // Below the last station nothing is filled: the foot of the sheet.
  sheet().SetCurrent(3, 0);
  Press(Key::kCtrlDown);
  ExpectAt(sheet(), 319, 0);
  // An empty column goes down as far as the survey does.
  sheet().SetCurrent(2, 5);
  Press(Key::kCtrlDown, true);
  ExpectSelected(2, 5, 3, 5);
  // Along the first row, of which the first three cells are filled.
  sheet().SetCurrent(1, 2);
  Press(Key::kCtrlRight);
  ExpectAt(sheet(), 1, 8);
  Press(Key::kCtrlLeft);
  ExpectAt(sheet(), 1, 2);
  Press(Key::kCtrlLeft);
  ExpectAt(sheet(), 1, 0);
  // Over a gap to the next filled cell.
  sheet().SetCurrent(30, 0);
  Press(Key::kCtrlUp);
  ExpectAt(sheet(), 3, 0);
}

TEST_F(SheetHabitsTest, TheMenuOfACellPointsAtItUnlessItIsSelected) {
  sheet().SetCurrent(2, 1);
  sheet().SetSelection(4, 3);
  EXPECT_THAT(GridMenu(program, "Grid1", 3, 2), ElementsAre("mnuEditCut", "mnuEditCopy", "mnuEditPaste", "mnuInsertRow",
                                                            "mnuDeleteRow", "mnuSurveyCopy"));
  ExpectSelected(2, 1, 4, 3);
  EXPECT_EQ(program.main.focus, "Grid1");
  GridMenu(program, "Grid1", 6, 2);
  ExpectSelected(6, 2, 6, 2);
  EXPECT_THAT(GridMenu(program, "Grid2", 1, 1), IsEmpty());
  results().control.visible = true;
  EXPECT_THAT(GridMenu(program, "Grid2", 1, 1), ElementsAre("mnuEditCopy"));
}

TEST_F(SheetHabitsTest, AColumnTakesTheWidthThatTheUserGivesItAndKeepsItOverALayout) {
  EXPECT_EQ(sheet().WidthOf(2), 800);
  WidenColumn(program, "Grid1", 2, 1500);
  EXPECT_EQ(sheet().WidthOf(2), 1500);
  EXPECT_EQ(sheet().EdgeOf(3), 700 + 800 + 1500);
  Click(program, "mnuFileNew");
  EXPECT_EQ(sheet().WidthOf(2), 1500);
  WidenColumn(program, "Grid1", 2, 1);
  EXPECT_EQ(sheet().WidthOf(2), 240);
  WidenColumn(program, "Grid1", 2, 0);
  EXPECT_EQ(sheet().WidthOf(2), 800);
  WidenColumn(program, "Grid1", 9, 900);
  WidenColumn(program, "Grid1", -1, 900);
  sheet().SetCurrent(1, 3);
  Press(Key::kWiden);
  EXPECT_EQ(sheet().WidthOf(3), 1020);
  Press(Key::kNarrow);
  Press(Key::kNarrow);
  EXPECT_EQ(sheet().WidthOf(3), 780);
}

TEST_F(SheetHabitsTest, ALetterWithAltTypesNothing) {
  sheet().SetCurrent(2, 2);
  GridKey(program, "Grid1", {Key::kCharacter, "5", false, true});
  EXPECT_EQ(sheet().Text(2, 2), "");
  TypeText(program, "txtInfo(2)", "100");
  EXPECT_TRUE(FieldKey(program, "txtInfo(2)", {Key::kCharacter, "s", false, true}));
  FieldKeyTyped(program, "txtInfo(2)", {Key::kCharacter, "s", false, true});
  EXPECT_EQ(Info(2), "100");
}

TEST_F(SheetHabitsTest, EscapeClosesTheSoilsEditor) {
  Click(program, "mnuSoils_and_Furrow");
  ASSERT_TRUE(program.soils.visible);
  GridKey(program, "Grd_Soils_FurrowFlow", {Key::kEscape, ""});
  EXPECT_FALSE(program.soils.visible);
}

TEST_F(SheetHabitsTest, TheSoilsCommandsAreNotThereWhileTheEditorIsClosed) {
  EXPECT_EQ(Click(program, "mnuCut"), Reach::kHidden);
  EXPECT_EQ(Click(program, "mnu_Save_Exit"), Reach::kHidden);
  Click(program, "mnuSoils_and_Furrow");
  EXPECT_EQ(Click(program, "mnuCut"), Reach::kUsable);
}

// The view

// The sheet is 7,100 twips high with headings of 1,060; a row is 240: 25 rows are in view.
TEST_F(SheetHabitsTest, TheViewFollowsTheUsersCursorAndNoOther) {
  EXPECT_EQ(sheet().RowsInView(), 25);
  sheet().SetCurrent(45, 0);
  EXPECT_EQ(sheet().top_row, 1);
  GridPoint(program, "Grid1", 25, 0, false);
  EXPECT_EQ(sheet().top_row, 1);
  Press(Key::kDown);
  EXPECT_EQ(sheet().top_row, 2);
  Press(Key::kPageDown);
  EXPECT_EQ(sheet().row, 51);
  EXPECT_EQ(sheet().top_row, 27);
  Press(Key::kUp);
  EXPECT_EQ(sheet().top_row, 27);
  Press(Key::kCtrlHome);
  EXPECT_EQ(sheet().top_row, 1);
  // A selection is followed at the end that moves.
  Press(Key::kPageDown, true);
  EXPECT_EQ(sheet().row, 1);
  EXPECT_EQ(sheet().top_row, 2);
}

TEST_F(SheetHabitsTest, AWindowThatShowsFewerRowsIsFollowedByThem) {
  sheet().rows_in_view = 10;
  GridPoint(program, "Grid1", 12, 0, false);
  EXPECT_EQ(sheet().top_row, 3);
}

// 8,490 twips less a scroll bar take the first columns up to the widened one and not the last.
TEST_F(SheetHabitsTest, WidenedColumnsScrollToTheOneThatTheUserIsIn) {
  WidenColumn(program, "Grid1", 0, 6000);
  Press(Key::kEnd);
  EXPECT_GT(sheet().left_column, 0);
  EXPECT_LE(sheet().EdgeOf(9) - sheet().EdgeOf(sheet().left_column), 8490 - 300);
  Press(Key::kHome);
  EXPECT_EQ(sheet().left_column, 0);
  WidenColumn(program, "Grid1", 0, 0);
  Press(Key::kEnd);
  EXPECT_EQ(sheet().left_column, 0);
}

// Typing in a field without a widget of its own

TEST_F(SheetHabitsTest, TypingReplacesWhatTheFocusSelected) {
  TypeText(program, "txtInfo(2)", "850");
  FocusGained(program, "txtInfo(2)");
  for (const char* digit : {"9", "0"}) FieldKeyTyped(program, "txtInfo(2)", {Key::kCharacter, digit});
  EXPECT_EQ(Info(2), "90");
  EXPECT_EQ(program.record.TargetGPM, 90.0F);
}

TEST_F(SheetHabitsTest, KeysInAFieldEditItsText) {
  FocusGained(program, "txtInfo(0)");
  for (const char* letter : {"a", "b", "c", "\""}) FieldKeyTyped(program, "txtInfo(0)", {Key::kCharacter, letter});
  EXPECT_EQ(Info(0), "abc\u201D");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kBackspace, ""});
  EXPECT_EQ(Info(0), "abc");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kLeft, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kBackspace, ""});
  EXPECT_EQ(Info(0), "ac");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kDelete, ""});
  EXPECT_EQ(Info(0), "a");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kDelete, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kHome, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kBackspace, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kCharacter, "x"});
  EXPECT_EQ(Info(0), "xa");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kEnd, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kCharacter, "y"});
  EXPECT_EQ(Info(0), "xay");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kSelectAll, ""});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kDelete, ""});
  EXPECT_EQ(Info(0), "");
}

TEST_F(SheetHabitsTest, ANumberTypedByKeysIsMarkedToo) {
  FocusGained(program, "txtInfo(3)");
  for (const char* letter : {"1", ","}) FieldKeyTyped(program, "txtInfo(3)", {Key::kCharacter, letter});
  EXPECT_NE(program.main.txtInfo[3].control.mark, "");
  EXPECT_EQ(program.main.sbStatusBar.caption, program.main.txtInfo[3].control.mark);
}

}  // namespace
}  // namespace torvale
