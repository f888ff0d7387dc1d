#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/input_program.h"
#include "input/sheet.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Shown kFirstStation{"First Crown Station must be Zero.", ""};
const Shown kStationLength{"Station length can not be greater than 5280 feet.", "Station Length"};

struct SheetKeysTest : ::testing::Test, InputProgram {};

TEST_F(SheetKeysTest, DigitsAndThePointGoIntoTheCell) {
  At(2, 1);
  Keys("10.25");
  EXPECT_EQ(Text(2, 1), "10.25");
  EXPECT_EQ(Cursor(), "2,1");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetKeysTest, DigitsAreTakenInTheHoleColumnToo) {
  At(2, 5);
  Keys("12");
  EXPECT_EQ(Text(2, 5), "12");
}

TEST_F(SheetKeysTest, OtherCharactersBeepAndLeaveTheCell) {
  At(2, 2);
  sheet().Set(2, 2, "13");
  for (const std::string_view character : {"a", "/", " ", "E", "\x7f", "\xC3\xA9"}) Key(character);
  EXPECT_EQ(Text(2, 2), "13");
  EXPECT_EQ(host.beeps, 6);
}

TEST_F(SheetKeysTest, ControlCharactersDoNothing) {
  At(2, 2);
  sheet().Set(2, 2, "13");
  for (const std::string_view character : {"\t", "\x1b", "\x03", "\x1f"}) Key(character);
  EXPECT_EQ(Text(2, 2), "13");
  EXPECT_EQ(Cursor(), "2,2");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetKeysTest, BackspaceTakesTheLastCharacter) {
  At(3, 2);
  sheet().Set(3, 2, "132");
  Key("\b");
  EXPECT_EQ(Text(3, 2), "13");
  Keys("\b\b\b");  // the third finds the cell empty
  EXPECT_EQ(Text(3, 2), "");
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(SheetKeysTest, BackspaceLeavesACellOfBlanks) {
  At(3, 2);
  sheet().Set(3, 2, "  ");
  Key("\b");
  EXPECT_EQ(Text(3, 2), "  ");
}

TEST_F(SheetKeysTest, BackspaceTakesAWholeCharacterOfSeveralBytes) {
  At(3, 7);
  sheet().Set(3, 7, "7\xE2\x80\x9D");
  Key("\b");
  EXPECT_EQ(Text(3, 7), "7");
}

TEST_F(SheetKeysTest, Station5280IsAcceptedAndALongerOneIsEmptied) {
  At(2, 0);
  Keys("5280");
  EXPECT_EQ(Text(2, 0), "5280");
  EXPECT_THAT(host.messages, IsEmpty());
  Key("1");  // 52801
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
  EXPECT_EQ(Cursor(), "2,0");
}

TEST_F(SheetKeysTest, TheStationLimitBeginsAt5281) {
  At(2, 0);
  Keys("5280.9");  // below 5281
  EXPECT_EQ(Text(2, 0), "5280.9");
  sheet().Set(2, 0, "528");
  Key("1");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

TEST_F(SheetKeysTest, TypingInOtherColumnsKnowsNoLimit) {
  At(2, 2);
  Keys("6000");
  EXPECT_EQ(Text(2, 2), "6000");
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetKeysTest, TheFirstStationSnapsBackToZero) {
  At(1, 0);
  for (const std::string_view character : {"5", ".", "\b"}) {
    sheet().Set(1, 0, "0");
    Key(character);
    EXPECT_EQ(Text(1, 0), "0") << character;
  }
  EXPECT_THAT(host.messages, ElementsAre(kFirstStation, kFirstStation, kFirstStation));
}

TEST_F(SheetKeysTest, AnyKeyRestoresAFirstStationThatIsMissing) {
  At(1, 0);
  sheet().Set(1, 0, "");
  Key("x");
  EXPECT_EQ(host.beeps, 1);
  EXPECT_THAT(host.messages, ElementsAre(kFirstStation));
  EXPECT_EQ(Text(1, 0), "0");
}

TEST_F(SheetKeysTest, EnterOnAnEmptyFirstStationWritesZeroAndGoesDown) {
  At(1, 0);
  sheet().Set(1, 0, "");
  Key("\r");
  EXPECT_EQ(Text(1, 0), "0");
  EXPECT_EQ(Cursor(), "2,0");
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetKeysTest, EnterOnAnEmptyStationAddsTheInterval) {
  sheet().Set(1, 0, "0");
  At(2, 0);
  Key("\r");
  EXPECT_EQ(Text(2, 0), "100");
  EXPECT_EQ(Cursor(), "3,0");
  Key("\r");
  EXPECT_EQ(Text(3, 0), "200");
}

TEST_F(SheetKeysTest, TheIntervalIsAddedToTheWholeNumberAbove) {
  sheet().Set(2, 0, "150.5");
  At(3, 0);
  Key("\r");
  // 150.5 + 100; the cursor then leaves the cell, whose form has no decimals: a half goes away from zero.
  EXPECT_EQ(Text(3, 0), "251");
}

// By column: what Enter writes into the empty cell below `above`, and how the cell looks once the cursor has left it.
TEST_F(SheetKeysTest, EnterCopiesTheCellAbove) {
  struct Case {
    int column;
    std::string_view above;
    std::string_view after;
  };
  const Case cases[] = {
      {1, "10.256", "10.26"},   // "##.00" 10.26, left as "###.00"
      {2, "1320", "1320"},      // "##.00" 1320.00, left as "#####0"
      {3, "6", "6.00"},         // "##.00"
      {4, "15.4", "15.00"},     // "#####" 15, left as "###.00"
      {5, "5/8", "5/8"},        // as it stands
      {6, "2", "2"},            // "##.00" 2.00, left as "#####0"
      {7, "7.6", "8"},          // as it stands, left as "#####0"
      {8, "6.3", "6.30"},       // "#####.00", left as "###.00"
      {2, "Supply", "Supply"},  // no number: patterns give it back
      {1, "", ""},              // nothing above
  };
  for (const Case& c : cases) {
    sheet().Set(4, c.column, c.above);
    sheet().Set(5, c.column, "");
    At(5, c.column);
    Key("\r");
    EXPECT_EQ(Text(5, c.column), c.after) << c.column << " " << c.above;
    EXPECT_EQ(Cursor(), CellName(6, c.column));
  }
  EXPECT_THAT(host.messages, IsEmpty());
}

TEST_F(SheetKeysTest, EnterInTheFirstRowFillsOnlyTheStation) {
  for (int column = 1; column < 9; ++column) {
    sheet().Set(1, column, "");
    At(1, column);
    Key("\r");
    EXPECT_EQ(Text(1, column), "") << column;
    EXPECT_EQ(Cursor(), CellName(2, column));
  }
}

TEST_F(SheetKeysTest, EnterKeepsWhatWasTyped) {
  sheet().Set(1, 2, "1320");
  At(2, 2);
  Keys("900\r");
  EXPECT_EQ(Text(2, 2), "900");
}

TEST_F(SheetKeysTest, AStationThatDoesNotRiseIsRefused) {
  sheet().Set(2, 0, "100");
  for (const std::string_view typed : {"100", "99"}) {
    host.messages.clear();
    host.beeps = 0;
    At(3, 0);
    Keys(typed);
    Key("\r");
    EXPECT_EQ(Text(3, 0), "") << typed;
    EXPECT_EQ(Text(2, 0), "100");
    EXPECT_EQ(Cursor(), "3,0");  // one back, one down
    EXPECT_EQ(host.beeps, 1);
    EXPECT_THAT(host.messages, ElementsAre(Shown{"You must enter a value greater than 100", ""}));
  }
}

TEST_F(SheetKeysTest, AStationPastTheEndIsRefusedAtEnter) {
  sheet().Set(4, 0, "5200");
  At(5, 0);
  Key("\r");  // 5200 + 100 = 5300
  EXPECT_EQ(Text(5, 0), "");
  EXPECT_EQ(Cursor(), "6,0");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

TEST_F(SheetKeysTest, EnterHoldsEveryColumnToTheStationLimit) {
  At(2, 4);
  Keys("6000\r");
  EXPECT_EQ(Text(2, 4), "");
  EXPECT_EQ(Cursor(), "3,4");
  EXPECT_THAT(host.messages, ElementsAre(kStationLength));
}

// The limit is looked at where the cursor then stands: in the row above the refused station.
TEST_F(SheetKeysTest, AfterARefusedOrderTheLimitTakesTheRowAbove) {
  sheet().Set(2, 0, "6000");
  At(3, 0);
  Keys("10\r");
  EXPECT_THAT(host.messages, ElementsAre(Shown{"You must enter a value greater than 6000", ""}, kStationLength));
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_EQ(Text(3, 0), "");
  EXPECT_EQ(Cursor(), "3,0");
}

TEST_F(SheetKeysTest, EnterAtTheFootGoesToTheHeadOfTheNextColumn) {
  At(319, 2);
  Keys("900\r");
  EXPECT_EQ(Cursor(), "1,3");
  At(319, 8);
  Keys("6\r");
  EXPECT_EQ(Text(319, 8), "6.00");
  EXPECT_EQ(Cursor(), "1,1");  // not column 0
}

TEST_F(SheetKeysTest, StarGoesToTheHeadOfTheNextColumn) {
  At(7, 1);
  sheet().Set(7, 1, "9.5");
  Key("*");
  EXPECT_EQ(Cursor(), "1,2");
  EXPECT_EQ(Text(7, 1), "9.50");  // the cell was left
}

TEST_F(SheetKeysTest, StarInTheLastColumnStaysAndBeeps) {
  At(7, 8);
  sheet().Set(7, 8, "6.3");
  Key("*");
  EXPECT_EQ(Cursor(), "7,8");
  EXPECT_EQ(Text(7, 8), "6.3");  // not left
  EXPECT_EQ(host.beeps, 1);
}

}  // namespace
}  // namespace torvale
