#include "display/colour_meanings.h"
#include "engine/survey.h"
#include "small_file.h"

namespace torvale {
namespace {

TEST_F(OpenFileTest, FillsTheScreenAndTheRecord) {
  EXPECT_EQ(OpenSmall({}), "");
  EXPECT_EQ(main.txtInfo[0].text(), "East 40");
  EXPECT_EQ(record.TargetGPM, 6.5F);  // the field's change handling
  EXPECT_EQ(main.Grid1.Text(1, 5), "3/8");
  EXPECT_EQ(record.Head[1], 2.0);
  EXPECT_EQ(record.WateredFurrows, 1);  // the later of two
  EXPECT_EQ(record.LimitedHoleDia[1], 0.5F);
  EXPECT_EQ(record.ReservedRowValue2[1], "kept");
  EXPECT_EQ(record.DisplayFileName, "saved as");
  EXPECT_EQ(record.FileVersion, "8.2.20");
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_TRUE(main.mnuWindowInfo.visible);
  EXPECT_TRUE(main.cmdReCalc.visible);
}

// 12.34 x 10 + 0.5 is 123.9: the whole part of it, divided by 10. 0.05 acres are just under a half in 32 bits widened:
// 0.0500000007 x 10 + 0.5 = 1.000000007.
// The uniformity of the design before was 83.1 percent, that of the file is 99, and the other way round.
TEST_F(OpenFileTest, TheColourOfTheUniformityIsThatOfTheOpenedDesign) {
  SmallFile good;
  main.lblEffic.back = kYellow;
  ASSERT_EQ(OpenSmall(good), "");
  EXPECT_EQ(main.lblEffic.caption, "Distribution Uniformity = 99");
  EXPECT_EQ(main.lblEffic.back, kBrightGreen);
  std::string text = good.Text();
  text.replace(text.find("\r\n99,0\r\n"), 8, "\r\n83.1,0\r\n");
  WriteTestFile(Path("poor"), text);
  ASSERT_EQ(Open(Path("poor")), "");
  EXPECT_EQ(main.lblEffic.caption, "Distribution Uniformity = 83.1");
  EXPECT_EQ(main.lblEffic.back, kYellow);
  EXPECT_EQ(MeaningOfColour("lblEffic", *main.lblEffic.back), "Yellow: the uniformity is below 90 percent.");
}

TEST_F(OpenFileTest, TheAcresHaveOneDecimal) {
  OpenSmall({});
  EXPECT_EQ(main.lblAcresTotal.caption, "Total Acres = 12.3");
  SmallFile small;
  small.acres = 0.05F;
  OpenSmall(small);
  EXPECT_EQ(main.lblAcresTotal.caption, "Total Acres = .1");
}

TEST_F(OpenFileTest, APreferenceOfTheFileIsThrownAway) {
  OpenSmall({});
  const char* const expected[] = {"100", "3/8", "0.65", "140", "1.2"};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(main.txtDefault[i].text(), expected[i]);
  // The file's coefficients, 121 and 0.51, give way to the preferences.
  EXPECT_EQ(record.HazenWilliamsC, 140.0F);
  EXPECT_EQ(record.DischargeCoef, 0.65F);
}

TEST_F(OpenFileTest, ClosesThePanelAndWritesTheDefaultsFile) {
  main.Frame1.visible = true;
  OpenSmall({});
  EXPECT_FALSE(main.Frame1.visible);
  EXPECT_TRUE(BytesOf(Path("Default50.TVL")).starts_with("100\r\n3/8\r\n0.65\r\n140\r\n"));
}

// The mean furrow is the 1000 feet of the one furrow: ratio 1. The required flow is in the file.
TEST_F(OpenFileTest, TheFlowRatioIsWorkedOutAndTheRequiredFlowStaysAsRead) {
  OpenSmall({});
  EXPECT_EQ(record.FlowRatio[1], 1.0F);
  EXPECT_EQ(record.RequiredFlow[1], 6.4F);
}

TEST_F(OpenFileTest, WithoutWateredFurrowsItOpensAllTheSame) {
  SmallFile small;
  small.watered = 0;
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(record.FlowRatio[1], 0.0F);
}

TEST_F(OpenFileTest, AllRowsAreEmptiedFirst) {
  for (const int row : {2, 300, 319}) main.Grid1.Set(row, 8, "old");
  OpenSmall({});
  EXPECT_EQ(main.Grid1.Text(2, 8), "");
  EXPECT_EQ(main.Grid1.Text(300, 8), "");
  EXPECT_EQ(main.Grid1.Text(319, 8), "");
}

TEST_F(OpenFileTest, ThePlantedWidthStandsWhereThereIsFlow) {
  OpenSmall({});
  EXPECT_EQ(main.Grid1.Text(1, 8), "6.50");
  EXPECT_EQ(main.Grid1.AlignOf(1, 8), Align::kCentreBottom);
}

// Types

TEST_F(OpenFileTest, EachTypeTicksItsEntryAndNamesTheWindow) {
  struct Kind {
    int type;
    Control* entry;
    std::string title;
  };
  const Kind kinds[] = {
      {1, &main.mnuDesignField, "TORVALE   Planned Field Design"},
      {2, &main.mnuDesignConstSlope, "TORVALE   Constant Slope Design"},
      {3, &main.mnuDesignDualSlope, "TORVALE   Dual Slope Design"},
      {5, &main.mnuExistingDesign, "TORVALE   Existing Field Conditions Design"},
      {6, &main.mnuManHoleSelection, "TORVALE   Limited Computer Hole Selection Design"},
  };
  for (const Kind& kind : kinds) {
    for (const Kind& other : kinds) other.entry->ticked = true;
    main.mnuComputerHoleSelection.ticked = true;
    SmallFile small;
    small.type = kind.type;
    small.sizes = {"1/4", "3/8"};
    EXPECT_EQ(OpenSmall(small), "");
    EXPECT_EQ(main.title, kind.title);
    EXPECT_FALSE(main.mnuComputerHoleSelection.ticked);
    for (const Kind& other : kinds) {
      // The tick of an existing field stays where another kind is opened.
      EXPECT_EQ(other.entry->ticked, other.type == kind.type || other.type == 5) << kind.type << ' ' << other.type;
    }
    EXPECT_EQ(main.listHolesSelected.count(), kind.type == 6 ? 2 : 0);
    EXPECT_EQ(record.SelectedHoleName[1], "3/8");
  }
}

TEST_F(OpenFileTest, AnUnknownTypeTicksNothingAndLeavesTheWindowsName) {
  main.title = "as it was";
  SmallFile small;
  small.type = 8;
  small.sizes = {"1/4"};
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(main.title, "as it was");
  EXPECT_FALSE(main.mnuDesignField.ticked);
  EXPECT_EQ(main.listHolesSelected.count(), 1);
}

TEST_F(OpenFileTest, ASurveyAloneFillsTheSheetAndStops) {
  main.title = "as it was";
  main.Frame1.visible = true;
  main.listHolesSelected.Add("1/2");
  main.lblAcresTotal.caption = "as it was";
  SmallFile small;
  small.type = kSurveyOnly;
  small.pipe = "";
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(main.Grid1.Text(1, 1), "100.00");
  EXPECT_EQ(main.Grid1.Text(1, 8), "6.50");
  EXPECT_EQ(record.DesignType, kSurveyOnly);
  EXPECT_EQ(main.title, "as it was");
  EXPECT_EQ(main.lblAcresTotal.caption, "as it was");
  EXPECT_EQ(main.listHolesSelected.count(), 1);
  EXPECT_EQ(record.PipeKind, "");
  EXPECT_TRUE(main.Frame1.visible);
  EXPECT_FALSE(Exists(Path("Default50.TVL")));
}

// A survey's planted width stands in the sheet with no flow beside it.
TEST_F(OpenFileTest, ASurveysWidthNeedsNoFlow) {
  SmallFile small;
  small.type = kSurveyOnly;
  std::string text = small.Text();
  text.replace(text.find("6.5,.375"), 3, "0");
  WriteTestFile(Path("small"), text);
  Open(Path("small"));
  EXPECT_EQ(record.FurrowFlow[1], 0.0F);
  EXPECT_EQ(main.Grid1.Text(1, 8), "6.50");
  text = SmallFile{}.Text();
  text.replace(text.find("6.5,.375"), 3, "0");
  WriteTestFile(Path("small"), text);
  Open(Path("small"));
  EXPECT_EQ(main.Grid1.Text(1, 8), "");
}

TEST_F(OpenFileTest, ThePipeKindIsTicked) {
  SmallFile small;
  small.pipe = "R";
  OpenSmall(small);
  EXPECT_TRUE(main.mnuRigidPipe.ticked);
  EXPECT_FALSE(main.mnuLayflatPipe.ticked);
  small.pipe = "";
  OpenSmall(small);
  EXPECT_EQ(record.PipeKind, "L");
  EXPECT_TRUE(main.mnuLayflatPipe.ticked);
  EXPECT_FALSE(main.mnuRigidPipe.ticked);
}

// The widths of the survey's rows stand as those of a typed sheet do.
TEST_F(OpenFileTest, PlantedWidthsAreCentred) {
  TypeSurvey();
  mnuDesignField_Click(program);
  ASSERT_EQ(Save(Path("x")), "");
  FileProgram later;
  ASSERT_EQ(later.Open(Path("x.PFD")), "");
  EXPECT_EQ(later.main.Grid1.AlignOf(2, kPlantedWidthColumn), Align::kCentreBottom);
  EXPECT_EQ(later.main.Grid1.AlignOf(2, kMilColumn), Align::kGeneral);
}

// Each opening counts as a moment at which all that is on the screen is in a file.
TEST_F(OpenFileTest, WhatWasOpenedIsStored) {
  const std::uint64_t before = program.stored_count;
  ASSERT_EQ(OpenSmall({}), "");
  EXPECT_GT(program.stored_count, before);
}

TEST_F(OpenFileTest, SizesOfTheListBeforeGo) {
  main.listHolesSelected.Add("1/2");
  SmallFile small;
  small.type = kLimitedHoles;
  small.sizes = {"1/4"};
  ASSERT_EQ(OpenSmall(small), "");
  ASSERT_EQ(main.listHolesSelected.count(), 1);
  EXPECT_EQ(main.listHolesSelected.Line(0), "1/4");
}

// A design of computer holes whose run is refused, for want of a flow: the sheet is shown, and the panel of preferences
// that was open is closed as after any opening.
TEST_F(OpenFileTest, ComputerHolesWhoseRunIsRefusedLeaveTheSheet) {
  TypeSurvey();
  mnuComputerHoleSelection_Click(program);
  main.txtInfo[2].Set("");
  ASSERT_EQ(Save(Path("x")), "");
  main.Frame1.visible = true;
  Open(Path("x.CSH"));
  EXPECT_EQ(host.messages,
            (std::vector<Shown>{{"Some Information Data is missing(i.e. GPM, Target Head)", "Missing Data"}}));
  EXPECT_FALSE(main.Frame1.visible);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_EQ(record.DesignType, kNoDesign);
}

// A design of computer holes is selected anew: what the file holds of the last run gives way to a run of its survey.
TEST_F(OpenFileTest, ComputerHolesAreSelectedAnew) {
  TypeSurvey();
  mnuComputerHoleSelection_Click(program);
  ASSERT_EQ(record.DesignType, kComputerHoles);
  const double head = record.Head[1];
  ASSERT_EQ(Save(Path("x")), "");
  std::string bytes = BytesOf(Path("x.CSH"));
  const std::string saved = GeneralText(record.Uniformity) + "," + GeneralText(record.CrownSlope) + "\r\n";
  ASSERT_NE(bytes.find(saved), std::string::npos);
  bytes.replace(bytes.find(saved), saved.size(), "12.5,0\r\n");
  WriteTestFile(Path("x.CSH"), bytes);

  FileProgram other;
  other.FillPreferences();
  EXPECT_EQ(other.Open(Path("x.CSH")), "");
  EXPECT_EQ(other.record.Uniformity, record.Uniformity);
  EXPECT_EQ(other.record.Head[1], head);
  EXPECT_TRUE(other.main.mnuComputerHoleSelection.ticked);
  EXPECT_EQ(other.main.title, "TORVALE   Computer Selected Hole Design");
}

}  // namespace
}  // namespace torvale
