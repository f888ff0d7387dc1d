#include "files/preferences.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "support/fake_host.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

struct PreferencesTest : ::testing::Test {
  PreferencesTest() { ConnectPreferences(program); }
  TextField& Field(std::size_t index) { return program.main.txtDefault[index]; }
  const std::string& Text(std::size_t index) { return Field(index).text(); }
  void Read(std::string_view bytes) {
    host.WriteFile("Default50.TVL", bytes);
    ReadDefaultsFile(program);
  }
  FakeHost host;
  Program program{host};
};

TEST_F(PreferencesTest, EveryChangeTakesTheCoefficients) {
  Field(2).Set(".6");
  EXPECT_EQ(program.record.DischargeCoef, 0.6F);
  EXPECT_EQ(program.record.HazenWilliamsC, 0.0F);
  Field(3).Set("14");
  EXPECT_EQ(program.record.HazenWilliamsC, 14.0F);
  Field(3).Set("140");
  EXPECT_EQ(program.record.HazenWilliamsC, 140.0F);
  program.record.DischargeCoef = 0;
  Field(0).Set("50");  // any field
  EXPECT_EQ(program.record.DischargeCoef, 0.6F);
}

TEST_F(PreferencesTest, LettersInACoefficientMakeItZeroWithNoComplaint) {
  Field(2).Set("0.65");
  Field(2).Set("x0.65");
  EXPECT_EQ(program.record.DischargeCoef, 0.0F);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PreferencesTest, TheLettersOfFields9And11AreCapitals) {
  for (std::size_t i = 0; i < 16; ++i) Field(i).Set("r");
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(Text(i), i == 9 || i == 11 ? "R" : "r") << i;
}

TEST_F(PreferencesTest, TheDistanceBetweenStationsIsNotTakenWithTheChange) {
  program.record.StationInterval = 100;
  Field(0).Set("50");
  EXPECT_EQ(program.record.StationInterval, 100);
}

// A 32-bit float ends near 3.4E+38.
TEST_F(PreferencesTest, ACoefficientBeyondItsFieldIsAFault) {
  EXPECT_EQ(FaultOf([&] { Field(3).Set("1E39"); }), Fault::kOverflow);
}

// The file

TEST_F(PreferencesTest, AMissingFileLeavesTheFields) {
  Field(0).Set("50");
  ReadDefaultsFile(program);
  EXPECT_EQ(Text(0), "50");
  EXPECT_EQ(Text(1), "");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PreferencesTest, Fields2To6TakeTwoDecimals) {
  Read("100\r\n5/8\r\n.65\r\n140\r\n1.2\r\n15\r\n6\r\n1\r\n7\r\ne\r\n2\r\nr\r\n1.2\r\n3\r\n.2\r\nxfd\r\n\r\n\r\n");
  const char* const expected[] = {"100", "5/8", "0.65", "140.00", "1.20", "15.00", "6.00", "1",
                                  "7",   "E",   "2",    "R",      "1.2",  "3",     ".2",   "xfd"};
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(Text(i), expected[i]) << i;
  EXPECT_EQ(program.record.DischargeCoef, 0.65F);
  EXPECT_EQ(program.record.HazenWilliamsC, 140.0F);
}

TEST_F(PreferencesTest, EveryLineEndAndTheCommaEndAField) {
  Read("1,2\r3\n4\r\n5,,7");
  const char* const expected[] = {"1", "2", "3.00", "4.00", "5.00", "", "7.00", ""};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(Text(i), expected[i]) << i;
}

TEST_F(PreferencesTest, AnEmptyLineEmptiesItsField) {
  Field(0).Set("50");
  Field(2).Set("0.65");
  Read("\r\n5/8\r\n\r\n140\r\n");
  EXPECT_EQ(Text(0), "");
  EXPECT_EQ(Text(1), "5/8");
  EXPECT_EQ(Text(2), "");
  EXPECT_EQ(program.record.DischargeCoef, 0.0F);
}

TEST_F(PreferencesTest, ACommaInAValueSplitsItInTwo) {
  Read("100\r\n5/8\r\n0,65\r\n");
  EXPECT_EQ(Text(2), "0.00");
  EXPECT_EQ(Text(3), "65.00");
}

TEST_F(PreferencesTest, MissingLinesLeaveTheLaterFields) {
  for (std::size_t i = 0; i < 16; ++i) Field(i).Set("9");
  Read("100\r\n1/2\r\n");
  EXPECT_EQ(Text(0), "100");
  EXPECT_EQ(Text(1), "1/2");
  for (std::size_t i = 2; i < 16; ++i) EXPECT_EQ(Text(i), "9") << i;
}

TEST_F(PreferencesTest, TextThatIsNoNumberIsTakenAsItStands) {
  Read("100\r\n5/8\r\nabc\r\n");
  EXPECT_EQ(Text(2), "abc");
}

// 1E999 is past 64 bits and has no form with two decimals, so that its field stays; the fields after it are read.
TEST_F(PreferencesTest, AValueThatHasNoFormIsPassedOver) {
  Field(4).Set("1.2");
  Read("100\r\n5/8\r\n.65\r\n140\r\n1E999\r\n15\r\n");
  EXPECT_EQ(Text(4), "1.2");
  EXPECT_EQ(Text(5), "15.00");
  EXPECT_TRUE(host.messages.empty());
}

// The file that comes with the program holds the factory defaults: 16 values, two empty lines, and the empty newest
// name of a recent list that is empty.
TEST_F(PreferencesTest, TheFileThatComesWithTheProgramHoldsTheFactoryDefaults) {
  const std::string bytes = BytesOf(std::string(kSourceFolder) + "/data/Default50.TVL");
  const std::string hole = program.record.HoleSizeName[12];
  EXPECT_EQ(hole, "5/8");
  EXPECT_EQ(bytes, "100\r\n" + hole +
                       "\r\n.65\r\n140\r\n1.2\r\n15\r\n6.0\r\n1\r\n7\r\nR\r\n2.0\r\nR\r\n1.2\r\n2\r\n.2\r\n*.*\r\n"
                       "\r\n\r\n"
                       "\r\n");
}

// Fields of every form: a number, a hole size, a letter. The two coefficients are marked where they are taken.
TEST_F(PreferencesTest, AFieldThatWonTBeReadAsTypedIsMarked) {
  for (const std::size_t index : {0U, 2U, 3U, 4U, 9U}) {
    Field(index).Set("1,2");
    EXPECT_NE(Field(index).control.mark, "") << index;
  }
  for (const auto& [index, text] : {std::pair{0U, "100"}, {2U, "0.65"}, {3U, "140"}, {4U, "1.2"}, {9U, "E"}}) {
    Field(index).Set(text);
    EXPECT_EQ(Field(index).control.mark, "") << index;
  }
}

}  // namespace
}  // namespace torvale
