#include "search/flow_run.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/survey.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

// One hole of half a foot under 2 ft gives 649.7 gallons per minute.
class FlowRunTest : public testing::Test {
 protected:
  FlowRunTest() {
    program.main.Grid1.Resize(kSurveyGridRows, kSurveyColumns);
    DesignRecord& r = program.record;
    r.DesignType = kPlanned;
    r.DesignOK = "True";
    r.SurveyRows = r.HoleRows = r.WateredFurrows = 1;
    r.TargetGPM = 649.7F;
    r.DischargeCoef = 0.65F;
    r.HazenWilliamsC = 140;
    r.HoleDia[1] = 0.5F;
    r.HolesPerFurrow[1] = 1;
    r.PipeDia[1] = 10;
    r.FurrowLength[1] = 600;
    r.FlowRatio[1] = 1;
    r.Station[1] = 12;
    program.main.txtInfo[3].Set("2");
    program.main.busy = program.main.cmdCancel.visible = true;
    program.main.cmdInterpolate.visible = false;
  }
  int Run() {
    int tries = -1;
    RunFlowCalc(program, tries);
    return tries;
  }

  FakeHost desktop;
  Program program{desktop};
};

// The march reads the target head and the survey's kind from the fields afresh.
TEST_F(FlowRunTest, ReadsTheFields) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(program.record.Head[1], 2);
  program.main.txtInfo[3].Set("2.5");
  EXPECT_EQ(Run(), 1);  // too much flow once, half a foot off, and the target is met
  EXPECT_EQ(program.record.Head[1], 2);
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_TRUE(program.main.cmdCancel.visible);
}

// No flow at all: 200 marches, each half a foot higher, from 2 ft; the last try ended at 2 + 199 halves, and the far
// end of this line, its only row, has been raised once more.
TEST_F(FlowRunTest, TryLimitIsToldByKindOfDesign) {
  program.record.HoleDia[1] = 0;
  EXPECT_EQ(Run(), 200);
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0],
            (Shown{"               Station 12  Head 102   GPM = 0\rCan not calculate, try reducing "
                   "Hole Size or Pipe Diameter",
                   "Problem Calculating"}));
  program.record.DesignType = kComputerHoles;
  program.record.SeedEndHead = 1.5F;
  program.record.CancelFlag = false;
  EXPECT_EQ(Run(), 200);
  ASSERT_EQ(desktop.messages.size(), 2U);
  EXPECT_EQ(desktop.messages[1], (Shown{"               Station 12  Head 101.5     GPM = 0\rCan not calculate, try "
                                        "changing Target Head",
                                        "Computer Selecter Hole Calculating Problem"}));
}

TEST_F(FlowRunTest, TryLimitLeavesTheScreenReadyForAChange) {
  program.record.HoleDia[1] = 0;
  Run();
  EXPECT_FALSE(program.main.busy);
  EXPECT_FALSE(program.main.cmdCancel.visible);
  EXPECT_TRUE(program.main.cmdInterpolate.visible);
}

// A pipe without a diameter: the first march has too much flow, and friction is asked for.
TEST_F(FlowRunTest, FaultIsTold) {
  program.main.txtInfo[3].Set("2.5");
  program.record.PipeDia[1] = 0;
  EXPECT_EQ(Run(), 100);
  EXPECT_EQ(desktop.messages,
            (std::vector<Shown>{{"There is a problem trying to calculate design with existing parameters. Check all of "
                                 "your inputs to see if they are entered correctly.",
                                 ""}}));
  EXPECT_FALSE(program.main.cmdCancel.visible);
  EXPECT_TRUE(program.main.busy);  // the pointer is the failing command's
  EXPECT_FALSE(program.main.cmdInterpolate.visible);
}

// 2,000 ft of the widest width that 32 bits hold, in each of many rows, is more acres than they hold.
TEST_F(FlowRunTest, AcresBeyondTheRangeAreTold) {
  program.record.HoleRows = 30;
  for (int row = 1; row <= 30; ++row) {
    program.record.FurrowLength[row] = 2000;
    program.record.PlantedWidth[row] = 3e38F;
  }
  RunAcreCalc(program);
  EXPECT_EQ(desktop.messages, (std::vector<Shown>{{"Error calculating acres.", ""}}));
}

// Without a yield, so that nobody can cancel it.
TEST_F(FlowRunTest, QuietRunGivesNobodyATurn) {
  int tries = -1;
  RunFlowCalcQuietly(program, tries);
  EXPECT_EQ(tries, 0);
  EXPECT_EQ(desktop.yields, 0);
}

}  // namespace
}  // namespace torvale
