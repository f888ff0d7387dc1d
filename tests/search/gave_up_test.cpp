// Runs that the user cancels, and runs that find no head: what each design type leaves on the screen.
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GaveUpTest : public SearchTest {
 protected:
  void ExpectInputScreen() {
    EXPECT_EQ(main.title, "TORVALE   ");
    EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
    EXPECT_EQ(main.lblActiveInactive.back, kPaleYellow);
    EXPECT_THAT(Ticked(), IsEmpty());
    EXPECT_EQ(record.DesignType, kNoDesign);
    EXPECT_FALSE(record.CancelFlag);
    EXPECT_EQ(record.DesignOK, "False");
    EXPECT_TRUE(main.Grid1.control.visible);
    EXPECT_FALSE(main.Grid2.control.visible);
    EXPECT_FALSE(main.lblEffic.visible);
    EXPECT_FALSE(main.lblCrownSlope.visible);
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_FALSE(main.cmdCancel.visible);
    EXPECT_FALSE(main.busy);
    for (const Control* control : {&main.mnuFile, &main.mnuDesign, &main.mnuHelp, &main.cmdReCalc}) {
      EXPECT_TRUE(control->enabled);
    }
  }

  // The try limit of the one-hole line. Each of the 200 marches raises the far end by half a foot from 2 feet; the
  // march in which the limit is noticed stands at 2 + 200 x 0.5 = 102 feet and has carried that head one span, to the
  // head of the line. Friction hardly changes it on ten feet of pipe. The hole of 3/8 inch gives
  // (0.375 / 12)^2 x 3.14 / 4 x sqrt(102 x 64.4) x 448.8 x 0.65 = 18.1 GPM.
  const std::string kNoHead = "               Station 0  Head 102   GPM = 18\r";
  const std::string kReduceHole = "Can not calculate, try reducing Hole Size or Pipe Diameter";
};

TEST_F(GaveUpTest, CancelledPlannedDesignStaysTicked) {
  LevelLine();
  CancelAt(3);
  mnuDesignField_Click(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_TRUE(record.CancelFlag);
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_EQ(record.DesignType, kPlanned);
  EXPECT_THAT(Ticked(), ElementsAre("mnuDesignField"));
  EXPECT_EQ(main.title, "TORVALE   Planned Design");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_FALSE(main.lblEffic.visible);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_TRUE(main.busy);  // nothing on this way restores the pointer
}

TEST_F(GaveUpTest, CancelledExistingDesignShowsTheSheetAndNothingElse) {
  LevelLine();
  mnuDesignField_Click(program);  // its results go
  CancelAt(3);
  mnuExistingDesign_Click(program);
  EXPECT_TRUE(record.CancelFlag);
  EXPECT_EQ(record.DesignType, kExistingField);
  EXPECT_THAT(Ticked(), ElementsAre("mnuExistingDesign"));
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_FALSE(main.cmdDesignToggle.visible);
  EXPECT_FALSE(main.frmDisplay.visible);
}

// The slope designs are cancelled in the march over the level crown and in the middle of the trials.
TEST_F(GaveUpTest, CancelledSearchesReturnToTheInputScreen) {
  for (const auto& command : {mnuDesignConstSlope_Click, mnuDesignDualSlope_Click, mnuComputerHoleSelection_Click}) {
    for (long yield : {1L, 30L}) {
      SCOPED_TRACE(yield);
      LevelLine();
      CancelAt(yield);
      command(program);
      EXPECT_THAT(host.messages, IsEmpty());
      ExpectInputScreen();
    }
  }
}

TEST_F(GaveUpTest, ACancelledSearchStopsAtOnce) {
  LevelLine();
  mnuDesignConstSlope_Click(program);
  const long whole = host.yields;
  mnuWindowInfo_Click(program);
  const long start = host.yields;
  CancelAt(60);
  mnuDesignConstSlope_Click(program);
  EXPECT_EQ(host.yields - start, 60);
  EXPECT_GT(whole, 200);
}

TEST_F(GaveUpTest, PlannedAndExistingDesignsTellOfTheTryLimit) {
  OneHole("100000");
  mnuDesignField_Click(program);
  EXPECT_THAT(host.messages, ElementsAre(Shown{kNoHead + kReduceHole, "Problem Calculating"}));
  EXPECT_TRUE(record.CancelFlag);
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_EQ(record.CalcProblem, "Problem");
  EXPECT_EQ(record.DesignType, kPlanned);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_FALSE(main.lblEffic.visible);
  EXPECT_TRUE(main.cmdInterpolate.visible);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_FALSE(main.busy);

  host.messages.clear();
  mnuExistingDesign_Click(program);
  EXPECT_THAT(host.messages, ElementsAre(Shown{kNoHead + kReduceHole, "Problem Calculating"}));
  EXPECT_EQ(record.DesignType, kExistingField);
  EXPECT_TRUE(main.Grid1.control.visible);
}

// The march over the level crown finds no head: one message, and no trial is made.
TEST_F(GaveUpTest, SlopeDesignsTellOfTheTryLimitOnce) {
  for (const auto& command : {mnuDesignConstSlope_Click, mnuDesignDualSlope_Click}) {
    OneHole("100000");
    record.CalcProblem.clear();
    host.messages.clear();
    command(program);
    EXPECT_THAT(host.messages, ElementsAre(Shown{kNoHead + kReduceHole, "Problem Calculating"}));
    EXPECT_EQ(record.CalcProblem, "");
    ExpectInputScreen();
  }
}

// Under 2 feet the hole of 3/8 inch gives (0.375 / 12)^2 x 3.14 / 4 x sqrt(2 x 64.4) x 448.8 x 0.65 = 2.54 GPM.
TEST_F(GaveUpTest, SlopeDesignsTellTheCause) {
  for (const auto& command : {mnuDesignConstSlope_Click, mnuDesignDualSlope_Click}) {
    OneHole("100000");
    command(program);
    EXPECT_EQ(main.sbStatusBar.caption,
              "At the target head of 2 feet the holes let 3 GPM out, less than the 100000 GPM that are pumped: take "
              "larger holes or more of them, or pump less.");
  }
}

// Heads of 23 feet are spent on steeper and steeper crowns until a trial finds none; the progress of the trials before
// gives way to the cause. 26 holes of 1/2 inch let 26 x (0.5 / 12)^2 x 3.14 / 4 x sqrt(2 x 64.4) x 448.8 x 0.65 = 117
// GPM out under 2 feet.
TEST_F(GaveUpTest, ATrialThatGivesUpTellsTheCause) {
  record.TargetGPM = 400;
  main.txtInfo[2].Set("400");
  main.txtInfo[3].Set("2");
  main.txtInfo[5].Set("E");
  for (const int row : {1, 2}) {
    const char* const cells[] = {row == 1 ? "0" : "150", "10.00", "600", "6", "15", "1/2", "1", "10", "6"};
    for (int column = 0; column < 9; ++column) main.Grid1.Set(row, column, cells[column]);
  }
  mnuDesignConstSlope_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(
      main.sbStatusBar.caption,
      "At the target head of 2 feet the holes let 117 GPM out, less than the 400 GPM that are pumped: take larger "
      "holes or more of them, or pump less.");
}

// The computer gives the row the largest hole, 3 inches: at 102 feet that is
// 9 x 3.14 / 4 / 144 x sqrt(102 x 64.4) x 448.8 x 0.65 = 1159.97 GPM. That flow loses
// 10 x 1160^1.852 / 15^4.866 x 0.2083 x (100 / 140)^1.852 / 100 = 0.0100 feet on the way: 102.01 at the head of the
// line.
TEST_F(GaveUpTest, ComputerSelectionTellsOfTheTryLimitOnce) {
  OneHole("100000");
  mnuComputerHoleSelection_Click(program);
  EXPECT_THAT(host.messages,
              ElementsAre(Shown{"               Station 0  Head 102.01     GPM = 1160\rCan not calculate, try changing "
                                "Target Head",
                                "Computer Selecter Hole Calculating Problem"}));
  EXPECT_EQ(record.CalcProblem, "Problem");
  EXPECT_EQ(record.FlowCalcStatus, "Ok");
  ExpectInputScreen();
}

// The limited selection has 3/8 inch alone. The first head that is tried is 2 - 0.2 = 1.8 feet, so the
// limit is noticed at 1.8 + 200 x 0.5 = 101.8 feet, where the hole gives 18.1 GPM, too.
TEST_F(GaveUpTest, LimitedSelectionEndsItsHeadLoopAtTheTryLimit) {
  OneHole("100000");
  mnuManHoleSelection_Click(program);
  main.listHolesSelected.Add("3/8");
  cmdExitHoleSelect_Click(program);
  EXPECT_THAT(host.messages,
              ElementsAre(Shown{"               Station 0  Head 101.8     GPM = 18\rCan not calculate, try changing "
                                "Target Head",
                                "Computer Selecter Hole Calculating Problem"}));
  EXPECT_EQ(record.CalcProblem, "Problem");
  EXPECT_EQ(record.DesignType, kLimitedHoles);
  EXPECT_THAT(Ticked(), ElementsAre("mnuManHoleSelection"));
  EXPECT_EQ(main.txtInfo[3].text(), "1.8");
  EXPECT_TRUE(main.Grid1.control.visible);
  for (const Control* hidden : {&main.lblEffic, &main.lblHeadCount, &main.frmDisplay, &main.cmdReCalc,
                                &main.cmdDesignToggle, &main.Grid2.control, &main.frameHoleSelection}) {
    EXPECT_FALSE(hidden->visible);
  }
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_FALSE(main.busy);
}

// A limited selection shows a Cancel button that can't be pressed.
TEST_F(GaveUpTest, LimitedSelectionLocksItsCancelButton) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  main.listHolesSelected.Add("3/8");
  bool looked = false;
  WatchYields([&] {
    if (record.AccumGPM == 0 || looked) return;
    looked = true;
    EXPECT_TRUE(main.cmdCancel.visible);
    EXPECT_FALSE(main.cmdCancel.enabled);
    EXPECT_FALSE(main.mnuDesign.enabled);
    EXPECT_TRUE(main.busy);
  });
  cmdExitHoleSelect_Click(program);
  EXPECT_TRUE(looked);
  EXPECT_TRUE(main.cmdCancel.enabled);
  EXPECT_TRUE(main.mnuDesign.enabled);
}

}  // namespace
}  // namespace torvale
