#include "batch/csv_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace torvale {
namespace {

using ::testing::ElementsAre;

std::vector<std::vector<std::string>> Cells(std::string_view text, char separator = ',') {
  std::vector<std::vector<std::string>> cells;
  for (const CsvRow& row : ReadCsv(text, separator)) cells.push_back(row.cells);
  return cells;
}

using Row = std::vector<std::string>;

TEST(ReadCsv, PartsCellsAndLines) {
  EXPECT_THAT(Cells("a,b\r\nc,d\r\n"), ElementsAre(Row{"a", "b"}, Row{"c", "d"}));
  EXPECT_THAT(Cells("a,b\nc"), ElementsAre(Row{"a", "b"}, Row{"c"}));
  EXPECT_THAT(Cells("a\rb\r"), ElementsAre(Row{"a"}, Row{"b"}));
  EXPECT_THAT(Cells("a;b,c", ';'), ElementsAre(Row{"a", "b,c"}));
  EXPECT_THAT(Cells(",\n\n"), ElementsAre(Row{"", ""}, Row{""}));
  EXPECT_THAT(Cells(""), ElementsAre());
}

TEST(ReadCsv, DropsBlanksAroundACellWithoutQuotesAlone) {
  EXPECT_THAT(Cells(" a b ,\" c \" \n"), ElementsAre(Row{"a b", " c "}));
}

TEST(ReadCsv, AQuotedCellHoldsSeparatorsQuotesAndLineEnds) {
  EXPECT_THAT(Cells("\"a,b\",\"say \"\"yes\"\"\",\"two\r\nlines\",\"\"\n"),
              ElementsAre(Row{"a,b", "say \"yes\"", "two\r\nlines", ""}));
  // A quote further in is a character like any other.
  EXPECT_THAT(Cells("5\" pipe,x"), ElementsAre(Row{"5\" pipe", "x"}));
}

// Lines are counted as an editor counts them, those inside a quoted cell too.
TEST(ReadCsv, TellsOnWhichLineARowBegins) {
  const std::vector<CsvRow> rows = ReadCsv("a\n\"b\nb\r\nb\"\nc\n", ',');
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].line, 1);
  EXPECT_EQ(rows[1].line, 2);
  EXPECT_EQ(rows[2].line, 5);
  EXPECT_EQ(rows[1].text, "\"b\nb\r\nb\"\n");
}

TEST(ReadCsv, SaysWhereATextIsNoTable) {
  try {
    ReadCsv("a,b\nc,\"d\ne", ',');
    FAIL();
  } catch (const CsvFault& fault) {
    EXPECT_STREQ(fault.what(), "a quote is not closed");
    EXPECT_EQ(fault.line, 2);
    EXPECT_EQ(fault.column, 2);
  }
  try {
    ReadCsv("\"a\"b", ',');
    FAIL();
  } catch (const CsvFault& fault) {
    EXPECT_STREQ(fault.what(), "text follows a closing quote");
    EXPECT_EQ(fault.line, 1);
    EXPECT_EQ(fault.column, 1);
  }
}

TEST(SeparatorOf, IsTheFirstOutsideQuotes) {
  EXPECT_EQ(SeparatorOf("a;b,c"), ';');
  EXPECT_EQ(SeparatorOf("\"a;b\",c"), ',');
  EXPECT_EQ(SeparatorOf("a\tb;c"), '\t');
  EXPECT_EQ(SeparatorOf("a\n"), ',');
}

TEST(TextOfFile, TakesUtf8WithAndWithoutMarkAndTheCodePage) {
  EXPECT_EQ(TextOfFile("\xEF\xBB\xBF"
                       "a"),
            "a");
  EXPECT_EQ(TextOfFile("Gr\xC3\xBCn"), "Gr\xC3\xBCn");
  EXPECT_EQ(TextOfFile("Gr\xFCn"), "Gr\xC3\xBCn");
}

}  // namespace
}  // namespace torvale
