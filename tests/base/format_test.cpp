#include "base/format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "base/fault_of.h"
#include "base/patterns.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// Each pattern in use against eight values:
//   0         nothing significant, also for negative zero
//   0.5       below 1; a half for patterns without decimals
//   -0.05     a half in the first decimal, away from zero; zero and so without sign where no decimal is shown
//   12.345    a half in the third decimal, though 64 bits hold a little more or less
//   -92       whole and negative
//   99.9995   rounds over into a third whole digit
//   1234567.891  more whole digits than any short pattern has
//   0.00049   just under a half of the third decimal
constexpr std::array<double, 8> kValues = {0, 0.5, -0.05, 12.345, -92, 99.9995, 1234567.891, 0.00049};

struct Row {
  const char* pattern;
  std::array<const char*, 8> texts;
};

const std::vector<Row>& Table() {
  static const std::vector<Row> rows = {
      {"##.00", {".00", ".50", "-.05", "12.35", "-92.00", "100.00", "1234567.89", ".00"}},
      {"###.00", {".00", ".50", "-.05", "12.35", "-92.00", "100.00", "1234567.89", ".00"}},
      {"####.00", {".00", ".50", "-.05", "12.35", "-92.00", "100.00", "1234567.89", ".00"}},
      {"#####.00", {".00", ".50", "-.05", "12.35", "-92.00", "100.00", "1234567.89", ".00"}},
      {"0.00", {"0.00", "0.50", "-0.05", "12.35", "-92.00", "100.00", "1234567.89", "0.00"}},
      // The sign stands ahead of the pattern's own "-".
      {"-####.00", {"-.00", "-.50", "--.05", "-12.35", "--92.00", "-100.00", "-1234567.89", "-.00"}},
      // Only the first "." is the point; the one behind "ft" is a letter like the others.
      {"##.00 ft.",
       {".00 ft.", ".50 ft.", "-.05 ft.", "12.35 ft.", "-92.00 ft.", "100.00 ft.", "1234567.89 ft.", ".00 ft."}},
      // The point stands even where no digit follows it.
      {"##.##", {".", ".5", "-.05", "12.35", "-92.", "100.", "1234567.89", "."}},
      {"##.###", {".", ".5", "-.05", "12.345", "-92.", "100.", "1234567.891", "."}},
      {"#.###", {".", ".5", "-.05", "12.345", "-92.", "100.", "1234567.891", "."}},
      // A "#" ahead of a later "0" among the decimals is always shown.
      {"#.##0", {".000", ".500", "-.050", "12.345", "-92.000", "100.000", "1234567.891", ".000"}},
      {"###.####", {".", ".5", "-.05", "12.345", "-92.", "99.9995", "1234567.891", ".0005"}},
      {"###.0000", {".0000", ".5000", "-.0500", "12.3450", "-92.0000", "99.9995", "1234567.8910", ".0005"}},
      {"###0.0", {"0.0", "0.5", "-0.1", "12.3", "-92.0", "100.0", "1234567.9", "0.0"}},
      {"###.0", {".0", ".5", "-.1", "12.3", "-92.0", "100.0", "1234567.9", ".0"}},
      {"##.0", {".0", ".5", "-.1", "12.3", "-92.0", "100.0", "1234567.9", ".0"}},
      {"###.#", {".", ".5", "-.1", "12.3", "-92.", "100.", "1234567.9", "."}},
      {"####.#", {".", ".5", "-.1", "12.3", "-92.", "100.", "1234567.9", "."}},
      {".#", {".", ".5", "-.1", "12.3", "-92.", "100.", "1234567.9", "."}},
      // The leading blank is a literal: the sign stands ahead of it.
      {" .#", {" .", " .5", "- .1", " 12.3", "- 92.", " 100.", " 1234567.9", " ."}},
      {"##", {"", "1", "", "12", "-92", "100", "1234568", ""}},
      {"####", {"", "1", "", "12", "-92", "100", "1234568", ""}},
      {"#####", {"", "1", "", "12", "-92", "100", "1234568", ""}},
      {"######", {"", "1", "", "12", "-92", "100", "1234568", ""}},
      {"#######", {"", "1", "", "12", "-92", "100", "1234568", ""}},
      {"####0", {"0", "1", "0", "12", "-92", "100", "1234568", "0"}},
      {"#####0", {"0", "1", "0", "12", "-92", "100", "1234568", "0"}},
  };
  return rows;
}

TEST(Format, ShowsEachPatternInUse) {
  ASSERT_EQ(Table().size(), std::size(kPatternsInUse));
  for (const char* pattern : kPatternsInUse) {
    const auto same = [pattern](const Row& row) { return std::string(pattern) == row.pattern; };
    ASSERT_EQ(std::count_if(Table().begin(), Table().end(), same), 1) << pattern;
  }
  for (const Row& row : Table()) {
    for (std::size_t i = 0; i < kValues.size(); ++i) {
      EXPECT_EQ(Format(kValues[i], row.pattern), row.texts[i]) << kValues[i] << " in \"" << row.pattern << '"';
    }
    EXPECT_EQ(Format(-0.0, row.pattern), row.texts[0]) << "negative zero in \"" << row.pattern << '"';
  }
}

struct Case {
  double value;
  const char* pattern;
  const char* text;
};

void ExpectTexts(const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(Format(c.value, c.pattern), c.text) << c.value << " in \"" << c.pattern << '"';
}

TEST(Format, RoundsAHalfAwayFromZero) {
  ExpectTexts({{2.5, "##", "3"},
               {3.5, "##", "4"},
               {-2.5, "##", "-3"},
               {0.5, "####0", "1"},
               {-0.5, "####0", "-1"},
               {0.125, "##.00", ".13"},
               {-0.125, "##.00", "-.13"},
               {0.05, "##.0", ".1"},
               {0.045, "##.0", ".0"},
               {0.00005, "###.0000", ".0001"},
               {-0.00005, "###.0000", "-.0001"}});
}

TEST(Format, JudgesAHalfOnTheFifteenDigitForm) {
  ExpectTexts({{2.675, "##.00", "2.68"},  // 64 bits hold 2.67499999999999982
               {-2.675, "##.00", "-2.68"},
               {1.005, "##.00", "1.01"},              // 1.00499999999999989
               {1.015, "##.00", "1.02"},              // 1.01499999999999990
               {4.35, "##.0", "4.4"},                 // 4.34999999999999964
               {2.67499999999999, "##.00", "2.67"},   // fifteen digits, below the half
               {2.674999999999999, "##.00", "2.68"},  // sixteen: its 15-digit form is 2.67500000000000
               {2.67500000000001, "##.00", "2.68"},
               {0.4999999999999999, "##", "1"},  // 0.49999999999999989, in fifteen digits 0.500000000000000
               {0.499999999999999, "##", ""},
               {1320.4999999, "#####", "1320"}});
}

TEST(Format, WidensThirtyTwoBitsFirst) {
  ExpectTexts({{2.675F, "##.00", "2.67"},  // 2.67499995231628
               {0.145F, "##.00", ".14"},   // .144999995827675
               {0.155F, "##.00", ".16"},   // .155000001192093
               {0.125F, "##.00", ".13"},   // exact
               {89.95F, "##.0", "89.9"},   // 89.9499969482422
               {1.005F, "0.00", "1.00"},   // 1.00499999523163
               {0.1F, "###.####", ".1"},   // .100000001490116
               {16777216.0F, "####.00", "16777216.00"}});
}

TEST(Format, CarriesIntoANewWholeDigit) {
  ExpectTexts({{9.995, "##.00", "10.00"},
               {99.995, "##.00", "100.00"},
               {0.995, "##.00", "1.00"},
               {-0.995, "##.00", "-1.00"},
               {0.9995, "#.###", "1."},
               {0.9995, "#.##0", "1.000"},
               {99.5, "##", "100"},
               {9.96, ".#", "10."},
               {-9.96, " .#", "- 10."},
               {1.96, "##.#", "2."},
               {0.096, "##.##", ".1"}});
}

// A pattern with a letter behind it always goes by the 15-digit form, a pattern of digits alone only where the half is
// near: both must show the same digits. Beside values of every size: every half of the last decimal and its neighbours,
// near and some millionths off, and values about the largest that is rounded at once.
TEST(Format, RoundsADigitPatternAsItDoesAnyOther) {
  std::mt19937_64 random(11);
  std::vector<double> values;
  for (int i = 0; i < 8000; ++i) {
    const double share = static_cast<double>(random() >> 11) * 0x1p-53;
    values.push_back(std::ldexp(share, static_cast<int>(random() % 64) - 24));
    values.push_back(static_cast<double>(static_cast<float>(values.back())));
    const double half = (std::floor(std::ldexp(share, static_cast<int>(random() % 40))) + 0.5) /
                        std::array{1., 10., 100., 1000., 10000.}[random() % 5];
    for (const double off : {0., 1e-15, -1e-15, 6e-15, -6e-15, 1e-9, -1e-9}) values.push_back(half * (1 + off));
    values.push_back(half + 1.0000001e-5);
    values.push_back(std::nextafter(half, 0));
  }
  for (const char* pattern : {"####0", "#####", "##.0", ".#", "###.00", "##.##", "#.##0", "#.###", "###.0000"}) {
    const std::string lettered = std::string(pattern) + "!";
    for (const double value : values) {
      for (const double signed_value : {value, -value}) {
        ASSERT_EQ(Format(signed_value, pattern) + "!", Format(signed_value, lettered)) << signed_value << pattern;
      }
    }
  }
}

TEST(Format, ShowsZerosBetweenThePointAndADigit) {
  ExpectTexts({{0.05, "##.###", ".05"},
               {0.005, "##.###", ".005"},
               {10.001, "##.###", "10.001"},
               {10.01, "###.####", "10.01"},
               {100, "##", "100"},
               {1000000, "##.00", "1000000.00"},
               {0.0001, "##.###", "."}});
}

TEST(Format, GivesARoundedZeroNoSign) {
  ExpectTexts({{-0.004, "##.00", ".00"},
               {-0.004, "0.00", "0.00"},
               {-0.004, "-####.00", "-.00"},
               {-0.004, "##.00 ft.", ".00 ft."},
               {-0.04, " .#", " ."},
               {-0.4, "##", ""},
               {-0.4, "####0", "0"},
               {-0.0004, "#.##0", ".000"},
               {-0.0004, "##.###", "."},
               {-1e-300, "##.00", ".00"}});
}

TEST(Format, HoldsFifteenDigitsOfLargeValues) {
  ExpectTexts({{1e15, "##.00", "1000000000000000.00"},
               {1e20, "#####", "100000000000000000000"},
               {-1e20, "####.00", "-100000000000000000000.00"},
               {123456789012345678.0, "####0", "123456789012346000"},
               {123456789012345.0, "##.##", "123456789012345."},
               {999999999999999.9, "##.##", "1000000000000000."},    // sixteen nines round over
               {12345678901234.55, "##.00", "12345678901234.60"}});  // the fifteenth digit is the first decimal
  EXPECT_EQ(Format(1e308, ".#"), "1" + std::string(308, '0') + ".");
  EXPECT_EQ(Format(-std::numeric_limits<double>::max(), "##"), "-179769313486232" + std::string(294, '0'));
}

TEST(Format, ShowsNothingOfTinyValues) {
  ExpectTexts({{1e-300, "##.00", ".00"},
               {1e-300, "##", ""},
               {1e-300, "##.##", "."},
               {5e-324, "####0", "0"},
               {5e-324, "###.####", "."}});
}

TEST(Format, LeavesOtherCharactersAsWritten) {
  ExpectTexts({{5, "$##.0%", "$5.0%"},
               {-5, "$##.0%", "-$5.0%"},
               {5, "##.0.0", "5.0.0"},  // the second "." is a literal, the "0" behind it a decimal
               {5, "0#.0", "05.0"},     // a "#" behind a "0" is always shown
               {5, "", ""},
               {5, " ", " "},
               {5, ".", "5."},
               {0, ".", "."},
               {12, "\u00b1##", "\u00b112"}});
}

TEST(Format, FaultsOnWhatIsNoNumber) {
  for (const Row& row : Table()) {
    EXPECT_EQ(FaultOf([&] { Format(kInfinity, row.pattern); }), Fault::kOverflow);
    EXPECT_EQ(FaultOf([&] { Format(-kInfinity, row.pattern); }), Fault::kOverflow);
    EXPECT_EQ(FaultOf([&] { Format(kNoNumber, row.pattern); }), Fault::kOverflow);
  }
}

TEST(FormatText, ConvertsATextThatIsANumber) {
  EXPECT_EQ(FormatText("12.345", "####.00"), "12.35");
  EXPECT_EQ(FormatText("0.5", "##.00"), ".50");
  EXPECT_EQ(FormatText("0", "#####"), "");
  EXPECT_EQ(FormatText("0", "####0"), "0");
  EXPECT_EQ(FormatText("-0", "####0"), "0");
  EXPECT_EQ(FormatText("-5", "##.00"), "-5.00");
  EXPECT_EQ(FormatText("+5", "##.00"), "5.00");
  EXPECT_EQ(FormatText("5.", "##.00"), "5.00");
  EXPECT_EQ(FormatText(".5", "##.00"), ".50");
  EXPECT_EQ(FormatText("007", "####0"), "7");
  EXPECT_EQ(FormatText(" 1 320\t", "#####0"), "1320");
  EXPECT_EQ(FormatText("\r\n7", "##.00"), "7.00");
  EXPECT_EQ(FormatText("1.5E+02", "####"), "150");
  EXPECT_EQ(FormatText("15d-1", "##.00"), "1.50");
  EXPECT_EQ(FormatText("1E-400", "##.00"), ".00");
  EXPECT_EQ(FormatText("2.675", "##.00"), "2.68");
  EXPECT_EQ(FormatText("12345678901234567890", "####"), "12345678901234600000");
}

TEST(FormatText, GivesAnyOtherTextBackAsItIs) {
  for (const char* text :
       {"",      " ",    "\t\r\n", "3/4",   "1-1/4", "12abc", "abc12", "Supply",  "Line",  "  Supply",
        "12E",   "12E+", "1.2.3",  "--5",   "+-5",   "-",     "+",     ".",       "-.",    "E5",
        "1,320", "5\"",  "$5",     "5 ft.", "0x10",  "inf",   "nan",   "\u00a05", "\u00bd"}) {
    for (const Row& row : Table()) EXPECT_EQ(FormatText(text, row.pattern), text) << row.pattern;
  }
}

TEST(FormatText, FaultsOnANumberBeyondTheRange) {
  EXPECT_EQ(FaultOf([] { FormatText("1E400", "##.00"); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { FormatText("-1E400", "##.00"); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { FormatText(std::string(400, '9'), "####"); }), Fault::kOverflow);
}

}  // namespace
}  // namespace torvale
