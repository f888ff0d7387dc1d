#include "search/design_commands.h"

#include "base/format.h"
#include "screen/design_types.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct CommandCase {
  const char* name;
  void (*run)(Program&);
  std::int16_t design_type;
  const char* title;
  bool locks;
};

constexpr CommandCase kCommands[] = {
    {"mnuDesignField", mnuDesignField_Click, kPlanned, "TORVALE   Planned Design", false},
    {"mnuExistingDesign", mnuExistingDesign_Click, kExistingField, "TORVALE   Existing Field Design", false},
    {"mnuDesignConstSlope", mnuDesignConstSlope_Click, kConstantSlope, "TORVALE   Constant Slope Design", true},
    {"mnuDesignDualSlope", mnuDesignDualSlope_Click, kDualSlope, "TORVALE   Dual Slope Design", true},
    {"mnuComputerHoleSelection", mnuComputerHoleSelection_Click, kComputerHoles,
     "TORVALE   Computer Selected Hole Design", false},
};

// The controls that a slope search takes from the user, but for the Cancel button.
std::vector<Control*> Lockable(MainScreen& main) {
  std::vector<Control*> controls = {
      &main.cmdReCalc, &main.cmdDesignToggle, &main.mnuFile,       &main.mnuEdit,    &main.mnuPreference,
      &main.mnuDesign, &main.mnuTypeOfPipe,   &main.mnuWindowInfo, &main.mnuProfile, &main.mnuHelp};
  for (TextField& field : main.txtInfo) controls.push_back(&field.control);
  return controls;
}

class DesignCommandTest : public SearchTest, public testing::WithParamInterface<CommandCase> {};

TEST_P(DesignCommandTest, EndsOnTheShownDesign) {
  LevelLine();
  TickDesign(program, kLimitedHoles);
  main.frmDisplayLbl[15].caption = "1.50 ft.";
  GetParam().run(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.DesignType, GetParam().design_type);
  EXPECT_EQ(main.title, GetParam().title);
  EXPECT_THAT(Ticked(), ElementsAre(GetParam().name));
  EXPECT_FALSE(main.busy);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_FALSE(main.cmdInterpolate.visible);
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_TRUE(main.lblEffic.visible);
  EXPECT_TRUE(main.mnuWindowInfo.visible);
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  for (const Control* control : Lockable(main)) EXPECT_TRUE(control->enabled);
  const bool slope_design = GetParam().locks;
  EXPECT_EQ(main.frmDisplayLbl[15].visible, slope_design);
  // The crown differential of the design before is not left standing.
  EXPECT_NE(main.frmDisplayLbl[15].caption, "1.50 ft.");
  EXPECT_EQ(main.lblCrownSlope.visible, slope_design);
}

TEST_P(DesignCommandTest, LocksTheScreenOnlyForASlopeSearch) {
  LevelLine();
  for (Control* control : Lockable(main)) control->enabled = true;
  main.mnuSurveyCopy.visible = true;
  bool looked = false;
  WatchYields([&] {
    if (looked) return;
    looked = true;
    EXPECT_TRUE(main.busy);
    EXPECT_TRUE(main.cmdCancel.visible);
    EXPECT_TRUE(main.cmdCancel.enabled);
    EXPECT_FALSE(main.cmdInterpolate.visible);
    EXPECT_EQ(main.title, GetParam().title);
    EXPECT_EQ(record.DesignType, GetParam().design_type);
    EXPECT_EQ(main.mnuSurveyCopy.visible, !GetParam().locks);
    for (const Control* control : Lockable(main)) EXPECT_EQ(control->enabled, !GetParam().locks);
  });
  GetParam().run(program);
  EXPECT_TRUE(looked);
}

// The Constant Slope command alone leaves the label of the crown slope in view.
TEST_P(DesignCommandTest, HidesTheCrownSlopeOfTheDesignBefore) {
  LevelLine();
  main.lblCrownSlope.visible = true;
  bool visible = false;
  WatchYields([&] {
    visible = main.lblCrownSlope.visible;
    host.event = nullptr;
    host.event_at = 0;
    record.CancelFlag = true;
  });
  GetParam().run(program);
  EXPECT_EQ(visible, GetParam().design_type == kConstantSlope);
}

// Refused input leaves `DesignOK` "True" and `CancelFlag` unset: only the first two commands look at `MissingData`.
TEST_P(DesignCommandTest, StaysWhereItIsWhenTheInputIsRefused) {
  LevelLine();
  main.txtInfo[3].Set("");
  main.Grid2.control.visible = true;
  main.lblEffic.visible = true;
  main.Grid1.control.visible = false;
  main.frmDisplayLbl[15].caption = "1.50 ft.";
  record.SlopeDelta = 5;
  GetParam().run(program);
  EXPECT_EQ(main.frmDisplayLbl[15].caption, "");
  EXPECT_EQ(record.SlopeDelta, GetParam().locks ? 0 : 5);  // the slope designs start it at 0
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(record.MissingData, -1);
  EXPECT_EQ(record.DesignType, GetParam().design_type);
  EXPECT_EQ(main.title, GetParam().title);
  EXPECT_THAT(Ticked(), ElementsAre(GetParam().name));
  EXPECT_TRUE(main.cmdInterpolate.visible);
  EXPECT_TRUE(main.Grid1.control.visible);
  // The other three leave the screen as it was, and say so.
  const bool goes_back = GetParam().design_type == kPlanned || GetParam().design_type == kExistingField;
  EXPECT_EQ(main.Grid2.control.visible, !goes_back);
  EXPECT_EQ(main.lblEffic.visible, !goes_back);
  EXPECT_EQ(Status(), goes_back ? "The Target Head is missing: enter it in feet."
                                : "The Target Head is missing: enter it in feet. The table is that of the design "
                                  "before.");
  EXPECT_FALSE(main.busy);
  for (const Control* control : Lockable(main)) EXPECT_TRUE(control->enabled);
}

INSTANTIATE_TEST_SUITE_P(Commands, DesignCommandTest, testing::ValuesIn(kCommands),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- The input screen ----

class InputScreenTest : public SearchTest {};

TEST_F(InputScreenTest, ComesBackAsItWas) {
  LevelLine();
  mnuDesignField_Click(program);
  record.SpacingWarningOff = 1;
  record.CancelFlag = true;
  main.lblAvgFurrowFlow.visible = true;
  main.lblActiveInactive.fore = kWhite;
  mnuWindowInfo_Click(program);
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_EQ(main.lblActiveInactive.back, (Colour{255, 255, 128}));
  EXPECT_EQ(main.lblActiveInactive.fore, kBlack);
  EXPECT_EQ(main.frameShowLimitedHoles.place.left, 9350);
  EXPECT_EQ(record.TotalAcres, 0);
  EXPECT_EQ(main.lblAcresTotal.caption, "");
  for (const Control* hidden : {&main.mnuProfile, &main.lblAvgFurrowFlow, &main.Grid2.control, &main.mnuWindowInfo,
                                &main.lblEffic, &main.frmDisplay, &main.cmdDesignToggle, &main.cmdReCalc,
                                &main.lblCrownSlope, &main.GridInchesApplied.control}) {
    EXPECT_FALSE(hidden->visible);
  }
  for (const Control* shown : {&main.mnuSurveyCopy, &main.cmdInterpolate, &main.Grid1.control}) {
    EXPECT_TRUE(shown->visible);
  }
  EXPECT_THAT(Ticked(), IsEmpty());
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(record.SpacingWarningOff, 0);
  EXPECT_FALSE(record.CancelFlag);
}

TEST_F(InputScreenTest, LeavesTheExistingFieldDesignTicked) {
  LevelLine();
  mnuExistingDesign_Click(program);
  mnuWindowInfo_Click(program);
  EXPECT_THAT(Ticked(), ElementsAre("mnuExistingDesign"));
  mnuComputerHoleSelection_Click(program);  // the next design takes the tick away
  EXPECT_THAT(Ticked(), ElementsAre("mnuComputerHoleSelection"));
}

TEST_F(InputScreenTest, CompletesTheSheetOnTheWayBack) {
  LevelLine();
  main.Grid1.Set(2, kPipeDiaColumn, "");
  mnuWindowInfo_Click(program);
  EXPECT_EQ(main.Grid1.Text(2, kPipeDiaColumn), "15");
}

// The way back completes the sheet and shows it; where two stations are equal that ends half-way.
TEST_F(InputScreenTest, ShowsASheetThatCannotBeCompleted) {
  LevelLine();
  mnuDesignField_Click(program);
  FillSheet({WateredRow("0", "100"), WateredRow("50", "100"), WateredRow("50", "100"), WateredRow("100", "100")});
  main.Grid1.Set(3, kFurrowLengthColumn, "");
  main.Grid1.control.visible = false;
  mnuWindowInfo_Click(program);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
}

// ---- Cancel ----

TEST_F(InputScreenTest, CancelSetsTheFlagsAndHidesItsButton) {
  main.cmdCancel.visible = true;
  record.DesignOK = "True";
  record.DesignType = kPlanned;
  cmdCancel_Click(program);
  EXPECT_TRUE(record.CancelFlag);
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_EQ(record.DesignType, kPlanned);
}

// ---- The panel of a limited selection ----

class OpenPanelTest : public SearchTest {};

TEST_F(OpenPanelTest, OpensThePanelAndNothingElse) {
  LevelLine();
  main.txtInfo[3].Set("1.75 ft");
  record.MissingData = -1;
  record.DesignOK = "False";
  record.BestUniformity = 88;
  record.DesignType = kComputerHoles;
  TickDesign(program, kComputerHoles);
  main.listHolesSelected.Add("1/4");
  main.listSortSelectedHoles.Add(" .25");
  main.frameHoleSelection.visible = false;
  mnuManHoleSelection_Click(program);
  EXPECT_TRUE(main.frameHoleSelection.visible);
  EXPECT_EQ(main.listSortSelectedHoles.count(), 0);
  EXPECT_EQ(main.listHolesSelected.count(), 1);
  EXPECT_EQ(record.MissingData, 0);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_EQ(record.BestUniformity, 0);
  EXPECT_EQ(record.ManualTargetHead, 1.75F);
  EXPECT_EQ(record.DesignType, kComputerHoles);
  EXPECT_THAT(Ticked(), ElementsAre("mnuComputerHoleSelection"));
  EXPECT_EQ(host.yields, 0);
}

TEST_F(OpenPanelTest, StaysClosedWhereAFieldIsEmpty) {
  for (const auto& [field, sentence] : {std::pair{2, "The GPM is missing: enter the pumped flow."},
                                        {3, "The Target Head is missing: enter it in feet."},
                                        {5, "Enter R for rod readings or E for elevations."}}) {
    SCOPED_TRACE(field);
    LevelLine();
    main.txtInfo[static_cast<std::size_t>(field)].Set("");
    main.busy = true;
    main.frameHoleSelection.visible = false;
    main.cmdInterpolate.visible = false;
    main.cmdCancel.visible = true;
    host.messages.clear();
    mnuManHoleSelection_Click(program);
    EXPECT_THAT(host.messages, ElementsAre(Shown{"Some Information Data is missing.", "Missing Data"}));
    EXPECT_EQ(Status(), sentence);
    EXPECT_EQ(record.MissingData, -1);
    EXPECT_FALSE(main.frameHoleSelection.visible);
    EXPECT_FALSE(main.busy);
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_FALSE(main.cmdCancel.visible);
  }
}

}  // namespace
}  // namespace torvale
