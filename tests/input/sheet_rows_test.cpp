#include "input/sheet_rows.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

struct SheetRowsTest : ::testing::Test, InputProgram {};

TEST_F(SheetRowsTest, InsertRowMovesTheRowsBelowAndKeepsThePlantedWidths) {
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

TEST_F(SheetRowsTest, InsertAndDeleteLeaveTheCursorAlone) {
  for (const auto& command : {mnuInsertRow_Click, mnuDeleteRow_Click}) {
    At(2, 4);
    sheet().SetSelection(5, 6);
    command(program);
    EXPECT_EQ(Cursor(), "2,4");
    EXPECT_EQ(sheet().row_sel, 2);
    EXPECT_EQ(sheet().column_sel, 4);
  }
}

TEST_F(SheetRowsTest, InsertRowAtTheFootOnlyEmptiesIt) {
  sheet().Set(318, 0, "318");
  for (int column = 0; column < 9; ++column) sheet().Set(319, column, "x");
  At(319, 0);
  mnuInsertRow_Click(program);
  for (int column = 0; column < 8; ++column) EXPECT_EQ(Text(319, column), "");
  EXPECT_EQ(Text(319, 8), "x");
  EXPECT_EQ(Text(318, 0), "318");
}

TEST_F(SheetRowsTest, InsertAndDeleteDoNotReformatTheCell) {
  At(3, 1);
  sheet().Set(3, 1, "9");
  mnuInsertRow_Click(program);
  EXPECT_EQ(Text(4, 1), "9");
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(3, 1), "9");
}

TEST_F(SheetRowsTest, DeleteRowMovesTheRowsUpAndKeepsThePlantedWidths) {
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

TEST_F(SheetRowsTest, RowsDoNotChangeBehindTheResults) {
  sheet().Set(2, 0, "100");
  At(2, 0);
  program.main.Grid2.control.visible = true;
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(2, 0), "100");
  EXPECT_EQ(Text(3, 0), "");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetRowsTest, TheHeadingsAreNoRowToInsertOrDelete) {
  const std::string heading = Text(0, 2);
  At(0, 5);
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(Text(0, 2), heading);
  EXPECT_EQ(Text(1, 0), "0");
  EXPECT_EQ(host.beeps, 2);
}

TEST_F(SheetRowsTest, RowsAreNotCountedAnew) {
  program.record.SurveyRows = 7;
  At(2, 0);
  mnuInsertRow_Click(program);
  mnuDeleteRow_Click(program);
  EXPECT_EQ(program.record.SurveyRows, 7);
}

}  // namespace
}  // namespace torvale
