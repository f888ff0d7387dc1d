#include "input/clipboard_text.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

struct ClipboardTextTest : ::testing::Test, InputProgram {
  std::string Read(std::string_view text) {
    host.clipboard = text;
    return ClipboardText(program);
  }
};

TEST_F(ClipboardTextTest, LinesEndInCrLfWhateverTheDesktopUses) {
  constexpr const char* kRead = "1\t2\r\n3\t4\r\n";
  EXPECT_EQ(Read("1\t2\n3\t4\n"), kRead);
  EXPECT_EQ(Read("1\t2\r3\t4\r"), kRead);
  EXPECT_EQ(Read("1\t2\r\n3\t4\r\n"), kRead);
  EXPECT_EQ(Read("1\t2\r\n3\t4\n"), kRead);
}

TEST_F(ClipboardTextTest, EmptyLinesStayAndATextWithoutLineEndGetsNone) {
  EXPECT_EQ(Read("\n\na"), "\r\n\r\na");
  EXPECT_EQ(Read("\r\ra"), "\r\n\r\na");
  EXPECT_EQ(Read("\n\ra"), "\r\n\r\na");  // two line ends, one of each kind
  EXPECT_EQ(Read("a"), "a");
  EXPECT_EQ(Read(""), "");
}

TEST_F(ClipboardTextTest, DoubleQuotesBecomeClosingQuotationMarks) {
  EXPECT_EQ(Read("3/4\"\t\"x\""), "3/4\xE2\x80\x9D\t\xE2\x80\x9Dx\xE2\x80\x9D");
}

TEST_F(ClipboardTextTest, AZeroByteEndsTheText) {
  EXPECT_EQ(Read(std::string_view("10\t5\r\n\0", 7)), "10\t5\r\n");
  EXPECT_EQ(Read(std::string_view("10\0junk\0", 8)), "10");
  EXPECT_EQ(Read(std::string_view("\0", 1)), "");
}

TEST(OnOneLine, DropsTheLineEndOfACopiedCell) {
  EXPECT_EQ(OnOneLine("850\r\n"), "850");
  EXPECT_EQ(OnOneLine("850\n\n"), "850");
  EXPECT_EQ(OnOneLine("\r\n"), "");
  EXPECT_EQ(OnOneLine(" 850 "), " 850 ");
}

TEST(OnOneLine, JoinsLinesAndCellsByBlanks) {
  EXPECT_EQ(OnOneLine("North field\r\nCounty road\r\n"), "North field County road");
  EXPECT_EQ(OnOneLine("850\t2.0\n"), "850 2.0");
  EXPECT_EQ(OnOneLine("a\rb"), "a b");
}

struct SelectedCellsTest : ::testing::Test {
  SelectedCellsTest() {
    grid.Resize(6, 3);
    for (int row = 0; row < 6; ++row) {
      for (int column = 0; column < 3; ++column) grid.Set(row, column, std::to_string(10 * row + column));
    }
  }
  Grid grid;
};

TEST_F(SelectedCellsTest, AreSeparatedByTabsAndEachRowIsEnded) {
  grid.Set(3, 1, "");
  grid.SetCurrent(2, 0);
  grid.SetSelection(4, 2);
  EXPECT_EQ(SelectedCells(grid), "20\t21\t22\r\n30\t\t32\r\n40\t41\t42\r\n");
}

TEST_F(SelectedCellsTest, AreTheSameWhicheverWayTheyWereDragged) {
  for (const bool upwards : {false, true}) {
    for (const bool leftwards : {false, true}) {
      grid.SetCurrent(upwards ? 3 : 2, leftwards ? 2 : 1);
      grid.SetSelection(upwards ? 2 : 3, leftwards ? 1 : 2);
      EXPECT_EQ(SelectedCells(grid), "21\t22\r\n31\t32\r\n");
    }
  }
}

TEST_F(SelectedCellsTest, MayBeASingleOne) {
  grid.SetCurrent(5, 1);
  EXPECT_EQ(SelectedCells(grid), "51\r\n");
}

}  // namespace
}  // namespace torvale
