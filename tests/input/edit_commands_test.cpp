#include "input/edit_commands.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

struct EditCommandsTest : ::testing::Test, InputProgram {
  EditCommandsTest() { MoveFocus(program, "Grid1"); }
  void Select(Grid& grid, int row1, int column1, int row2, int column2) {
    grid.SetCurrent(row1, column1);
    grid.SetSelection(row2, column2);
  }
  // Puts the focus into a field that holds `text`, and selects a part of it.
  void InField(std::size_t index, std::string_view text, int start, int length) {
    Info(index).Set(text);
    MoveFocus(program, "txtInfo(" + std::to_string(index) + ")");
    Info(index).Select(start, length);
  }
  // As a finished design leaves the screen.
  void ShowResults() {
    main.Grid1.control.visible = false;
    main.Grid2.control.visible = true;
    main.Grid2.Set(1, 0, "0");
    main.Grid2.Set(1, 4, "2.00");
    main.Grid2.Set(2, 0, "100");
    main.Grid2.Set(2, 4, "1.95");
    MoveFocus(program, "Grid2");
  }
  const std::string& Clip(int row, int column) const { return record.GridClipboard.Text(row, column); }

  DesignRecord& record = program.record;
  MainScreen& main = program.main;
};

// In a field

TEST_F(EditCommandsTest, CopyPutsTheSelectedTextOnTheDesktopsClipboard) {
  host.clipboard = "before";
  InField(0, "North field", 6, 5);
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "field");
  EXPECT_EQ(Info(0).text(), "North field");
  EXPECT_EQ(main.focus, "txtInfo(0)");
}

TEST_F(EditCommandsTest, CopyOfNothingEmptiesTheDesktopsClipboard) {
  host.clipboard = "before";
  InField(0, "North field", 6, 0);
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "");
}

TEST_F(EditCommandsTest, EveryCopyErasesTheBlockClipboardAndACutInAFieldDoesNot) {
  record.GridClipboard.Set(5, 2, "x");
  InField(0, "North field", 0, 5);
  mnuEditCut_Click(program);
  EXPECT_EQ(Clip(5, 2), "x");
  mnuEditCopy_Click(program);
  EXPECT_EQ(Clip(5, 2), "");
}

TEST_F(EditCommandsTest, CutTakesTheSelectedTextOutAndRunsTheChangeHandling) {
  InField(2, "1850", 0, 1);
  mnuEditCut_Click(program);
  EXPECT_EQ(host.clipboard, "1");
  EXPECT_EQ(Info(2).text(), "850");
  EXPECT_EQ(record.TargetGPM, 850.0F);
}

TEST_F(EditCommandsTest, PasteReplacesTheSelectedText) {
  host.clipboard = "9";
  InField(2, "1850", 0, 2);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Info(2).text(), "950");
  EXPECT_EQ(record.TargetGPM, 950.0F);
  EXPECT_EQ(Info(2).selection(), (TextSelection{1, 0}));
}

TEST_F(EditCommandsTest, PasteIsHeldToTheLongestText) {
  host.clipboard = "1234567890123";
  InField(1, "ab", 1, 1);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Info(1).text(), "a12345678901");  // 12 characters
}

TEST_F(EditCommandsTest, PasteIntoTheSurveyKindIsACapitalLetter) {
  host.clipboard = "elevations";
  InField(5, "R", 0, 1);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Info(5).text(), "E");
  EXPECT_EQ(Text(0, 1), "Elevation (feet)");
}

TEST_F(EditCommandsTest, ACellOfASpreadsheetIsPastedWithoutItsLineEnd) {
  InField(2, "", 0, 0);
  host.clipboard = "850\n";
  mnuEditPaste_Click(program);
  EXPECT_EQ(Info(2).text(), "850");
}

TEST_F(EditCommandsTest, DoubleQuotesArePastedAsClosingQuotationMarks) {
  InField(4, "", 0, 0);
  host.clipboard = "The \"long\" field";
  mnuEditPaste_Click(program);
  EXPECT_EQ(Info(4).text(), "The \xE2\x80\x9Dlong\xE2\x80\x9D field");
}

TEST_F(EditCommandsTest, AFieldDoesNotTouchTheSheet) {
  sheet().Set(5, 2, "x");
  Select(sheet(), 5, 2, 5, 2);
  InField(0, "North", 0, 5);
  mnuEditCopy_Click(program);
  mnuEditCut_Click(program);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Text(5, 2), "x");
  EXPECT_EQ(Clip(5, 2), "");
  EXPECT_EQ(record.PasteRow1, 0);
}

TEST_F(EditCommandsTest, PreferencesAreFieldsToo) {
  main.Frame1.visible = true;
  main.txtDefault[4].Set("1.25");
  MoveFocus(program, "txtDefault(4)");
  mnuEditCut_Click(program);
  EXPECT_EQ(host.clipboard, "1.25");
  EXPECT_EQ(main.txtDefault[4].text(), "");
}

// A field that has gone from the screen is not the active control any longer.
TEST_F(EditCommandsTest, AHiddenFieldIsNotTheActiveControl) {
  main.Frame1.visible = true;
  MoveFocus(program, "txtDefault(4)");
  main.txtDefault[4].Set("1.25");
  main.Frame1.visible = false;
  sheet().Set(5, 2, "x");
  Select(sheet(), 5, 2, 5, 2);
  mnuEditCut_Click(program);
  EXPECT_EQ(main.txtDefault[4].text(), "1.25");
  EXPECT_EQ(Clip(5, 2), "x");
}

// On the sheet

TEST_F(EditCommandsTest, CopyOnTheSheetErasesWhatWasCopiedBefore) {
  sheet().Set(5, 2, "x");
  sheet().Set(6, 2, "y");
  Select(sheet(), 5, 2, 5, 2);
  mnuEditCopy_Click(program);
  Select(sheet(), 6, 2, 6, 2);
  mnuEditCopy_Click(program);
  EXPECT_EQ(Clip(5, 2), "");
  EXPECT_EQ(Clip(6, 2), "y");
}

TEST_F(EditCommandsTest, CutDoesNotErase) {
  sheet().Set(5, 2, "x");
  Select(sheet(), 5, 2, 5, 2);
  mnuEditCopy_Click(program);
  Select(sheet(), 7, 2, 7, 2);
  mnuEditCut_Click(program);
  EXPECT_EQ(Clip(5, 2), "x");
}

TEST_F(EditCommandsTest, TheSheetGetsTheFocus) {
  for (const auto command : {mnuEditCopy_Click, mnuEditCut_Click, mnuEditPaste_Click}) {
    MoveFocus(program, "cmdInterpolate");
    command(program);
    EXPECT_EQ(main.focus, "Grid1");
  }
}

TEST_F(EditCommandsTest, NothingIsReformatted) {
  sheet().Set(5, 2, "600.55");
  Select(sheet(), 5, 2, 5, 2);
  mnuEditCut_Click(program);
  Select(sheet(), 9, 1, 9, 1);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Text(9, 1), "600.55");
}

TEST_F(EditCommandsTest, CutThenPasteAtTheSamePlaceBringsTheCellsBack) {
  sheet().Set(5, 2, "x");
  sheet().Set(6, 3, "y");
  Select(sheet(), 5, 2, 6, 3);
  mnuEditCut_Click(program);
  Select(sheet(), 5, 2, 6, 3);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Text(5, 2), "x");
  EXPECT_EQ(Text(6, 3), "y");
}

// Results

TEST_F(EditCommandsTest, ResultsAreCopiedAsTextForOtherPrograms) {
  sheet().Set(5, 2, "x");
  Select(sheet(), 5, 2, 5, 2);
  ShowResults();
  Select(main.Grid2, 2, 5, 1, 3);
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "\t2.00\t\r\n\t1.95\t\r\n");
  EXPECT_EQ(Clip(5, 2), "");
  EXPECT_EQ(record.PasteRow1, 0);
  EXPECT_EQ(main.focus, "Grid2");
}

// A paste behind the results makes the sheet visible; they still cover it.
TEST_F(EditCommandsTest, ResultsAreCopiedAlsoWhereTheSheetIsVisibleBehindThem) {
  ShowResults();
  mnuEditPaste_Click(program);
  EXPECT_TRUE(main.Grid1.control.visible);
  Select(main.Grid2, 1, 4, 1, 4);
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "2.00\r\n");
}

TEST_F(EditCommandsTest, WithNeitherOnViewACopyOnlyErases) {
  host.clipboard = "before";
  record.GridClipboard.Set(5, 2, "x");
  main.Grid1.control.visible = false;
  MoveFocus(program, "cmdInterpolate");
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "before");
  EXPECT_EQ(Clip(5, 2), "");
  EXPECT_EQ(main.focus, "cmdInterpolate");
}

// What is typed next must not go to a sheet that nobody sees.
TEST_F(EditCommandsTest, CutAndPasteReachTheSheetBehindTheResultsAndTheFocusStays) {
  sheet().Set(5, 2, "x");
  Select(sheet(), 5, 2, 5, 2);
  ShowResults();
  mnuEditCut_Click(program);
  EXPECT_EQ(Text(5, 2), "");
  EXPECT_EQ(Clip(5, 2), "x");
  EXPECT_EQ(main.focus, "Grid2");
  EXPECT_EQ(main.sbStatusBar.caption, "The survey sheet behind the results was changed in row 5");
  Select(sheet(), 7, 2, 8, 2);
  mnuEditPaste_Click(program);
  EXPECT_EQ(Text(8, 2), "x");
  EXPECT_EQ(main.focus, "Grid2");
  EXPECT_EQ(main.sbStatusBar.caption, "The survey sheet behind the results was changed in rows 7 to 8");
  EXPECT_EQ(main.Grid2.Text(2, 4), "1.95");
}

// The sheet and the desktop's clipboard

TEST_F(EditCommandsTest, ABlockOfTheSheetGoesToOtherProgramsToo) {
  main.Grid1.Set(2, 0, "100");
  main.Grid1.Set(2, 1, "5.33");
  main.Grid1.Set(3, 0, "200");
  Select(main.Grid1, 2, 0, 3, 1);
  mnuEditCopy_Click(program);
  EXPECT_EQ(host.clipboard, "100\t5.33\r\n200\t\r\n");
  Select(main.Grid1, 3, 0, 3, 0);
  mnuEditCut_Click(program);
  EXPECT_EQ(host.clipboard, "200\r\n");
  EXPECT_EQ(main.Grid1.Text(3, 0), "");
}

// What was copied elsewhere is still to be had after cells were emptied.
TEST_F(EditCommandsTest, DeleteIsACutThatLeavesTheDesktopsClipboard) {
  host.clipboard = "0\t10\r\n";
  main.Grid1.Set(2, 0, "100");
  Select(main.Grid1, 2, 0, 2, 0);
  DeleteSelected(program);
  EXPECT_EQ(host.clipboard, "0\t10\r\n");
  EXPECT_EQ(main.Grid1.Text(2, 0), "");
  EXPECT_EQ(Clip(2, 0), "100");
}

TEST_F(EditCommandsTest, PasteTellsHowCellsOfAnotherProgramComeIn) {
  constexpr std::string_view kTold =
      "Paste took the cells that were copied here. Cells of another program come in by Paste Excel Survey";
  main.Grid1.Set(2, 0, "100");
  Select(main.Grid1, 2, 0, 2, 0);
  mnuEditCopy_Click(program);
  Select(main.Grid1, 4, 0, 4, 0);
  mnuEditPaste_Click(program);
  EXPECT_EQ(main.sbStatusBar.caption, ColumnHint(0));
  host.clipboard = "0\t10.1\n100\t10.2\n";
  Select(main.Grid1, 5, 0, 5, 0);
  mnuEditPaste_Click(program);
  EXPECT_EQ(main.sbStatusBar.caption, kTold);
  EXPECT_EQ(main.Grid1.Text(5, 0), "100");  // the block that was copied here, as ever
  // A word or two are no cells.
  host.clipboard = "North field";
  Select(main.Grid1, 6, 0, 6, 0);
  mnuEditPaste_Click(program);
  EXPECT_EQ(main.sbStatusBar.caption, ColumnHint(0));
}

// The line ends that the desktop gives back may be others, and a quotation mark comes back as a closing one.
TEST_F(EditCommandsTest, TheOwnBlockIsKnownAgainAsTheDesktopGivesItBack) {
  main.Grid1.Set(2, 0, "7\"");
  Select(main.Grid1, 2, 0, 3, 1);
  mnuEditCopy_Click(program);
  host.clipboard = "7\"\t\n\t\n";
  mnuEditPaste_Click(program);
  EXPECT_EQ(main.sbStatusBar.caption, ColumnHint(0));
}

}  // namespace
}  // namespace torvale
