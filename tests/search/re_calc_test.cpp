#include "search/design_commands.h"
#include "search/hole_selection_panel.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReCalcTest : public SearchTest {
 protected:
  // What the running calculation looked like at its first yield.
  struct Seen {
    bool busy = false;
    bool main_busy = false;
    bool menus_enabled = false;
    float slope = -1;
  };
  Seen ReCalculate() {
    Seen seen;
    bool looked = false;
    WatchYields([&] {
      if (looked) return;
      looked = true;
      seen = {main.busy, main.main_busy, main.mnuDesign.enabled, record.SlopeDelta};
    });
    cmdReCalc_Click(program);
    host.event = nullptr;
    EXPECT_FALSE(main.main_busy);
    return seen;
  }
};

TEST_F(ReCalcTest, RunsAPlannedDesignAgainOnTheChangedInput) {
  LevelLine();
  mnuDesignField_Click(program);
  record.TotalAcres = 2.25F;
  main.txtInfo[2].Set("12.8");
  record.TargetGPM = 12.8F;
  const Seen seen = ReCalculate();
  EXPECT_TRUE(seen.main_busy);
  EXPECT_FALSE(seen.busy);  // the hourglass is this screen's own
  EXPECT_TRUE(seen.menus_enabled);
  EXPECT_NEAR(record.AccumGPM, 12.8, 0.0064);
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
}

// The row between has its hole alone: its crown lies on the line between the rows around it, the rest is copied down.
TEST_F(ReCalcTest, CompletesTheSheetFirst) {
  for (const auto& command : {mnuDesignField_Click, mnuDesignDualSlope_Click, mnuComputerHoleSelection_Click}) {
    LevelLine();
    command(program);
    const std::int16_t rows = record.HoleRows;
    FillSheet({WateredRow("0", "100"), {"50", "", "", "", "", "3/8", "", "", ""}, WateredRow("100", "100")});
    ReCalculate();
    EXPECT_EQ(main.Grid1.Text(2, kCrownColumn), "100.00");
    EXPECT_EQ(record.HoleRows, rows);
    EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
    main.Grid1.cells().Erase(1, 0, 3, kPlantedWidthColumn);
  }
}

TEST_F(ReCalcTest, ShowsTheAcresWithTheirBlanksWhileItRuns) {
  LevelLine();
  mnuDesignField_Click(program);
  record.TotalAcres = 2.25F;  // a half goes away from zero: 2.3
  main.txtInfo[2].Set("");    // the run is refused, the caption stays
  cmdReCalc_Click(program);
  EXPECT_EQ(main.lblAcresTotal.caption, "Total Acres = 2.3" + std::string(48, ' '));
}

TEST_F(ReCalcTest, RunsTheConstantSlopeCommandWhole) {
  LevelLine();
  mnuDesignConstSlope_Click(program);
  record.SlopeDelta = 5;
  const Seen seen = ReCalculate();
  EXPECT_TRUE(seen.busy);
  EXPECT_FALSE(seen.menus_enabled);
  EXPECT_EQ(seen.slope, 0);
  EXPECT_FALSE(main.busy);
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_EQ(main.title, "TORVALE   Constant Slope Design");
}

TEST_F(ReCalcTest, RunsTheConstantSlopeCommandOnce) {
  LevelLine();
  mnuDesignConstSlope_Click(program);
  const long once = host.yields;
  cmdReCalc_Click(program);
  EXPECT_EQ(host.yields, 2 * once);
}

TEST_F(ReCalcTest, SaysThatTheTableIsThatOfTheDesignBefore) {
  LevelLine();
  mnuDesignField_Click(program);
  main.txtInfo[3].Set("");
  cmdReCalc_Click(program);
  EXPECT_EQ(Status(), "The Target Head is missing: enter it in feet. The table is that of the design before.");
  EXPECT_TRUE(main.Grid2.control.visible);
}

// A dual slope is searched again without its command: the screen is not locked, and the search itself starts the slope
// at 0.
TEST_F(ReCalcTest, SearchesADualSlopeWithoutLockingTheScreen) {
  LevelLine();
  mnuDesignDualSlope_Click(program);
  const float found = record.CrownSlope;
  record.SlopeDelta = 5;
  const Seen seen = ReCalculate();
  EXPECT_TRUE(seen.menus_enabled);
  EXPECT_EQ(seen.slope, 0);
  EXPECT_EQ(record.CrownSlope, found);
  EXPECT_FALSE(main.busy);
}

// The pointer of the whole program stays the hourglass: the search leaves without restoring it, and the command
// restores this screen's alone.
TEST_F(ReCalcTest, ACancelledDualSlopeLeavesThePointerBusy) {
  LevelLine();
  mnuDesignDualSlope_Click(program);
  CancelAt(30);
  cmdReCalc_Click(program);
  EXPECT_TRUE(main.busy);
  EXPECT_FALSE(main.main_busy);
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_THAT(Ticked(), IsEmpty());
}

TEST_F(ReCalcTest, AnyCancelledRunGoesToTheInputScreen) {
  for (const auto& command :
       {mnuDesignField_Click, mnuExistingDesign_Click, mnuComputerHoleSelection_Click, mnuDesignConstSlope_Click}) {
    LevelLine();
    command(program);
    CancelAt(3);
    cmdReCalc_Click(program);
    EXPECT_EQ(record.DesignType, kNoDesign);
    EXPECT_EQ(main.title, "TORVALE   ");
    EXPECT_TRUE(main.Grid1.control.visible);
    EXPECT_FALSE(main.Grid2.control.visible);
  }
}

TEST_F(ReCalcTest, SelectsHolesAgain) {
  LevelLine("20");
  mnuComputerHoleSelection_Click(program);
  const float before = record.ComputerHoleDia[1];
  main.txtInfo[2].Set("80");
  record.TargetGPM = 80;
  ReCalculate();
  EXPECT_EQ(record.DesignType, kComputerHoles);
  EXPECT_GT(record.ComputerHoleDia[1], before);  // four times the flow through holes of twice the diameter
  EXPECT_EQ(main.title, "TORVALE   Computer Selected Hole Design");
}

TEST_F(ReCalcTest, OpensThePanelOfALimitedSelectionAndWaits) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  main.listHolesSelected.Add("3/8");
  main.listHolesSelected.Add("1/4");
  cmdExitHoleSelect_Click(program);
  ASSERT_EQ(record.DesignOK, "True");
  ASSERT_FALSE(main.frameHoleSelection.visible);
  const long yields = host.yields;
  cmdReCalc_Click(program);
  EXPECT_TRUE(main.frameHoleSelection.visible);
  EXPECT_EQ(main.listHolesSelected.count(), 2);
  EXPECT_EQ(main.listSortSelectedHoles.count(), 0);
  EXPECT_EQ(host.yields, yields);
  EXPECT_EQ(record.DesignType, kLimitedHoles);
  cmdExitHoleSelect_Click(program);
  EXPECT_EQ(main.listSortSelectedHoles.count(), 2);
  EXPECT_EQ(record.DesignOK, "True");
}

}  // namespace
}  // namespace torvale
