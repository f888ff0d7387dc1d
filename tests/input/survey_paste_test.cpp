#include "input/survey_paste.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

constexpr const char* kFailure =
    "There was a problem when copying data from excel. Make sure you copied both Columns of Survey data.";

struct SurveyPasteTest : ::testing::Test, InputProgram {
  void Paste(std::string_view text) {
    host.clipboard = text;
    program.main.sbStatusBar.caption.clear();
    mnuSurveyCopy_Click(program);
  }
  // Stations and readings of rows 1 to `count`, each row as "station|reading ".
  std::string Survey(int count) {
    std::string rows;
    for (int row = 1; row <= count; ++row) rows += Text(row, 0) + "|" + Text(row, 1) + " ";
    return rows;
  }
  void ExpectOneMessage(std::string_view body) {
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0], (Shown{std::string(body), ""}));
    EXPECT_EQ(Status(), "");
  }
  const std::string& Status() { return program.main.sbStatusBar.caption; }
};

TEST_F(SurveyPasteTest, TwoColumnsBecomeStationsAndReadings) {
  Paste("0\t5.10\r\n100\t5.25\r\n200\t5.4\r\n");
  EXPECT_EQ(Survey(4), "0|5.10 100|5.25 200|5.4 | ");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(Status(), "3 rows pasted");
}

TEST_F(SurveyPasteTest, EveryKindOfLineEndWillDo) {
  for (const char* text : {"0\t1\n50\t2\n", "0\t1\r50\t2\r", "0\t1\r\n50\t2\n"}) {
    sheet().Clear();
    Paste(text);
    EXPECT_EQ(Survey(3), "0|1 50|2 | ");
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(SurveyPasteTest, ALastLineWithoutLineEndIsLeftOut) {
  Paste("0\t1\r\n50\t2\r\n100\t3");
  EXPECT_EQ(Survey(3), "0|1 50|2 | ");
  EXPECT_EQ(Status(), "2 rows pasted. Line 3 was left out, since no line end follows it: copy one line more.");
}

TEST_F(SurveyPasteTest, TellsOfAHeadingAndOfASurveyThatBeginsElsewhere) {
  Paste("Station\tRod\r\n0\t5.1\r\n");
  EXPECT_EQ(Status(), "2 rows pasted. Row 1 looks like a heading.");
  Paste("60\t5.1\r\n160\t5.2\r\n");
  EXPECT_EQ(Status(), "2 rows pasted. First Crown Station must be Zero.");
  Paste("0.0\t5.1\r\n");
  EXPECT_EQ(Status(), "1 row pasted");
}

TEST_F(SurveyPasteTest, ATextOfOneLineWithoutLineEndHasNoRowToGive) {
  sheet().Set(1, 0, "0");
  sheet().Set(1, 1, "10.00");
  Paste("50\t2");
  ExpectOneMessage(kFailure);
  EXPECT_EQ(Survey(1), "0|10.00 ");
}

TEST_F(SurveyPasteTest, AnEmptyClipboardIsTold) {
  Paste("");
  ExpectOneMessage("No data in clipboard");
}

TEST_F(SurveyPasteTest, AnEmptyFirstLineIsTold) {
  for (const char* text : {"\r\n0\t1\r\n", "\n", "\r"}) {
    host.messages.clear();
    Paste(text);
    ExpectOneMessage("No data");
    EXPECT_EQ(Text(1, 1), "");
  }
}

TEST_F(SurveyPasteTest, AZeroByteAloneIsAnEmptyClipboard) {
  Paste(std::string_view("\0", 1));
  ExpectOneMessage("No data in clipboard");
}

TEST_F(SurveyPasteTest, AZeroByteAtTheEndIsNoRow) {
  Paste(std::string_view("0\t1\r\n50\t2\r\n\0", 12));
  EXPECT_EQ(Survey(3), "0|1 50|2 | ");
  EXPECT_TRUE(host.messages.empty());
}

// The first cell is written before the second is found missing.
TEST_F(SurveyPasteTest, ASingleColumnFailsAtTheSecondCell) {
  sheet().Set(1, 0, "0");
  sheet().Set(1, 1, "10.00");
  sheet().Set(2, 0, "100");
  Paste("7\r\n8\r\n9\r\n");
  ExpectOneMessage(kFailure);
  EXPECT_EQ(Survey(3), "7|10.00 100| | ");
}

TEST_F(SurveyPasteTest, FurtherColumnsAreIgnored) {
  sheet().Set(1, 2, "600");
  Paste("0\t1\t900\tx\r\n50\t2\t800\ty\r\n");
  EXPECT_EQ(Survey(2), "0|1 50|2 ");
  EXPECT_EQ(Text(1, 2), "600");
  EXPECT_EQ(Text(2, 2), "");
}

// The first line tells that there are two columns.
TEST_F(SurveyPasteTest, AShorterLineHasEmptyCells) {
  sheet().Set(2, 1, "old");
  sheet().Set(3, 0, "old");
  Paste("0\t1\r\n50\r\n\r\n150\t4\r\n");
  EXPECT_EQ(Survey(4), "0|1 50| | 150|4 ");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(SurveyPasteTest, AnEmptyColumnIsAColumn) {
  Paste("\t1\r\n\t2\r\n");
  EXPECT_EQ(Survey(2), "|1 |2 ");
  Paste("5\t\r\n6\t\r\n");
  EXPECT_EQ(Survey(2), "5| 6| ");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(SurveyPasteTest, WhatIsNotCoveredStays) {
  for (int row = 1; row <= 4; ++row) {
    for (int column = 0; column < 9; ++column) sheet().Set(row, column, CellName(row, column));
  }
  Paste("0\t1\r\n50\t2\r\n");
  EXPECT_EQ(Survey(4), "0|1 50|2 3,0|3,1 4,0|4,1 ");
  for (int row = 1; row <= 4; ++row) {
    for (int column = 2; column < 9; ++column) EXPECT_EQ(Text(row, column), CellName(row, column));
  }
}

TEST_F(SurveyPasteTest, TextsArePastedAsTheyAre) {
  Paste("Station\tRod (\"ft\")\r\n 1,000 \t1.23456\r\n");
  EXPECT_EQ(Survey(2),
            "Station|Rod (\xE2\x80\x9D"
            "ft\xE2\x80\x9D)  1,000 |1.23456 ");
}

TEST_F(SurveyPasteTest, OneRowIsCountedAsOne) {
  Paste("0\t1\r\n");
  EXPECT_EQ(Status(), "1 row pasted");
}

std::string Rows(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + "\t" + std::to_string(i) + ".5\n";
  return text;
}

TEST_F(SurveyPasteTest, TheSheetTakesThreeHundredAndNineteenRows) {
  Paste(Rows(319));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(Text(319, 0), "319");
  EXPECT_EQ(Text(319, 1), "319.5");
  EXPECT_EQ(Status(), "319 rows pasted. First Crown Station must be Zero.");  // the stations run from 1 to 319
}

TEST_F(SurveyPasteTest, MoreRowsThanTheSheetHasAreToldAndTheFirstStay) {
  for (const int count : {320, 321, 100'000}) {
    host.messages.clear();
    sheet().Clear();
    Paste(Rows(count));
    ExpectOneMessage(kFailure);
    EXPECT_EQ(Text(1, 1), "1.5");
    EXPECT_EQ(Text(319, 1), "319.5");
  }
}

TEST_F(SurveyPasteTest, TheCursorAndTheFocusStay) {
  MoveFocus(program, "txtInfo(3)");
  At(7, 4);
  Paste("0\t1\r\n");
  EXPECT_EQ(Cursor(), "7,4");
  EXPECT_EQ(program.main.focus, "txtInfo(3)");
  EXPECT_EQ(host.clipboard, "0\t1\r\n");
}

}  // namespace
}  // namespace torvale
