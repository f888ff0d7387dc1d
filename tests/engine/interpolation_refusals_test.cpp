// What completing a survey refuses, and how far it got where it stops.
#include <gtest/gtest.h>

#include "engine/interpolation.h"
#include "engine/sheet.h"

namespace torvale {
namespace {

using Texts = std::vector<std::string>;
using Way = SurveyEnd::Way;

struct Completed {
  explicit Completed(const std::vector<SheetRow>& rows) : sheet(Sheet(rows)) {
    const std::string spacing = "30";
    const std::string hole_count = "2";
    const std::string mil = "9";
    record.SurveyRows = 77;
    end = InterpolateSurvey(record, sheet, {spacing, hole_count, mil});
  }

  TextGrid sheet;
  DesignRecord record;
  SurveyEnd end;
};

SheetRow Full(const std::string& station, const std::string& crown, const std::string& length) {
  return {station, crown, length, "50", "8", "1/4", "1", "7", "60"};
}

// Any cell but the hole size and the planted width asks for a station.
TEST(InterpolateSurveyRefusals, DataWithoutAStation) {
  for (const int column : {1, 2, 3, 4, 6, 7}) {
    SheetRow orphan(9);
    orphan[static_cast<std::size_t>(column)] = "5";
    const Completed refused({Full("0", "10", "600"), Full("100", "10", ""), orphan});
    EXPECT_EQ(refused.end.way, Way::kDataWithoutStation) << column;
    EXPECT_EQ(refused.end.row, 3) << column;
    EXPECT_FALSE(refused.end.cursor);
    EXPECT_EQ(refused.record.SurveyRows, 77);  // stopped before the survey was counted
    EXPECT_EQ(refused.sheet.Text(2, kFurrowLengthColumn), "");
  }
  for (const int column : {5, 8}) {
    SheetRow orphan(9);
    orphan[static_cast<std::size_t>(column)] = "5";
    const Completed passed({Full("0", "10", "600"), Full("100", "10", "600"), orphan});
    EXPECT_EQ(passed.end.way, Way::kCompleted) << column;
    EXPECT_EQ(passed.record.SurveyRows, 2);
  }
}

// The whole sheet is looked through, past the end of the survey, down to row 319.
TEST(InterpolateSurveyRefusals, DataWithoutAStationInTheLastRow) {
  std::vector<SheetRow> rows(319);
  rows[0] = Full("0", "10", "600");
  rows[318] = {"", "10"};
  EXPECT_EQ(Completed(rows).end.row, 319);
}

// Only the first row missing is named.
TEST(InterpolateSurveyRefusals, OneRowAtATime) {
  const Completed refused({Full("0", "10", "600"), {"", "10"}, {"", "11"}});
  EXPECT_EQ(refused.end.row, 2);
}

// The first row isn't looked at by that test, but a hole there asks for a station.
TEST(InterpolateSurveyRefusals, FirstRowWithAHoleAndNoStation) {
  const Completed refused({Full("", "10", "600"), Full("100", "", "600"), Full("200", "9", "600")});
  EXPECT_EQ(refused.end.way, Way::kHoleWithoutStation);
  EXPECT_EQ(refused.end.row, 1);
  EXPECT_EQ(refused.record.SurveyRows, 3);
  EXPECT_EQ(refused.sheet.Text(2, kCrownColumn), "");
}

TEST(InterpolateSurveyRefusals, FirstRowWithoutAHoleNeedsNoStation) {
  const Completed passed({{"", "10", "", "", "8"}, Full("100", "9", "600")});
  EXPECT_EQ(passed.end.way, Way::kCompleted);
  EXPECT_EQ(passed.sheet.Text(1, kFurrowLengthColumn), "    Supply");
}

// Two readings at the same station have no slope: it ends there, and the sheet stays as far as it had got. The count
// and mil of row 1 are in, the lengths are not.
TEST(InterpolateSurveyRefusals, EqualStationsEndItInSilence) {
  const Completed stopped({{"0", "10", "600", "50", "8", "1/4", "", "", "60"},
                           Full("100", "9", "600"),
                           Full("100", "8", ""),
                           Full("200", "7", "600")});
  EXPECT_EQ(stopped.end.way, Way::kFault);
  EXPECT_FALSE(stopped.end.cursor);  // every reading was there
  EXPECT_EQ(stopped.record.SurveyRows, 4);
  EXPECT_EQ(stopped.sheet.Text(1, kHoleCountColumn), "2");
  EXPECT_EQ(stopped.sheet.Text(1, kMilColumn), "9");
  EXPECT_EQ(stopped.sheet.Text(3, kFurrowLengthColumn), "");
}

// Equal stations do no harm where only one of the rows is a support.
TEST(InterpolateSurveyRefusals, EqualStationsBetweenSupportsPass) {
  const Completed passed({Full("0", "10", "600"), Full("100", "", ""), Full("100", "", ""), Full("200", "8", "800")});
  EXPECT_EQ(ColumnOf(passed.sheet, kCrownColumn, 4), (Texts{"10", "9.00", "9.00", "8.00"}));
  EXPECT_EQ(ColumnOf(passed.sheet, kFurrowLengthColumn, 4), (Texts{"600", "700", "700", "800"}));
}

}  // namespace
}  // namespace torvale
