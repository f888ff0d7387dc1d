#include "files/soils.h"

#include "file_program.h"

namespace torvale {
namespace {

constexpr std::string_view kThreeSoils = "\"Sand, fine (S)\",\"30\"\r\n\"Loam (L)\",\"17.5\"\r\n\"Clay (C)\",\"\"\r\n";

std::string Rows(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += "\"Soil " + std::to_string(i) + "\",\"" + std::to_string(i) + "\"\r\n";
  return text;
}

struct SoilsTest : FilesTest {
  Grid& grid = program.soils.Grd_Soils_FurrowFlow;
  void Soils(std::string_view text) const { host.WriteFile("SoilsName.txt", text); }
  std::string Message() { return host.messages.empty() ? "" : host.messages.back().body; }
  void Choose(int index) {
    main.listSoils.Select(index, true);
    listSoils_Click(program);
  }
  void Type(std::string_view keys) {
    for (const char& key : keys) Grd_Soils_KeyPress(program, std::string_view(&key, 1));
  }
};

std::string OpeningError(int number) {
  return "Error number " + std::to_string(number) +
         " opening Soils and Rcommended furrow GPM file. Make sure the File SoilsName.txt is in the same folder as the "
         "TORVALE program";
}

TEST_F(SoilsTest, TheEditorIsLaidOut) {
  EXPECT_EQ(program.soils.title, "Soils and Recommended Furrow Flow Editor");
  EXPECT_EQ(grid.rows(), 100);
  EXPECT_EQ(grid.column_count(), 2);
  EXPECT_EQ(grid.Text(0, 0), "Soil Name and Texture (i.e. C, Sil)");
  EXPECT_EQ(grid.Text(0, 1), "Rec Furrow Flow");
  EXPECT_EQ(grid.columns[0].width, 3000);
  EXPECT_EQ(grid.columns[1].width, 2000);
  EXPECT_EQ(grid.heading_height, 1100);
  for (const int row : {1, 99}) EXPECT_EQ(grid.AlignOf(row, 1), Align::kCentreBottom);
}

TEST_F(SoilsTest, TheEditorIsLaidOutAnewEachTimeItOpens) {
  Soils(kThreeSoils);
  grid.Set(0, 1, "x");
  grid.fixed_back.reset();
  grid.fixed_fore.reset();
  mnuSoils_and_Furrow_Click(program);
  EXPECT_EQ(grid.Text(0, 1), "Rec Furrow Flow");
  EXPECT_EQ(grid.fixed_back, kTeal);
  EXPECT_EQ(grid.fixed_fore, kWhite);
  EXPECT_TRUE(program.soils.visible);
}

TEST_F(SoilsTest, TheFileFillsTheGridTheListAndTheTable) {
  Soils(kThreeSoils);
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(grid.Text(1, 0), "Sand, fine (S)");
  EXPECT_EQ(grid.Text(2, 1), "17.5");
  ASSERT_EQ(main.listSoils.count(), 3);
  EXPECT_EQ(main.listSoils.Line(0), "Sand, fine (S)");
  EXPECT_EQ(record.SoilFurrowFlow[0], 0);
  EXPECT_EQ(record.SoilFurrowFlow[1], 30);
  EXPECT_EQ(record.SoilFurrowFlow[2], 18);  // 17.5 is halfway, and 18 is even
  EXPECT_EQ(record.SoilFurrowFlow[3], 0);
}

TEST_F(SoilsTest, AnEmptyFileIsAnEmptyList) {
  record.RecFurrowFlow = 5;
  main.lblRecFurrowFlow.caption = "as it was";
  Soils("");
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(main.listSoils.count(), 0);
  EXPECT_EQ(record.RecFurrowFlow, 5);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "as it was");
}

TEST_F(SoilsTest, AMissingFileIsAMessageAndAnEmptyTable) {
  std::filesystem::remove(Path("SoilsName.txt"));
  mnuSoils_and_Furrow_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0], (Shown{OpeningError(2), ""}));
  EXPECT_TRUE(program.soils.visible);
  EXPECT_EQ(main.listSoils.count(), 0);
  grid.Set(1, 0, "Sand");
  grid.Set(1, 1, "30");
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(BytesOf(Path("SoilsName.txt")), "\"Sand\",\"30\"\r\n");
}

TEST_F(SoilsTest, ATrailingBlankLineEndsTheTable) {
  Soils("\"Sand\",\"30\"\r\n \r\n\r\n");
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(main.listSoils.count(), 1);
}

// An editor that puts a byte order mark ahead writes the rest in UTF-8, too.
TEST_F(SoilsTest, AByteOrderMarkIsNoPartOfAName) {
  Soils("\xEF\xBB\xBF\"Ca\u00F1on\",\"30\"\r\n");
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(main.listSoils.Line(0), "Ca\u00F1on");
}

// The second copy begins at line 3: line 4 is the second soil. A file that has grown since has its third at line 8.
TEST_F(SoilsTest, AChosenSoilIsKnownByItsPlaceInTheFile) {
  Soils("\"Sand\",\"1\"\r\n\"Loam\",\"2\"\r\n\"Clay\",\"3\"\r\n");
  EXPECT_EQ(ChosenSoil(program), -1);
  OpenSoils(program);
  OpenSoils(program);
  main.listSoils.Select(4, true);
  EXPECT_EQ(ChosenSoil(program), 1);
  main.listSoils.Select(2, true);
  EXPECT_EQ(ChosenSoil(program), 2);
  OpenSoils(program);
  main.listSoils.Select(8, true);
  EXPECT_EQ(ChosenSoil(program), 2);
}

// A quote that was pasted into a name would cut the table short.
TEST_F(SoilsTest, AQuoteInANameIsWrittenAsAClosingMark) {
  grid.Set(1, 0, "Sand \",\" coarse");
  grid.Set(1, 1, "30");
  mnu_Save_Exit_Click(program);
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(main.listSoils.Line(0), "Sand \u201D,\u201D coarse");
}

TEST_F(SoilsTest, ANameWithoutAFlowIsError62) {
  Soils("\"Sand\",\"30\"\r\n\"Loam\"");
  OpenSoils(program);
  EXPECT_EQ(Message(), OpeningError(62));
  EXPECT_EQ(main.listSoils.count(), 1);  // what was read stays
}

TEST_F(SoilsTest, AFlowThatDoesNotFitIsError9) {
  Soils("\"Sand\",\"99999\"\r\n\"Loam\",\"5\"\r\n");
  OpenSoils(program);
  EXPECT_EQ(Message(), OpeningError(9));
  EXPECT_EQ(grid.Text(1, 1), "99999");
  EXPECT_EQ(main.listSoils.count(), 1);
}

TEST_F(SoilsTest, NinetyNineRowsFit) {
  Soils(Rows(99));
  OpenSoils(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(main.listSoils.count(), 99);
  EXPECT_EQ(grid.Text(99, 0), "Soil 99");
  EXPECT_EQ(record.SoilFurrowFlow[99], 99);
}

// The table of flows ends with 100, the editor's grid with row 99.
TEST_F(SoilsTest, AHundredRowsFitAndOneMoreIsError9) {
  for (const int rows : {100, 101, 300}) {
    main.listSoils.Clear();
    Soils(Rows(rows));
    OpenSoils(program);
    EXPECT_EQ(Message(), rows == 100 ? "" : OpeningError(9)) << rows;
    EXPECT_EQ(main.listSoils.count(), 100) << rows;
    EXPECT_EQ(record.SoilFurrowFlow[100], 100) << rows;
    EXPECT_EQ(grid.Text(99, 0), "Soil 99") << rows;
  }
}

TEST_F(SoilsTest, EachOpeningOfTheEditorAppendsToTheList) {
  Soils(kThreeSoils);
  OpenSoils(program);
  mnuSoils_and_Furrow_Click(program);
  EXPECT_TRUE(program.soils.visible);
  EXPECT_EQ(main.listSoils.count(), 6);
  mnuSoils_and_Furrow_Click(program);
  EXPECT_EQ(main.listSoils.count(), 9);
}

// Choosing

TEST_F(SoilsTest, ASoilShowsItsFlow) {
  Soils(kThreeSoils);
  OpenSoils(program);
  Choose(1);
  EXPECT_EQ(record.RecFurrowFlow, 18);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "Recommended Furrow Flow = 18 GPM");
  EXPECT_EQ(record.SoilName, "");
}

TEST_F(SoilsTest, ASoilOfTheSecondCopyShowsZero) {
  Soils(kThreeSoils);
  OpenSoils(program);
  OpenSoils(program);
  Choose(4);
  EXPECT_EQ(main.lblRecFurrowFlow.caption, "Recommended Furrow Flow = 0 GPM");
}

TEST_F(SoilsTest, NoSoilChangesNothing) {
  record.SoilName = "kept";
  record.RecFurrowFlow = 5;
  listSoils_Click(program);
  EXPECT_EQ(record.SoilName, "kept");
  EXPECT_EQ(record.RecFurrowFlow, 5);
}

// The table ends with the flow of line 99; line 100 still has an (empty) name, line 201 has none.
TEST_F(SoilsTest, SoilsBeyondTheTable) {
  for (int i = 0; i < 202; ++i) main.listSoils.Add("x");
  record.SoilFurrowFlow[100] = 7;
  Choose(99);
  EXPECT_EQ(record.RecFurrowFlow, 7);
  record.SoilName = "former";
  Choose(100);
  EXPECT_EQ(record.RecFurrowFlow, 7);
  EXPECT_EQ(record.SoilName, "");
  record.SoilName = "former";
  Choose(201);
  EXPECT_EQ(record.SoilName, "former");
}

// The names of the table are never filled, so that only an empty text is found, in each of its entries: the last wins.
TEST_F(SoilsTest, TheLookUpFindsAnEmptyTextAlone) {
  record.SoilFurrowFlow[100] = 44;
  record.RecFurrowFlow = 5;
  main.listSoils.Add("Sand");
  main.listSoils.Select(0, true);
  Recommended_Furror_Flow(program);
  EXPECT_EQ(record.RecFurrowFlow, 5);
  main.listSoils.Deselect();
  record.SoilName = "Sand";
  Recommended_Furror_Flow(program);
  EXPECT_EQ(record.RecFurrowFlow, 44);
  EXPECT_EQ(record.SoilName, "");
}

// Saving

TEST_F(SoilsTest, SavingWritesTheRowsDownToTheFirstGap) {
  Soils(kThreeSoils);
  mnuSoils_and_Furrow_Click(program);
  grid.Set(2, 0, "Loam, new");
  grid.Set(4, 0, "Silt");
  grid.Set(6, 0, "lost");
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(Message(), "");
  EXPECT_FALSE(program.soils.visible);
  EXPECT_EQ(BytesOf(Path("SoilsName.txt")),
            "\"Sand, fine (S)\",\"30\"\r\n\"Loam, new\",\"17.5\"\r\n\"Clay (C)\",\"\"\r\n\"Silt\",\"\"\r\n");
  EXPECT_EQ(main.listSoils.count(), 3);  // edits come with the next reading
  EXPECT_EQ(main.listSoils.Line(1), "Loam (L)");
}

TEST_F(SoilsTest, AnEmptyFirstRowEmptiesTheFile) {
  Soils(kThreeSoils);
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(BytesOf(Path("SoilsName.txt")), "");
}

// Row 98 leaves an empty row 99, at which the saving ends; a full grid runs past its last row.
TEST_F(SoilsTest, AFullGridCannotBeSaved) {
  Soils(Rows(98));
  mnuSoils_and_Furrow_Click(program);
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(BytesOf(Path("SoilsName.txt")), Rows(98));
  mnuSoils_and_Furrow_Click(program);
  grid.Set(99, 0, "one more");
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(host.messages.back(), (Shown{"Error number 9 while saving file. ", ""}));
  EXPECT_TRUE(program.soils.visible);
  EXPECT_EQ(BytesOf(Path("SoilsName.txt")), Rows(98));
}

TEST_F(SoilsTest, AFileThatCannotBeWrittenIsAMessage) {
  std::filesystem::remove(Path("SoilsName.txt"));
  std::filesystem::create_directory(Path("SoilsName.txt"));
  program.soils.visible = true;
  mnu_Save_Exit_Click(program);
  EXPECT_EQ(Message(), "Error number 21 while saving file. ");
  EXPECT_TRUE(program.soils.visible);
}

// What the file has comes back; a row below its end keeps what was typed.
TEST_F(SoilsTest, LeavingWithoutSavingKeepsOnlyTheRowsBelowTheFile) {
  Soils(kThreeSoils);
  mnuSoils_and_Furrow_Click(program);
  grid.Set(1, 0, "changed");
  grid.Set(5, 0, "kept");
  MnuExit_Click(program);
  EXPECT_FALSE(program.soils.visible);
  EXPECT_EQ(grid.Text(1, 0), "changed");
  mnuSoils_and_Furrow_Click(program);
  EXPECT_EQ(grid.Text(1, 0), "Sand, fine (S)");
  EXPECT_EQ(grid.Text(5, 0), "kept");
}

// Keys

TEST_F(SoilsTest, LettersDigitsAndBlanksAreTyped) {
  grid.SetCurrent(1, 0);
  Type("Silt Loam 2");
  EXPECT_EQ(grid.Text(1, 0), "Silt Loam 2");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SoilsTest, AnythingElseBeeps) {
  grid.SetCurrent(1, 0);
  Type("(),.\"-+/");
  Grd_Soils_KeyPress(program, "\u00E9");
  EXPECT_EQ(grid.Text(1, 0), "");
  EXPECT_EQ(host.beeps, 9);
}

TEST_F(SoilsTest, ControlCodesDoNothing) {
  grid.SetCurrent(1, 0);
  Type("\x1b\x01\t\n");
  EXPECT_EQ(grid.Text(1, 0), "");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SoilsTest, BackspaceTakesTheLastCharacter) {
  grid.SetCurrent(1, 0);
  grid.Set(1, 0, "Lo\u00E9");
  Type("\b");
  EXPECT_EQ(grid.Text(1, 0), "Lo");
  Type("\b\b\b");
  EXPECT_EQ(grid.Text(1, 0), "");
  grid.Set(1, 0, "  ");
  Type("\b");
  EXPECT_EQ(grid.Text(1, 0), "  ");  // blanks alone stay
}

TEST_F(SoilsTest, TheStarGoesToTheNextColumnAndFromTheLastNowhere) {
  grid.SetCurrent(7, 0);
  Type("*");
  EXPECT_EQ(grid.row, 1);
  EXPECT_EQ(grid.column, 1);
  grid.SetCurrent(7, 1);
  EXPECT_EQ(host.beeps, 0);
  Type("*");
  EXPECT_EQ(grid.row, 7);
  EXPECT_EQ(grid.column, 1);
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(SoilsTest, EnterCopiesTheFlowAbove) {
  grid.Set(1, 0, "name");
  grid.Set(1, 1, "30");
  grid.SetCurrent(2, 1);
  Type("\r");
  EXPECT_EQ(grid.Text(2, 1), "30");
  EXPECT_EQ(grid.row, 2);
  grid.Set(2, 1, "20");
  Type("\r");
  EXPECT_EQ(grid.Text(2, 1), "20");  // a filled cell stays
  grid.SetCurrent(2, 0);
  Type("\r");
  EXPECT_EQ(grid.Text(2, 0), "");  // flows alone
  grid.SetCurrent(1, 1);
  grid.Set(1, 1, "");
  Type("\r");
  EXPECT_EQ(grid.Text(1, 1), "");  // not the heading
}

}  // namespace
}  // namespace torvale
