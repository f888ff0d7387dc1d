#include "engine/survey.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "engine/sheet.h"

namespace torvale {
namespace {

TEST(SurveyReader, ReadsTextsAndTheirLeadingNumbers) {
  const TextGrid sheet = Sheet({{"0", "10.5", " 600 ft", "", "8", "1-1/4"}});
  const SurveyReader survey(sheet, 1);
  EXPECT_EQ(survey.Text(1, kCrownColumn), "10.5");
  EXPECT_EQ(survey.Val(1, kFurrowLengthColumn), 600);
  EXPECT_EQ(survey.Val(1, kSpacingColumn), 0);
  EXPECT_EQ(survey.Val(1, kHoleSizeColumn), 1);  // a fraction gives the number it begins with
}

TEST(SurveyReader, RowsPastTheSurveyReadAsEmptyWhateverTheyHold) {
  const TextGrid sheet = Sheet({{"0"}, {"100"}, {"200"}});
  const SurveyReader survey(sheet, 2);
  EXPECT_EQ(survey.Text(2, kStationColumn), "100");
  EXPECT_EQ(survey.Text(3, kStationColumn), "");
  EXPECT_EQ(survey.Val(3, kStationColumn), 0);
}

TEST(SurveyReader, RowsPastTheSheetReadAsEmptyToo) {
  const TextGrid sheet = Sheet({});
  const SurveyReader survey(sheet, 400);
  EXPECT_EQ(survey.Text(319, kStationColumn), "");
  EXPECT_EQ(survey.Text(320, kStationColumn), "");
  EXPECT_EQ(survey.Val(400, kMilColumn), 0);
}

TEST(SurveyReader, NegativeRowsAreAFault) {
  const TextGrid sheet = Sheet({});
  EXPECT_EQ(FaultOf([&] { (void)SurveyReader(sheet, 1).Text(-1, 0); }), Fault::kSubscript);
}

// Half to even: 2.5 goes to 2, 3.5 to 4. A count has 16 bits.
TEST(SurveyReader, CountsAreRoundedHalfToEven) {
  const TextGrid sheet = Sheet({{"2.5"}, {"3.5"}, {"-1.5"}, {"32767.4"}, {"32767.5"}, {"1e400"}});
  const SurveyReader survey(sheet, 6);
  EXPECT_EQ(survey.Count(1, 0), 2);
  EXPECT_EQ(survey.Count(2, 0), 4);
  EXPECT_EQ(survey.Count(3, 0), -2);
  EXPECT_EQ(survey.Count(4, 0), 32767);
  EXPECT_EQ(FaultOf([&] { (void)survey.Count(5, 0); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([&] { (void)survey.Count(6, 0); }), Fault::kOverflow);
}

}  // namespace
}  // namespace torvale
