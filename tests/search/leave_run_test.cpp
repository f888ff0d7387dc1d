// What a run leaves on the screen where it ends without a design.
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"
#include "search/survey_completion.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr void (*kCommands[])(Program&) = {mnuDesignField_Click, mnuExistingDesign_Click, mnuDesignConstSlope_Click,
                                           mnuDesignDualSlope_Click, mnuComputerHoleSelection_Click};

class LeaveRunTest : public SearchTest {
 protected:
  // The sheet with all that belongs to it, and nothing of a design.
  void ExpectInput(bool interpolation_offered = true) {
    EXPECT_TRUE(main.Grid1.control.visible);
    EXPECT_EQ(main.cmdInterpolate.visible, interpolation_offered);
    EXPECT_TRUE(main.mnuSurveyCopy.visible);
    for (const Control* hidden : {&main.Grid2.control, &main.cmdCancel, &main.lblEffic, &main.frmDisplay,
                                  &main.cmdDesignToggle, &main.cmdReCalc, &main.mnuProfile, &main.lblAvgFurrowFlow,
                                  &main.GridInchesApplied.control, &main.lblCrownSlope, &main.lblHeadCount}) {
      EXPECT_FALSE(hidden->visible);
    }
    EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
    EXPECT_EQ(main.lblAcresTotal.caption, "");
    EXPECT_TRUE(main.mnuDesign.enabled);
  }
  // A selection of 3/8 inch holes alone.
  void SelectHoles() {
    mnuManHoleSelection_Click(program);
    main.listHolesSelected.Clear();
    main.listHolesSelected.Add("3/8");
    cmdExitHoleSelect_Click(program);
  }
};

TEST_F(LeaveRunTest, ASilentEndOffersTheInterpolationAndNothingToCancel) {
  for (const auto& command : kCommands) {
    for (const bool from_results : {false, true}) {
      LevelLine();
      if (from_results) mnuDesignField_Click(program);
      FillSheet({SupplyRow("0", "100"), SupplyRow("100", "100")});  // no hole, no message
      command(program);
      EXPECT_THAT(host.messages, IsEmpty());
      ExpectInput();
      EXPECT_THAT(Status(), StartsWith("No row has holes"));
    }
  }
}

TEST_F(LeaveRunTest, ARefusedRunFromTheSheetLeavesTheSurveyPaste) {
  for (const auto& command : kCommands) {
    LevelLine("");
    main.mnuSurveyCopy.visible = true;
    command(program);
    ExpectInput();
  }
}

TEST_F(LeaveRunTest, ACancelledRunFromResultsShowsNothingOfThem) {
  for (const auto& command : kCommands) {
    LevelLine();
    mnuDesignField_Click(program);
    CancelAt(1);
    command(program);
    // A design on the existing crown leaves the interpolation to the next change of the input.
    ExpectInput(command != mnuDesignField_Click && command != mnuExistingDesign_Click);
    EXPECT_EQ(Status(), "");
  }
}

// The first trial's progress stands there when the search is given up.
TEST_F(LeaveRunTest, ACancelledSearchTakesItsProgressAway) {
  LevelLine();
  WatchYields([&] {
    if (Status().starts_with("Slope 0.001")) cmdCancel_Click(program);
  });
  mnuDesignConstSlope_Click(program);
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(Status(), "");
}

TEST_F(LeaveRunTest, TheProgressOfASearchDoesNotStandUnderTheNextDesign) {
  LevelLine();
  mnuDesignConstSlope_Click(program);
  EXPECT_THAT(Status(), HasSubstr("best so far"));
  mnuDesignField_Click(program);
  EXPECT_EQ(Status(), "");
}

TEST_F(LeaveRunTest, ARowWithoutStationIsNamedAndGoneTo) {
  LevelLine();
  main.Grid1.Set(5, kCrownColumn, "100");
  cmdInterpolate_Click(program);
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(Status(), "Row 5: the station is missing.");
  EXPECT_EQ(main.Grid1.row, 5);
  EXPECT_EQ(main.Grid1.column, kStationColumn);
  EXPECT_EQ(main.focus, "Grid1");
  // A design counts no rows then; that is not for want of holes.
  mnuDesignField_Click(program);
  EXPECT_EQ(Status(), "Row 5: the station is missing.");
  ExpectInput();
}

// The second test of the stations: row 1 has a hole and no station.
TEST_F(LeaveRunTest, AHoleWithoutStationIsNamedAndGoneTo) {
  LevelLine();
  main.Grid1.Set(1, kStationColumn, "");
  cmdInterpolate_Click(program);
  EXPECT_EQ(Status(), "Row 1: the station is missing.");
  EXPECT_EQ(main.Grid1.row, 1);
  EXPECT_EQ(main.Grid1.column, kStationColumn);
}

// A survey from station 10 on is worked out from there; then the layout puts 0 into its first cell.
TEST_F(LeaveRunTest, AFirstStationOtherThanZeroIsToldAtTheRun) {
  const std::string told =
      "First Crown Station must be Zero: this design was worked out from station 10, the sheet says 0 from here on. "
      "Correct the stations and run it again.";
  for (const auto& command : kCommands) {
    TypeInfo("6.4", "2", "E");
    FillSheet({WateredRow("10", "100", "1000", "20"), WateredRow("110", "100", "1000", "20")});
    command(program);
    ASSERT_TRUE(main.Grid2.control.visible) << Status();
    EXPECT_EQ(main.Grid1.Text(1, kStationColumn), "0");
    EXPECT_THAT(Status(), StartsWith(told));
  }
  FillSheet({WateredRow("10", "100", "1000", "20"), WateredRow("110", "100", "1000", "20")});
  main.txtInfo[2].Set("20");
  record.TargetGPM = 20;
  SelectHoles();
  ASSERT_TRUE(main.Grid2.control.visible);
  EXPECT_THAT(Status(), StartsWith(told));
}

// Where no design comes of it, the first station stays and is told of, too.
TEST_F(LeaveRunTest, AFirstStationOtherThanZeroIsToldOfARefusedRun) {
  TypeInfo("", "2", "E");
  FillSheet({WateredRow("60", "100"), WateredRow("160", "100")});
  mnuDesignField_Click(program);
  EXPECT_EQ(main.Grid1.Text(1, kStationColumn), "60");
  EXPECT_EQ(Status(), "The GPM is missing: enter the pumped flow. First Crown Station must be Zero.");
}

// A hundred tries that met the flow are taken for a fault.
TEST_F(LeaveRunTest, AFlowMetAfterAHundredTriesIsTold) {
  // The steps of the one-hole line are the same at any flow between two of its tries: the target head that takes
  // exactly a hundred is sought upward.
  for (int tenths = 20; tenths < 1200; ++tenths) {
    OneHole("1");
    main.txtInfo[3].Set(std::to_string(tenths / 10) + "." + std::to_string(tenths % 10));
    mnuDesignField_Click(program);
    if (main.title == "TORVALE  ") break;
  }
  ASSERT_EQ(main.title, "TORVALE  ");
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_EQ(Status(),
            "The flow was met after exactly 100 tries, which does not count: change the Target Head a little.");
  ExpectInput();
}

// A design that can't be shown is none, and a grid is on the screen.
TEST_F(LeaveRunTest, AFaultInTheDisplayBringsTheSheetBack) {
  LevelLine();
  mnuDesignField_Click(program);
  ASSERT_FALSE(main.Grid1.control.visible);
  record.PipeKind = "R";
  main.txtDefault[11].Set("R");
  main.txtDefault[12].Set("1E-310");  // openings are divided by it: no number is large enough
  mnuDesignField_Click(program);
  EXPECT_THAT(host.messages, IsEmpty());
  ExpectInput();
}

}  // namespace
}  // namespace torvale
