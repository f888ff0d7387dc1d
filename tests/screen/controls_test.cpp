#include "screen/controls.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"

namespace torvale {
namespace {

TEST(TextField, SettingATextRunsItsChangeHandling) {
  TextField field;
  int changes = 0;
  field.on_change = [&] { ++changes; };
  field.Set("850");
  EXPECT_EQ(field.text(), "850");
  EXPECT_EQ(changes, 1);
  field.Set("850");  // nothing changed
  EXPECT_EQ(changes, 1);
  field.Set("");
  EXPECT_EQ(changes, 2);
}

TEST(TextField, HandlerSeesTheNewText) {
  TextField field;
  std::string seen;
  field.on_change = [&] { seen = field.text(); };
  field.Set("2.0");
  EXPECT_EQ(seen, "2.0");
}

// What was typed stays also where the handling can't use it.
TEST(TextField, TextStaysWhenItsHandlingFaults) {
  TextField field;
  field.on_change = [] { throw RunTimeFault{Fault::kOverflow}; };
  EXPECT_EQ(FaultOf([&] { field.Set("1e99"); }), Fault::kOverflow);
  EXPECT_EQ(field.text(), "1e99");
}

TEST(TextField, NeedsNoHandler) {
  TextField field;
  field.Set("x");
  EXPECT_EQ(field.text(), "x");
}

TEST(ListBox, LinesThatAreNotThereReadAsEmpty) {
  ListBox list;
  list.Add("1/4");
  EXPECT_EQ(list.count(), 1);
  EXPECT_EQ(list.Line(0), "1/4");
  for (const int outside : {-1, 1, 99}) {
    EXPECT_EQ(list.Line(outside), "");
    EXPECT_FALSE(list.Selected(outside));
    list.Select(outside, true);
    list.Remove(outside);
  }
  EXPECT_EQ(list.count(), 1);
}

TEST(ListBox, SelectsOneLineOrSeveral) {
  ListBox one;
  one.Add("a");
  one.Add("b");
  one.Select(0, true);
  one.Select(1, true);
  EXPECT_FALSE(one.Selected(0));
  EXPECT_TRUE(one.Selected(1));

  ListBox several;
  several.multiple = true;
  several.Add("a");
  several.Add("b");
  several.Select(0, true);
  several.Select(1, true);
  EXPECT_TRUE(several.Selected(0));
  EXPECT_TRUE(several.Selected(1));
  several.Select(0, false);
  EXPECT_FALSE(several.Selected(0));
}

// By character code: capitals before small letters, a digit before both.
TEST(ListBox, SortedListKeepsItsOrder) {
  ListBox list;
  list.sorted = true;
  for (const char* const line : {"b", "10", "B", "1/2", "a"}) list.Add(line);
  const char* const expected[] = {"1/2", "10", "B", "a", "b"};  // "/" comes before "0"
  for (int i = 0; i < 5; ++i) EXPECT_EQ(list.Line(i), expected[i]);
}

TEST(ListBox, RemovingAndClearing) {
  ListBox list;
  for (const char* const line : {"a", "b", "c"}) list.Add(line);
  list.Select(2, true);
  list.Remove(0);
  EXPECT_EQ(list.Line(0), "b");
  EXPECT_TRUE(list.Selected(1));  // the mark goes with its line
  const std::uint64_t before = list.revision();
  list.Clear();
  EXPECT_EQ(list.count(), 0);
  EXPECT_NE(list.revision(), before);
}

TEST(Grid, CurrentCellTakesTheSelectionAlong) {
  Grid grid;
  grid.Resize(4, 3);
  grid.SetCurrent(2, 1);
  EXPECT_EQ(grid.row, 2);
  EXPECT_EQ(grid.row_sel, 2);
  EXPECT_EQ(grid.column_sel, 1);
  grid.SetSelection(3, 2);
  EXPECT_EQ(grid.row, 2);
  EXPECT_EQ(grid.row_sel, 3);
  grid.Set(2, 1, "x");
  EXPECT_EQ(grid.CurrentText(), "x");
}

TEST(Grid, CellsOutsideAreAFault) {
  Grid grid;
  grid.Resize(4, 3);
  const int outside[][2] = {{-1, 0}, {4, 0}, {0, -1}, {0, 3}};
  for (const auto& cell : outside) {
    EXPECT_EQ(FaultOf([&] { grid.SetCurrent(cell[0], cell[1]); }), Fault::kSubscript);
    EXPECT_EQ(FaultOf([&] { grid.SetSelection(cell[0], cell[1]); }), Fault::kSubscript);
    EXPECT_EQ(FaultOf([&] { grid.SetBack(cell[0], cell[1], kRed); }), Fault::kSubscript);
    EXPECT_EQ(FaultOf([&] { (void)grid.Back(cell[0], cell[1]); }), Fault::kSubscript);
    EXPECT_EQ(FaultOf([&] { (void)grid.AlignOf(cell[0], cell[1]); }), Fault::kSubscript);
  }
}

TEST(Grid, RevisionMovesWithTextsAndLooks) {
  Grid grid;
  grid.Resize(2, 2);
  std::uint64_t before = grid.revision();
  const auto moved = [&] {
    const bool moves = grid.revision() != before;
    before = grid.revision();
    return moves;
  };
  grid.SetBack(1, 1, kRed);
  EXPECT_TRUE(moved());
  grid.SetBack(1, 1, kRed);
  EXPECT_FALSE(moved());
  grid.SetFore(1, 1, kBlack);
  EXPECT_TRUE(moved());
  grid.SetAlign(1, 1, Align::kCentreBottom);
  EXPECT_TRUE(moved());
  grid.Set(1, 1, "x");
  EXPECT_TRUE(moved());
  grid.Clear();
  EXPECT_TRUE(moved());
  EXPECT_EQ(grid.Back(1, 1), std::nullopt);
  EXPECT_EQ(grid.Text(1, 1), "");
}

TEST(Grid, AlignmentIsTheCellsOwnOrItsColumns) {
  Grid grid;
  grid.Resize(2, 2);
  grid.columns[1].align = Align::kCentreCentre;
  EXPECT_EQ(grid.AlignOf(1, 1), Align::kCentreCentre);
  grid.SetAlign(1, 1, Align::kCentreBottom);
  EXPECT_EQ(grid.AlignOf(1, 1), Align::kCentreBottom);
  EXPECT_EQ(grid.AlignOf(0, 1), Align::kCentreCentre);
}

TEST(Grid, ResizingKeepsTextsAndLooks) {
  Grid grid;
  grid.Resize(2, 2);
  grid.Set(1, 1, "x");
  grid.SetBack(1, 1, kTeal);
  grid.Resize(3, 4);
  EXPECT_EQ(grid.Text(1, 1), "x");
  EXPECT_EQ(grid.Back(1, 1), kTeal);
  EXPECT_EQ(grid.Back(2, 3), std::nullopt);
  grid.Resize(1, 1);
  grid.Resize(2, 2);
  EXPECT_EQ(grid.Back(1, 1), std::nullopt);
}

TEST(Grid, ACellCarriesATipAndAMarkOfItsOwn) {
  Grid grid;
  grid.Resize(3, 3);
  grid.SetTip(1, 2, "each gate .52");
  grid.SetMark(1, 2, "read as 1");
  grid.SetMark(2, 0, "no number");
  EXPECT_EQ(grid.Tip(1, 2), "each gate .52");
  EXPECT_EQ(grid.Mark(1, 2), "read as 1");
  EXPECT_EQ(grid.Tip(2, 0), "");
  grid.ClearMarks();
  EXPECT_EQ(grid.Mark(1, 2), "");
  EXPECT_EQ(grid.Mark(2, 0), "");
  EXPECT_EQ(grid.Tip(1, 2), "each gate .52");
  grid.ClearTips();
  EXPECT_EQ(grid.Tip(1, 2), "");
  EXPECT_EQ(FaultOf([&] { grid.SetMark(3, 0, "x"); }), Fault::kSubscript);
}

// A window draws again what has another revision.
TEST(Grid, RevisionMovesWithTipsAndMarks) {
  Grid grid;
  grid.Resize(2, 2);
  std::uint64_t before = grid.revision();
  const auto moved = [&] {
    const bool moves = grid.revision() != before;
    before = grid.revision();
    return moves;
  };
  grid.SetMark(1, 1, "no number");
  EXPECT_TRUE(moved());
  grid.SetMark(1, 1, "no number");
  EXPECT_FALSE(moved());
  grid.ClearTips();
  EXPECT_FALSE(moved());
  grid.SetTip(1, 1, "each");
  EXPECT_TRUE(moved());
  grid.ClearMarks();
  EXPECT_TRUE(moved());
  grid.Clear();
  EXPECT_TRUE(moved());
  EXPECT_EQ(grid.Tip(1, 1), "");
}

}  // namespace
}  // namespace torvale
