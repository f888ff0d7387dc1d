#include "record/text_grid.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"

namespace torvale {
namespace {

TEST(TextGrid, BeginsEmpty) {
  const TextGrid none;
  EXPECT_EQ(none.rows(), 0);
  EXPECT_EQ(none.columns(), 0);
  const TextGrid grid(2, 3);
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) EXPECT_EQ(grid.Text(row, column), "");
  }
}

TEST(TextGrid, CellsOutsideAreAFault) {
  TextGrid grid(2, 3);
  const int outside[][2] = {{-1, 0}, {2, 0}, {0, -1}, {0, 3}};
  for (const auto& cell : outside) {
    EXPECT_EQ(FaultOf([&] { (void)grid.Text(cell[0], cell[1]); }), Fault::kSubscript);
    EXPECT_EQ(FaultOf([&] { grid.Set(cell[0], cell[1], "x"); }), Fault::kSubscript);
  }
  EXPECT_EQ(FaultOf([&] { grid.Resize(-1, 1); }), Fault::kSubscript);
  EXPECT_EQ(FaultOf([&] { grid.Resize(1, -1); }), Fault::kSubscript);
}

TEST(TextGrid, RevisionMovesWithChangesAlone) {
  TextGrid grid(2, 3);
  std::uint64_t before = grid.revision();
  grid.Set(1, 1, "");
  EXPECT_EQ(grid.revision(), before);
  grid.Set(1, 1, "a");
  EXPECT_NE(grid.revision(), before);
  before = grid.revision();
  grid.Set(1, 1, "a");
  grid.Resize(2, 3);
  EXPECT_EQ(grid.revision(), before);
  grid.Resize(3, 3);
  EXPECT_NE(grid.revision(), before);
  before = grid.revision();
  grid.Clear();
  EXPECT_NE(grid.revision(), before);
}

TEST(TextGrid, ResizingKeepsTheCellsOfBothRectangles) {
  TextGrid grid(2, 2);
  grid.Set(0, 0, "a");
  grid.Set(0, 1, "b");
  grid.Set(1, 0, "c");
  grid.Set(1, 1, "d");
  grid.Resize(3, 1);
  EXPECT_EQ(grid.Text(0, 0), "a");
  EXPECT_EQ(grid.Text(1, 0), "c");
  EXPECT_EQ(grid.Text(2, 0), "");
  grid.Resize(1, 2);
  EXPECT_EQ(grid.Text(0, 0), "a");
  EXPECT_EQ(grid.Text(0, 1), "");  // went with the column
}

TEST(TextGrid, EraseEmptiesABlockAndNothingElse) {
  TextGrid grid(4, 4);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) grid.Set(row, column, "x");
  }
  grid.Erase(1, 1, 2, 2);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      const bool inside = row >= 1 && row <= 2 && column >= 1 && column <= 2;
      EXPECT_EQ(grid.Text(row, column), inside ? "" : "x");
    }
  }
  grid.Clear();
  EXPECT_EQ(grid.Text(0, 0), "");
  EXPECT_EQ(grid.rows(), 4);
}

}  // namespace
}  // namespace torvale
