// What is settled when events end: the grids, the keys of a covered sheet, commands inside a calculation.
#include "shell/event_end.h"

#include <gmock/gmock.h>

#include "display/colour_meanings.h"
#include "engine/survey.h"
#include "input/sheet.h"
#include "shell/commands.h"
#include "shell/level_field.h"
#include "shell/started_program.h"
#include "support/level_line.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// A planned line of 100 feet: a hole of 5/8 inch each 20 feet on level ground, 30 GPM.
struct EventEndTest : StartedProgramTest {
  EventEndTest() : main(program.main) { TypeLevelField(program); }
  void Survey() { FillLevelLine(sheet()); }
  void Run(std::string_view command) { ASSERT_EQ(Click(program, command), Reach::kUsable) << command; }
  // A selection with holes of 5/8 inch alone.
  void RunSelection() {
    Run("mnuManHoleSelection");
    main.listHolesSelected.Clear();
    main.listHolesSelected.Add("5/8");
    Run("cmdExitHoleSelect");
  }
  // At that yield from now on the user does this.
  void OnYield(long yield, std::function<void()> event) {
    host.event_at = host.yields + yield;
    host.event = std::move(event);
  }
  const std::string& Status() { return main.sbStatusBar.caption; }
  MainScreen& main;
};

// ---- The sheet that results cover ----

TEST_F(EventEndTest, NoKeyReachesTheSheetUnderTheTables) {
  for (const char* table : {"Complete Design", "Summary"}) {
    main.cmdDesignToggle.caption = table;
    Run("mnuDesignField");
    ASSERT_TRUE(main.Grid2.control.visible);
    sheet().SetCurrent(2, kStationColumn);
    Press(Key::kDelete);
    Press(Key::kPaste);
    Press("7");
    EXPECT_EQ(sheet().Text(2, kStationColumn), "100") << table;
    FocusGained(program, "txtInfo(5)");
    FocusGained(program, "Grid1");
    EXPECT_EQ(main.focus, "txtInfo(5)");
    EXPECT_EQ(ReachOf(program, "Grid1"), Reach::kHidden);
    Run("mnuWindowInfo");
    EXPECT_EQ(ReachOf(program, "Grid1"), Reach::kUsable);
  }
}

TEST_F(EventEndTest, AKeyInTheHeadingRowActsOnTheRowBelow) {
  Run("mnuRigidPipe");
  ExpectAt(sheet(), 0, kHoleSizeColumn);
  const std::string heading = sheet().Text(0, kHoleSizeColumn);
  Press(Key::kDelete);
  ExpectAt(sheet(), 1, kHoleSizeColumn);
  EXPECT_EQ(sheet().Text(0, kHoleSizeColumn), heading);
  EXPECT_EQ(sheet().Text(1, kHoleSizeColumn), "");
  Run("mnuRigidPipe");
  Press(Key::kPaste);
  EXPECT_EQ(sheet().Text(0, kHoleSizeColumn), heading);
  EXPECT_EQ(sheet().Text(1, kHoleSizeColumn), "5/8");
}

// ---- The panel of preferences ----

TEST_F(EventEndTest, AFieldLeavesThePreferencesAsExitDoes) {
  for (const char* command : {"mnuDesignField", "mnuExistingDesign", "mnuComputerHoleSelection"}) {
    Run(command);
    ASSERT_FALSE(main.Grid1.control.visible);
    Run("mnuPreference");
    FocusGained(program, "txtInfo(0)");
    EXPECT_FALSE(main.Frame1.visible);
    EXPECT_TRUE(main.Grid2.control.visible);
    EXPECT_TRUE(main.cmdReCalc.visible);
    EXPECT_TRUE(main.cmdDesignToggle.visible);
  }
  Run("mnuWindowInfo");
  RunSelection();
  Run("mnuPreference");
  FocusGained(program, "txtInfo(0)");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
}

// A field entered without the panel changes nothing on the screen.
TEST_F(EventEndTest, AFieldEnteredFromTheSheetShowsNoResults) {
  program.record.DesignType = kPlanned;
  FocusGained(program, "txtInfo(0)");
  EXPECT_FALSE(main.Grid2.control.visible);
}

TEST_F(EventEndTest, PreferencesOverARefusedDesignGiveTheSheetBack) {
  for (const char* command : {"mnuDesignField", "mnuExistingDesign", "mnuDesignConstSlope"}) {
    TypeText(program, "txtInfo(2)", "");
    Run(command);
    Run("mnuPreference");
    Run("btnDefaultExit");
    EXPECT_TRUE(main.Grid1.control.visible) << command;
    EXPECT_FALSE(main.Grid2.control.visible) << command;
    EXPECT_FALSE(main.cmdDesignToggle.visible) << command;
  }
}

TEST_F(EventEndTest, PreferencesOverANewDesignGiveTheSheetBack) {
  Run("mnuDesignField");
  Run("mnuFileNew");
  ASSERT_EQ(program.record.DesignType, kPlanned);
  Run("mnuPreference");
  Run("btnDefaultExit");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
}

// ---- New ----

TEST_F(EventEndTest, NewOverEachDesignLeavesNothingOfIt) {
  FakeHost other_host;
  Program fresh(other_host);
  StartProgram(fresh);
  for (const char* command : {"mnuDesignField", "mnuDesignConstSlope", "mnuDesignDualSlope", "mnuComputerHoleSelection",
                              "mnuExistingDesign", "mnuManHoleSelection"}) {
    SCOPED_TRACE(command);
    Survey();
    TypeText(program, "txtInfo(2)", "30");
    TypeText(program, "txtInfo(5)", "E");
    if (std::string_view(command) == "mnuManHoleSelection") {
      RunSelection();
    } else {
      Run(command);
    }
    ASSERT_TRUE(main.Grid2.control.visible);
    const std::int16_t type = program.record.DesignType;
    Run("mnuFileNew");
    EXPECT_EQ(program.record.DesignType, type);
    EXPECT_EQ(main.title, "TORVALE   ");
    EXPECT_EQ(main.focus, "txtInfo(0)");
    // These are as they are when the program has started.
    const std::vector<NamedControl> now = ControlsOf(main);
    const std::vector<NamedControl> then = ControlsOf(fresh.main);
    for (std::size_t i = 0; i < now.size(); ++i) {
      const std::string_view name = now[i].name;
      const bool speaks = name == "lblActiveInactive" || name == "lblAvgFurrowFlow" || name == "lblAcresTotal" ||
                          name == "lblEffic" || name == "lblCrownSlope" || name.starts_with("frmDisplay") ||
                          name == "GridInchesApplied" || name == "mnuProfile" || name == "mnuSurveyCopy" ||
                          name == "lblHeadCount" || name == "Grid1" || name == "Grid2" || name == "cmdInterpolate" ||
                          name == "cmdCancel" || name == "cmdReCalc" || name == "cmdDesignToggle";
      if (!speaks) continue;
      EXPECT_EQ(now[i].control->visible, then[i].control->visible) << name;
      if (name.starts_with("frmDisplayLbl(") && !now[i].control->visible) continue;
      if (name == "cmdDesignToggle") continue;  // its caption is the only memory of the table
      EXPECT_EQ(now[i].control->caption, then[i].control->caption) << name;
      EXPECT_EQ(now[i].control->back, then[i].control->back) << name;
      EXPECT_EQ(now[i].control->fore, then[i].control->fore) << name;
    }
    for (int row = 1; row < main.GridInchesApplied.rows(); ++row) {
      for (int column = 0; column < 3; ++column) EXPECT_EQ(main.GridInchesApplied.Text(row, column), "");
    }
    EXPECT_EQ(Click(program, "mnuProfile"), Reach::kHidden);
  }
}

// ---- The input screen ----

TEST_F(EventEndTest, TheNextChangeOfTheInputBringsTheInterpolationBack) {
  const std::vector<std::function<void()>> changes = {
      [&] { TypeText(program, "txtInfo(4)", Info(4) + "x"); },
      [&] {
        sheet().SetCurrent(2, 2);
        Press("1");
      },
  };
  for (const auto& change : changes) {
    Run("mnuManHoleSelection");
    main.listHolesSelected.Clear();
    Run("cmdExitHoleSelect");
    EXPECT_FALSE(main.cmdInterpolate.visible);
    Press(Key::kUp);  // no change
    EXPECT_FALSE(main.cmdInterpolate.visible);
    change();
    EXPECT_TRUE(main.cmdInterpolate.visible);
  }
}

// What the user typed before the selection was abandoned is no change after it.
TEST_F(EventEndTest, AChangeBringsTheInterpolationBackOnce) {
  Run("mnuManHoleSelection");
  main.listHolesSelected.Clear();
  Run("cmdExitHoleSelect");
  Run("mnuManHoleSelection");
  TypeText(program, "txtInfo(4)", "East");
  EXPECT_TRUE(main.cmdInterpolate.visible);
  Run("cmdExitHoleSelect");
  EXPECT_FALSE(main.cmdInterpolate.visible);
}

// Nor is the furrow length that a design fills in before it is cancelled.
TEST_F(EventEndTest, WhatADesignFillsInIsNoChangeOfTheInput) {
  sheet().Set(2, kFurrowLengthColumn, "");
  Run("mnuManHoleSelection");
  main.listHolesSelected.Clear();
  Run("cmdExitHoleSelect");
  EXPECT_FALSE(main.cmdInterpolate.visible);
  OnYield(1, [&] { Run("cmdCancel"); });
  Run("mnuDesignField");
  ASSERT_NE(sheet().Text(2, kFurrowLengthColumn), "");
  EXPECT_FALSE(main.cmdInterpolate.visible);
  TypeText(program, "txtInfo(4)", "East");
  EXPECT_TRUE(main.cmdInterpolate.visible);
}

TEST_F(EventEndTest, AFirstStationOtherThanZeroIsMarked) {
  host.clipboard = "10\t5.1\r\n110\t5.1\r\n";
  Run("mnuSurveyCopy");
  EXPECT_EQ(Status(), "2 rows pasted. First Crown Station must be Zero.");
  ASSERT_EQ(sheet().Back(1, kStationColumn), kPaleYellow);
  EXPECT_THAT(MeaningOfCellColour("Grid1", kStationColumn, kPaleYellow),
              StartsWith("First Crown Station must be Zero."));
  Run("mnuDesignField");  // the layout puts 0 there
  EXPECT_EQ(sheet().Text(1, kStationColumn), "0");
  EXPECT_EQ(sheet().Back(1, kStationColumn), std::nullopt);
}

// Pressed on a gate of the results, the frame lies over them; the input screen comes by its key while it is down.
TEST_F(EventEndTest, TheHoleThatAGateStandsForGoesWithTheResults) {
  Run("mnuRigidPipe");
  Run("mnuDesignField");
  results().SetCurrent(2, kStationColumn);
  ResultMouse(program, MouseAction::kDown, MouseButton::kLeft, 300, 600);
  ASSERT_TRUE(main.frameHoleEquiv.visible);
  Run("mnuWindowInfo");
  EXPECT_FALSE(main.frameHoleEquiv.visible);
}

TEST_F(EventEndTest, AStatusBarWithoutNewsTellsWhereTheUserIs) {
  FocusGained(program, "txtInfo(2)");
  Run("mnuDesignField");
  EXPECT_EQ(Status(), "Pumped flow, gallons per minute");
}

// ---- A command inside a calculation ----

// The planned run is cancelled by the command that comes in the middle of it, and the command runs when it is over.
TEST_F(EventEndTest, ADesignInsideAnotherEndsThatOneFirst) {
  OnYield(2, [&] {
    Run("mnuComputerHoleSelection");
    EXPECT_EQ(program.record.DesignType, kPlanned);
    EXPECT_TRUE(program.record.CancelFlag);
    EXPECT_FALSE(main.cmdCancel.visible);
  });
  Run("mnuDesignField");
  EXPECT_FALSE(host.event);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(program.record.DesignType, kComputerHoles);
  EXPECT_EQ(main.title, "TORVALE   Computer Selected Hole Design");
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  EXPECT_TRUE(main.Grid2.control.visible);
}

// The re-calculation of a dual slope doesn't lock the menus.
TEST_F(EventEndTest, AnExistingDesignInsideADualSlopeAgainEndsTheSearch) {
  Run("mnuDesignDualSlope");
  OnYield(40, [&] { Run("mnuExistingDesign"); });
  Run("cmdReCalc");
  EXPECT_FALSE(host.event);
  EXPECT_EQ(program.record.DesignType, kExistingField);
  EXPECT_EQ(main.title, "TORVALE   Existing Field Design");
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_EQ(program.running.calculations, 0);
}

TEST_F(EventEndTest, NewInsideACalculationEmptiesTheSheetWhenItHasUnwound) {
  Run("mnuDesignField");
  OnYield(2, [&] {
    Run("mnuFileNew");
    EXPECT_EQ(sheet().Text(2, kStationColumn), "100");
  });
  Run("cmdReCalc");
  EXPECT_EQ(sheet().Text(2, kStationColumn), "");
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_EQ(main.focus, "txtInfo(0)");
}

// Two commands come before the calculation has unwound; both run, in their order.
TEST_F(EventEndTest, CommandsThatWaitRunInTheirOrder) {
  OnYield(2, [&] {
    Run("mnuComputerHoleSelection");
    Run("mnuWindowInfo");  // hidden yet: a fresh start, no results stand
  });
  main.mnuWindowInfo.visible = true;
  Run("mnuDesignField");
  EXPECT_EQ(program.record.DesignType, kNoDesign);
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_TRUE(main.Grid1.control.visible);
}

// What shows the design in the middle of its calculation takes the Cancel button away for a moment.
TEST_F(EventEndTest, ACalculationCanBeCancelledToItsEnd) {
  Run("mnuDesignDualSlope");
  bool offered = false;
  OnYield(40, [&] {
    Run("cmdDesignToggle");
    offered = main.cmdCancel.visible;
  });
  Run("cmdReCalc");
  EXPECT_TRUE(offered);
  EXPECT_FALSE(main.cmdCancel.visible);
}

}  // namespace
}  // namespace torvale
