#include "files/design_format.h"
#include "small_file.h"

namespace torvale {
namespace {

// Versions, soils, and what fails.

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

// ---- Calculated again ----

// The same design as a program of that version wrote it: one older than 2 has no chosen size at the end of each row,
// one older than 8 no planted widths at the end of the file. (What a reader of its version doesn't look for may stand
// there.)
std::string AsOfVersion(const std::string& text, const std::string& version, int hole_rows) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  lines.front() = "\"" + version + "\"";
  if (Val(version) < 2) {
    EXPECT_EQ(std::erase(lines, "0,\"\""), hole_rows);
  }
  if (Val(version) < 8) lines.resize(lines.size() - static_cast<std::size_t>(hole_rows));
  std::string older;
  for (const std::string& line : lines) older.append(line).append("\r\n");
  return older;
}

// The sheet is in every version, so that the design comes out anew to the bit.
TEST(OldVersions, ADesignOfAnyVersionIsCalculatedAgainAsItWas) {
  for (const auto& command :
       {mnuDesignField_Click, mnuExistingDesign_Click, mnuDesignConstSlope_Click, mnuDesignDualSlope_Click}) {
    FileProgram now;
    now.TypeSurvey();
    command(now.program);
    ASSERT_EQ(now.main.lblActiveInactive.caption, "Active Design");
    const std::string path = now.Path("now");
    ASSERT_EQ(now.Save(path), "");
    const std::string text = BytesOf(now.record.SaveFileName);
    for (const char* version : {"1.0.0", "5.9.9", "6.5.0", "7.0.0", "8.2.20"}) {
      SCOPED_TRACE(now.main.title + " of version " + version);
      FileProgram later;
      later.FillPreferences();
      WriteTestFile(later.Path("old"), AsOfVersion(text, version, now.record.HoleRows));
      ASSERT_EQ(later.Open(later.Path("old")), "");
      EXPECT_EQ(later.record.FileVersion, version);
      later.record.Uniformity = 0;
      later.record.Head.Clear();
      later.record.FurrowFlow.Clear();
      later.record.DesignElev.Clear();
      cmdReCalc_Click(later.program);
      EXPECT_TRUE(later.host.messages.empty());
      EXPECT_EQ(later.record.DesignType, now.record.DesignType);
      EXPECT_EQ(later.record.Uniformity, now.record.Uniformity);
      EXPECT_EQ(later.record.CrownSlope, now.record.CrownSlope);
      ASSERT_EQ(later.record.HoleRows, now.record.HoleRows);
      for (int i = 1; i <= now.record.HoleRows; ++i) {
        EXPECT_EQ(later.record.Head[i], now.record.Head[i]) << i;
        EXPECT_EQ(later.record.FurrowFlow[i], now.record.FurrowFlow[i]) << i;
        EXPECT_EQ(later.record.DesignElev[i], now.record.DesignElev[i]) << i;
      }
      EXPECT_EQ(later.main.lblActiveInactive.caption, "Active Design");
    }
  }
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

// Puts a quote into a saved file, in the place of a mark.
void QuoteTheMark(const std::string& path) {
  std::string text = BytesOf(path);
  text.replace(text.find('~'), 1, "\"");
  WriteTestFile(path, text);
}

TEST_F(OpenFileTest, AQuoteInATextEndsItEarly) {
  TypeSurvey();
  mnuDesignField_Click(program);
  main.txtInfo[4].Set("the 6~ riser");
  ASSERT_EQ(Save(Path("x")), "");
  QuoteTheMark(Path("x.PFD"));
  EXPECT_EQ(Open(Path("x.PFD")), "");
  EXPECT_EQ(main.txtInfo[4].text(), "the 6");
  EXPECT_EQ(main.txtInfo[5].text(), "E");
}

// With a comma behind the quote the rest is a field of its own, and all fields after it are one late: the type of the
// design is looked for in a cell.
TEST_F(OpenFileTest, ACommaBehindSuchAQuoteIsAFieldTooMany) {
  TypeSurvey();
  mnuDesignField_Click(program);
  main.txtInfo[4].Set("the 6~ riser, north");
  ASSERT_EQ(Save(Path("x")), "");
  QuoteTheMark(Path("x.PFD"));
  EXPECT_EQ(Open(Path("x.PFD")), std::string(kOpeningFailed) + " 13");
  EXPECT_EQ(main.txtInfo[4].text(), "the 6");
}

}  // namespace
}  // namespace torvale
