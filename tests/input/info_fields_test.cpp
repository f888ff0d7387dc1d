#include "input/info_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/fault_of.h"
#include "input/focus.h"
#include "input/input_program.h"
#include "search/design_commands.h"
#include "support/level_line.h"

namespace torvale {
namespace {

struct InfoFieldsTest : ::testing::Test, InputProgram {
  const std::string& CrownHeading() { return Text(0, 1); }
  const std::string& ResultHeading() { return program.main.Grid2.Text(0, 2); }
  void ExpectHeadings(std::string_view heading) {
    EXPECT_EQ(CrownHeading(), heading);
    EXPECT_EQ(ResultHeading(), heading);
  }
};

TEST_F(InfoFieldsTest, ThePumpedFlowReachesTheRecordAtOnce) {
  Info(2).Set("850.5");
  EXPECT_EQ(program.record.TargetGPM, 850.5F);
  Info(2).Set("12abc");  // the number at the head of the text
  EXPECT_EQ(program.record.TargetGPM, 12.0F);
  Info(2).Set("abc");
  EXPECT_EQ(program.record.TargetGPM, 0.0F);
}

TEST_F(InfoFieldsTest, TheOtherFieldsReachTheRecordLater) {
  Info(2).Set("850");
  for (const std::size_t i : {0U, 1U, 3U, 4U, 5U}) Info(i).Set("7");
  EXPECT_EQ(program.record.TargetGPM, 850.0F);
}

// A 32-bit float ends near 3.4E+38.
TEST_F(InfoFieldsTest, AFlowBeyondItsFieldIsAFaultAndTheTextStays) {
  EXPECT_EQ(FaultOf([&] { Info(2).Set("1E39"); }), Fault::kOverflow);
  EXPECT_EQ(Info(2).text(), "1E39");
}

TEST_F(InfoFieldsTest, TheSurveyKindIsACapitalAndNamesTheCrownInBothGrids) {
  Info(5).Set("e");
  EXPECT_EQ(Info(5).text(), "E");
  ExpectHeadings("Elevation (feet)");
  Info(5).Set("r");
  EXPECT_EQ(Info(5).text(), "R");
  ExpectHeadings("Rod Reading (feet)");
}

TEST_F(InfoFieldsTest, AnyOtherSurveyKindLeavesTheHeadings) {
  Info(5).Set("E");
  for (const std::string_view kind : {"", "x", "ER", " "}) {
    Info(5).Set(kind);
    ExpectHeadings("Elevation (feet)");
  }
}

TEST_F(InfoFieldsTest, EveryFieldsChangeNamesTheCrown) {
  Info(5).Set("R");
  for (const std::size_t i : {0U, 1U, 2U, 3U, 4U}) {
    sheet().Set(0, 1, "");
    program.main.Grid2.Set(0, 2, "");
    Info(i).Set("1");
    ExpectHeadings("Rod Reading (feet)");
  }
}

TEST_F(InfoFieldsTest, TheLongestTextsAreSetWithTheFirstChange) {
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(Info(i).max_length, 0);
  Info(3).Set("2");
  const int longest[] = {60, 12, 10, 10, 60};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(Info(i).max_length, longest[i]);
  EXPECT_EQ(Info(5).max_length, 0);
  Info(5).Set("R");
  EXPECT_EQ(Info(5).max_length, 1);
}

TEST_F(InfoFieldsTest, TheSurveyKindLimitsItselfAlone) {
  Info(5).Set("R");
  EXPECT_EQ(Info(5).max_length, 1);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(Info(i).max_length, 0);
}

// Focus

TEST_F(InfoFieldsTest, FocusSelectsTheWholeTextAndLeavesThePanelOfDefaults) {
  program.main.Frame1.visible = true;
  Info(2).Set("850");
  MoveFocus(program, "txtInfo(2)");
  EXPECT_EQ(program.main.focus, "txtInfo(2)");
  EXPECT_EQ(Info(2).SelectedText(), "850");
  EXPECT_FALSE(program.main.Frame1.visible);
}

TEST_F(InfoFieldsTest, NothingIsSelectedWhileAnotherControlIsActive) {
  Info(2).Set("850");
  Info(3).Set("2");
  program.main.focus = "txtInfo(3)";
  txtInfo_GotFocus(program, 2);
  EXPECT_EQ(Info(2).SelectedText(), "");
  Info(3).Set("850");  // the active control shows the same text
  txtInfo_GotFocus(program, 2);
  EXPECT_EQ(Info(2).SelectedText(), "850");
}

TEST_F(InfoFieldsTest, FocusDoesNotGoWhereTheUserCannot) {
  MoveFocus(program, "txtInfo(0)");
  Info(1).control.enabled = false;
  MoveFocus(program, "txtInfo(1)");
  MoveFocus(program, "cmdCancel");      // hidden
  MoveFocus(program, "txtDefault(0)");  // its frame is hidden
  MoveFocus(program, "txtInfo(6)");     // none such
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

TEST_F(InfoFieldsTest, TheStatusBarTellsWhatTheFieldIsFor) {
  MoveFocus(program, "txtInfo(2)");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Pumped flow, gallons per minute");
  At(3, 5);
  MoveFocus(program, "Grid1");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(5));
  MoveFocus(program, "cmdInterpolate");  // buttons leave what stands there
  EXPECT_EQ(program.main.focus, "cmdInterpolate");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(5));
}

TEST_F(InfoFieldsTest, EveryFieldHasAHintOfItsOwn) {
  std::set<std::string> hints;
  int fields = 0;
  for (const NamedControl& named : ControlsOf(program.main)) {
    if (named.kind != ControlKind::kField) continue;
    ++fields;
    EXPECT_FALSE(FocusHint(program, named.name).empty()) << named.name;
    hints.insert(FocusHint(program, named.name).text());
  }
  EXPECT_EQ(fields, 25);  // six of information, sixteen of preferences, three of the best holes
  EXPECT_EQ(hints.size(), 25U);
}

TEST_F(InfoFieldsTest, AHiddenSheetLeavesTheFocusAndItsHintToTheResults) {
  At(3, 8);
  MoveFocus(program, "Grid1");
  ASSERT_EQ(program.main.sbStatusBar.caption, ColumnHint(8));
  LeaveHiddenControl(program);  // it is shown
  EXPECT_EQ(program.main.focus, "Grid1");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(8));
  program.main.Grid1.control.visible = false;
  program.main.Grid2.control.visible = true;
  LeaveHiddenControl(program);
  EXPECT_EQ(program.main.focus, "Grid2");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Results. Drag over rows to see their acres");
}

TEST_F(InfoFieldsTest, NewsOutliveTheControlThatIsLeft) {
  MoveFocus(program, "Grid1");
  program.main.sbStatusBar.caption = "Row 2: the mil is missing.";
  program.main.Grid1.control.visible = false;
  program.main.Grid2.control.visible = true;
  LeaveHiddenControl(program);
  EXPECT_EQ(program.main.focus, "Grid2");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Row 2: the mil is missing.");
}

TEST_F(InfoFieldsTest, AListOfHoleSizesTellsWhatItIsForUntilItsPanelCloses) {
  MoveFocus(program, "txtInfo(2)");
  program.main.frameHoleSelection.visible = true;
  MoveFocus(program, "listAllHoles");
  EXPECT_EQ(program.main.sbStatusBar.caption, FocusHint(program, "listAllHoles"));
  EXPECT_NE(program.main.sbStatusBar.caption, FocusHint(program, "txtInfo(2)"));
  MoveFocus(program, "cmdExitHoleSelect");
  program.main.frameHoleSelection.visible = false;
  At(1, 2);
  LeaveHiddenControl(program);
  EXPECT_EQ(program.main.focus, "Grid1");
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(2));
}

// Keys

TEST_F(InfoFieldsTest, DownGoesToTheNextFieldAndStopsAtTheLast) {
  program.main.focus = "txtInfo(0)";
  for (int i = 0; i < 5; ++i) {
    EXPECT_TRUE(txtInfo_Key(program, i, FieldKeyKind::kDown));
    EXPECT_EQ(FindField(program, program.main.focus), &Info(static_cast<std::size_t>(i) + 1));
  }
  txtInfo_Key(program, 5, FieldKeyKind::kDown);
  EXPECT_EQ(program.main.focus, "txtInfo(5)");
}

TEST_F(InfoFieldsTest, UpGoesToTheFieldBeforeAndStopsAtTheFirst) {
  program.main.focus = "txtInfo(5)";
  for (int i = 5; i > 0; --i) {
    EXPECT_TRUE(txtInfo_Key(program, i, FieldKeyKind::kUp));
    EXPECT_EQ(FindField(program, program.main.focus), &Info(static_cast<std::size_t>(i) - 1));
  }
  txtInfo_Key(program, 0, FieldKeyKind::kUp);
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

TEST_F(InfoFieldsTest, EnterGoesOnAndIsSwallowedButNotInTheLastField) {
  program.main.focus = "txtInfo(0)";
  for (int i = 0; i < 5; ++i) {
    EXPECT_TRUE(txtInfo_Key(program, i, FieldKeyKind::kEnter));
    EXPECT_EQ(FindField(program, program.main.focus), &Info(static_cast<std::size_t>(i) + 1));
  }
  EXPECT_FALSE(txtInfo_Key(program, 5, FieldKeyKind::kEnter));
  EXPECT_EQ(program.main.focus, "txtInfo(5)");
}

TEST_F(InfoFieldsTest, AKeyInAnyFieldGivesTheShortHeadings) {
  for (int i = 0; i < 6; ++i) {
    Info(5).Set("");
    Info(5).Set("R");
    EXPECT_FALSE(txtInfo_Key(program, i, FieldKeyKind::kOther));
    ExpectHeadings("Rod Readings");
    Info(5).Set("E");
    ExpectHeadings("Elevation (feet)");
    txtInfo_Key(program, i, FieldKeyKind::kEnter);
    ExpectHeadings("Elevations");
  }
}

TEST_F(InfoFieldsTest, ArrowsAndOtherKindsLeaveTheHeadings) {
  Info(5).Set("R");
  txtInfo_Key(program, 1, FieldKeyKind::kDown);
  txtInfo_Key(program, 1, FieldKeyKind::kUp);
  ExpectHeadings("Rod Reading (feet)");
  Info(5).Set("x");
  txtInfo_Key(program, 1, FieldKeyKind::kOther);
  ExpectHeadings("Rod Reading (feet)");
}

// A letter is judged by the text before it; the change then gives the right heading.
TEST_F(InfoFieldsTest, ALetterIsFirstJudgedByTheOldText) {
  Info(5).Set("R");
  txtInfo_Key(program, 5, FieldKeyKind::kOther);
  ExpectHeadings("Rod Readings");
  Info(5).Set("e");
  ExpectHeadings("Elevation (feet)");
}

// Kind of pipe

TEST_F(InfoFieldsTest, RigidPipeIsTickedAndNamesTheHoleColumn) {
  program.main.lblSumHoleDia.tool_tip = "tip";
  mnuRigidPipe_Click(program);
  EXPECT_FALSE(program.main.mnuLayflatPipe.ticked);
  EXPECT_TRUE(program.main.mnuRigidPipe.ticked);
  EXPECT_EQ(program.record.PipeKind, "R");
  EXPECT_EQ(Text(0, 5), "Hole Width (fractions)");
  EXPECT_EQ(Cursor(), "0,5");
  EXPECT_EQ(program.main.lblSumHoleDia.tool_tip, "tip");
}

TEST_F(InfoFieldsTest, LayflatPipeIsTickedNamesTheHoleColumnAndDropsTheTip) {
  mnuRigidPipe_Click(program);
  program.main.lblSumHoleDia.tool_tip = "tip";
  mnuLayflatPipe_Click(program);
  EXPECT_TRUE(program.main.mnuLayflatPipe.ticked);
  EXPECT_FALSE(program.main.mnuRigidPipe.ticked);
  EXPECT_EQ(program.record.PipeKind, "L");
  EXPECT_EQ(Text(0, 5), "Hole Diameter (fractions)");
  EXPECT_EQ(Cursor(), "0,5");
  EXPECT_EQ(program.main.lblSumHoleDia.tool_tip, "");
}

TEST_F(InfoFieldsTest, WithTheSheetOnTopNothingIsCalculated) {
  program.record.DesignType = kPlanned;
  mnuRigidPipe_Click(program);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "");  // a calculation begins by writing it
  EXPECT_THAT(host.messages, ::testing::IsEmpty());
}

TEST_F(InfoFieldsTest, ThePipeMovesTheCursorWithoutLeavingItsCell) {
  At(4, 1);
  sheet().Set(4, 1, "9");
  mnuRigidPipe_Click(program);
  EXPECT_EQ(Text(4, 1), "9");
}

// A line of one reach: 15 inch pipe, a hole of 5/8 inch each 20 feet over 100 feet on level ground, 30 GPM.
struct ShownDesignTest : InfoFieldsTest {
  ShownDesignTest() {
    program.record.LowQuarter = 0.25F;
    program.record.DischargeCoef = 0.65F;
    program.record.HazenWilliamsC = 140.0F;
    Info(2).Set("30");
    Info(3).Set("2");
    Info(5).Set("E");
    FillLevelLine(sheet());
    mnuDesignField_Click(program);
  }
};

TEST_F(ShownDesignTest, AShownDesignRunsAgainAtOnce) {
  ASSERT_TRUE(program.main.Grid2.control.visible);
  program.record.Uniformity = 0;
  mnuRigidPipe_Click(program);
  EXPECT_TRUE(program.main.Grid2.control.visible);
  EXPECT_GT(program.record.Uniformity, 90);
  EXPECT_EQ(program.main.Grid2.Text(0, 1), "Rectangle Gate Opening (Inches)");
  program.record.Uniformity = 0;
  mnuLayflatPipe_Click(program);
  EXPECT_GT(program.record.Uniformity, 90);
  EXPECT_EQ(program.main.Grid2.Text(0, 1), "Hole Dia. (Inches)");
}

// A shown limited hole selection, with the holes of the sheet for its own.
struct ShownSelectionTest : ShownDesignTest {
  ShownSelectionTest() {
    program.record.DesignType = kLimitedHoles;
    for (int row = 1; row <= program.record.HoleRows; ++row) {
      program.record.LimitedHoleDia[row] = program.record.SurveyHoleDia[row];
    }
    program.record.SeedEndHead = 2.0F;
  }
  // As after a selection that was refused.
  void ExpectInputScreen() {
    const MainScreen& main = program.main;
    EXPECT_EQ(program.record.DesignOK, "False");
    EXPECT_TRUE(main.Grid1.control.visible);
    for (const Control* hidden : {&main.Grid2.control, &main.lblEffic, &main.frmDisplay, &main.cmdReCalc,
                                  &main.cmdDesignToggle, &main.cmdCancel}) {
      EXPECT_FALSE(hidden->visible);
    }
    EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_TRUE(main.mnuDesign.enabled);
    EXPECT_FALSE(main.busy);
  }
};

// It keeps its holes: its line is marched again with the flow and the shares as they are, and all figures go together.
TEST_F(ShownSelectionTest, IsMarchedAndShownWithTheFlowAsItIs) {
  Info(2).Set("36");
  program.record.Uniformity = 12.0F;
  program.record.CancelFlag = true;
  program.record.FlowRatio[1] = 9;
  mnuRigidPipe_Click(program);
  EXPECT_EQ(program.record.AverageFurrowFlow, 6.0F);             // 36 GPM over six furrows
  EXPECT_EQ(program.record.FlowRatio[1], 1.0F);                  // all furrows are alike
  EXPECT_NEAR(program.record.AccumGPM, 36.0F, 36.0F * 0.0005F);  // what the march calls met
  EXPECT_GT(program.record.Uniformity, 90);
  EXPECT_FALSE(program.record.CancelFlag);
  EXPECT_EQ(program.main.Grid2.Text(0, 1), "Rectangle Gate Opening (Inches)");
  EXPECT_EQ(program.main.lblActiveInactive.caption, "Active Design");
}

TEST_F(ShownSelectionTest, AMarchThatGivesUpIsNoDesign) {
  Info(2).Set("100000");  // more than six holes carry at the heads that are tried
  mnuRigidPipe_Click(program);
  EXPECT_EQ(host.messages.size(), 1U);
  ExpectInputScreen();
}

TEST_F(ShownSelectionTest, AFaultIsNoDesign) {
  program.record.WateredFurrows = 0;
  mnuRigidPipe_Click(program);
  EXPECT_THAT(host.messages, ::testing::IsEmpty());
  ExpectInputScreen();
}

}  // namespace
}  // namespace torvale
