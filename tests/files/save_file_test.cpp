#include <filesystem>
#include <map>

#include "file_program.h"
#include "files/design_format.h"

namespace torvale {
namespace {

// Saves with these two names and this type, in a current directory of its own, and gives back `SaveFileName`.
struct SavedName : FileProgram {
  std::string operator()(const std::string& save, const std::string& opened, const std::string& design, int type) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(host.ProgramFolder());
    record.SaveFileName = save;
    record.OpenedFileName = opened;
    main.txtInfo[0].Set(design);
    record.DesignType = static_cast<std::int16_t>(type);
    SaveFile(program);
    std::filesystem::current_path(before);
    return record.SaveFileName;
  }
};

TEST(SaveName, EachTypeHasItsExtension) {
  const char* const expected[] = {"Field",     "Field.PFD", "Field.CSD", "Field.DSD",
                                  "Field.CSH", "Field.XFD", "Field.LHD", "Field"};
  for (int type = 0; type < 8; ++type) {
    SavedName saved;
    EXPECT_EQ(saved("Field", "", "", type), expected[type]);
    EXPECT_TRUE(Exists(saved.Path(expected[type])));
    EXPECT_TRUE(saved.host.messages.empty());
  }
}

// Any three characters behind a point go, whatever they are; two or four stay.
TEST(SaveName, AnExtensionOfThreeCharactersIsReplaced) {
  const std::map<std::string, std::string> expected = {
      {"Field.ABC", "Field.PFD"}, {"Field.1", "Field.1.PFD"},   {"Plan.1.2", "Plan.PFD"},
      {"Field.pfd", "Field.PFD"}, {"Field.ab", "Field.ab.PFD"}, {"Field.abcd", "Field.abcd.PFD"},
      {"Field.", "Field..PFD"},   {"Field.A.B", "Field.PFD"},   {"x.y.DAT", "x.y.PFD"},
      {"Field", "Field.PFD"},     {".ABC", "NoName.PFD"},       {"abc", "abc.PFD"},
  };
  for (const auto& [name, result] : expected) EXPECT_EQ(SavedName()(name, "", "", 1), result) << name;
}

// Characters are counted, not bytes: the first has three behind its point in four bytes, the second two in three.
TEST(SaveName, AnExtensionIsCountedInCharacters) {
  EXPECT_EQ(SavedName()("Feld.a\u00F1b", "", "", 1), "Feld.PFD");
  EXPECT_EQ(SavedName()("Feld.a\u00F1", "", "", 1), "Feld.a\u00F1.PFD");
}

TEST(SaveName, AnEmptyNameIsTakenFromTheOpenedFileThenFromTheDesign) {
  EXPECT_EQ(SavedName()("a.PFD", "b.PFD", "c", 1), "a.PFD");
  EXPECT_EQ(SavedName()("", "b.PFD", "c", 2), "b.CSD");  // a new file beside the old one
  EXPECT_EQ(SavedName()("", "", "c", 1), "c.PFD");
  EXPECT_EQ(SavedName()("", "", "", 1), "NoName.PFD");
}

// Only an extension alone with a type that has none leaves nothing.
TEST(SaveName, NothingLeftIsTheDesignInTheProgramsFolder) {
  SavedName saved;
  EXPECT_EQ(saved(".ABC", "", "East", 0), saved.Path("East"));
  EXPECT_TRUE(Exists(saved.Path("East")));
}

// There is no fourth character from the end, and the point has no extension behind it.
TEST(SaveName, AShortNameThatBeginsWithAPointFails) {
  for (const char* name : {".", ".A", ".AB"}) {
    SavedName saved;
    EXPECT_EQ(saved(name, "", "", 1), name);
    ASSERT_EQ(saved.host.messages.size(), 1U);
    EXPECT_EQ(saved.host.messages[0], (Shown{std::string(kSavingFailed) + " 22", ""}));
  }
}

// The whole file

TEST_F(FilesTest, TheFirstLinesOfASmallPlannedDesign) {
  const char* const info[] = {"Gray East 40", "5/14/2026", "850", "3.0", "Levee Road", "R"};
  for (std::size_t i = 0; i < 6; ++i) main.txtInfo[i].Set(info[i]);
  const char* const rows[2][8] = {{"0", "10.00", "1320", "6.00", "15.00", "3/4", "1", "10"},
                                  {"100", "10.25", "1300", "6.01", "12.00", "5/8", "2", "9"}};
  for (int r = 0; r < 2; ++r) {
    for (int c = 0; c < 8; ++c) main.Grid1.Set(r + 1, c, rows[r][c]);
  }
  const char* const preferences[] = {"100", "3/8", ".65", "140", "1.2"};
  for (std::size_t i = 0; i < 5; ++i) main.txtDefault[i].Set(preferences[i]);
  record.DesignType = kPlanned;
  record.SurveyRows = record.HoleRows = record.WateredFurrows = 2;
  record.MaxFurrowFlow = 15.25F;
  record.MinFurrowFlow = 14.02F;
  record.Uniformity = 92.1F;
  record.MaxHead = 2.962F;
  record.MinHead = 2.871F;
  record.MaxHeadStation = 6;
  record.HazenWilliamsC = 140;
  record.DischargeCoef = 1.2F;
  EXPECT_EQ(Save(Path("x")), "");
  EXPECT_TRUE(
      BytesOf(Path("x.PFD"))
          .starts_with("\"8.2.20\"\r\n2\r\n\"Gray East 40\"\r\n\"5/14/2026\"\r\n\"850\"\r\n\"3.0\"\r\n"
                       "\"Levee Road\"\r\n\"R\"\r\n"
                       "\"0\"\r\n\"10.00\"\r\n\"1320\"\r\n\"6.00\"\r\n\"15.00\"\r\n\"3/4\"\r\n\"1\"\r\n\"10\"\r\n"
                       "\"100\"\r\n\"10.25\"\r\n\"1300\"\r\n\"6.01\"\r\n\"12.00\"\r\n\"5/8\"\r\n\"2\"\r\n\"9\"\r\n"
                       "1\r\n\"100\"\r\n\"3/8\"\r\n\".65\"\r\n\"140\"\r\n\"1.2\"\r\n"
                       "\r\n2,2\r\n15.25,14.02\r\n92.1,0\r\n2.962,2.871\r\n6,0\r\n140,1.2\r\n"))
      << BytesOf(Path("x.PFD"));
}

// One survey row, one hole row, and every field a value of its own.
void FillEveryField(FileProgram& p) {
  DesignRecord& r = p.record;
  for (const char* soil : {"Sand", "Loam", "Clay"}) p.main.listSoils.Add(soil);
  p.main.listSoils.Select(2, true);
  for (int c = 0; c < 8; ++c) p.main.Grid1.Set(1, c, "s" + std::to_string(c));
  for (std::size_t i = 0; i < 6; ++i) p.main.txtInfo[i].Set("I" + std::to_string(i));
  for (std::size_t i = 0; i < 5; ++i) p.main.txtDefault[i].Set(std::to_string(i));
  for (int c = 0; c < 11; ++c) p.main.Grid2.Set(1, c, "r" + std::to_string(c));
  r.SurveyRows = 1;
  r.DesignType = kLimitedHoles;
  r.HoleSizeIndexLimit = 12;
  r.HoleRows = 1;
  r.WateredFurrows = 3;
  r.MaxFurrowFlow = 4;
  r.MinFurrowFlow = 5;
  r.Uniformity = 6;
  r.CrownSlope = 7;
  r.MaxHead = 8;
  r.MinHead = 9;
  r.MaxHeadStation = 10;
  r.MinHeadStation = 11;
  r.HazenWilliamsC = 12;
  r.DischargeCoef = 13;
  r.AverageFurrowFlow = 14;
  r.AccumGPM = 15;
  r.TotalFurrowLength = 16;
  r.DualBreakStation = 17;
  r.DisplayFileName = "shown";
  r.PipeKind = "R";
  r.TotalAcres = 18;
  r.HoleSumStations = "sizes\r\n";
  r.HoleSumLengths = "stations";
  r.HoleSumCounts = "counts";
  r.HighestFill = 19;
  r.DesignElev[1] = 20;
  r.CrownElev[1] = 21;
  r.Station[1] = 22;
  r.NormFurrowFlow[1] = 23;
  r.ElevByFoot[1] = 24;
  r.Head[1] = 25.123456789012345;
  r.ReservedRowValue[1] = 26;
  r.HoleSpacing[1] = 27;
  r.FurrowFlow[1] = 28;
  r.SurveyHoleDia[1] = 29;
  r.HoleDia[1] = 30;
  r.HoleArea[1] = 31.5F;
  r.HolesPerFurrow[1] = 32;
  r.PipeDia[1] = 33;
  r.RequiredFlow[1] = 34;
  r.PipeArea[1] = 35;
  r.FurrowLength[1] = 36;
  r.NormFurrowLength[1] = 37;
  r.FurrowNumber[1] = 38;
  r.MilText[1] = "mil";
  r.LimitedHoleDia[1] = 39;
  r.ReservedRowValue2[1] = "reserved";
  r.SelectedHoleValue[0] = 0.25F;
  r.SelectedHoleName[0] = "1/4";
  r.SelectedHoleValue[1] = 0.375F;
  r.SelectedHoleName[1] = "3/8";
  for (const char* size : {"1/4", "3/8"}) p.main.listHolesSelected.Add(size);
  r.PlantedWidth[1] = 6.33F;
}

constexpr std::string_view kEveryField =
    "\"8.2.20\"\r\n1\r\n\"I0\"\r\n\"I1\"\r\n\"I2\"\r\n\"I3\"\r\n\"I4\"\r\n\"I5\"\r\n"
    "\"s0\"\r\n\"s1\"\r\n\"s2\"\r\n\"s3\"\r\n\"s4\"\r\n\"s5\"\r\n\"s6\"\r\n\"s7\"\r\n"
    "6\r\n\"0\"\r\n\"1\"\r\n\"2\"\r\n\"3\"\r\n\"4\"\r\n"
    "12\r\n1,3\r\n4,5\r\n6,7\r\n8,9\r\n10,11\r\n12,13\r\n14,15\r\n3,16\r\n17,\"shown\",\"R\"\r\n"
    "18,\"sizes\r\n\",\"stations\"\r\n\"counts\",19,2\r\n"
    "\"r0\"\r\n\"r1\"\r\n\"r2\"\r\n\"r3\"\r\n\"r4\"\r\n\"r5\"\r\n\"r6\"\r\n\"r7\"\r\n\"r8\"\r\n\"r9\"\r\n\"r10\"\r\n"
    "20\r\n21,22\r\n23\r\n24,25.1234567890123\r\n26,27\r\n28,29,30\r\n31.5,32\r\n33,34\r\n35,36,37\r\n38,\"mil\"\r\n"
    "39,\"reserved\"\r\n"
    "2\r\n.25,\"1/4\"\r\n.375,\"3/8\"\r\n"
    ",,,,\r\n,,,,\r\n,,,,\r\n,,,,\r\n"
    "6.33,,\r\n"
    "\"\"\r\n";  // the sheet's width, which the hole's 6.33 would not give back

TEST_F(FilesTest, EveryFieldStandsInItsPlace) {
  FillEveryField(*this);
  EXPECT_EQ(Save(Path("x.old")), "");
  EXPECT_EQ(record.SaveFileName, Path("x.LHD"));
  EXPECT_EQ(BytesOf(Path("x.LHD")), kEveryField);
}

TEST_F(FilesTest, EveryFieldIsReadBackFromItsPlace) {
  for (const char* soil : {"Sand", "Loam", "Clay"}) main.listSoils.Add(soil);
  const DesignExtras extras =
      ReadDesign(program, std::string(kEveryField), [](const DesignExtras& early) { EXPECT_EQ(early.soil, 2); });
  EXPECT_EQ(extras.sizes, 2);
  EXPECT_EQ(extras.version, 8.2);
  FileProgram expected;
  FillEveryField(expected);
  EXPECT_EQ(record.Head[1], 25.1234567890123);  // 15 digits
  expected.record.Head[1] = record.Head[1];
  expected.record.FileVersion = "8.2.20";
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(main.txtDefault[i].text(), "") << "a preference came back";
  for (std::size_t i = 0; i < 5; ++i) main.txtDefault[i].Set(std::to_string(i));
  record.HazenWilliamsC = 12;  // the two coefficients follow the preferences
  record.DischargeCoef = 13;
  for (const char* size : {"1/4", "3/8"}) main.listHolesSelected.Add(size);
  main.listSoils.Select(2, true);
  EXPECT_EQ(WriteDesign(program), WriteDesign(expected.program));
}

// Reading goes by the order of fields, not by lines.
TEST_F(FilesTest, LineBreaksChangedIntoCommasReadTheSame) {
  std::string commas(kEveryField);
  for (std::size_t at = 0; (at = commas.find("\r\n", at)) != std::string::npos;) {
    if (commas.compare(at - 5, 5, "sizes") == 0) {
      at += 2;  // inside a text
    } else {
      commas.replace(at, 2, ",");
    }
  }
  ReadDesign(program, commas, [](const DesignExtras&) {});
  EXPECT_EQ(record.PlantedWidth[1], 6.33F);
  EXPECT_EQ(record.HoleSumStations, "sizes\r\n");
  EXPECT_EQ(record.MilText[1], "mil");
}

TEST_F(FilesTest, ADesignWithoutHoleRowsHasNoRows) {
  record.DesignType = kPlanned;
  EXPECT_EQ(Save(Path("x")), "");
  const std::string bytes = BytesOf(Path("x.PFD"));
  EXPECT_TRUE(bytes.ends_with("\"\",0,-1\r\n0\r\n,,,,\r\n,,,,\r\n,,,,\r\n,,,,\r\n")) << bytes;
}

// Rows 1 to 3 are counted, row 7 was typed since.
TEST_F(FilesTest, WhatWasTypedIsSaved) {
  record.SurveyRows = 3;
  for (const int row : {1, 2, 3, 7}) main.Grid1.Set(row, 0, std::to_string(row));
  EXPECT_EQ(Save(Path("x")), "");
  EXPECT_EQ(record.SurveyRows, 7);
  EXPECT_TRUE(BytesOf(Path("x")).starts_with("\"8.2.20\"\r\n7\r\n"));
}

TEST_F(FilesTest, ACountedRowThatIsEmptyNowStaysCounted) {
  record.SurveyRows = 3;
  main.Grid1.Set(1, 0, "0");
  EXPECT_EQ(Save(Path("x")), "");
  EXPECT_EQ(record.SurveyRows, 3);
}

TEST_F(FilesTest, TheVersionIsTheRunningProgramsOwn) {
  record.FileVersion = "6.1.3";
  EXPECT_EQ(Save(Path("x")), "");
  EXPECT_EQ(record.FileVersion, "8.2.20");
  EXPECT_TRUE(BytesOf(Path("x")).starts_with("\"8.2.20\"\r\n"));
}

TEST_F(FilesTest, TextIsSavedInTheCodePage) {
  main.txtInfo[4].Set("Ca\u00F1on 6\u201D, \u0141\u00F3d\u017A");
  EXPECT_EQ(Save(Path("x")), "");
  // The page has no L with a stroke and no z with an acute.
  EXPECT_NE(BytesOf(Path("x")).find("\"Ca\xF1on 6\x94, ?\xF3"
                                    "d?\"\r\n"),
            std::string::npos);
}

TEST_F(FilesTest, SavingChangesNeitherTheShownNameNorTheRecentList) {
  record.DisplayFileName = "shown";
  EXPECT_EQ(Save(Path("x")), "");
  EXPECT_EQ(record.DisplayFileName, "shown");
  EXPECT_EQ(record.RecentFiles[0], "");
}

TEST_F(FilesTest, AFolderThatIsNotThereIsError2) {
  EXPECT_EQ(Save(Path("nowhere/x")), std::string(kSavingFailed) + " 2");
  EXPECT_EQ(record.SaveFileName, Path("nowhere/x"));
}

TEST_F(FilesTest, AFolderOfThatNameIsError21) {
  std::filesystem::create_directory(Path("x.PFD"));
  record.DesignType = kPlanned;
  EXPECT_EQ(Save(Path("x")), std::string(kSavingFailed) + " 21");
  EXPECT_TRUE(std::filesystem::is_directory(Path("x.PFD")));
}

TEST_F(FilesTest, AFullDiskIsError28) {
  host.disk = [](DiskStep step, const std::filesystem::path&) { return step == DiskStep::kWrite ? ENOSPC : 0; };
  EXPECT_EQ(Save(Path("x")), std::string(kSavingFailed) + " 28");
  EXPECT_FALSE(Exists(Path("x")));
}

// What is no file is left alone: nobody would find the design in it.
TEST_F(FilesTest, ADeviceIsError95) {
  EXPECT_EQ(Save("/dev/full"), std::string(kSavingFailed) + " 95");
}

// 5285 holes are one more than the rows' arrays have.
TEST_F(FilesTest, ACountPastTheRowsIsError9) {
  record.HoleRows = 5285;
  WriteTestFile(Path("x"), "former");
  EXPECT_EQ(Save(Path("x")), std::string(kSavingFailed) + " 9");
  EXPECT_EQ(BytesOf(Path("x")), "former");
}

}  // namespace
}  // namespace torvale
