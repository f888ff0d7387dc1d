#include "base/numbers.h"
#include "file_program.h"
#include "files/design_file.h"
#include "files/fields.h"

namespace torvale {
namespace {

// A file by hand: one survey row and one hole row, with what a test changes of it.
struct SmallFile {
  std::string version = "8.2.20";
  int type = kPlanned;
  int soil = -1;
  std::string pipe = "L";
  float acres = 12.34F;
  int watered = 1;
  std::vector<std::string> sizes;

  std::string Text() const {
    FieldWriter out;
    out.Text(version).EndRecord();
    out.Integer(1).EndRecord();
    for (const char* text : {"East 40", "5/14/2026", "6.5", "2", "Levee", "E"}) out.Text(text).EndRecord();
    for (const char* text : {"0", "100.00", "1000", "10", "15", "3/8", "1", "9"}) out.Text(text).EndRecord();
    out.Integer(type).EndRecord();
    for (const char* text : {"55", "1/2", "0.5", "120", "9"}) out.Text(text).EndRecord();
    out.Free(std::nullopt).EndRecord();
    out.Integer(1).Integer(9).EndRecord();
    out.Number32(6.5F).Number32(6.5F).EndRecord();
    out.Number32(99).Number32(0).EndRecord();
    out.Number32(2).Number32(2).EndRecord();
    out.Integer(0).Integer(0).EndRecord();
    out.Number32(121).Number32(0.51F).EndRecord();
    out.Number32(6.5F).Number32(6.5F).EndRecord();
    out.Integer(watered).Number32(1000).EndRecord();
    out.Free(std::nullopt).Text("saved as").Text(pipe).EndRecord();
    out.Number32(acres).Text("3/8").Text("0").EndRecord();
    out.Text("1").Number32(0).Integer(soil).EndRecord();
    for (int c = 0; c < 11; ++c) out.Text("cell").EndRecord();
    Row(out);
    if (Val(version) >= 2) {
      out.Integer(static_cast<int>(sizes.size())).EndRecord();
      for (const std::string& size : sizes) out.Number32(0.25F).Text(size).EndRecord();
    }
    if (Val(version) >= 6) {
      for (int i = 0; i < 4; ++i) out.Free({}).Free({}).Free({}).Free({}).Free({}).EndRecord();
    }
    out.Number32(6.5F).Free({}).Free({}).EndRecord();
    return out.text();
  }

 private:
  void Row(FieldWriter& out) const {
    out.Number32(100).EndRecord();
    out.Number32(100).Number32(0).EndRecord();
    out.Number32(6.5F).EndRecord();
    out.Number32(100).Number64(2).EndRecord();
    out.Number32(0).Number32(10).EndRecord();
    out.Number32(6.5F).Number32(0.375F).Number32(0.03125F).EndRecord();
    out.Number32(0.00077F).Integer(1).EndRecord();
    out.Number32(15).Number32(6.4F).EndRecord();
    out.Number32(176.625F).Integer(1000).Integer(1000).EndRecord();
    out.Number32(1).Text("9").EndRecord();
    if (Val(version) >= 2) out.Number32(0.5F).Text("kept").EndRecord();
  }
};

struct OpenFileTest : FileProgram, ::testing::Test {
  OpenFileTest() {
    FillPreferences();
    for (const char* soil : {"Sand", "Loam", "Clay"}) main.listSoils.Add(soil);
    for (int i = 1; i <= 3; ++i) record.SoilFurrowFlow[i] = static_cast<std::int16_t>(10 * i);
  }
  std::string OpenSmall(const SmallFile& file) {
    WriteTestFile(Path("small"), file.Text());
    return Open(Path("small"));
  }
};

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

TEST_F(OpenFileTest, RowsDownTo300AreEmptiedFirst) {
  for (const int row : {2, 300, 301}) main.Grid1.Set(row, 8, "old");
  OpenSmall({});
  EXPECT_EQ(main.Grid1.Text(2, 8), "");
  EXPECT_EQ(main.Grid1.Text(300, 8), "");
  EXPECT_EQ(main.Grid1.Text(301, 8), "old");
}

TEST_F(OpenFileTest, ThePlantedWidthStandsWhereThereIsFlow) {
  OpenSmall({});
  EXPECT_EQ(main.Grid1.Text(1, 8), "6.50");
  EXPECT_EQ(main.Grid1.AlignOf(1, 8), Align::kCentreBottom);
}

// Versions

TEST_F(OpenFileTest, Version1EndsWithTheRows) {
  main.lblRecFurrowFlow.caption = "old";
  SmallFile small;
  small.version = "1.0.0";
  small.type = kLimitedHoles;
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(record.FurrowNumber[1], 1.0F);
  EXPECT_EQ(record.LimitedHoleDia[1], 0.0F);
  EXPECT_EQ(record.PlantedWidth[1], 0.0F);
  EXPECT_EQ(main.listHolesSelected.count(), 0);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "");
  EXPECT_EQ(record.FileVersion, "1.0.0");
}

TEST_F(OpenFileTest, Version5HasSizesButNoSoil) {
  main.lblRecFurrowFlow.caption = "old";
  SmallFile small;
  small.version = "5.9.9";
  small.type = kLimitedHoles;
  small.sizes = {"1/4"};
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(main.listHolesSelected.count(), 1);
  EXPECT_EQ(record.LimitedHoleDia[1], 0.5F);
  EXPECT_EQ(record.PlantedWidth[1], 0.0F);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "");
}

// Both 6 and 7 have four reserved records; a reader of 6 looks for none, and for no widths either.
TEST_F(OpenFileTest, Versions6And7HaveNoWidths) {
  for (const char* version : {"6.0.1", "7.0.0"}) {
    main.lblRecFurrowFlow.caption = "old";
    SmallFile small;
    small.version = version;
    EXPECT_EQ(OpenSmall(small), "") << version;
    EXPECT_EQ(record.PlantedWidth[1], 0.0F) << version;
    EXPECT_EQ(main.lblRecFurrowFlow.caption, "old") << version;
    EXPECT_EQ(main.Grid1.Text(1, 8), ".00") << version;
  }
}

TEST_F(OpenFileTest, AFileOf6MayEndBeforeItsReservedRecords) {
  SmallFile small;
  small.version = "6.5.0";
  std::string text = small.Text();
  text.erase(text.find(",,,,\r\n"));
  WriteTestFile(Path("small"), text);
  EXPECT_EQ(Open(Path("small")), "");
}

TEST_F(OpenFileTest, AFileOf7MayNotEndBeforeItsReservedRecords) {
  SmallFile small;
  small.version = "7.5.0";
  std::string text = small.Text();
  text.erase(text.find(",,,,\r\n"));
  WriteTestFile(Path("small"), text);
  EXPECT_EQ(Open(Path("small")), std::string(kOpeningFailed) + " 62");
}

// The number ends at the second point, or at the first character that is none of a number.
TEST(VersionNumber, IsTheLeadingNumber) {
  EXPECT_EQ(VersionNumber("8.2.20"), 8.2);
  EXPECT_EQ(VersionNumber("10.0.1"), 10.0);
  EXPECT_EQ(VersionNumber("7"), 7.0);
  EXPECT_EQ(VersionNumber(""), 0.0);
  EXPECT_EQ(VersionNumber("beta"), 0.0);
}

// Soils

// The list counts from 0, the table from 1: the caption tells the flow of the chosen soil, the record keeps that of the
// soil ahead of it.
TEST_F(OpenFileTest, ASoilIsChosenAndTheRecordTakesTheFlowOfTheRowAhead) {
  SmallFile small;
  small.soil = 2;
  EXPECT_EQ(OpenSmall(small), "");
  EXPECT_EQ(main.listSoils.Current(), 2);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "Recommended Furrow Flow = 30 GPM");
  EXPECT_EQ(record.RecFurrowFlow, 20);
  small.soil = 0;
  OpenSmall(small);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "Recommended Furrow Flow = 10 GPM");
  EXPECT_EQ(record.RecFurrowFlow, 0);
}

TEST_F(OpenFileTest, NoSoilTakesTheChoiceAway) {
  main.listSoils.Select(1, true);
  record.RecFurrowFlow = 20;
  OpenSmall({});
  EXPECT_EQ(main.listSoils.Current(), -1);
  EXPECT_EQ(record.RecFurrowFlow, 20);
}

TEST_F(OpenFileTest, ASoilThatTheListDoesNotHaveIsError9) {
  for (const int soil : {3, -2, 32767}) {
    SmallFile small;
    small.soil = soil;
    EXPECT_EQ(OpenSmall(small), std::string(kOpeningFailed) + " 9") << soil;
  }
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

// Failure

TEST_F(OpenFileTest, AMissingFileIsError2) {
  main.Grid1.Set(1, 0, "5");
  record.DesignType = kPlanned;
  main.title = "as it was";
  EXPECT_EQ(Open(Path("nothing")), std::string(kOpeningFailed) + " 2");
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "");
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(main.title, "as it was");
  // The first row of the emptied sheet: the defaults, then what they leave.
  const char* const expected[] = {"0", "10.00", "1320", "10", "15", "3/8", "1", "10", "10"};
  for (int c = 0; c < 9; ++c) EXPECT_EQ(main.Grid1.Text(1, c), expected[c]) << c;
}

TEST_F(OpenFileTest, AFolderIsError21) {
  EXPECT_EQ(Open(host.ProgramFolder()), std::string(kOpeningFailed) + " 21");
}

TEST_F(OpenFileTest, AnEmptyFileIsError62) {
  WriteTestFile(Path("small"), "");
  EXPECT_EQ(Open(Path("small")), std::string(kOpeningFailed) + " 62");
}

TEST_F(OpenFileTest, AWordWhereANumberStandsIsError13) {
  std::string text = SmallFile().Text();
  text.replace(text.find("99,0"), 2, "ab");
  WriteTestFile(Path("small"), text);
  main.title = "as it was";
  EXPECT_EQ(Open(Path("small")), std::string(kOpeningFailed) + " 13");
  // What was read stays, the screen is not changed.
  EXPECT_EQ(main.txtInfo[0].text(), "East 40");
  EXPECT_EQ(main.Grid1.Text(1, 2), "1000");
  EXPECT_EQ(main.Grid1.Text(1, 8), "10");  // from the defaults
  EXPECT_EQ(record.MaxFurrowFlow, 6.5F);
  EXPECT_EQ(record.DesignType, kPlanned);
  EXPECT_EQ(main.title, "as it was");
  EXPECT_FALSE(main.Grid2.control.visible);
}

// The sheet has rows up to 319.
TEST_F(OpenFileTest, ACountBeyondTheSheetIsError9) {
  std::string text = "\"8.2.20\",320,";
  for (int i = 0; i < 5000; ++i) text += "\"1\",";
  WriteTestFile(Path("small"), text);
  EXPECT_EQ(Open(Path("small")), std::string(kOpeningFailed) + " 9");
  EXPECT_EQ(main.Grid1.Text(319, 7), "1");
}

TEST_F(OpenFileTest, AQuoteInATextEndsItEarly) {
  TypeSurvey();
  mnuDesignField_Click(program);
  main.txtInfo[4].Set("the 6\" riser");
  ASSERT_EQ(Save(Path("x")), "");
  EXPECT_EQ(Open(Path("x.PFD")), "");
  EXPECT_EQ(main.txtInfo[4].text(), "the 6");
  EXPECT_EQ(main.txtInfo[5].text(), "E");
}

// With a comma behind the quote the rest is a field of its own, and all fields after it are one late: the type of the
// design is looked for in a cell.
TEST_F(OpenFileTest, ACommaBehindSuchAQuoteIsAFieldTooMany) {
  TypeSurvey();
  mnuDesignField_Click(program);
  main.txtInfo[4].Set("the 6\" riser, north");
  ASSERT_EQ(Save(Path("x")), "");
  EXPECT_EQ(Open(Path("x.PFD")), std::string(kOpeningFailed) + " 13");
  EXPECT_EQ(main.txtInfo[4].text(), "the 6");
}

}  // namespace
}  // namespace torvale
