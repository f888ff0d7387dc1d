#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/fault_of.h"
#include "base/version.h"
#include "shell/main_form.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct StartUpTest : ::testing::Test {
  const std::string& FirstRow(int column) { return program.main.Grid1.Text(1, column); }
  const std::string& Info(std::size_t index) { return program.main.txtInfo[index].text(); }
  const std::string& Default(std::size_t index) { return program.main.txtDefault[index].text(); }
  FakeHost host;
  Program program{host};
};

TEST_F(StartUpTest, TheFirstStartTakesTheStartValues) {
  StartProgram(program);
  const char* const expected[] = {"", "", "0.65", "140", "", "", "", "", "", "E", "2", "R", "1.2", "3.5", ".5", "*.*"};
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(Default(i), expected[i]) << i;
  EXPECT_EQ(Info(3), "2");
  EXPECT_EQ(Info(5), "E");
  EXPECT_EQ(Info(1), "11/21/2026");
  EXPECT_EQ(program.record.DischargeCoef, 0.65F);
  EXPECT_EQ(program.record.HazenWilliamsC, 140.0F);
  const char* const row[] = {"0", "10.00", "1320", "", "", "", "", "", ""};
  for (int column = 0; column < 9; ++column) EXPECT_EQ(FirstRow(column), row[column]) << column;
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(StartUpTest, AStartWithADefaultsFileTakesItsValues) {
  host.WriteFile("Default50.TVL",
                 "50\r\n1/2\r\n.6\r\n130\r\n1\r\n12\r\n5\r\n2\r\n9\r\nR\r\n3\r\nC\r\n2\r\n4\r\n.1\r\nPFD\r\n\r\n\r\n");
  StartProgram(program);
  EXPECT_EQ(Info(3), "3");
  EXPECT_EQ(Info(5), "R");
  const char* const row[] = {"0", "10.00", "1320", "5.00", "12.00", "1/2", "2", "9", "5.00"};
  for (int column = 0; column < 9; ++column) EXPECT_EQ(FirstRow(column), row[column]) << column;
  EXPECT_EQ(program.record.HazenWilliamsC, 130.0F);
  EXPECT_EQ(program.record.StationInterval, 100);  // the file's interval waits for the panel of defaults
  EXPECT_EQ(program.main.Grid1.Text(0, 1), "Rod Reading (feet)");
  EXPECT_EQ(program.main.Grid1.Text(0, 5), "Hole Diameter (fractions)");  // round gates by the file
}

TEST_F(StartUpTest, TheScreenBeginsOnTheSheet) {
  StartProgram(program);
  const MainScreen& main = program.main;
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_TRUE(main.cmdInterpolate.visible);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_FALSE(main.lblCrownSlope.visible);
  EXPECT_TRUE(main.mnuLayflatPipe.ticked);
  EXPECT_FALSE(main.mnuRigidPipe.ticked);
  for (const Control* entry : {&main.mnuPrintComplete, &main.mnuPrintSummary, &main.mnuPrtHoleSummary}) {
    EXPECT_FALSE(entry->enabled);
  }
  for (const Control* entry : {&main.mnuDesignField, &main.mnuDesignConstSlope, &main.mnuDesignDualSlope,
                               &main.mnuExistingDesign, &main.mnuManHoleSelection, &main.mnuComputerHoleSelection}) {
    EXPECT_FALSE(entry->ticked);
  }
  EXPECT_EQ(main.lblOpenFilter.caption, "Set OPEN FILE default extenion\r(LHD, PFD, CSD DSD, CSH, *.*)");
  EXPECT_EQ(main.frmDisplayLbl[15].caption, "");
  EXPECT_EQ(main.Frame1.place.left, 10000);
  EXPECT_EQ(main.Frame1.place.top, 700);
  EXPECT_EQ(main.frameHoleSelection.place.left, 2040);
  EXPECT_EQ(main.frameHoleSelection.place.top, 360);
  EXPECT_EQ(main.frmDisplay.place, (Place{8840, 3280, 1770, 6010}));
  EXPECT_EQ(main.lblEffic.place.top, 1900);
}

TEST_F(StartUpTest, TheRecordBeginsWithItsConstants) {
  StartProgram(program);
  EXPECT_EQ(program.record.LowQuarter, 0.25F);
  EXPECT_EQ(program.record.PipeKind, "L");
  EXPECT_EQ(program.record.StationInterval, 100);
  EXPECT_EQ(program.record.FileVersion, ProgramVersion());
  EXPECT_EQ(program.record.DesignType, kNoDesign);
}

TEST_F(StartUpTest, TheVersionIsThreeNumbersJoinedByPoints) {
  int major = -1;
  int minor = -1;
  int revision = -1;
  char rest = 0;
  EXPECT_EQ(std::sscanf(ProgramVersion().c_str(), "%d.%d.%d%c", &major, &minor, &revision, &rest), 3);
  EXPECT_GE(major, 1);
}

TEST_F(StartUpTest, LoadingLeavesFilledCellsAndAnIntervalAlone) {
  StartProgram(program);
  program.record.StationInterval = 50;
  program.main.Grid1.Set(1, 1, "8.25");
  program.main.Grid1.Set(1, 2, "900");
  Form_Load(program);
  EXPECT_EQ(FirstRow(1), "8.25");
  EXPECT_EQ(FirstRow(2), "900");
  EXPECT_EQ(program.record.StationInterval, 50);
}

// The window

TEST_F(StartUpTest, WithoutSettingsTheScreenStandsAt1000) {
  StartProgram(program);
  EXPECT_EQ(program.main.window, (Place{1000, 1000, 6500, 6500}));
  Form_Resize(program);
  EXPECT_EQ(program.main.window, (Place{1000, 500, 10000, 6500}));
}

TEST_F(StartUpTest, SettingsPlaceTheScreen) {
  host.settings = {{"MainLeft", "-300"}, {"MainTop", "250.5"}, {"MainWidth", "12000"}, {"MainHeight", "9000"}};
  StartProgram(program);
  EXPECT_EQ(program.main.window, (Place{-300, 250, 12000, 9000}));  // half to even
}

TEST_F(StartUpTest, SettingsThatAreNoLengthGiveTheDefaults) {
  host.settings = {{"MainLeft", "left"}, {"MainTop", "1E99"}, {"MainWidth", "0"}, {"MainHeight", "-9000"}};
  StartProgram(program);
  EXPECT_EQ(program.main.window, (Place{1000, 1000, 6500, 6500}));
}

TEST_F(StartUpTest, OnlyANormalWindowIsSetBackOnResize) {
  StartProgram(program);
  for (const WindowState state : {WindowState::kMinimized, WindowState::kMaximized}) {
    program.main.state = state;
    program.main.window = {1, 2, 3, 4};
    Form_Resize(program);
    EXPECT_EQ(program.main.window, (Place{1, 2, 3, 4}));
  }
}

TEST_F(StartUpTest, ActivationGivesTheFocusToTheName) {
  StartProgram(program);
  program.main.focus = "Grid1";
  Form_Activate(program);
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

TEST_F(StartUpTest, ClosingSavesThePlace) {
  StartProgram(program);
  program.main.window = {-15, 500, 10000, 7000};
  Form_Unload(program);
  EXPECT_TRUE(program.main.closed);
  EXPECT_EQ(host.settings["MainLeft"], "-15");
  EXPECT_EQ(host.settings["MainTop"], "500");
  EXPECT_EQ(host.settings["MainWidth"], "10000");
  EXPECT_EQ(host.settings["MainHeight"], "7000");
}

TEST_F(StartUpTest, ClosingMinimisedLeavesTheSettings) {
  host.settings = {{"MainLeft", "77"}};
  StartProgram(program);
  program.main.state = WindowState::kMinimized;
  program.main.window = {1, 2, 3, 4};
  Form_Unload(program);
  EXPECT_TRUE(program.main.closed);
  EXPECT_EQ(host.settings.size(), 1U);
  EXPECT_EQ(host.settings["MainLeft"], "77");
}

TEST_F(StartUpTest, ClosingCancelsACalculation) {
  StartProgram(program);
  program.record.DesignOK = "True";
  Form_Unload(program);
  EXPECT_TRUE(program.record.CancelFlag);
  EXPECT_EQ(program.record.DesignOK, "False");
}

TEST_F(StartUpTest, AClosedScreenIsNotSavedAgain) {
  StartProgram(program);
  Form_Unload(program);
  host.settings.clear();
  Form_Unload(program);
  EXPECT_TRUE(host.settings.empty());
}

// Zoom

struct ZoomTest : StartUpTest {
  int Ticked() {
    int ticked = -1;
    for (std::size_t i = 0; i < kZoomSteps.size(); ++i) {
      if (!program.main.mnuZoomTo[i].ticked) continue;
      EXPECT_EQ(ticked, -1) << "two steps are ticked";
      ticked = kZoomSteps[i];
    }
    return ticked;
  }
};

TEST_F(ZoomTest, ItIs100PercentAtFirst) {
  StartProgram(program);
  EXPECT_EQ(program.main.zoom, 100);
  EXPECT_EQ(Ticked(), 100);
  EXPECT_TRUE(host.settings.empty());
}

// The menu offers 75, 100, 125, 150, 175, 200 and 250 percent.
TEST_F(ZoomTest, AStepGoesToTheNextOfTheMenuAndNotBeyondItsEnds) {
  StartProgram(program);
  const std::pair<int, int> steps[] = {{1, 125}, {-2, 75}, {-1, 75}, {5, 200}, {1, 250}, {1, 250}, {-1, 200}};
  for (const auto& [step, percent] : steps) {
    StepZoom(program, step);
    EXPECT_EQ(program.main.zoom, percent);
  }
  EXPECT_EQ(Ticked(), 200);
}

TEST_F(ZoomTest, ItIsRememberedForTheNextStart) {
  StartProgram(program);
  SetZoom(program, 150);
  EXPECT_EQ(program.main.zoom, 150);
  EXPECT_EQ(Ticked(), 150);
  EXPECT_EQ(host.settings["MainZoom"], "150");
  Form_Load(program);
  EXPECT_EQ(program.main.zoom, 150);
  EXPECT_EQ(Ticked(), 150);
}

TEST_F(ZoomTest, ASettingThatIsNoStepGives100Percent) {
  for (const char* const saved : {"", "110", "0", "-75", "big", "1E999"}) {
    host.settings["MainZoom"] = saved;
    Form_Load(program);
    EXPECT_EQ(program.main.zoom, 100) << saved;
    EXPECT_EQ(Ticked(), 100) << saved;
  }
}

}  // namespace
}  // namespace torvale
