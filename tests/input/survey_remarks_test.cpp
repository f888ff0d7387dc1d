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
