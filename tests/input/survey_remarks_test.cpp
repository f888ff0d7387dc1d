#include "input/survey_remarks.h"

#include <gtest/gtest.h>

#include "input/input_program.h"

namespace torvale {
namespace {

struct SurveyRemarksTest : ::testing::Test, InputProgram {
  SurveyRemarksTest() {
    program.main.txtDefault[4].Set("1.5");
    Info(5).Set("E");
    Row(1, {"0", "10.00", "1320", "25", "15", "1", "1", "10", "25"});
    Row(2, {"100", "10.10", "1320", "25", "15", "1", "1", "10", "25"});
    Row(3, {"200", "10.20", "1320", "25", "15", "1", "1", "10", "25"});
  }
  void Row(int row, std::initializer_list<const char*> cells) {
    int column = 0;
    for (const char* cell : cells) sheet().Set(row, column++, cell);
  }
  // The only remark, as "row,column: sentence".
  std::string Only() const {
    const SurveyRemarks remarks = RemarksOnSurvey(program);
    if (remarks.size() != 1) return std::to_string(remarks.size()) + " remarks";
    return CellName(remarks[0].cell.row, remarks[0].cell.column) + ": " + remarks[0].sentence;
  }
};

TEST_F(SurveyRemarksTest, OfAWholeSurveyNothingIsSaid) {
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

TEST_F(SurveyRemarksTest, ASheetThatIsNotBegunLacksNothing) {
  for (int row = 1; row <= 3; ++row) Row(row, {"", "", "", "", "", "", "", "", ""});
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
  sheet().Set(1, 5, "5/8");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

// 1e999 is beyond what a computer's number can hold, 1e39 beyond what a cell is stored as.
TEST_F(SurveyRemarksTest, WhatIsBeyondAnyNumberHasItsRemarkAndNoOther) {
  for (const char* huge : {"1e999", "1e39"}) {
    for (int column : {0, 1, 2, 3, 8}) {
      const std::string before = sheet().Text(2, column);
      sheet().Set(2, column, huge);
      EXPECT_EQ(Only().substr(0, 11), "2," + std::to_string(column) + ": Row 2,") << Only();
      sheet().Set(2, column, before);
    }
  }
}

TEST_F(SurveyRemarksTest, ADecimalCommaIsShownAsThePointItShouldBe) {
  sheet().Set(2, 1, "10,1");
  EXPECT_EQ(Only(), "2,1: Row 2, elevation: only the digits ahead of the comma are read. Write 10.1 with a point.");
  Info(5).Set("R");
  EXPECT_EQ(Only(), "2,1: Row 2, rod reading: only the digits ahead of the comma are read. Write 10.1 with a point.");
}

TEST_F(SurveyRemarksTest, ThreeDigitsBehindACommaMayBeThousands) {
  sheet().Set(2, 2, "1,320");
  EXPECT_EQ(Only(),
            "2,2: Row 2, furrow length: \u201C1,320\u201D is read as 1. Write digits and, for decimals, one point: no "
            "commas, no letters.");
}

TEST_F(SurveyRemarksTest, ALetterAmongTheDigitsIsFoundInEveryColumnOfNumbers) {
  for (const int column : {0, 1, 2, 3, 4, 6, 7, 8}) {
    const std::string kept = Text(3, column);
    sheet().Set(3, column, "300O");
    const SurveyRemarks remarks = RemarksOnSurvey(program);
    ASSERT_FALSE(remarks.empty()) << column;
    EXPECT_EQ(remarks[0].cell, (SheetCell{3, column}));
    sheet().Set(3, column, kept);
  }
}

TEST_F(SurveyRemarksTest, TheWordsOfASupplyLineAreNoWrongNumbers) {
  Row(2, {"100", "10.10", "    Supply", "Line", "15", "", "", "10", ""});
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

TEST_F(SurveyRemarksTest, AWordIsNoNumber) {
  sheet().Set(2, 3, "wide");
  EXPECT_EQ(Only(),
            "2,3: Row 2, distance between holes: \u201Cwide\u201D is read as 0. Write digits and, for decimals, one "
            "point: no commas, no letters.");
}

TEST_F(SurveyRemarksTest, TheLetterOIsNoZero) {
  sheet().Set(3, 2, "85O");
  EXPECT_EQ(Only(),
            "3,2: Row 3, furrow length: \u201C85O\u201D is read as 85. Write digits and, for decimals, one point: no "
            "commas, no letters.");
}

TEST_F(SurveyRemarksTest, AStationMustRise) {
  sheet().Set(3, 0, "90");
  EXPECT_EQ(Only(),
            "3,0: Row 3, station: 90 lies ahead of 100 in the row above. Stations must rise: correct it, or move the "
            "row.");
  sheet().Set(3, 0, "100");
  EXPECT_EQ(Only(), "3,0: Row 3, station: it is the same as in the row above. Correct it, or delete the row.");
}

TEST_F(SurveyRemarksTest, TheFirstStationIsZero) {
  sheet().Set(1, 0, "5");
  EXPECT_EQ(Only(), "1,0: Row 1, station: it must be 0. Measure the stations from the head of the line.");
  sheet().Set(1, 0, "0.0");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

// A row without a hole and a length, an empty one, and one without a station end the survey ahead of what lies below.
TEST_F(SurveyRemarksTest, ARowThatEndsTheSurveyEarlyIsNamed) {
  sheet().Set(2, 2, "");
  sheet().Set(2, 5, "");
  EXPECT_EQ(Only(),
            "2,5: Row 2 has neither furrow length nor hole size, so that the survey ends at station 0. Enter a hole "
            "size, or 0 where nothing is watered.");
  Row(2, {"", "", "", "", "", "", "", "", ""});
  EXPECT_EQ(Only(), "2,0: Row 2 is empty, so that the survey ends at station 0. Fill it, or delete it.");
  Row(2, {"", "10.10", "1320", "25", "15", "1", "1", "10", "25"});
  EXPECT_EQ(Only(), "2,0: Row 2, station: it is missing. Enter it, or empty the row.");
}

// Only row 1 is full; of the others the stations and readings alone are typed.
TEST_F(SurveyRemarksTest, ASurveyOfWhichOnlyTheFirstRowIsFull) {
  Row(2, {"100", "10.10", "", "", "", "", "", "", ""});
  Row(3, {"200", "10.20", "", "", "", "", "", "", ""});
  EXPECT_EQ(Only(),
            "2,5: Row 2 has neither furrow length nor hole size, so that the survey ends at station 0. Enter a hole "
            "size, or 0 where nothing is watered.");
}

TEST_F(SurveyRemarksTest, WhatTheFirstRowLacksIsNamed) {
  const struct {
    int column;
    const char* remark;
  } kinds[] = {
      {1, "1,1: Row 1, elevation: it is missing. Enter it; the rows below take it from here."},
      {4, "1,4: Row 1, pipe diameter: it is missing. Enter it; the rows below take it from here."},
      {2, "1,2: Row 1, furrow length: it is missing. Enter it at the first watered row and wherever it changes."},
      {8, "1,8: Row 1, planted furrow width: it is missing, so that acres and hours come out as 0."},
  };
  for (const auto& [column, remark] : kinds) {
    const std::string kept = Text(1, column);
    sheet().Set(1, column, "");
    EXPECT_EQ(Only(), remark);
    sheet().Set(1, column, kept);
  }
}

// Every remark stands as the mark of its cell, which is the first line of the cell's tool tip.
TEST_F(SurveyRemarksTest, EachKindMarksItsCell) {
  Row(1, {"5", "", "", "wide", "", "1", "1", "10", ""});
  Row(2, {"100", "10,1", "85O", "25", "15", "5/9", "1", "10", "25"});
  Row(3, {"100", "20.20", "1320", "25", "15", "1", "1", "10", "25"});
  Row(4, {"90", "20.20", "1320", "25", "15", "1", "1", "10", "25"});
  Row(5, {"300", "20.20", "", "", "", "", "", "", ""});
  Row(6, {"400", "20.20", "1320", "25", "15", "1", "1", "10", "25"});
  MarkSurvey(program);
  std::string cells;
  for (const SurveyRemark& remark : program.remarks) {
    cells += CellName(remark.cell.row, remark.cell.column) + " ";
    EXPECT_EQ(sheet().Mark(remark.cell.row, remark.cell.column), remark.sentence);
  }
  EXPECT_EQ(cells, "1,0 1,1 1,2 1,3 1,4 1,8 2,1 2,2 2,5 3,0 3,1 4,0 5,5 ");
}

TEST_F(SurveyRemarksTest, AHoleSizeMustBeInTheTable) {
  sheet().Set(2, 5, "5/9");
  EXPECT_EQ(
      Only(),
      "2,5: Row 2, hole size: \u201C5/9\u201D is not among the hole sizes, and the row gets no hole. Take one with "
      "the keys + and -.");
  sheet().Set(2, 5, "0");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

// 1.5 feet is the limit itself; the reading after the jump is held against the one that jumped.
TEST_F(SurveyRemarksTest, AReadingJumpsByMoreThanTheLimit) {
  sheet().Set(2, 1, "11.50");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
  sheet().Set(2, 1, "11.60");
  EXPECT_EQ(Only(),
            "2,1: Row 2, elevation: it is 1.60 feet off the one before, more than the crown warning of 1.5 feet. Check "
            "the reading, or the limit in the preferences.");
  program.main.txtDefault[4].Set("");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
}

// Filled in half way, a jump of 1.6 feet is two steps of .8, and still one of 1.6 between what was surveyed.
TEST_F(SurveyRemarksTest, AReadingThatWasFilledInHidesNoJump) {
  sheet().Set(2, 1, "10.80");
  sheet().Set(3, 1, "11.60");
  EXPECT_TRUE(RemarksOnSurvey(program).empty());
  sheet().SetFilled(2, 1, true);
  ASSERT_EQ(RemarksOnSurvey(program).size(), 1U);
  EXPECT_EQ(RemarksOnSurvey(program)[0].cell, (SheetCell{3, 1}));
}

TEST_F(SurveyRemarksTest, MarksComeAndGoWithTheRemarks) {
  sheet().Set(2, 0, "0");
  MarkSurvey(program);
  EXPECT_EQ(sheet().Mark(2, 0), "Row 2, station: it is the same as in the row above. Correct it, or delete the row.");
  EXPECT_EQ(program.remarks.size(), 1U);
  const std::uint64_t revision = sheet().revision();
  MarkSurvey(program);
  EXPECT_EQ(sheet().revision(), revision);  // nothing is drawn anew for what stands
  sheet().Set(2, 0, "100");
  MarkSurvey(program);
  EXPECT_EQ(sheet().Mark(2, 0), "");
  EXPECT_TRUE(program.remarks.empty());
}

TEST_F(SurveyRemarksTest, OneCellHasOneRemark) {
  sheet().Set(1, 0, "5O");
  EXPECT_EQ(RemarksOnSurvey(program).size(), 1U);
}

}  // namespace
}  // namespace torvale
