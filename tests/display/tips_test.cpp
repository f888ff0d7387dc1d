#include "display/tips.h"

#include <gtest/gtest.h>

#include "display/grid_layout.h"

namespace torvale {
namespace {

// What is wrong comes first, what a colour says last.
TEST(Tips, OfAControlSayMarkTipAndColour) {
  Control control;
  EXPECT_EQ(TipOf("lblEffic", control), "");
  control.tool_tip = "Uniformity";
  control.back = kBrightGreen;
  EXPECT_EQ(TipOf("lblEffic", control), "Uniformity\nGreen: the uniformity is 90 percent or more.");
  control.mark = "Out of date.";
  EXPECT_EQ(TipOf("lblEffic", control), "Out of date.\nUniformity\nGreen: the uniformity is 90 percent or more.");
}

// The colour of an empty cell says nothing: it may have been left there by another table.
TEST(Tips, OfACellSayWhatWasFilledInToo) {
  Grid grid;
  grid.Resize(3, kResultColumns);
  grid.SetBack(1, kResultFlowRatio, kStrongGreen);
  EXPECT_EQ(TipOfCell("Grid2", grid, 1, kResultFlowRatio), "");
  grid.Set(1, kResultFlowRatio, "1.00");
  EXPECT_EQ(TipOfCell("Grid2", grid, 1, kResultFlowRatio),
            "Green: within 5 percent of the flow that the furrow needs.");
  grid.SetFilled(1, kResultFlowRatio, true);
  grid.SetMark(1, kResultFlowRatio, "Wrong.");
  grid.SetTip(1, kResultFlowRatio, "Two gates.");
  EXPECT_EQ(TipOfCell("Grid2", grid, 1, kResultFlowRatio),
            "Wrong.\nTwo gates.\nGrey: the program filled this in. Type over it, or clear it from the Edit menu.\n"
            "Green: within 5 percent of the flow that the furrow needs.");
}

}  // namespace
}  // namespace torvale
