#include "batch/survey_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

SurveyTable Read(std::string_view text, std::string_view layout = "") {
  return ReadSurveyTable(text, layout, "s.csv");
}

std::string FaultOf(std::string_view text, std::string_view layout = "") {
  try {
    Read(text, layout);
  } catch (const SurveyTableFault& fault) {
    return fault.what();
  }
  return "";
}

TEST(SurveyTable, TakesColumnsInTheSheetsOrderWithoutHeadings) {
  const SurveyTable survey = Read("0,100,1200\n60,100.12\n");
  ASSERT_EQ(survey.rows.size(), 2U);
  EXPECT_EQ(survey.rows[0].cells[kFurrowLengthColumn], "1200");
  EXPECT_EQ(survey.rows[1].cells[kStationColumn], "60");
  EXPECT_EQ(survey.rows[1].cells[kCrownColumn], "100.12");
  EXPECT_TRUE(survey.given[kFurrowLengthColumn]);
  EXPECT_FALSE(survey.given[kHoleSizeColumn]);
  EXPECT_THAT(survey.remarks, IsEmpty());
}

TEST(SurveyTable, TakesColumnsByTheirHeadings) {
  const SurveyTable survey = Read("Point\tElevation (feet)\tSTATION\tHole Size\nA1\t100\t0\t1/2\n");
  ASSERT_EQ(survey.rows.size(), 1U);
  EXPECT_EQ(survey.rows[0].line, 2);
  EXPECT_EQ(survey.rows[0].cells[kStationColumn], "0");
  EXPECT_EQ(survey.rows[0].cells[kCrownColumn], "100");
  EXPECT_EQ(survey.rows[0].cells[kHoleSizeColumn], "1/2");
}

TEST(SurveyTable, RefusesHeadingsThatItCantGoBy) {
  EXPECT_EQ(FaultOf("Station,Depth\n0,1\n"),
            "s.csv, row 1: no heading says which column holds the elevation or rod reading");
  EXPECT_EQ(FaultOf("Where,Elevation\n0,1\n"), "s.csv, row 1: no heading says which column holds the station");
  EXPECT_EQ(FaultOf("Station,Rod,Reading\n"), "s.csv, row 1, column 3: two columns are the sheet's \"Reading\"");
  EXPECT_EQ(FaultOf("\n\n"), "s.csv: the survey is empty");
  EXPECT_EQ(FaultOf("0,\"1"), "s.csv, row 1, column 2: a quote is not closed");
}

// The sheet takes 319 rows: row 0 of its 320 holds the headings.
TEST(SurveyTable, RefusesMoreRowsThanTheSheetHas) {
  std::string text;
  for (int i = 0; i < 319; ++i) text += std::to_string(i) + ",100\n";
  EXPECT_EQ(Read(text).rows.size(), 319U);
  EXPECT_EQ(FaultOf(text + "319,100\n"), "s.csv, row 320: the survey sheet has 319 rows");
}

// The program reads the number that a text begins with; what that leaves out is told.
TEST(SurveyTable, RemarksOnCellsThatAreReadOtherwise) {
  const SurveyTable survey =
      Read("0,\"10,02\",85O,Line,12,0.5\n10,100,    Supply,\"    Line\",12,1/2\n20,abc,1320,6,12,0\n");
  EXPECT_THAT(survey.remarks, ElementsAre("s.csv, row 1, column 2: \"10,02\" is read as 10",
                                          "s.csv, row 1, column 3: \"85O\" is read as 85",
                                          "s.csv, row 1, column 6: \"0.5\" is no size of the hole size table",
                                          "s.csv, row 3, column 2: \"abc\" is read as 0"));
}

// 3-4-5 triangles: from (0, 0) to (3, 4) are 5 feet, from there to (9, 12) another 10.
TEST(SurveyTable, WalksAlongThePointsOfATotalStation) {
  const SurveyTable survey = Read("P,N,E,Z,D\n1,1000,500,100.1,crown\n2,1003,504,100.2,\n3,1009,512,100.3,\n", "PNEZ");
  ASSERT_EQ(survey.rows.size(), 3U);
  EXPECT_EQ(survey.rows[0].cells[kStationColumn], "0");
  EXPECT_EQ(survey.rows[1].cells[kStationColumn], "5");
  EXPECT_EQ(survey.rows[2].cells[kStationColumn], "15");
  EXPECT_EQ(survey.rows[2].cells[kCrownColumn], "100.3");
  EXPECT_EQ(FaultOf("1,1000,500,100\n2,1003,x,100\n", "PNEZ"), "s.csv, row 2, column 3: \"x\" is no number");
}

// One foot north and two feet east of the first point is the square root of 5 away, whichever is named first.
TEST(SurveyTable, KnowsBothOrdersOfTheCoordinates) {
  EXPECT_EQ(Read("1,0,0,9\n2,1,2,9\n", "PNEZ").rows[1].cells[kStationColumn], "2.24");
  EXPECT_EQ(Read("1,0,0,9\n2,2,1,9\n", "PENZ").rows[1].cells[kStationColumn], "2.24");
}

}  // namespace
}  // namespace torvale
