// Cut, copy and paste in the soils editor, which shares its clipboard with the survey sheet.
#include <gtest/gtest.h>

#include "file_program.h"
#include "files/new_design.h"
#include "files/soils.h"
#include "input/edit_commands.h"
#include "input/focus.h"
#include "input/info_fields.h"

namespace torvale {
namespace {

struct SoilsClipboardTest : FilesTest {
  SoilsClipboardTest() {
    mnuSoils_and_Furrow_Click(program);
    for (int row = 1; row <= 4; ++row) {
      soils.Set(row, 0, "Soil " + std::to_string(row));
      soils.Set(row, 1, std::to_string(10 * row));
    }
    MoveFocus(program, "Grid1");
  }
  static void Select(Grid& grid, int row1, int column1, int row2, int column2) {
    grid.SetCurrent(row1, column1);
    grid.SetSelection(row2, column2);
  }
  Grid& soils = program.soils.Grd_Soils_FurrowFlow;
  Grid& sheet = program.main.Grid1;
};

TEST_F(SoilsClipboardTest, ABlockIsCopiedInsideTheEditor) {
  Select(soils, 2, 0, 3, 1);
  mnuCopy_Click(program);
  EXPECT_EQ(record.PasteRow1, 2);
  EXPECT_EQ(record.PasteCol1, 0);
  Select(soils, 6, 0, 7, 1);
  mnuPaste_Click(program);
  EXPECT_EQ(soils.Text(6, 0), "Soil 2");
  EXPECT_EQ(soils.Text(7, 1), "30");
  EXPECT_EQ(soils.row, 2);
  EXPECT_EQ(soils.column, 0);
}

TEST_F(SoilsClipboardTest, ABlockIsCut) {
  Select(soils, 3, 1, 2, 0);
  mnuCut_Click(program);
  EXPECT_EQ(record.PasteRows, 2);
  EXPECT_EQ(record.PasteCols, 2);
  EXPECT_EQ(soils.Text(2, 0), "");
  EXPECT_EQ(soils.Text(3, 1), "");
  EXPECT_EQ(soils.Text(1, 0), "Soil 1");
  EXPECT_EQ(soils.Text(4, 1), "40");
  EXPECT_EQ(record.GridClipboard.Text(3, 1), "30");
}

TEST_F(SoilsClipboardTest, CopyErasesAndCutDoesNot) {
  record.GridClipboard.Set(200, 8, "x");
  Select(soils, 1, 0, 1, 0);
  mnuCut_Click(program);
  EXPECT_EQ(record.GridClipboard.Text(200, 8), "x");
  mnuCopy_Click(program);
  EXPECT_EQ(record.GridClipboard.Text(200, 8), "");
}

TEST_F(SoilsClipboardTest, ABlockGoesFromTheEditorToTheSheet) {
  Select(soils, 2, 0, 3, 1);
  mnuCopy_Click(program);
  Select(sheet, 5, 3, 6, 4);
  mnuEditPaste_Click(program);
  EXPECT_EQ(sheet.Text(5, 3), "Soil 2");
  EXPECT_EQ(sheet.Text(5, 4), "20");
  EXPECT_EQ(sheet.Text(6, 4), "30");
  EXPECT_EQ(sheet.row, 2);  // where the block came from, on the sheet too
}

TEST_F(SoilsClipboardTest, ABlockGoesFromTheSheetToTheEditor) {
  sheet.Set(150, 3, "Sand");
  sheet.Set(150, 4, "25");
  Select(sheet, 150, 3, 150, 4);
  mnuEditCopy_Click(program);
  Select(soils, 98, 0, 99, 1);
  mnuPaste_Click(program);
  EXPECT_EQ(soils.Text(98, 0), "Sand");
  EXPECT_EQ(soils.Text(98, 1), "25");
  EXPECT_EQ(soils.Text(99, 0), "Sand");  // the row repeats
  EXPECT_EQ(soils.row, 99);              // as far as the editor has rows and columns
  EXPECT_EQ(soils.column, 1);
}

// The editor's commands look neither at the fields of the main screen nor at its results.
TEST_F(SoilsClipboardTest, TheMainScreensFocusAndResultsDoNotMatter) {
  main.txtInfo[0].Set("North");
  MoveFocus(program, "txtInfo(0)");
  main.Grid2.control.visible = true;
  Select(soils, 1, 0, 1, 0);
  mnuCopy_Click(program);
  EXPECT_EQ(record.GridClipboard.Text(1, 0), "Soil 1");
  EXPECT_EQ(host.clipboard, "");
  mnuCut_Click(program);
  EXPECT_EQ(main.txtInfo[0].text(), "North");
  EXPECT_EQ(main.focus, "txtInfo(0)");
}

TEST_F(SoilsClipboardTest, TheClipboardSurvivesANewDesignAndAnOpen) {
  TypeSurvey();
  mnuDesignField_Click(program);
  ASSERT_EQ(Save(Path("saved.PFD")), "");
  Select(soils, 1, 0, 2, 1);
  mnuCopy_Click(program);
  mnuFileNew_Click(program);
  EXPECT_EQ(sheet.Text(2, 0), "");
  EXPECT_EQ(record.GridClipboard.Text(2, 1), "20");
  ASSERT_EQ(Open(Path("saved.PFD")), "");
  EXPECT_EQ(sheet.Text(2, 0), "100");
  EXPECT_EQ(record.GridClipboard.Text(2, 1), "20");
  EXPECT_EQ(record.PasteRow1, 1);
}

}  // namespace
}  // namespace torvale
