#include "files/new_design.h"

#include <gtest/gtest.h>

#include "display/grid_layout.h"
#include "files/preferences.h"
#include "input/info_fields.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

constexpr std::string_view kDefaults =
    "100\r\n5/8\r\n.65\r\n140\r\n1.2\r\n15\r\n6\r\n1\r\n7\r\nR\r\n2.5\r\nR\r\n1.2\r\n3\r\n.2\r\n*.*\r\n\r\n\r\n";

struct NewDesignTest : ::testing::Test {
  NewDesignTest() {
    ConnectInfoFields(program);
    ConnectPreferences(program);
    GridSet(program);
  }
  const std::string& FirstRow(int column) { return program.main.Grid1.Text(1, column); }
  TextField& Info(std::size_t index) { return program.main.txtInfo[index]; }
  FakeHost host;
  Program program{host};
};

TEST_F(NewDesignTest, DefaultsFillTheEmptyCellsOfTheFirstRow) {
  host.WriteFile(kDefaultsFile, kDefaults);
  Default_Values(program);
  // Amounts of the file have two decimals: spacing and width are "6.00", the diameter "15.00".
  const char* const expected[] = {"0", "", "", "6.00", "15.00", "5/8", "1", "7", "6.00"};
  for (int column = 0; column < 9; ++column) EXPECT_EQ(FirstRow(column), expected[column]) << column;
  EXPECT_EQ(Info(3).text(), "2.5");
  EXPECT_EQ(Info(5).text(), "R");
  EXPECT_EQ(program.record.DischargeCoef, 0.65F);
  EXPECT_EQ(program.record.HazenWilliamsC, 140.0F);
}

TEST_F(NewDesignTest, DefaultsLeaveFilledCells) {
  for (int column = 1; column < 9; ++column) program.main.Grid1.Set(1, column, "typed");
  host.WriteFile(kDefaultsFile, kDefaults);
  Default_Values(program);
  for (int column = 1; column < 9; ++column) EXPECT_EQ(FirstRow(column), "typed");
}

TEST_F(NewDesignTest, WithoutAFileTheFieldsAreAppliedAsTheyStand) {
  program.main.txtDefault[2].Set(".6");
  program.main.txtDefault[3].Set("130");
  program.main.txtDefault[9].Set("E");
  program.main.txtDefault[10].Set("3");
  program.record.DischargeCoef = program.record.HazenWilliamsC = 0;
  Default_Values(program);
  EXPECT_EQ(Info(3).text(), "3");
  EXPECT_EQ(Info(5).text(), "E");
  EXPECT_EQ(program.record.DischargeCoef, 0.6F);
  EXPECT_EQ(program.record.HazenWilliamsC, 130.0F);
  EXPECT_TRUE(host.messages.empty());
}

// The sheet is laid out ahead of the file, with the hole size of before; what the file says stands in the end.
TEST_F(NewDesignTest, TheFirstHoleSizeIsThatOfTheFile) {
  program.record.DesignType = kNoDesign;
  program.main.txtDefault[1].Set("3/8");
  host.WriteFile(kDefaultsFile, "100\r\n5/8\r\n");
  mnuFileNew_Click(program);
  EXPECT_EQ(FirstRow(5), "5/8");
}

TEST_F(NewDesignTest, AnOpenProfileGoesWithItsDesign) {
  program.profile.CrownProfile.visible = true;
  program.record.ProfileTitle = "Complete Design";
  program.main.cmdDesignToggle.caption = "Summary";
  mnuFileNew_Click(program);
  EXPECT_FALSE(program.profile.CrownProfile.visible);
  EXPECT_EQ(program.main.cmdDesignToggle.caption, "Complete Design");
}

// 1E39 is past 32 bits. The step fails in silence and the ones after it are made.
TEST_F(NewDesignTest, ACoefficientThatDoesNotFitIsPassedOver) {
  host.WriteFile(kDefaultsFile, "100\r\n5/8\r\n1E39\r\n140\r\n");
  Default_Values(program);
  EXPECT_EQ(program.record.DischargeCoef, 0.0F);
  EXPECT_EQ(FirstRow(5), "5/8");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(NewDesignTest, ANewDesignEmptiesTheSheetTheResultsAndTheFields) {
  host.WriteFile(kDefaultsFile, kDefaults);
  program.main.Grid1.Set(5, 2, "900");
  program.main.Grid2.Set(5, 2, "7");
  program.main.Grid2.SetBack(5, 5, kStrongGreen);
  for (std::size_t i = 0; i < 6; ++i) Info(i).Set("9");
  mnuFileNew_Click(program);
  EXPECT_EQ(program.main.Grid1.Text(5, 2), "");
  EXPECT_EQ(program.main.Grid2.Text(5, 2), "");
  EXPECT_EQ(program.main.Grid2.Back(5, 5), std::nullopt);
  const char* const expected[] = {"", "11/21/2026", "", "2.5", "", "R"};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(Info(i).text(), expected[i]) << i;
  EXPECT_EQ(program.record.TargetGPM, 0.0F);
}

TEST_F(NewDesignTest, ANewDesignWritesItsFirstRowWithoutLooking) {
  host.WriteFile(kDefaultsFile, kDefaults);
  program.main.Grid1.Set(1, 1, "8.25");
  mnuFileNew_Click(program);
  const char* const expected[] = {"0", "10.00", "", "6.00", "15.00", "5/8", "1", "7", "6.00"};
  for (int column = 0; column < 9; ++column) EXPECT_EQ(FirstRow(column), expected[column]) << column;
}

TEST_F(NewDesignTest, TheUserStartsAtTheHoleSize) {
  program.main.Grid1.SetCurrent(9, 2);
  program.main.Grid1.SetSelection(12, 4);
  mnuFileNew_Click(program);
  EXPECT_EQ(program.main.Grid1.row, 1);
  EXPECT_EQ(program.main.Grid1.column, 5);
  EXPECT_EQ(program.main.Grid1.row_sel, 1);
  EXPECT_EQ(program.main.Grid1.column_sel, 5);
}

TEST_F(NewDesignTest, TheScreenGoesBackToTheSheet) {
  MainScreen& main = program.main;
  for (Control* control : {&main.lblEffic, &main.lblCrownSlope, &main.frmDisplay, &main.cmdDesignToggle,
                           &main.cmdReCalc, &main.frameShowLimitedHoles, &main.Grid2.control}) {
    control->visible = true;
  }
  main.Grid1.control.visible = main.cmdInterpolate.visible = false;
  main.mnuSurveyCopy.enabled = false;
  for (Control* entry : {&main.mnuDesignConstSlope, &main.mnuDesignDualSlope, &main.mnuExistingDesign,
                         &main.mnuManHoleSelection, &main.mnuComputerHoleSelection}) {
    entry->ticked = true;
  }
  program.record.TotalAcres = 12;
  mnuFileNew_Click(program);
  for (const Control* control : {&main.lblEffic, &main.lblCrownSlope, &main.frmDisplay, &main.cmdDesignToggle,
                                 &main.cmdReCalc, &main.frameShowLimitedHoles, &main.Grid2.control}) {
    EXPECT_FALSE(control->visible);
  }
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_TRUE(main.cmdInterpolate.visible);
  EXPECT_TRUE(main.mnuSurveyCopy.enabled);
  EXPECT_FALSE(main.mnuWindowInfo.enabled);
  EXPECT_TRUE(main.mnuDesignField.ticked);
  for (const Control* entry : {&main.mnuDesignConstSlope, &main.mnuDesignDualSlope, &main.mnuExistingDesign,
                               &main.mnuManHoleSelection, &main.mnuComputerHoleSelection}) {
    EXPECT_FALSE(entry->ticked);
  }
  EXPECT_EQ(program.record.TotalAcres, 0.0F);
}

TEST_F(NewDesignTest, TheRowsOfTheRecordAreClearedAndTheKindOfDesignStays) {
  program.record.DesignType = kExistingField;
  program.record.Station[3] = 100;
  program.record.MilText[3] = "7";
  program.record.HoleRows = 9;
  mnuFileNew_Click(program);
  EXPECT_EQ(program.record.Station[3], 0.0F);
  EXPECT_EQ(program.record.MilText[3], "");
  EXPECT_EQ(program.record.DesignType, kExistingField);
  EXPECT_EQ(program.record.HoleRows, 9);
}

// The layout alone leaves an empty first hole size once a kind of design was chosen; a new design writes it all the
// same.
TEST_F(NewDesignTest, TheFirstHoleSizeIsWrittenWhateverTheKindOfDesign) {
  program.record.DesignType = kPlanned;
  host.WriteFile(kDefaultsFile, kDefaults);
  mnuFileNew_Click(program);
  EXPECT_EQ(FirstRow(5), "5/8");
}

}  // namespace
}  // namespace torvale
