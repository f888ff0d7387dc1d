#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/sheet.h"
#include "shell/events.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using ::testing::HasSubstr;

using GridEventsTest = StartedProgramTest;

// Keys in the sheet

TEST_F(GridEventsTest, CharactersEnterAndBackspaceGoToTheEditor) {
  sheet().SetCurrent(2, 2);
  Press("9");
  Press("1");
  Press(Key::kBackspace);
  EXPECT_EQ(sheet().Text(2, 2), "9");
  Press(Key::kEnter);
  ExpectAt(sheet(), 3, 2);
  Press("x");
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(GridEventsTest, EscapeIsAControlCharacterAndDoesNothing) {
  sheet().SetCurrent(2, 2);
  Press(Key::kEscape);
  ExpectAt(sheet(), 2, 2);
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(GridEventsTest, ArrowsMoveTheCursorAndLeaveTheCell) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  Press(Key::kDown);
  ExpectAt(sheet(), 5, 3);
  EXPECT_EQ(sheet().Text(4, 3), "6.00");
  Press(Key::kRight);
  ExpectAt(sheet(), 5, 4);
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(4));
  Press(Key::kUp);
  ExpectAt(sheet(), 4, 4);
  Press(Key::kLeft);
  ExpectAt(sheet(), 4, 3);
}

TEST_F(GridEventsTest, ArrowsStopAtTheEdges) {
  sheet().SetCurrent(1, 0);
  Press(Key::kUp);
  Press(Key::kLeft);
  ExpectAt(sheet(), 1, 0);
  sheet().SetCurrent(319, 8);
  Press(Key::kDown);
  Press(Key::kRight);
  ExpectAt(sheet(), 319, 8);
}

TEST_F(GridEventsTest, AnArrowBringsTheCursorBackFromTheHeadings) {
  for (const Key key : {Key::kUp, Key::kDown, Key::kPageUp, Key::kHome}) {
    sheet().SetCurrent(0, 5);
    Press(key);
    EXPECT_EQ(sheet().row, 1);
  }
}

// The sheet is 7100 twips high, its heading row 1060, a row 240: (7100 - 1060) / 240 = 25 whole rows.
TEST_F(GridEventsTest, LongStepsGoByScreensAndToTheEnds) {
  sheet().SetCurrent(30, 4);
  Press(Key::kPageDown);
  ExpectAt(sheet(), 55, 4);
  Press(Key::kPageUp);
  Press(Key::kPageUp);
  ExpectAt(sheet(), 5, 4);
  Press(Key::kPageUp);
  ExpectAt(sheet(), 1, 4);
  Press(Key::kEnd);
  ExpectAt(sheet(), 1, 8);
  Press(Key::kHome);
  ExpectAt(sheet(), 1, 0);
  sheet().Set(40, 2, "900");
  Press(Key::kCtrlEnd);
  ExpectAt(sheet(), 40, 8);
  Press(Key::kCtrlHome);
  ExpectAt(sheet(), 1, 0);
}

TEST_F(GridEventsTest, ShiftMovesTheFarCornerAndTheCursorStays) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  Press(Key::kDown, true);
  Press(Key::kDown, true);
  Press(Key::kRight, true);
  ExpectAt(sheet(), 4, 3);
  EXPECT_EQ(sheet().row_sel, 6);
  EXPECT_EQ(sheet().column_sel, 4);
  EXPECT_EQ(sheet().Text(4, 3), "6");  // the cell was not left
  Press(Key::kDown);
  EXPECT_EQ(sheet().row_sel, 5);
  EXPECT_EQ(sheet().column_sel, 3);
}

TEST_F(GridEventsTest, PointingMovesTheCursorOrTheFarCorner) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  GridPoint(program, "Grid1", 9, 2, false);
  ExpectAt(sheet(), 9, 2);
  EXPECT_EQ(sheet().Text(4, 3), "6.00");
  GridPoint(program, "Grid1", 12, 4, true);
  ExpectAt(sheet(), 9, 2);
  EXPECT_EQ(sheet().row_sel, 12);
  GridPoint(program, "Grid1", 0, 4, false);  // a click on a heading
  ExpectAt(sheet(), 1, 4);
}

TEST_F(GridEventsTest, AGridThatIsHiddenOrUnknownTakesNoKeys) {
  sheet().SetCurrent(4, 3);
  sheet().control.visible = false;
  Press(Key::kDown);
  Press("5");
  GridPoint(program, "Grid1", 9, 2, false);
  ExpectAt(sheet(), 4, 3);
  EXPECT_EQ(sheet().Text(4, 3), "");
  GridKey(program, "Grid9", {Key::kDown, ""});
  GridKey(program, "GridInchesApplied", {Key::kDown, ""});
  EXPECT_TRUE(host.messages.empty());
}

// Results

TEST_F(GridEventsTest, ArrowsInTheResultsMoveTheSelectionAndShowItsAcres) {
  results().control.visible = true;
  program.record.HoleRows = 20;
  program.record.TotalAcres = 10;
  for (int row = 1; row <= 20; ++row) {
    program.record.FurrowLength[row] = 1089;  // 1089 ft x 20 ft = 21,780 square feet: half an acre
    program.record.PlantedWidth[row] = 20;
  }
  results().SetCurrent(3, 0);
  GridKey(program, "Grid2", {Key::kDown, ""});
  ExpectAt(results(), 4, 0);
  program.main.lblAcresTotal.caption = "";
  GridKey(program, "Grid2", {Key::kDown, "", true});
  ExpectAt(results(), 4, 0);
  EXPECT_EQ(results().row_sel, 5);
  EXPECT_THAT(program.main.lblAcresTotal.caption, HasSubstr("Total Acres = 10.0"));
  GridPoint(program, "Grid2", 9000, 40, false);
  ExpectAt(results(), 5283, 12);
  GridPoint(program, "Grid2", 0, 0, true);
  EXPECT_EQ(results().row_sel, 1);
}

TEST_F(GridEventsTest, CharactersInTheResultsDoNothing) {
  results().control.visible = true;
  results().SetCurrent(3, 1);
  results().Set(3, 1, "5/8");
  GridKey(program, "Grid2", {Key::kCharacter, "5"});
  GridKey(program, "Grid2", {Key::kEnter, ""});
  EXPECT_EQ(results().Text(3, 1), "5/8");
  ExpectAt(results(), 3, 1);
}

TEST_F(GridEventsTest, TheMouseOverTheBackgroundShowsTheAcres) {
  program.record.TotalAcres = 12.34F;
  program.main.lblAcresTotal.visible = false;
  BackgroundMouse(program);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "Total Acres = 12.3");
  EXPECT_TRUE(program.main.lblAcresTotal.visible);
}

TEST_F(GridEventsTest, TheMouseOverHiddenResultsDoesNothing) {
  program.main.lblAcresTotal.caption = "before";
  ResultMouse(program, MouseAction::kDown, MouseButton::kLeft, 10, 2000);
  ResultMouse(program, MouseAction::kMove, MouseButton::kLeft, 10, 3000);
  ResultMouse(program, MouseAction::kUp, MouseButton::kLeft, 10, 3000);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "before");
}

}  // namespace
}  // namespace torvale
