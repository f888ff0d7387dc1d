#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "input/input_program.h"
#include "input/sheet.h"

namespace torvale {
namespace {

struct SheetCursorTest : ::testing::Test, InputProgram {};

TEST_F(SheetCursorTest, ALeftCellTakesItsColumnsForm) {
  struct Case {
    int column;
    std::string_view typed;
    std::string_view left;
  };
  const Case cases[] = {
      {0, "99.5", "100"}, {1, "9", "9.00"},    {2, "1320.4", "1320"}, {3, "6.345", "6.35"}, {4, "15", "15.00"},
      {5, "5/8", "5/8"},  {5, "0.5", "0.5"},   {6, "1.0", "1"},       {7, "7", "7"},        {8, "6.333", "6.33"},
      {1, "", ""},        {3, "Line", "Line"}, {3, ".", "."},
  };
  for (const Case& c : cases) {
    At(4, c.column);
    sheet().Set(4, c.column, c.typed);
    LeaveCell(program);
    EXPECT_EQ(Text(4, c.column), c.left) << c.column << " " << c.typed;
  }
}

TEST_F(SheetCursorTest, TheHeadingRowKeepsItsTextsWhenItIsLeft) {
  At(0, 1);
  sheet().Set(0, 1, "12");
  LeaveCell(program);
  EXPECT_EQ(Text(0, 1), "12");
}

// 400 digits are past the largest 64-bit number. The cursor must still be able to leave.
TEST_F(SheetCursorTest, ANumberTooLargeForAnyFormStaysAndTheCursorLeaves) {
  const std::string huge(400, '9');
  At(4, 2);
  sheet().Set(4, 2, huge);
  MoveCursor(program, 5, 2);
  EXPECT_EQ(Text(4, 2), huge);
  EXPECT_EQ(Cursor(), "5,2");
}

TEST_F(SheetCursorTest, MovingTheCursorFormatsTheCellAndTellsWhatTheNewOneIsFor) {
  At(4, 1);
  sheet().Set(4, 1, "9");
  MoveCursor(program, 5, 2);
  EXPECT_EQ(Text(4, 1), "9.00");
  EXPECT_EQ(Cursor(), "5,2");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(2));
}

TEST_F(SheetCursorTest, MovingToTheSameCellLeavesItsTextAndDropsTheSelection) {
  At(4, 1);
  sheet().Set(4, 1, "9");
  ExtendSelection(program, 6, 3);
  program.main.sbStatusBar.caption.clear();
  MoveCursor(program, 4, 1);
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(1));
  EXPECT_EQ(Text(4, 1), "9");
  EXPECT_EQ(sheet().row_sel, 4);
  EXPECT_EQ(sheet().column_sel, 1);
}

TEST_F(SheetCursorTest, TheCursorIsHeldInsideTheSheet) {
  MoveCursor(program, 0, -1);
  EXPECT_EQ(Cursor(), "1,0");
  MoveCursor(program, 320, 9);
  EXPECT_EQ(Cursor(), "319,8");
}

TEST_F(SheetCursorTest, TheSelectionIsHeldInsideTheSheetAndTheCursorStays) {
  At(4, 1);
  ExtendSelection(program, 400, 20);
  EXPECT_EQ(Cursor(), "4,1");
  EXPECT_EQ(sheet().row_sel, 319);
  EXPECT_EQ(sheet().column_sel, 8);
  ExtendSelection(program, -3, -3);
  EXPECT_EQ(sheet().row_sel, 1);
  EXPECT_EQ(sheet().column_sel, 0);
}

TEST_F(SheetCursorTest, ASelectionFromTheHeadingRowBeginsBelowIt) {
  At(0, 5);
  ExtendSelection(program, 3, 6);
  EXPECT_EQ(Cursor(), "1,5");
  EXPECT_EQ(sheet().row_sel, 3);
}

TEST_F(SheetCursorTest, EveryColumnHasAHintOfItsOwn) {
  std::set<std::string> hints;
  for (int column = 0; column < 9; ++column) {
    EXPECT_FALSE(ColumnHint(column).empty());
    hints.insert(ColumnHint(column).text());
  }
  EXPECT_EQ(hints.size(), 9U);
  EXPECT_EQ(ColumnHint(-1), "");
  EXPECT_EQ(ColumnHint(9), "");
}

// Keys in the heading row, where a change of the kind of pipe leaves the cursor.

TEST_F(SheetCursorTest, EnterInTheHeadingRowActsOnTheFirstSurveyRow) {
  At(0, 5);
  const std::string heading = Text(0, 5);
  Key("\r");
  EXPECT_EQ(Cursor(), "2,5");
  EXPECT_EQ(Text(0, 5), heading);
}

TEST_F(SheetCursorTest, EnterOnAnEmptyHeadingFillsNothing) {
  for (const int column : {0, 1}) {
    At(0, column);
    sheet().Set(0, column, "");
    Key("\r");
    EXPECT_EQ(Text(0, column), "");
    EXPECT_EQ(Cursor(), CellName(2, column));
  }
}

TEST_F(SheetCursorTest, TypingInTheHeadingRowGoesToTheRowBelow) {
  At(0, 2);
  const std::string heading = Text(0, 2);
  sheet().Set(1, 2, "");
  Key("4");
  Key("5");
  Key("\b");
  EXPECT_EQ(Text(0, 2), heading);
  EXPECT_EQ(Text(1, 2), "4");
  EXPECT_EQ(Cursor(), "1,2");
  EXPECT_THAT(host.messages, ::testing::IsEmpty());
}

}  // namespace
}  // namespace torvale
