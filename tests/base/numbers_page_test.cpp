// docs/numbers.md: every number that its tables show.
#include <gtest/gtest.h>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "support/page.h"

namespace torvale {
namespace {

const std::string& Page() {
  static const std::string page = PageText("numbers.md");
  return page;
}

TEST(NumbersPage, StorePoints) {
  for (const auto& row : TableRows(Page(), {"number", "stored in 32 bits"})) {
    EXPECT_EQ(ShortestText(static_cast<double>(Store32(StrictNumber(row[0])))), row[1]) << row[0];
  }
}

TEST(NumbersPage, Rounding) {
  for (const auto& row : TableRows(Page(), {"value", "Int", "half to even", "hundredths"})) {
    const double value = StrictNumber(row[0]);
    EXPECT_EQ(Int(value), StrictNumber(row[1])) << row[0];
    EXPECT_EQ(StoreInt16(value), StrictNumber(row[2])) << row[0];
    EXPECT_EQ(Hundredths(value), StrictNumber(row[3])) << row[0];
  }
}

TEST(NumbersPage, TextsToNumbers) {
  for (const auto& row : TableRows(Page(), {"text", "number"})) EXPECT_EQ(Val(row[0]), StrictNumber(row[1])) << row[0];
}

TEST(NumbersPage, GeneralForm) {
  for (const auto& row : TableRows(Page(), {"value", "32 bits", "64 bits"})) {
    EXPECT_EQ(GeneralText(Store32(StrictNumber(row[0]))), row[1]);
    EXPECT_EQ(GeneralText(StrictNumber(row[0])), row[2]);
  }
}

TEST(NumbersPage, Patterns) {
  for (const auto& row : TableRows(Page(), {"cell", "pattern", "shows"})) {
    EXPECT_EQ(FormatText(row[0], row[1]), row[2]) << row[0] << " in " << row[1];
  }
}

TEST(NumbersPage, Faults) {
  const std::vector<std::vector<std::string>> expected = {
      {"division by zero", std::string(FaultText(Fault::kDivisionByZero))},
      {"overflow", std::string(FaultText(Fault::kOverflow))},
      {"subscript", std::string(FaultText(Fault::kSubscript))},
      {"type mismatch", std::string(FaultText(Fault::kTypeMismatch))},
      {"invalid argument", std::string(FaultText(Fault::kInvalidArgument))}};
  EXPECT_EQ(TableRows(Page(), {"fault", "is told as"}), expected);
}

}  // namespace
}  // namespace torvale
