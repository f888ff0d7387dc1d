#include "input/field_marks.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "input/focus.h"
#include "input/input_program.h"

namespace torvale {
namespace {

struct FieldMarksTest : ::testing::Test, InputProgram {
  const std::string& Mark(std::size_t index) { return Info(index).control.mark; }
};

TEST(WrongWith, ANumberThatIsReadInPartIsToldWithWhatIsRead) {
  struct Case {
    std::string_view text;
    std::string_view read;
  };
  // Reading stops at the first character that can't go on: the letter O, a comma, a slash, a second point.
  for (const Case& c : {Case{"85O", "85"},
                        {"1,200", "1"},
                        {"10,02", "10"},
                        {"5/8", "5"},
                        {"1.2.3", "1.2"},
                        {"abc", "0"},
                        {"7\"", "7"},
                        {"85 O", "85"},
                        {"850GPM", "850"},
                        {"1,200 gpm", "1"},
                        {"GPM", "0"},
                        {"7\u201D", "7"},
                        {"\u22125", "0"}}) {
    EXPECT_EQ(WrongWith(c.text, FieldForm::kNumber),
              "\u201C" + std::string(c.text) + "\u201D is read as " + std::string(c.read) +
                  ". Write digits and, for decimals, one point: no commas, no letters.");
  }
}

TEST(WrongWith, WhatIsReadAsItStandsIsInOrder) {
  for (const std::string_view text :
       {"", "850", "0.65", ".5", "5.", "-2", "+3", " 12 ", "1E3", "140.00", "850 GPM", "2 ft"}) {
    EXPECT_EQ(WrongWith(text, FieldForm::kNumber), "") << text;
  }
}

// A 32-bit float ends near 3.4E+38.
TEST(WrongWith, ANumberBeyondAnyFieldIsTooLarge) {
  EXPECT_EQ(WrongWith("1E39", FieldForm::kNumber), "\u201C1E39\u201D is too large a number.");
  EXPECT_EQ(WrongWith("-1E39", FieldForm::kNumber), "\u201C-1E39\u201D is too large a number.");
  // Twenty characters tell which text is meant.
  EXPECT_EQ(WrongWith(std::string(400, '9'), FieldForm::kNumber),
            "\u201C" + std::string(20, '9') + "\u2026\u201D is too large a number.");
  EXPECT_EQ(WrongWith("3.4E38", FieldForm::kNumber), "");
}

TEST(WrongWith, ALetterThatMeansNothingIsTold) {
  EXPECT_EQ(WrongWith("2", FieldForm::kRodsOrElevations), "\u201C2\u201D is neither R nor E.");
  EXPECT_EQ(WrongWith("C", FieldForm::kRodsOrElevations), "\u201CC\u201D is neither R nor E.");
  EXPECT_EQ(WrongWith("E", FieldForm::kRectangularOrCircular), "\u201CE\u201D is neither R nor C.");
  for (const std::string_view text : {"", "R", "r", "E", "e"}) {
    EXPECT_EQ(WrongWith(text, FieldForm::kRodsOrElevations), "");
  }
  for (const std::string_view text : {"", "R", "C", "c"}) {
    EXPECT_EQ(WrongWith(text, FieldForm::kRectangularOrCircular), "");
  }
}

TEST(WrongWith, OfTextsOnlyAStraightQuotationMark) {
  EXPECT_EQ(WrongWith("Lot 7\"", FieldForm::kText), "Straight quotation marks are saved as closing ones.");
  EXPECT_EQ(WrongWith("Lot 7\u201D, 1,200 ft", FieldForm::kText), "");
}

TEST_F(FieldMarksTest, AnInformationFieldCarriesItsMarkWhileTheTextIsWrong) {
  Info(2).Set("85O");
  EXPECT_EQ(Mark(2), WrongWith("85O", FieldForm::kNumber));
  EXPECT_EQ(program.record.TargetGPM, 85.0F);
  Info(2).Set("850");
  EXPECT_EQ(Mark(2), "");
  Info(3).Set("1,5");
  EXPECT_EQ(Mark(3), WrongWith("1,5", FieldForm::kNumber));
  Info(5).Set("2");
  EXPECT_EQ(Mark(5), WrongWith("2", FieldForm::kRodsOrElevations));
  Info(5).Set("e");
  EXPECT_EQ(Mark(5), "");
  for (const std::size_t text : {0U, 1U, 4U}) {
    Info(text).Set("1,200 O");
    EXPECT_EQ(Mark(text), "") << text;
  }
}

// The flow that was read last stays, and that is said; the fault comes once, not again at every further letter.
TEST_F(FieldMarksTest, AFlowTooLargeForItsPlaceFaultsOnceAndSaysThatTheFormerStays) {
  Info(2).Set("1000");
  EXPECT_EQ(FaultOf([&] { Info(2).Set("1E39"); }), Fault::kOverflow);
  EXPECT_EQ(program.record.TargetGPM, 1000.0F);
  EXPECT_EQ(Mark(2), "\u201C1E39\u201D is too large a number. The number before it stays in force.");
  Info(2).Set("1E390");
  EXPECT_EQ(Mark(2), "\u201C1E390\u201D is too large a number. The number before it stays in force.");
  Info(2).Set("900");
  EXPECT_EQ(program.record.TargetGPM, 900.0F);
  EXPECT_EQ(Mark(2), "");
  EXPECT_EQ(FaultOf([&] { Info(2).Set("1E40"); }), Fault::kOverflow);
}

TEST_F(FieldMarksTest, TheStatusBarTellsAMarkOfTheFieldThatTheFocusComesTo) {
  Info(3).Set("1,5");
  MoveFocus(program, "txtInfo(2)");
  EXPECT_EQ(program.main.sbStatusBar.caption, FocusHint(program, "txtInfo(2)"));
  MoveFocus(program, "txtInfo(3)");
  EXPECT_EQ(program.main.sbStatusBar.caption, Mark(3));
}

TEST_F(FieldMarksTest, WhatIsMendedGivesWayToTheHintAndNewsStay) {
  Info(3).Set("1,5");
  TellMark(program, "txtInfo(3)", "");
  const std::string before = Mark(3);
  EXPECT_EQ(program.main.sbStatusBar.caption, before);
  Info(3).Set("1.5");
  TellMark(program, "txtInfo(3)", before);
  EXPECT_EQ(program.main.sbStatusBar.caption, FocusHint(program, "txtInfo(3)"));
  program.main.sbStatusBar.caption = "3 rows pasted";
  TellMark(program, "txtInfo(3)", before);
  EXPECT_EQ(program.main.sbStatusBar.caption, "3 rows pasted");
  TellMark(program, "txtInfo(3)", "");
  EXPECT_EQ(program.main.sbStatusBar.caption, "3 rows pasted");
}

}  // namespace
}  // namespace torvale
