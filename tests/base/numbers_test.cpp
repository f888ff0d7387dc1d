#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "base/fault_of.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

struct Reading {
  std::string text;
  double value;
  bool whole;  // whether the text is a number from end to end
};

void ExpectReadings(const std::vector<Reading>& readings) {
  for (const Reading& reading : readings) {
    SCOPED_TRACE(reading.text.substr(0, 60));
    EXPECT_EQ(Val(reading.text), reading.value);
    EXPECT_EQ(IsNumber(reading.text), reading.whole);
    if (reading.whole) {
      EXPECT_EQ(StrictNumber(reading.text), reading.value);
    } else {
      EXPECT_EQ(FaultOf([&] { StrictNumber(reading.text); }), Fault::kTypeMismatch);
    }
  }
}

TEST(Val, ReadsTheLeadingNumber) {
  ExpectReadings({{"12", 12, true},
                  {"12.5", 12.5, true},
                  {"12abc", 12, false},
                  {"1/2", 1, false},
                  {"1-1/4", 1, false},
                  {"Line", 0, false},
                  {"", 0, false},
                  {"abc12", 0, false},
                  {"1,320", 1, false},
                  {"1,5", 1, false},
                  {"92%", 92, false},
                  {"$5", 0, false},
                  {"(5)", 0, false},
                  {"5-", 5, false},
                  {"0x10", 0, false},
                  {"&H10", 0, false},
                  {"007", 7, true},
                  {"1320.000", 1320, true}});
}

TEST(Val, ReadsOneSignAndOnePoint) {
  ExpectReadings({{"-5", -5, true},
                  {"+5", 5, true},
                  {"+-5", 0, false},
                  {"--5", 0, false},
                  {"++5", 0, false},
                  {"5.", 5, true},
                  {".5", .5, true},
                  {"-.5", -.5, true},
                  {"+5.", 5, true},
                  {"1.2.3", 1.2, false},
                  {"1..2", 1, false},
                  {"..5", 0, false},
                  {".", 0, false},
                  {"-", 0, false},
                  {"+", 0, false},
                  {"-.", 0, false},
                  {"-.E5", 0, false}});
}

TEST(Val, SkipsBlanksAheadOfAndInsideTheNumber) {
  ExpectReadings({{"  12", 12, true},
                  {"12  ", 12, true},
                  {"1 320", 1320, true},
                  {"1 2 3 . 5", 123.5, true},
                  {"- 5", -5, true},
                  {"\t12\r\n", 12, true},
                  {"1\t2\r3\n4", 1234, true},
                  {"1 E 2", 100, true},
                  {"1 E + 2", 100, true},
                  {"12 abc", 12, false},
                  {"   ", 0, false},
                  {"\r\n", 0, false},
                  // Only space, tab, CR and LF are blanks.
                  {"\v5", 0, false},
                  {"5\f", 5, false},
                  {"1\u00a0320", 1, false},
                  {std::string("1\0002", 3), 1, false}});
}

TEST(Val, ReadsAnExponentOnlyWithDigits) {
  ExpectReadings({{"1E3", 1000, true},      {"1e3", 1000, true},   {"1D3", 1000, true},     {"1d3", 1000, true},
                  {"1.5E+09", 1.5e9, true}, {"1E-05", 1e-5, true}, {"1D-2", .01, true},     {"5.E1", 50, true},
                  {".5E1", 5, true},        {"12E", 12, false},    {"12E+", 12, false},     {"12E-", 12, false},
                  {"12D+x", 12, false},     {"12E+-3", 12, false}, {"12EE3", 12, false},    {"12E3.5", 12000, false},
                  {"12E3E2", 12000, false}, {"E3", 0, false},      {"12e003", 12000, true}, {"12Ea", 12, false}});
}

TEST(Val, NamesOfValuesAreNoNumbers) {
  ExpectReadings({{"inf", 0, false},
                  {"INF", 0, false},
                  {"-inf", 0, false},
                  {"infinity", 0, false},
                  {"nan", 0, false},
                  {"NaN(1)", 0, false},
                  {"Dec", 0, false},
                  {"True", 0, false}});
}

TEST(Val, NegativeZeroReadsAsZero) {
  for (const char* text : {"-0", "-.0", "-0E5", "-1E-400"}) EXPECT_FALSE(std::signbit(Val(text))) << text;
}

TEST(Val, GoesToInfinityAndToZeroBeyondTheRange) {
  const std::string zeros(400, '0');
  ExpectReadings({{"1E308", 1e308, true},
                  {"1E309", kInfinity, true},
                  {"-1E309", -kInfinity, true},
                  {"1E999999999999999999999999", kInfinity, true},
                  {"1E+999999999999999999999999", kInfinity, true},
                  {"1E-999999999999999999999999", 0, true},
                  {"1E9223372036854775807", kInfinity, true},
                  {"1E-9223372036854775808", 0, true},
                  {"0.01E9223372036854775807", kInfinity, true},
                  {"100E-9223372036854775808", 0, true},
                  {"0E999999999999999999999999", 0, true},
                  {"1E-400", 0, true},
                  {"5E-324", 5e-324, true},
                  {"2.2250738585072014E-308", std::numeric_limits<double>::min(), true},
                  {"1.7976931348623157E308", std::numeric_limits<double>::max(), true},
                  {std::string(400, '9'), kInfinity, true},
                  {"-" + std::string(400, '9'), -kInfinity, true},
                  {"1" + zeros, kInfinity, true},
                  {"1" + zeros + "E-400", 1, true},
                  {"1" + zeros + "E-800", 0, true},
                  {"." + zeros + "1E401", 1, true},
                  {"0." + zeros + "1", 0, true},
                  {"0." + zeros + "1E800", kInfinity, true},
                  {zeros + "7", 7, true},
                  {"1." + zeros, 1, true},
                  {"1" + zeros + "x", kInfinity, false}});
}

TEST(Val, IsCorrectlyRounded) {
  // 2^53 + 1 lies halfway between two 64-bit floats and goes to the even one; the least digit beyond lifts it.
  EXPECT_EQ(Val("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(Val("9007199254740993." + std::string(380, '0') + "1"), 9007199254740994.0);
  EXPECT_EQ(Val("9007199254740995"), 9007199254740996.0);
  EXPECT_EQ(Val("0.1"), 0.1);
  EXPECT_EQ(Val("2.675"), 2.675);
}

// Every text of up to five of these characters against a regular expression and the library's own conversion.
TEST(Val, AgreesWithAGrammarOnAllShortTexts) {
  const std::string alphabet = "07.+-Ed x";
  const std::regex grammar(R"(^[+-]?(\d+\.?\d*|\.\d+)([Ed][+-]?\d+)?)");
  std::vector<std::string> texts{""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].size() == 5) break;
    for (const char c : alphabet) texts.push_back(texts[i] + c);
  }
  ASSERT_EQ(texts.size(), 66430U);  // (9^6 - 1) / 8
  for (const std::string& text : texts) {
    const std::string packed = std::regex_replace(text, std::regex(" "), "");
    std::smatch match;
    std::string number = std::regex_search(packed, match, grammar) ? match.str() : "";
    const bool whole = !number.empty() && number == packed;
    for (char& c : number) {
      if (c == 'd') c = 'E';
    }
    ASSERT_EQ(Val(text), std::strtod(number.c_str(), nullptr)) << '"' << text << '"';
    ASSERT_EQ(IsNumber(text), whole) << '"' << text << '"';
  }
}

TEST(GeneralText, OfThirtyTwoBitsHasSevenDigits) {
  const std::vector<std::pair<float, std::string>> forms = {
      {0.0F, "0"},
      {-0.0F, "0"},
      {1.0F, "1"},
      {-1.5F, "-1.5"},
      {1320.0F, "1320"},
      {100.0F, "100"},
      {3.25F, "3.25"},
      {0.65F, ".65"},
      {-0.65F, "-.65"},
      {0.1F, ".1"},
      {0.01F, ".01"},
      {10.05F, "10.05"},
      {1.0F / 3.0F, ".3333333"},
      {2.0F / 3.0F, ".6666667"},
      {1.2345678F, "1.234568"},
      {123456.7F, "123456.7"},
      {999999.9F, "999999.9"},
      {1000000.0F, "1000000"},
      {9999999.0F, "9999999"},
      {10000000.0F, "1E+07"},
      {-10000000.0F, "-1E+07"},
      {16777216.0F, "1.677722E+07"},
      {1.5e9F, "1.5E+09"},
      {1e10F, "1E+10"},
      {std::numeric_limits<float>::max(), "3.402823E+38"},  // 3.4028234(66)
      {0.001F, ".001"},
      {0.0001F, ".0001"},
      {0.0001234567F, ".0001234567"},  // seven digits, however many decimals they take
      {0.0000999F, "9.99E-05"},
      {0.00001F, "1E-05"},
      {-0.000015F, "-1.5E-05"},
      {std::numeric_limits<float>::min(), "1.175494E-38"},         // 1.1754943(5)
      {std::numeric_limits<float>::denorm_min(), "1.401298E-45"},  // 1.4012984(6)
  };
  for (const auto& [value, text] : forms) EXPECT_EQ(GeneralText(value), text);
}

TEST(GeneralText, OfSixtyFourBitsHasFifteenDigits) {
  const std::vector<std::pair<double, std::string>> forms = {
      {0.0, "0"},
      {-0.0, "0"},
      {0.1 + 0.2, ".3"},  // 0.30000000000000004
      {1.0 / 3.0, ".333333333333333"},
      {2.0 / 3.0, ".666666666666667"},
      {-2.0 / 3.0, "-.666666666666667"},
      {2.0374609375, "2.0374609375"},
      {12345678.9, "12345678.9"},
      {10000000.0, "10000000"},
      {0.1F, ".100000001490116"},  // a 32-bit 0.1 widened: 0.10000000149011612
      {123456789012345.6, "123456789012346"},
      {100000000000000.0, "100000000000000"},
      {999999999999999.0, "999999999999999"},
      {std::nextafter(1e15, 0),
       "1E+15"},  // 999999999999999.875: the sixteenth digit rounds up, then the form is chosen
      {1e15, "1E+15"},
      {-1.5e20, "-1.5E+20"},
      {1e100, "1E+100"},
      {std::numeric_limits<double>::max(), "1.79769313486232E+308"},  // 1.79769313486231(57)
      {0.0001, ".0001"},
      {std::nextafter(0.0001, 0), ".0001"},  // rounded before the form is chosen
      {0.000123456789012345, ".000123456789012345"},
      {0.0000999, "9.99E-05"},
      {0.00001, "1E-05"},
      {1e-100, "1E-100"},
      {std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"},  // 4.94065645841246(54)
  };
  for (const auto& [value, text] : forms) EXPECT_EQ(GeneralText(value), text);
}

TEST(GeneralText, OfIntegersIsPlain) {
  EXPECT_EQ(GeneralText(0), "0");
  EXPECT_EQ(GeneralText(-7), "-7");
  EXPECT_EQ(GeneralText(10000000), "10000000");
  EXPECT_EQ(GeneralText(2147483647), "2147483647");
  EXPECT_EQ(GeneralText(std::numeric_limits<int>::min()), "-2147483648");
}

TEST(GeneralText, FaultsOnWhatIsNoNumber) {
  EXPECT_EQ(FaultOf([] { GeneralText(kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { GeneralText(-kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { GeneralText(kNoNumber); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { GeneralText(std::numeric_limits<float>::infinity()); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { GeneralText(std::numeric_limits<float>::quiet_NaN()); }), Fault::kOverflow);
}

TEST(ShortestText, IsTheShortestThatReadsBack) {
  EXPECT_EQ(ShortestText(0.65F), "0.65");
  EXPECT_EQ(ShortestText(0.1), "0.1");
  EXPECT_EQ(ShortestText(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(ShortestText(static_cast<double>(0.1F)), "0.10000000149011612");
  EXPECT_EQ(ShortestText(1320.0F), "1320");
  EXPECT_EQ(ShortestText(1e20), "1e+20");
  EXPECT_EQ(ShortestText(0.0), "0");
}

// A blank ahead of a number changes nothing of it; without one, digits with a point are read the short way.
TEST(Val, ReadsDigitsAlikeInBothWays) {
  std::mt19937_64 random(12);
  for (int i = 0; i < 100000; ++i) {
    std::string text = std::to_string(random()).substr(0, 1 + random() % 17);
    if (random() % 4 != 0) text.insert(random() % (text.size() + 1), ".");
    ASSERT_EQ(Val(text), Val(" " + text)) << text;
    ASSERT_TRUE(IsNumber(text)) << text;
    ASSERT_EQ(StrictNumber(text), Val(" " + text)) << text;
  }
  EXPECT_FALSE(IsNumber("."));
  EXPECT_FALSE(IsNumber("1.2.3"));
}

// Seven digits hold every whole number below ten million; the exponent form begins there.
TEST(GeneralText, ShowsWholeNumbersDigitByDigit) {
  for (int number = 0; number < 10000000; number += 9973) {
    EXPECT_EQ(GeneralText(static_cast<float>(number)), std::to_string(number));
    EXPECT_EQ(GeneralText(-static_cast<double>(number)), number == 0 ? "0" : "-" + std::to_string(number));
  }
  EXPECT_EQ(GeneralText(999999.0F), "999999");
  EXPECT_EQ(GeneralText(9999999.0F), "9999999");
  EXPECT_EQ(GeneralText(1e7F), "1E+07");
}

TEST(Trim, TakesBlanksOffTheEnds) {
  EXPECT_EQ(Trim("  a b \t\r\n"), "a b");
  EXPECT_EQ(Trim("a"), "a");
  EXPECT_EQ(Trim(" \t\r\n"), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\u00a0a"), "\u00a0a");
}

TEST(UpperCase, ChangesLettersOfAsciiOnly) {
  EXPECT_EQ(UpperCase("azAZ09-{`"), "AZAZ09-{`");
  EXPECT_EQ(UpperCase("größe \u00e9"), "GRößE \u00e9");
  EXPECT_EQ(UpperCase(""), "");
}

}  // namespace
}  // namespace torvale
