#include "input/sheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "input/input_program.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Shown kFirstStation{"First Crown Station must be Zero.", ""};
const Shown kStationLength{"Station length can not be greater than 5280 feet.", "Station Length"};

struct SheetTest : ::testing::Test, InputProgram {};

TEST_F(SheetTest, DigitsAndThePointGoIntoTheCell) {
  At(2, 1);
  Keys("10.25");
  EXPECT_EQ(Text(2, 1), "10.25");
  EXPECT_EQ(Cursor(), "2,1");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetTest, DigitsAreTakenInTheHoleColumnToo) {
  At(2, 5);
  Keys("12");
  EXPECT_EQ(Text(2, 5), "12");
}

TEST_F(SheetTest, OtherCharactersBeepAndLeaveTheCell) {
  At(2, 2);
  sheet().Set(2, 2, "13");
  for (const std::string_view character : {"a", "/", " ", "E", "\x7f", "\xC3\xA9"}) Key(character);
  EXPECT_EQ(Text(2, 2), "13");
  EXPECT_EQ(host.beeps, 6);
}

TEST_F(SheetTest, ControlCharactersDoNothing) {
  At(2, 2);
  sheet().Set(2, 2, "13");
  for (const std::string_view character : {"\t", "\x1b", "\x03", "\x1f"}) Key(character);
  EXPECT_EQ(Text(2, 2), "13");
  EXPECT_EQ(Cursor(), "2,2");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetTest, BackspaceTakesTheLastCharacter) {
  At(3, 2);
  sheet().Set(3, 2, "132");
  Key("\b");
  EXPECT_EQ(Text(3, 2), "13");
  Keys("\b\b\b");  // the third finds the cell empty
  EXPECT_EQ(Text(3, 2), "");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetTest, BackspaceLeavesACellOfBlanks) {
  At(3, 2);
  sheet().Set(3, 2, "  ");
  Key("\b");
  EXPECT_EQ(Text(3, 2), "  ");
}

TEST_F(SheetTest, BackspaceTakesAWholeCharacterOfSeveralBytes) {
  At(3, 7);
  sheet().Set(3, 7, "7\xE2\x80\x9D");
  Key("\b");
  EXPECT_EQ(Text(3, 7), "7");
}

TEST_F(SheetTest, Station5280IsAcceptedAndALongerOneIsEmptied) {
  At(2, 0);
  Keys("5280");
  EXPECT_EQ(Text(2, 0), "5280");
  EXPECT_THAT(host.messages, IsEmpty());
  Key("1");  // 52801
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
  EXPECT_EQ(Cursor(), "2,0");
}

TEST_F(SheetTest, TheStationLimitBeginsAt5281) {
  At(2, 0);
  Keys("5280.9");  // below 5281
  EXPECT_EQ(Text(2, 0), "5280.9");
  sheet().Set(2, 0, "528");
  Key("1");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

TEST_F(SheetTest, TypingInOtherColumnsKnowsNoLimit) {
  At(2, 2);
  Keys("6000");
  EXPECT_EQ(Text(2, 2), "6000");
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetTest, TheFirstStationSnapsBackToZero) {
  At(1, 0);
  for (const std::string_view character : {"5", ".", "\b"}) {
    sheet().Set(1, 0, "0");
    Key(character);
    EXPECT_EQ(Text(1, 0), "0") << character;
  }
  EXPECT_THAT(host.messages, ElementsAre(kFirstStation, kFirstStation, kFirstStation));
}

TEST_F(SheetTest, AnyKeyRestoresAFirstStationThatIsMissing) {
  At(1, 0);
  sheet().Set(1, 0, "");
  Key("x");
  EXPECT_EQ(host.beeps, 1);
  EXPECT_THAT(host.messages, ElementsAre(kFirstStation));
  EXPECT_EQ(Text(1, 0), "0");
}

TEST_F(SheetTest, EnterOnAnEmptyFirstStationWritesZeroAndGoesDown) {
  At(1, 0);
  sheet().Set(1, 0, "");
  Key("\r");
  EXPECT_EQ(Text(1, 0), "0");
  EXPECT_EQ(Cursor(), "2,0");
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetTest, EnterOnAnEmptyStationAddsTheInterval) {
  sheet().Set(1, 0, "0");
  At(2, 0);
  Key("\r");
  EXPECT_EQ(Text(2, 0), "100");
  EXPECT_EQ(Cursor(), "3,0");
  Key("\r");
  EXPECT_EQ(Text(3, 0), "200");
}

TEST_F(SheetTest, TheIntervalIsAddedToTheWholeNumberAbove) {
  sheet().Set(2, 0, "150.5");
  At(3, 0);
  Key("\r");
  // 150.5 + 100; the cursor then leaves the cell, whose form has no decimals: a half goes away from zero.
  EXPECT_EQ(Text(3, 0), "251");
}

// By column: what Enter writes into the empty cell below `above`, and how the cell looks once the cursor has left it.
TEST_F(SheetTest, EnterCopiesTheCellAbove) {
  struct Case {
    int column;
    std::string_view above;
    std::string_view after;
  };
  const Case cases[] = {
      {1, "10.256", "10.26"},   // "##.00" 10.26, left as "###.00"
      {2, "1320", "1320"},      // "##.00" 1320.00, left as "#####0"
      {3, "6", "6.00"},         // "##.00"
      {4, "15.4", "15.00"},     // "#####" 15, left as "###.00"
      {5, "5/8", "5/8"},        // as it stands
      {6, "2", "2"},            // "##.00" 2.00, left as "#####0"
      {7, "7.6", "8"},          // as it stands, left as "#####0"
      {8, "6.3", "6.30"},       // "#####.00", left as "###.00"
      {2, "Supply", "Supply"},  // no number: patterns give it back
      {1, "", ""},              // nothing above
  };
  for (const Case& c : cases) {
    sheet().Set(4, c.column, c.above);
    sheet().Set(5, c.column, "");
    At(5, c.column);
    Key("\r");
    EXPECT_EQ(Text(5, c.column), c.after) << c.column << " " << c.above;
    EXPECT_EQ(Cursor(), CellName(6, c.column));
  }
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetTest, EnterInTheFirstRowFillsOnlyTheStation) {
  for (int column = 1; column < 9; ++column) {
    sheet().Set(1, column, "");
    At(1, column);
    Key("\r");
    EXPECT_EQ(Text(1, column), "") << column;
    EXPECT_EQ(Cursor(), CellName(2, column));
  }
}

TEST_F(SheetTest, EnterKeepsWhatWasTyped) {
  sheet().Set(1, 2, "1320");
  At(2, 2);
  Keys("900\r");
  EXPECT_EQ(Text(2, 2), "900");
}

TEST_F(SheetTest, AStationThatDoesNotRiseIsRefused) {
  sheet().Set(2, 0, "100");
  for (const std::string_view typed : {"100", "99"}) {
    host.messages.clear();
    host.beeps = 0;
    At(3, 0);
    Keys(typed);
    Key("\r");
    EXPECT_EQ(Text(3, 0), "") << typed;
    EXPECT_EQ(Text(2, 0), "100");
    EXPECT_EQ(Cursor(), "3,0");  // one back, one down
    EXPECT_EQ(host.beeps, 1);
    EXPECT_THAT(host.messages, ElementsAre(Shown{"You must enter a value greater than 100", ""}));
  }
}

TEST_F(SheetTest, AStationPastTheEndIsRefusedAtEnter) {
  sheet().Set(4, 0, "5200");
  At(5, 0);
  Key("\r");  // 5200 + 100 = 5300
  EXPECT_EQ(Text(5, 0), "");
  EXPECT_EQ(Cursor(), "6,0");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

TEST_F(SheetTest, EnterHoldsEveryColumnToTheStationLimit) {
  At(2, 4);
  Keys("6000\r");
  EXPECT_EQ(Text(2, 4), "");
  EXPECT_EQ(Cursor(), "3,4");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

// The limit is looked at where the cursor then stands: in the row above the refused station.
TEST_F(SheetTest, AfterARefusedOrderTheLimitTakesTheRowAbove) {
  sheet().Set(2, 0, "6000");
  At(3, 0);
  Keys("10\r");
  EXPECT_THAT(host.messages, ElementsAre(Shown{"You must enter a value greater than 6000", ""}, kStationLength));
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_EQ(Text(3, 0), "");
  EXPECT_EQ(Cursor(), "3,0");
}

TEST_F(SheetTest, EnterAtTheFootGoesToTheHeadOfTheNextColumn) {
  At(319, 2);
  Keys("900\r");
  EXPECT_EQ(Cursor(), "1,3");
  At(319, 8);
  Keys("6\r");
  EXPECT_EQ(Text(319, 8), "6.00");
  EXPECT_EQ(Cursor(), "1,1");  // not column 0
}

TEST_F(SheetTest, StarGoesToTheHeadOfTheNextColumn) {
  At(7, 1);
  sheet().Set(7, 1, "9.5");
  Key("*");
  EXPECT_EQ(Cursor(), "1,2");
  EXPECT_EQ(Text(7, 1), "9.50");  // the cell was left
}

TEST_F(SheetTest, StarInTheLastColumnStaysAndBeeps) {
  At(7, 8);
  sheet().Set(7, 8, "6.3");
  Key("*");
  EXPECT_EQ(Cursor(), "7,8");
  EXPECT_EQ(Text(7, 8), "6.3");  // not left
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(SheetTest, ALeftCellTakesItsColumnsForm) {
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

TEST_F(SheetTest, TheHeadingRowKeepsItsTextsWhenItIsLeft) {
  At(0, 1);
  sheet().Set(0, 1, "12");
  LeaveCell(program);
  EXPECT_EQ(Text(0, 1), "12");
}

// 400 digits are past the largest 64-bit number. The cursor must still be able to leave.
TEST_F(SheetTest, ANumberTooLargeForAnyFormStaysAndTheCursorLeaves) {
  const std::string huge(400, '9');
  At(4, 2);
  sheet().Set(4, 2, huge);
  MoveCursor(program, 5, 2);
  EXPECT_EQ(Text(4, 2), huge);
  EXPECT_EQ(Cursor(), "5,2");
}

TEST_F(SheetTest, MovingTheCursorFormatsTheCellAndTellsWhatTheNewOneIsFor) {
  At(4, 1);
  sheet().Set(4, 1, "9");
  MoveCursor(program, 5, 2);
  EXPECT_EQ(Text(4, 1), "9.00");
  EXPECT_EQ(Cursor(), "5,2");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(2));
}

TEST_F(SheetTest, MovingToTheSameCellLeavesItsTextAndDropsTheSelection) {
  At(4, 1);
  sheet().Set(4, 1, "9");
  ExtendSelection(program, 6, 3);
  MoveCursor(program, 4, 1);
  EXPECT_EQ(Text(4, 1), "9");
  EXPECT_EQ(sheet().row_sel, 4);
  EXPECT_EQ(sheet().column_sel, 1);
}

TEST_F(SheetTest, TheCursorIsHeldInsideTheSheet) {
  MoveCursor(program, 0, -1);
  EXPECT_EQ(Cursor(), "1,0");
  MoveCursor(program, 320, 9);
  EXPECT_EQ(Cursor(), "319,8");
}

TEST_F(SheetTest, TheSelectionIsHeldInsideTheSheetAndTheCursorStays) {
  At(4, 1);
  ExtendSelection(program, 400, 20);
  EXPECT_EQ(Cursor(), "4,1");
  EXPECT_EQ(sheet().row_sel, 319);
  EXPECT_EQ(sheet().column_sel, 8);
  ExtendSelection(program, -3, -3);
  EXPECT_EQ(sheet().row_sel, 1);
  EXPECT_EQ(sheet().column_sel, 0);
}

TEST_F(SheetTest, ASelectionFromTheHeadingRowBeginsBelowIt) {
  At(0, 5);
  ExtendSelection(program, 3, 6);
  EXPECT_EQ(Cursor(), "1,5");
  EXPECT_EQ(sheet().row_sel, 3);
}

TEST_F(SheetTest, EveryColumnHasAHintOfItsOwn) {
  std::set<std::string_view> hints;
  for (int column = 0; column < 9; ++column) {
    EXPECT_FALSE(ColumnHint(column).empty());
    hints.insert(ColumnHint(column));
  }
  EXPECT_EQ(hints.size(), 9U);
  EXPECT_EQ(ColumnHint(-1), "");
  EXPECT_EQ(ColumnHint(9), "");
}

// Keys in the heading row, where a change of the kind of pipe leaves the cursor.

TEST_F(SheetTest, EnterInTheHeadingRowGoesToTheFirstSurveyRow) {
  At(0, 5);
  const std::string heading = Text(0, 5);
  Key("\r");
  EXPECT_EQ(Cursor(), "1,5");
  EXPECT_EQ(Text(0, 5), heading);
}

TEST_F(SheetTest, EnterOnAnEmptyHeadingFillsNothing) {
  for (const int column : {0, 1}) {
    At(0, column);
    sheet().Set(0, column, "");
    Key("\r");
    EXPECT_EQ(Text(0, column), "");
    EXPECT_EQ(Cursor(), CellName(1, column));
  }
}

TEST_F(SheetTest, TypingInTheHeadingRowChangesThatHeadingAlone) {
  At(0, 5);
  sheet().Set(0, 5, "Hole Width (fractions)");
  Key("4");
  EXPECT_EQ(Text(0, 5), "Hole Width (fractions)4");
  EXPECT_EQ(Text(1, 5), "");
  EXPECT_THAT(host.messages, IsEmpty());
}

// Rows

TEST_F(SheetTest, InsertRowMovesTheRowsBelowAndKeepsThePlantedWidths) {
  for (int row = 1; row <= 3; ++row) {
    for (int column = 0; column < 9; ++column) {
      sheet().Set(row, column, CellName(row, column));
    }
  }
  sheet().Set(318, 0, "318");
  sheet().Set(319, 0, "319");
  At(2, 4);
  mnuInsertRow_Click(program);
  EXPECT_EQ(Text(1, 0), "1,0");
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_EQ(Text(2, 7), "");
  EXPECT_EQ(Text(3, 0), "2,0");
  EXPECT_EQ(Text(3, 7), "2,7");
  EXPECT_EQ(Text(4, 0), "3,0");
  EXPECT_EQ(Text(2, 8), "2,8");  // column 8 does not move
  EXPECT_EQ(Text(3, 8), "3,8");
  EXPECT_EQ(Text(4, 8), "");
  EXPECT_EQ(Text(319, 0), "318");  // row 319 is lost
  EXPECT_EQ(Cursor(), "2,4");
}

TEST_F(SheetTest, InsertRowAtTheFootOnlyEmptiesIt) {
  sheet().Set(318, 0, "318");
  for (int column = 0; column < 9; ++column) sheet().Set(319, column, "x");
  At(319, 0);
  mnuInsertRow_Click(program);
  for (int column = 0; column < 8; ++column) EXPECT_EQ(Text(319, column), "");
  EXPECT_EQ(Text(319, 8), "x");
  EXPECT_EQ(Text(318, 0), "318");
}

TEST_F(SheetTest, InsertAndDeleteDoNotReformatTheCell) {
  At(3, 1);
  sheet().Set(3, 1, "9");
  mnuInsertRow_Click(program);
  EXPECT_EQ(Text(4, 1), "9");
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(3, 1), "9");
}

TEST_F(SheetTest, DeleteRowMovesTheRowsUpAndKeepsThePlantedWidths) {
  for (int row = 1; row <= 3; ++row) {
    for (int column = 0; column < 9; ++column) {
      sheet().Set(row, column, CellName(row, column));
    }
  }
  sheet().Set(319, 0, "319");
  sheet().Set(319, 8, "6.00");
  At(2, 3);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(1, 0), "1,0");
  EXPECT_EQ(Text(2, 0), "3,0");
  EXPECT_EQ(Text(3, 0), "");
  EXPECT_EQ(Text(2, 8), "2,8");
  EXPECT_EQ(Text(3, 8), "3,8");
  EXPECT_EQ(Text(318, 0), "319");
  EXPECT_EQ(Text(319, 0), "");
  EXPECT_EQ(Text(319, 8), "6.00");
  EXPECT_EQ(Cursor(), "2,3");
}

TEST_F(SheetTest, RowsDoNotChangeBehindTheResults) {
  sheet().Set(2, 0, "100");
  At(2, 0);
  program.main.Grid2.control.visible = true;
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(2, 0), "100");
  EXPECT_EQ(Text(3, 0), "");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetTest, TheHeadingsAreNoRowToInsertOrDelete) {
  const std::string heading = Text(0, 2);
  At(0, 5);
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(0, 2), heading);
  EXPECT_EQ(Text(1, 0), "0");
  EXPECT_EQ(host.beeps, 2);
}

TEST_F(SheetTest, RowsAreNotCountedAnew) {
  program.record.SurveyRows = 7;
  At(2, 0);
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(program.record.SurveyRows, 7);
}

}  // namespace
}  // namespace torvale
