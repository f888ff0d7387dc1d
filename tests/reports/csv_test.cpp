#include "reports/csv.h"

#include <gtest/gtest.h>

#include "display/design_display.h"
#include "display/hole_summary.h"
#include "display/small_line.h"

namespace torvale {
namespace {

TEST(Csv, QuotesWhatNeedsItAndDoublesQuotes) {
  EXPECT_EQ(Csv({{"a", "b c"}, {"1,5", "say \"x\"", ""}}), "a,b c\r\n\"1,5\",\"say \"\"x\"\"\",\r\n");
  EXPECT_EQ(Csv({{"two\r\nlines"}, {"cr\r"}, {"lf\n"}}), "\"two\r\nlines\"\r\n\"cr\r\"\r\n\"lf\n\"\r\n");
  EXPECT_EQ(Csv({}), "");
}

struct CsvTest : ::testing::Test, SmallLine {
  CsvTest() {
    AddHole(0, kQuarterInch, 100);
    AddHole(10, kQuarterInch, 100);
    AddHole(20, kEighthInch, 100);
    AddSurvey("0", "1/4");
    AddSurvey("20", "1/8");
  }
};

TEST_F(CsvTest, TheTableIsWrittenAsShownWithUnitsInItsHeadings) {
  ShowTable("Complete Design");
  DisplayDesign(program);
  const std::string text = ResultTableCsv(program);
  // 100 GPM where 100 are required is a ratio of 1; the other figures are those of the rows' own fields.
  EXPECT_EQ(text,
            "Station (Feet),Hole Dia. (Inches),Hole Number,Furrow Flow (GPM),Head (feet),Flow Ratio,"
            "Furrow Length (feet),Elevation (feet),Number of Holes per Furrow,Mil (thousandths of an inch),"
            "Pipe Diameter (inches),Planted Width Between Watered Furrows (feet)\r\n"
            "0,1/4,1,100.00,2.50,1.00,1100,60.00,1,10,15,6.00\r\n"
            "10,1/4,2,100.00,2.50,1.00,1100,60.00,1,10,15,6.00\r\n"
            "20,1/8,3,100.00,2.50,1.00,1100,60.00,1,10,15,6.00\r\n");
}

// What is typed into a field puts the name of the crown column over the hole numbers of the grid.
TEST_F(CsvTest, HoleNumbersKeepTheirHeading) {
  ShowTable("Complete Design");
  DisplayDesign(program);
  const std::string before = ResultTableCsv(program);
  main.Grid2.Set(0, kResultHoleNumber, "Rod Readings");
  EXPECT_EQ(ResultTableCsv(program), before);
  EXPECT_NE(before.find(",Hole Number,"), std::string::npos);
}

// The only cell of a table that holds what the user typed.
TEST_F(CsvTest, ATypedMilKeepsItsCommasQuotesAndLineEnds) {
  record.MilText[2] = "7, \"thin\"\r\nor 10";
  ShowTable("Complete Design");
  DisplayDesign(program);
  const std::string text = ResultTableCsv(program);
  EXPECT_NE(text.find("1100,60.00,1,\"7, \"\"thin\"\"\r\nor 10\",15,6.00\r\n20,1/8"), std::string::npos) << text;
}

// The two rows of 1/4 inch are one run, the row of 1/8 inch another.
TEST_F(CsvTest, TheHoleSummaryHasARowForEachRun) {
  DisplayHoleSum(program);
  EXPECT_EQ(HoleSummaryCsv(program),
            "Hole Diameter (inches),First Station (feet),Last Station (feet),Number of Holes\r\n"
            "1/4,0,10,2\r\n1/8,20,20,1\r\n");
}

TEST_F(CsvTest, GatedPipeTellsOpenings) {
  record.PipeKind = "R";
  for (int i = 1; i <= 3; ++i) record.HoleArea[i] = 0.6F / 144;
  DisplayHoleSum(program);
  // .6 square inches over gates 1.2 inches wide open .5.
  EXPECT_EQ(HoleSummaryCsv(program),
            "Gate Opening (inches),First Station (feet),Last Station (feet),Number of Holes\r\n"
            ".5,0,10,2\r\n.5,20,20,1\r\n");
}

TEST(CsvOfNothing, BeforeADesignThereAreHeadingsAlone) {
  SilentHost host;
  Program program(host);
  EXPECT_EQ(HoleSummaryCsv(program),
            "Hole Diameter (inches),First Station (feet),Last Station (feet),Number of Holes\r\n");
}

}  // namespace
}  // namespace torvale
