#include "input/block_clipboard.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

struct BlockClipboardTest : ::testing::Test, InputProgram {
  // Cells of the block hold their own names, "row,column".
  void Name(int row1, int column1, int row2, int column2) {
    for (int row = row1; row <= row2; ++row) {
      for (int column = column1; column <= column2; ++column) sheet().Set(row, column, CellName(row, column));
    }
  }
  void Select(int row1, int column1, int row2, int column2) {
    sheet().SetCurrent(row1, column1);
    sheet().SetSelection(row2, column2);
  }
  void Copy() {
    record.GridClipboard.Clear();
    CopyBlock(record, sheet());
  }
  const std::string& Clip(int row, int column) const { return record.GridClipboard.Text(row, column); }
  int FilledCells() const {
    int count = 0;
    for (int row = 0; row < record.GridClipboard.rows(); ++row) {
      for (int column = 0; column < record.GridClipboard.columns(); ++column)
        count += Clip(row, column).empty() ? 0 : 1;
    }
    return count;
  }
  void ExpectNoted(int row, int column) const {
    EXPECT_EQ(record.PasteRow1, row);
    EXPECT_EQ(record.PasteCol1, column);
  }
  DesignRecord& record = program.record;
};

TEST_F(BlockClipboardTest, HasRowsToThreeHundredAndTwentyAndColumnsToTwelve) {
  EXPECT_EQ(record.GridClipboard.rows(), 321);
  EXPECT_EQ(record.GridClipboard.columns(), 13);
}

// Copy

TEST_F(BlockClipboardTest, ACopiedCellStaysAtItsOwnRowAndColumn) {
  Name(5, 2, 7, 4);
  Select(5, 2, 6, 3);
  Copy();
  ExpectNoted(5, 2);
  EXPECT_EQ(FilledCells(), 4);
  EXPECT_EQ(Clip(5, 2), "5,2");
  EXPECT_EQ(Clip(6, 3), "6,3");
  EXPECT_EQ(Text(5, 2), "5,2");    // the sheet is as it was
  EXPECT_EQ(record.PasteRows, 0);  // size is not a copy's to note
  EXPECT_EQ(record.PasteCols, 0);
}

TEST_F(BlockClipboardTest, TheSelectionMayRunInEitherDirection) {
  Name(5, 2, 7, 4);
  for (const bool upwards : {false, true}) {
    for (const bool leftwards : {false, true}) {
      sheet().SetCurrent(upwards ? 7 : 5, leftwards ? 4 : 2);
      sheet().SetSelection(upwards ? 5 : 7, leftwards ? 2 : 4);
      Copy();
      ExpectNoted(5, 2);
      EXPECT_EQ(FilledCells(), 9);
      EXPECT_EQ(Clip(7, 4), "7,4");
    }
  }
}

TEST_F(BlockClipboardTest, CopyingLeavesTheCursorAndTheSelection) {
  Select(7, 4, 5, 2);
  Copy();
  EXPECT_EQ(Cursor(), "7,4");
  EXPECT_EQ(sheet().row_sel, 5);
  EXPECT_EQ(sheet().column_sel, 2);
}

TEST_F(BlockClipboardTest, TheWholeSheetFits) {
  Name(1, 0, 319, 8);
  Select(319, 8, 1, 0);
  Copy();
  EXPECT_EQ(FilledCells(), 319 * 9);
  EXPECT_EQ(Clip(319, 8), "319,8");
}

// Cut

TEST_F(BlockClipboardTest, CutTakesNotesAndEmptiesTheBlock) {
  Name(5, 2, 8, 6);
  Select(7, 5, 5, 3);
  CutBlock(record, sheet());
  ExpectNoted(5, 3);
  EXPECT_EQ(record.PasteRows, 3);
  EXPECT_EQ(record.PasteCols, 3);
  EXPECT_EQ(Clip(5, 3), "5,3");
  EXPECT_EQ(Clip(7, 5), "7,5");
  EXPECT_EQ(FilledCells(), 9);
  for (int row = 5; row <= 7; ++row) {
    for (int column = 3; column <= 5; ++column) EXPECT_EQ(Text(row, column), "");
  }
  EXPECT_EQ(Text(5, 2), "5,2");
  EXPECT_EQ(Text(8, 5), "8,5");
  EXPECT_EQ(Cursor(), "5,3");
  EXPECT_EQ(sheet().row_sel, 5);
  EXPECT_EQ(sheet().column_sel, 3);
}

TEST_F(BlockClipboardTest, CutDoesNotEraseWhatACopyLeftElsewhere) {
  Name(5, 2, 6, 2);
  Select(5, 2, 6, 2);
  Copy();
  sheet().Set(6, 2, "new");
  Select(6, 2, 6, 2);
  CutBlock(record, sheet());
  EXPECT_EQ(Clip(5, 2), "5,2");
  EXPECT_EQ(Clip(6, 2), "new");
  EXPECT_EQ(FilledCells(), 2);
}

// An empty cell takes the place of what an earlier block left at its row and column.
TEST_F(BlockClipboardTest, CutTakesEmptyCellsToo) {
  Name(5, 2, 5, 2);
  Select(5, 2, 5, 2);
  CutBlock(record, sheet());
  CutBlock(record, sheet());
  EXPECT_EQ(FilledCells(), 0);
}

// Paste

TEST_F(BlockClipboardTest, WithNothingCopiedTheSelectedCellsAreEmptied) {
  Name(4, 0, 6, 8);
  Select(4, 1, 5, 2);
  PasteBlock(record, sheet());
  for (int row = 4; row <= 5; ++row) {
    for (int column = 1; column <= 2; ++column) EXPECT_EQ(Text(row, column), "");
  }
  EXPECT_EQ(Text(4, 0), "4,0");
  EXPECT_EQ(Text(6, 1), "6,1");
  EXPECT_EQ(FilledCells(), 0);
  EXPECT_EQ(Cursor(), "0,0");  // the block that was never noted begins there
}

TEST_F(BlockClipboardTest, ABlockGoesWhereTheSelectionIs) {
  Name(5, 2, 6, 4);
  Select(5, 2, 6, 4);
  Copy();
  Select(11, 5, 10, 3);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(10, 3), "5,2");
  EXPECT_EQ(Text(10, 5), "5,4");
  EXPECT_EQ(Text(11, 4), "6,3");
  EXPECT_EQ(Text(12, 3), "");
  EXPECT_EQ(Cursor(), "5,2");  // the source, not the target
  EXPECT_EQ(sheet().row_sel, 5);
  EXPECT_EQ(sheet().column_sel, 2);
}

TEST_F(BlockClipboardTest, ASingleTargetCellTakesASingleCell) {
  Name(5, 2, 6, 3);
  Select(5, 2, 6, 3);
  Copy();
  Select(10, 2, 10, 2);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(10, 2), "5,2");
  EXPECT_EQ(Text(10, 3), "");
  EXPECT_EQ(Text(11, 2), "");
}

TEST_F(BlockClipboardTest, OneCopiedRowRepeatsDownTheSelection) {
  Name(5, 0, 5, 7);
  Select(5, 0, 5, 7);
  Copy();
  Select(6, 0, 9, 7);
  PasteBlock(record, sheet());
  for (int row = 6; row <= 9; ++row) {
    for (int column = 0; column < 8; ++column) EXPECT_EQ(Text(row, column), CellName(5, column)) << row;
  }
  EXPECT_EQ(Text(10, 0), "");
}

// Four target rows take source rows 5 to 8; 6 to 8 were empty.
TEST_F(BlockClipboardTest, TheRepeatedRowIsWrittenBackIntoTheClipboard) {
  Name(5, 0, 5, 1);
  Select(5, 0, 5, 1);
  Copy();
  Select(6, 0, 9, 1);
  PasteBlock(record, sheet());
  EXPECT_EQ(FilledCells(), 8);
  for (int row = 5; row <= 8; ++row) EXPECT_EQ(Clip(row, 1), "5,1");
  EXPECT_EQ(Clip(9, 0), "");
}

TEST_F(BlockClipboardTest, AnEmptyCellInsideTheBlockTakesTheOneAbove) {
  Name(5, 2, 7, 2);
  sheet().Set(6, 2, "");
  Select(5, 2, 7, 2);
  Copy();
  Select(10, 2, 12, 2);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(11, 2), "5,2");
  EXPECT_EQ(Text(12, 2), "7,2");
  EXPECT_EQ(Clip(6, 2), "5,2");
}

TEST_F(BlockClipboardTest, TheHeadingsAreNeitherCutNorPastedOver) {
  Name(1, 2, 2, 2);
  const std::string heading = Text(0, 2);
  Select(0, 2, 1, 2);
  CutBlock(record, sheet());
  EXPECT_EQ(Text(0, 2), heading);
  EXPECT_EQ(Text(1, 2), "");
  Select(0, 2, 1, 2);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(0, 2), heading);
  Select(0, 2, 0, 2);
  CutBlock(record, sheet());
  EXPECT_EQ(Text(0, 2), heading);
  // The source goes on with row 2 below the heading, which was not cut and takes the text of the row above.
  EXPECT_EQ(Text(1, 2), "1,2");
}

// Row 1 is the source of the first target row. Its own cell is empty in the second column and takes the heading.
TEST_F(BlockClipboardTest, ABlockFromTheHeadingRowIsPastedFromRowOne) {
  Name(1, 2, 2, 2);
  Select(0, 2, 2, 3);
  Copy();
  ExpectNoted(0, 2);
  const std::string heading = Text(0, 3);
  ASSERT_FALSE(heading.empty());
  Select(10, 2, 11, 3);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(10, 2), "1,2");
  EXPECT_EQ(Text(11, 2), "2,2");
  EXPECT_EQ(Text(10, 3), heading);
  EXPECT_EQ(Cursor(), "0,2");
}

TEST_F(BlockClipboardTest, ThePlantedWidthIsCopiedAndNeverWritten) {
  Name(5, 6, 5, 8);
  Select(5, 6, 5, 8);
  Copy();
  EXPECT_EQ(Clip(5, 8), "5,8");
  sheet().Set(6, 8, "stays");
  Select(6, 6, 6, 8);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(6, 6), "5,6");
  EXPECT_EQ(Text(6, 7), "5,7");
  EXPECT_EQ(Text(6, 8), "stays");
}

// What was copied out of column 8 can go into another one.
TEST_F(BlockClipboardTest, ThePlantedWidthMayBePastedElsewhere) {
  Name(5, 8, 5, 8);
  Select(5, 8, 5, 8);
  Copy();
  Select(6, 3, 6, 3);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(6, 3), "5,8");
  EXPECT_EQ(Cursor(), "5,8");
}

// Columns 0 to 7 would take source columns 8 to 15, and the clipboard ends at 12.
TEST_F(BlockClipboardTest, PastTheClipboardsLastColumnThereIsNothing) {
  Name(5, 8, 5, 8);
  Select(5, 8, 5, 8);
  Copy();
  Name(6, 0, 6, 8);
  Select(6, 0, 6, 8);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(6, 0), "5,8");
  for (int column = 1; column < 8; ++column) EXPECT_EQ(Text(6, column), "") << column;
  EXPECT_EQ(Text(6, 8), "6,8");
}

// Source rows 318 and 319 are the last; from the third target row on 319 is taken again and again.
TEST_F(BlockClipboardTest, TheSourceEndsAtRowThreeHundredAndNineteen) {
  Name(318, 0, 319, 0);
  Select(318, 0, 319, 0);
  Copy();
  Select(1, 0, 4, 0);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(1, 0), "318,0");
  EXPECT_EQ(Text(2, 0), "319,0");
  EXPECT_EQ(Text(3, 0), "319,0");
  EXPECT_EQ(Text(4, 0), "319,0");
  EXPECT_EQ(Clip(320, 0), "");
}

TEST_F(BlockClipboardTest, TheLastRowOfTheSheetIsWritten) {
  Name(1, 0, 1, 7);
  Select(1, 0, 1, 7);
  Copy();
  Select(1, 0, 319, 7);
  PasteBlock(record, sheet());
  EXPECT_EQ(Text(319, 7), "1,7");
  EXPECT_EQ(Clip(319, 7), "1,7");
}

// A grid of more rows than the sheet has.
TEST_F(BlockClipboardTest, NoRowFromThreeHundredAndTwentyOneOnIsWritten) {
  Grid tall;
  tall.Resize(330, 2);
  tall.Set(1, 0, "x");
  tall.SetCurrent(1, 0);
  CopyBlock(record, tall);
  tall.SetCurrent(319, 0);
  tall.SetSelection(322, 0);
  PasteBlock(record, tall);
  EXPECT_EQ(tall.Text(319, 0), "x");
  EXPECT_EQ(tall.Text(320, 0), "x");
  EXPECT_EQ(tall.Text(321, 0), "");
  EXPECT_EQ(tall.Text(322, 0), "");
}

TEST_F(BlockClipboardTest, TheCursorStaysInsideASmallerGrid) {
  Name(150, 5, 150, 5);
  Select(150, 5, 150, 5);
  Copy();
  Grid small;
  small.Resize(100, 2);
  small.SetCurrent(3, 1);
  PasteBlock(record, small);
  EXPECT_EQ(small.Text(3, 1), "150,5");
  EXPECT_EQ(small.row, 99);
  EXPECT_EQ(small.column, 1);
}

}  // namespace
}  // namespace torvale
