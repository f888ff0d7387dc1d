#include "display/design_display.h"

#include <gtest/gtest.h>

#include "base/run_time_fault.h"
#include "display/small_line.h"

namespace torvale {
namespace {

// Two outlets of a design that has just been calculated.
struct FinishedDesign : SmallLine {
  FinishedDesign() {
    AddHole(0, kQuarterInch, 95);
    AddHole(6, kQuarterInch, 95);
    AddSurvey("0", "1/4");
    AddSurvey("6", "1/4");
    record.TotalAcres = 12;
    record.Uniformity = 90.1F;
    record.MaxHead = 1.5F;
    record.MaxHeadStation = 6;
    record.MinHead = 0.625F;
    record.MinHeadStation = 0;
    record.MaxFurrowFlow = 95.456F;
    record.MinFurrowFlow = 0.5F;
    record.AccumGPM = 190.5F;
    record.DesignElev[1] = 61.5F;
    record.DesignElev[2] = 60.25F;
    record.CrownSlope = 0.00125F;
    record.DualBreakStation = 660;
  }
  const Control& Label(std::size_t index) const { return main.frmDisplayLbl[index]; }
};

TEST(DisplayDesign, BringsUpTheResultsScreen) {
  FinishedDesign design;
  MainScreen& main = design.main;
  for (Control* hidden : {&main.mnuWindowInfo, &main.mnuProfile, &main.frameShowLimitedHoles, &main.lblEffic,
                          &main.frmDisplay, &main.cmdDesignToggle, &main.cmdReCalc, &main.GridInchesApplied.control}) {
    hidden->visible = false;
  }
  main.cmdCancel.visible = true;
  main.cmdInterpolate.visible = true;
  main.Grid1.top_row = 30;
  main.frameShowLimitedHoles.place.left = 9350;
  ScreenControlsOff(design.program);
  DisplayDesign(design.program);
  for (Control* shown :
       {&main.mnuWindowInfo, &main.mnuProfile, &main.frameShowLimitedHoles, &main.lblEffic, &main.frmDisplay,
        &main.cmdDesignToggle, &main.cmdReCalc, &main.GridInchesApplied.control, &main.Grid2.control}) {
    EXPECT_TRUE(shown->visible);
  }
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_FALSE(main.cmdInterpolate.visible);
  EXPECT_FALSE(main.Grid1.control.visible);
  EXPECT_EQ(main.Grid1.top_row, 1);
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_EQ(main.frameShowLimitedHoles.place.left, 10900);  // where the grid layout puts it last
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  EXPECT_EQ(main.lblActiveInactive.back, (Colour{0, 255, 0}));
  EXPECT_EQ(main.lblActiveInactive.fore, kBlack);
  EXPECT_EQ(main.lblEffic.caption, "Distribution Uniformity = 90.1");
  EXPECT_EQ(main.lblSumHoleDia.caption, " Hole Diameter \n1/4\r");
  EXPECT_EQ(main.lblSumStation.caption, " Stations \n0 - 6\r");
  EXPECT_EQ(main.lblSumlNumHoles.caption, " Number of Holes \n2\r");
  // 12 x 27154.285 / 400 / 60 = 13.577 hours for an inch at 400 GPM
  EXPECT_EQ(main.GridInchesApplied.Text(2, 1), "13.6");
}

TEST(DisplayDesign, WritesTheFiguresWithTheirPatterns) {
  FinishedDesign design;
  DisplayDesign(design.program);
  EXPECT_EQ(design.Label(1).caption, "1.50");
  EXPECT_EQ(design.Label(3).caption, "6");
  EXPECT_EQ(design.Label(5).caption, ".63");  // 0.625, half away from 0
  EXPECT_EQ(design.Label(7).caption, "0");
  EXPECT_EQ(design.Label(9).caption, "95.46");
  EXPECT_EQ(design.Label(11).caption, ".50");
  EXPECT_EQ(design.Label(13).caption, "191");  // 190.5
}

TEST(DisplayDesign, ColoursTheHighestHeadAgainstTheTarget) {
  struct Case {
    std::string_view target;
    Colour colour;
  };
  // The target is compared in 32 bits, so 1.50000001 is 1.5.
  for (const Case& c : {Case{"1.5", kYellow}, Case{"1.50000001", kYellow}, Case{"1.51", kStrongGreen},
                        Case{"1.49", kYellow}, Case{"", kYellow}}) {
    FinishedDesign design;
    design.main.txtInfo[3].Set(c.target);
    DisplayDesign(design.program);
    EXPECT_EQ(design.Label(1).back, c.colour) << c.target;
  }
}

TEST(DisplayDesign, ColoursTheLowestHeadAgainstHalfAFoot) {
  struct Case {
    float head;
    Colour colour;
  };
  for (const Case& c : {Case{0.5F, kStrongGreen}, Case{0.49999997F, kYellow}, Case{2, kStrongGreen}}) {
    FinishedDesign design;
    design.record.MinHead = c.head;
    DisplayDesign(design.program);
    EXPECT_EQ(design.Label(5).back, c.colour) << c.head;
  }
}

// 61.5 - 60.25 = 1.25. The differential is signed: the last elevation is taken from the first.
TEST(DisplayDesign, ShowsTheCrownDifferentialOfSlopeDesigns) {
  FinishedDesign planned;
  planned.main.frmDisplayLbl[14].visible = planned.main.frmDisplayLbl[15].visible = true;
  planned.main.frmDisplayLbl[15].back = kYellow;
  DisplayDesign(planned.program);
  EXPECT_FALSE(planned.Label(14).visible);
  EXPECT_FALSE(planned.Label(15).visible);
  EXPECT_EQ(planned.Label(15).back, std::nullopt);

  for (const std::int16_t type : {kConstantSlope, kDualSlope}) {
    FinishedDesign design;
    design.record.DesignType = type;
    DisplayDesign(design.program);
    EXPECT_TRUE(design.Label(14).visible);
    EXPECT_TRUE(design.Label(15).visible);
    EXPECT_EQ(design.Label(15).caption, "1.25 ft.");
    EXPECT_EQ(design.Label(15).back, kYellow);  // above the limit of 1.2
  }

  FinishedDesign rising;
  rising.record.DesignType = kConstantSlope;
  rising.record.DesignElev[2] = 63;
  DisplayDesign(rising.program);
  EXPECT_EQ(rising.Label(15).caption, "-1.50 ft.");
  EXPECT_EQ(rising.Label(15).back, std::nullopt);
}

// The limit stays in 64 bits: the differential 1.2 in 32 bits is 1.2000000477, which is more than a limit of 1.2. A
// differential of exactly 1.25 does not exceed 1.25.
TEST(DisplayDesign, ComparesTheDifferentialWithTheLimitAsTyped) {
  struct Case {
    float first, last;
    std::string_view limit;
    std::optional<Colour> colour;
  };
  for (const Case& c : {Case{1.2F, 0, "1.2", kYellow}, Case{61.5F, 60.25F, "1.25", std::nullopt},
                        Case{61.5F, 60.25F, "1.249", kYellow}}) {
    FinishedDesign design;
    design.record.DesignType = kDualSlope;
    design.record.DesignElev[1] = c.first;
    design.record.DesignElev[2] = c.last;
    design.main.txtDefault[4].Set(c.limit);
    DisplayDesign(design.program);
    EXPECT_EQ(design.Label(15).back, c.colour) << c.limit;
  }
}

TEST(DisplayDesign, NamesTheSlopeOfAConstantSlope) {
  FinishedDesign design;
  design.record.DesignType = kConstantSlope;
  design.main.lblCrownSlope.visible = false;
  DisplayDesign(design.program);
  EXPECT_TRUE(design.main.lblCrownSlope.visible);
  EXPECT_EQ(design.main.lblCrownSlope.caption, "Crown Slope = .125 feet per 100 feet");  // 0.00125 x 100
}

// Twice 0.00125 is 0.0025, ".00" in two decimals: the sum is shown, not times 100.
TEST(DisplayDesign, NamesTheSlopesOfADualSlope) {
  FinishedDesign design;
  design.record.DesignType = kDualSlope;
  design.main.lblCrownSlope.visible = false;
  DisplayDesign(design.program);
  EXPECT_TRUE(design.main.lblCrownSlope.visible);
  EXPECT_EQ(design.main.lblCrownSlope.caption, "Crown Slope = .00 ft. /100 ft. from Station  0 to 660");

  design.record.CrownSlope = 0.15F;
  design.record.DualBreakStation.reset();
  DisplayDesign(design.program);
  EXPECT_EQ(design.main.lblCrownSlope.caption, "Crown Slope = .30 ft. /100 ft. from Station  0 to ");
}

TEST(DisplayDesign, LeavesTheSlopeLabelAloneInOtherDesigns) {
  FinishedDesign design;
  design.main.lblCrownSlope.caption = "before";
  design.main.lblCrownSlope.visible = false;
  DisplayDesign(design.program);
  EXPECT_EQ(design.main.lblCrownSlope.caption, "before");
  EXPECT_FALSE(design.main.lblCrownSlope.visible);
}

// The Summary writes the number of watered furrows at the far end only; "Complete Design" fills row 2 by the same line
// but leaves the grid's cursor at the first column.
TEST(DisplayDesign, FillsTheTableThatTheToggleNames) {
  FinishedDesign complete;
  DisplayDesign(complete.program);
  EXPECT_EQ(complete.main.Grid2.column, 0);
  EXPECT_EQ(complete.record.ProfileScale, 0);

  FinishedDesign summary;
  summary.ShowTable("Summary");
  DisplayDesign(summary.program);
  EXPECT_EQ(summary.main.Grid2.column, 11);
  EXPECT_EQ(summary.record.ProfileScale, 2);
}

// An area over next to no width is more than a number holds.
TEST(DisplayDesign, PassesAFaultOfAGateToItsCaller) {
  FinishedDesign design;
  design.record.PipeKind = "R";
  design.main.txtDefault[12].Set("1E-310");
  for (int i = 1; i <= design.record.HoleRows; ++i) design.record.HoleArea[i] = 1;
  EXPECT_THROW(DisplayDesign(design.program), RunTimeFault);
}

TEST(DisplayDesign, ShowsADesignWhoseGatesHaveNoWidth) {
  FinishedDesign design;
  design.record.PipeKind = "R";
  design.main.txtDefault[12].Set("0");
  DisplayDesign(design.program);
  EXPECT_TRUE(design.main.Grid2.control.visible);
}

TEST(CmdDesignToggle, ChangesBetweenTheTables) {
  struct Case {
    std::string_view before, after;
  };
  for (const Case& c : {Case{"Complete Design", "Summary"}, Case{"Summary", "Complete Design"}, Case{"", "Summary"}}) {
    FinishedDesign design;
    design.ShowTable(c.before);
    cmdDesignToggle_Click(design.program);
    EXPECT_EQ(design.main.cmdDesignToggle.caption, c.after);
    EXPECT_EQ(design.main.lblAcresTotal.caption, "Total Acres = 12.0");
    EXPECT_TRUE(design.main.Grid2.control.visible);
    EXPECT_EQ(design.record.ProfileScale, c.after == "Summary" ? 2 : 0);
  }
}

TEST(ScreenControls, LockAndUnlockTheScreen) {
  SmallLine line;
  MainScreen& main = line.main;
  const std::vector<Control*> locked = {&main.cmdReCalc, &main.cmdDesignToggle, &main.cmdCancel,    &main.mnuFile,
                                        &main.mnuEdit,   &main.mnuPreference,   &main.mnuDesign,    &main.mnuTypeOfPipe,
                                        &main.mnuHelp,   &main.mnuProfile,      &main.mnuWindowInfo};
  main.lblHeadCount.visible = true;
  main.mnuSurveyCopy.visible = true;
  ScreenControlsOff(line.program);
  for (const TextField& field : main.txtInfo) EXPECT_FALSE(field.control.enabled);
  for (const Control* control : locked) EXPECT_FALSE(control->enabled);
  EXPECT_TRUE(main.lblHeadCount.visible);
  EXPECT_FALSE(main.mnuSurveyCopy.visible);
  EXPECT_TRUE(main.cmdInterpolate.enabled);

  ScreenControlsOn(line.program);
  for (const TextField& field : main.txtInfo) EXPECT_TRUE(field.control.enabled);
  for (const Control* control : locked) EXPECT_TRUE(control->enabled);
  EXPECT_FALSE(main.lblHeadCount.visible);
  EXPECT_FALSE(main.mnuSurveyCopy.visible);  // stays as it is
}

TEST(LabelColorSet, GreysTheInputLabels) {
  SmallLine line;
  MainScreen& main = line.main;
  LabelColorSet(line.program);
  for (const Control* control :
       {&main.lblAcresTotal, &main.lblName, &main.lblDate, &main.lblGPM, &main.lblHead, &main.lblLocation,
        &main.lblRodOrElev, &main.lblEffic, &main.lblDefDistance, &main.lblHoleSize, &main.cmdInterpolate}) {
    EXPECT_EQ(control->back, (Colour{224, 224, 224}));
  }
  EXPECT_EQ(main.lblCrownSlope.back, std::nullopt);
}

}  // namespace
}  // namespace torvale
