#include "display/result_pointer.h"

#include <gtest/gtest.h>

#include "display/result_tables.h"
#include "display/small_line.h"

namespace torvale {
namespace {

// Six rows with furrows of 4356 feet, a tenth of an acre for each foot of width. Row i has the width i and the flow
// ratio 10 x i: i tenths of an acre by width, i acres by ratio.
struct Field : SmallLine {
  Field() {
    for (int i = 1; i <= 6; ++i) {
      AddHole(static_cast<float>(6 * (i - 1)), kQuarterInch, 95);
      record.FurrowLength[i] = 4356;
      record.PlantedWidth[i] = static_cast<float>(i);
      record.FlowRatio[i] = static_cast<float>(10 * i);
    }
    record.TotalAcres = 21;
    main.lblAcresTotal.caption = "before";
  }

  // The read-out after a selection from row `from` to row `to`.
  std::string Selected(int from, int to) {
    main.Grid2.SetCurrent(from, 0);
    main.Grid2.SetSelection(to, 0);
    Grid2_SelChange(program);
    return main.lblAcresTotal.caption;
  }
  std::string Dragged(int from, int to) {
    main.Grid2.SetCurrent(from, 0);
    main.Grid2.SetSelection(to, 0);
    Grid2_MouseMove(program, MouseButton::kLeft, 0, 0);
    return main.lblAcresTotal.caption;
  }
};

// Downwards both ends count: rows 2 to 4, 2 + 3 + 4 = 9 acres of 21, 42.86 percent.
// Upwards the row above the moving end counts too: from 4 to 2 rows 1 to 4, 10 acres, 47.62 percent.
// A single row takes in the one above it: rows 2 and 3, 5 acres, 23.81 percent.
TEST(Grid2SelChange, SumsTheSelectedRows) {
  EXPECT_EQ(Field().Selected(2, 4), "Total Acres = 21.0   Acres Selected = 9.0  Percent = 42.9");
  EXPECT_EQ(Field().Selected(4, 2), "Total Acres = 21.0   Acres Selected = 10.0  Percent = 47.6");
  EXPECT_EQ(Field().Selected(3, 3), "Total Acres = 21.0   Acres Selected = 5.0  Percent = 23.8");
}

// Up to the first row or the headings, the rows 1 to 3: 6 acres, 28.57 percent. The headings alone give nothing.
TEST(Grid2SelChange, AddsNothingForTheHeadings) {
  EXPECT_EQ(Field().Selected(3, 1), "Total Acres = 21.0   Acres Selected = 6.0  Percent = 28.6");
  EXPECT_EQ(Field().Selected(3, 0), "Total Acres = 21.0   Acres Selected = 6.0  Percent = 28.6");
  EXPECT_EQ(Field().Selected(0, 0), "Total Acres = 21.0   Acres Selected = 0.0  Percent = .0");
}

TEST(Grid2SelChange, LeavesTheReadOutAsItIsPastTheFarEndAndForNoAcres) {
  EXPECT_EQ(Field().Selected(5, 6), "Total Acres = 21.0   Acres Selected = 11.0  Percent = 52.4");  // 52.38
  EXPECT_EQ(Field().Selected(5, 7), "before");
  EXPECT_EQ(Field().Selected(7, 7), "before");
  Field field;
  field.record.TotalAcres = 0;
  EXPECT_EQ(field.Selected(2, 4), "before");
}

TEST(Grid2SelChange, IsSilentOnTheSummary) {
  Field field;
  field.ShowTable("Summary");
  EXPECT_EQ(field.Selected(2, 4), "before");
  EXPECT_EQ(field.Dragged(2, 4), "before");
}

// The drag takes the widths and leaves the lower end of the range out: rows 2 and 3 both ways, 0.5 acres, 2.38 percent.
TEST(Grid2MouseMove, SumsTheRowsUnderTheDrag) {
  EXPECT_EQ(Field().Dragged(2, 4), "Total Acres = 21.0   Acres Selected = 0.5  Percent = 2.4");
  EXPECT_EQ(Field().Dragged(4, 2), "Total Acres = 21.0   Acres Selected = 0.5  Percent = 2.4");
}

TEST(Grid2MouseMove, LeavesTheReadOutWhereNothingIsUnderTheDrag) {
  EXPECT_EQ(Field().Dragged(3, 3), "before");  // rows 3 to 2
  EXPECT_EQ(Field().Dragged(4, 0), "before");  // the headings
  EXPECT_EQ(Field().Dragged(5, 8), "before");  // row 7 is past the far end
  // Rows 5 and 6: 1.1 acres, 5.24 percent. The end at 7 itself is not looked at.
  EXPECT_EQ(Field().Dragged(5, 7), "Total Acres = 21.0   Acres Selected = 1.1  Percent = 5.2");
  Field field;
  field.record.TotalAcres = 0;
  EXPECT_EQ(field.Dragged(2, 4), "before");
}

TEST(Grid2MouseMove, ReturnsToTheTotalWithNoButtonDown) {
  Field field;
  field.Selected(2, 4);
  Grid2_MouseMove(field.program, MouseButton::kNone, 0, 0);
  EXPECT_EQ(field.main.lblAcresTotal.caption, "Total Acres = 21.0");
}

TEST(Grid2MouseMove, CarriesTheEquivalentHoleAlong) {
  Field field;
  field.main.frameHoleEquiv.visible = false;
  field.main.frameHoleEquiv.place.left = 5;
  Grid2_MouseMove(field.program, MouseButton::kNone, 300, 2000);
  EXPECT_EQ(field.main.frameHoleEquiv.place.left, 1680);
  EXPECT_EQ(field.main.frameHoleEquiv.place.top, 3460);
  EXPECT_FALSE(field.main.frameHoleEquiv.visible);
}

// Rigid pipe with three outlets; the table's row 2 is pointed at.
struct RigidField : SmallLine {
  RigidField() {
    record.PipeKind = "R";
    AddHole(0, kQuarterInch, 95);
    AddHole(6, 0.5F, 95);
    AddHole(12, 0.75F, 95);
    main.Grid2.Set(2, 0, "6");
    main.Grid2.Set(2, 1, "1.5");
    main.Grid2.SetCurrent(2, 0);
    main.frameHoleEquiv.visible = false;
    main.lblHoleEquiv.caption = "before";
  }
};

TEST(Grid2MouseDown, NamesTheHoleThatTheGateStandsFor) {
  RigidField field;
  Grid2_MouseDown(field.program, MouseButton::kLeft, 0, 0);
  EXPECT_TRUE(field.main.frameHoleEquiv.visible);
  EXPECT_EQ(field.main.lblHoleEquiv.caption,
            "1.5 Gate opening of a Rectangular hole is equal to 1/2 in. Diameter Layflat hole");

  field.main.txtDefault[11].Set("C");
  Grid2_MouseMove(field.program, MouseButton::kLeft, 0, 0);
  EXPECT_EQ(field.main.lblHoleEquiv.caption,
            "1.5 Gate opening of a Circular hole is equal to 1/2 in. Diameter Layflat hole");

  Grid2_MouseUp(field.program, MouseButton::kRight, 0, 0);
  EXPECT_FALSE(field.main.frameHoleEquiv.visible);
}

// The row pointed at is the moving end of the selection. A dry row is passed by for the next one with flow.
TEST(Grid2MouseDown, TakesTheNextOutletWithFlow) {
  RigidField field;
  field.record.FurrowFlow[2] = 0;
  field.main.Grid2.SetCurrent(1, 0);
  field.main.Grid2.SetSelection(2, 3);
  Grid2_MouseDown(field.program, MouseButton::kLeft, 0, 0);
  EXPECT_EQ(field.main.lblHoleEquiv.caption,
            "1.5 Gate opening of a Rectangular hole is equal to 3/4 in. Diameter Layflat hole");
}

// 5.5 feet are shown as 6 and so are found at the table's 6.
TEST(Grid2MouseDown, ComparesStationsAsShown) {
  RigidField field;
  field.record.Station[2] = 5.5F;
  Grid2_MouseDown(field.program, MouseButton::kLeft, 0, 0);
  EXPECT_EQ(field.main.lblHoleEquiv.caption,
            "1.5 Gate opening of a Rectangular hole is equal to 1/2 in. Diameter Layflat hole");
}

TEST(Grid2MouseDown, ReadsTheComputersFreeChoiceForBothSelections) {
  for (const std::int16_t type : {kComputerHoles, kLimitedHoles}) {
    RigidField field;
    field.record.DesignType = type;
    field.record.ComputerHoleDia[2] = 1;
    field.record.LimitedHoleDia[2] = 2;
    Grid2_MouseDown(field.program, MouseButton::kLeft, 0, 0);
    EXPECT_EQ(field.main.lblHoleEquiv.caption,
              "1.5 Gate opening of a Rectangular hole is equal to 1 in. Diameter Layflat hole");
  }
}

TEST(Grid2MouseDown, ShowsNothingWhereThereIsNoEquivalent) {
  const auto shown = [](auto change, MouseButton button) {
    RigidField field;
    change(field);
    Grid2_MouseDown(field.program, button, 0, 0);
    Grid2_MouseMove(field.program, button, 0, 0);
    return field.main.frameHoleEquiv.visible || field.main.lblHoleEquiv.caption != "before";
  };
  EXPECT_TRUE(shown([](RigidField&) {}, MouseButton::kLeft));
  EXPECT_FALSE(shown([](RigidField&) {}, MouseButton::kRight));
  EXPECT_FALSE(shown([](RigidField&) {}, MouseButton::kNone));
  EXPECT_FALSE(shown([](RigidField& f) { f.record.PipeKind = "L"; }, MouseButton::kLeft));
  EXPECT_FALSE(shown([](RigidField& f) { f.record.SurveyHoleDia[2] = 0.3F; }, MouseButton::kLeft));  // not listed
  EXPECT_FALSE(shown([](RigidField& f) { f.main.Grid2.Set(2, 0, "13"); }, MouseButton::kLeft));      // past the end
}

// A script may put the pointer anywhere.
TEST(Grid2MouseMove, APointerAtTheEndOfAllNumbersKeepsTheFrameThere) {
  Field field;
  Grid2_MouseMove(field.program, MouseButton::kNone, 0, 2147483647);
  EXPECT_EQ(field.main.frameHoleEquiv.place.top, 2147483647);
  Grid2_MouseMove(field.program, MouseButton::kNone, 0, -2147483647);
  EXPECT_EQ(field.main.frameHoleEquiv.place.top, -2147482187);
}

}  // namespace
}  // namespace torvale
