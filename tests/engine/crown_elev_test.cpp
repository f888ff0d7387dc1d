// Pipe, crown and furrow length of each row of the line, and the flow ratio from them.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "engine/sheet.h"
#include "engine/stations.h"

namespace torvale {
namespace {

struct Laid {
  explicit Laid(const std::vector<SheetRow>& rows) : sheet(Sheet(rows)) {
    record.SurveyRows = static_cast<std::int16_t>(rows.size());
    CalCrownDist(record, sheet);
    CalStations(record);
    CalHoleStation(record, sheet);
    CalCrownElev(record, sheet);
  }

  TextGrid sheet;
  DesignRecord record;
};

SheetRow Row(const std::string& station, const std::string& crown, const std::string& length, const std::string& pipe,
             const std::string& mil = "7") {
  return {station, crown, length, "50", pipe, "1/4", "1", mil, "60"};
}
SheetRow Supply(const std::string& station, const std::string& crown) {
  return {station, crown, "    Supply", "Line", "8", "", "", "7", ""};
}

// A survey row's pipe is the pipe of the span that ends there. Rows 0, 50, 100 lie up to the survey row at 100, 150 and
// 200 up to the one at 200; row 1 takes the pipe of survey row 2 and not of row 1.
TEST(CalCrownElev, PipeIsThatOfTheSpanThatEndsAtTheRow) {
  const Laid laid(
      {Row("0", "10", "600", "12", "15"), Row("100", "10", "600", "10", "10"), Row("200", "10", "600", "8", "7.50")});
  EXPECT_EQ(RowsOf(laid.record.PipeDia, 5), (std::vector<float>{10, 10, 10, 8, 8}));
  EXPECT_EQ(RowsOf(laid.record.MilText, 5), (std::vector<std::string>{"10", "10", "10", "7.5", "7.5"}));
  // 100 * 3.14 / 4 = 78.5 and 64 * 3.14 / 4 = 50.24.
  EXPECT_EQ(RowsOf(laid.record.PipeArea, 5), (std::vector<float>{78.5F, 78.5F, 78.5F, 50.24F, 50.24F}));
}

// One survey row has no next one: its only row reads a pipe past the survey, 0. (And a survey at station 0 alone ends
// in a fault, the span to what isn't there being 0.)
TEST(CalCrownElev, OneSurveyRowHasNoPipe) {
  const Laid laid({Row("40", "10", "600", "8")});
  EXPECT_EQ(laid.record.HoleRows, 1);
  EXPECT_EQ(laid.record.PipeDia[1], 0);
  EXPECT_EQ(laid.record.CrownElev[1], 10);
  EXPECT_EQ(laid.record.FurrowLength[1], 600);
  EXPECT_EQ(FaultOf([] { Laid({Row("0", "10", "600", "8")}); }), Fault::kDivisionByZero);
}

// 10 to 9 in 100 ft is -0.01 a foot: 9.5 at 50 up to the rounding of the steps. 600 to 700 ft: 650 at 50.
TEST(CalCrownElev, CrownAndLengthLieOnStraightLines) {
  const Laid laid({Row("0", "10", "600", "8"), Row("100", "9", "700", "8"), Row("200", "9.5", "701", "8")});
  EXPECT_NEAR(static_cast<double>(laid.record.CrownElev[2]), 9.5, 1e-4);
  EXPECT_EQ(laid.record.CrownElev[3], 9);  // a survey row's own reading stands exactly
  EXPECT_NEAR(static_cast<double>(laid.record.CrownElev[4]), 9.25, 1e-4);
  EXPECT_EQ(RowsOf(laid.record.FurrowLength, 5), (std::vector<std::int16_t>{600, 650, 700, 700, 701}));  // 700.5: even
}

// The elevation is stored in 32 bits at each foot, so that its rounding adds up along the span; the length isn't.
TEST(CalCrownElev, ElevationRoundsAtEachFoot) {
  const Laid laid({Row("0", "10", "600", "8"), Row("100", "9.9", "601", "8")});
  const double slope = (9.9 - 10) / 100;
  float elevation = 10;
  double length = 600;
  for (int foot = 1; foot <= 50; ++foot) {
    elevation = static_cast<float>(static_cast<double>(elevation) + slope);
    length += 1.0 / 100;
  }
  EXPECT_EQ(laid.record.ElevByFoot[50], elevation);
  EXPECT_EQ(laid.record.FurrowLengthByFoot[50], length);
  EXPECT_NE(laid.record.ElevByFoot[50], static_cast<float>(10 + 50 * slope));  // rounding once would give another
}

// Rows take the crown of the nearest whole foot, a half going to the even one: 0.5 to 0, 1.5 to 2, 2.5 to 2.
TEST(CalCrownElev, HalfFeetGoToTheEvenFoot) {
  SheetRow last = Row("4", "14", "604", "8");
  last[kSpacingColumn] = "0.5";
  const Laid laid({Row("0", "10", "600", "8"), last});
  // Rows 0, .5, 1, 1.5, 2, 2.5, 3, 3.5, 4 with 10 + foot.
  EXPECT_EQ(RowsOf(laid.record.CrownElev, 9), (std::vector<float>{10, 10, 11, 12, 12, 12, 13, 14, 14}));
}

// A survey row at 10.5 is foot 10; the steps go on foot by foot from there: 11 is one foot further (11.5 as a station),
// 12 two, and the station 12.5 ends it.
TEST(CalCrownElev, SpanBeginsAtTheRowsOwnFoot) {
  const Laid laid({Supply("10.5", "10"), Supply("12.5", "14")});
  EXPECT_EQ(laid.record.ElevByFoot[10], 10);
  EXPECT_EQ(laid.record.ElevByFoot[11], 12);
  EXPECT_EQ(laid.record.ElevByFoot[12], 14);
  EXPECT_EQ(laid.record.ElevByFoot[13], 0);
}

// The first reading stands at feet 0 and 1 too, whatever the station of row 1: the line may begin at 20.
TEST(CalCrownElev, FirstReadingStandsAtFeetZeroAndOne) {
  const Laid laid({Row("20", "11", "600", "8"), Row("120", "12", "600", "8")});
  EXPECT_EQ(laid.record.ElevByFoot[0], 11);
  EXPECT_EQ(laid.record.ElevByFoot[1], 11);
  EXPECT_EQ(laid.record.ElevByFoot[2], 0);
  EXPECT_EQ(laid.record.FurrowLengthByFoot[0], 600);
  EXPECT_EQ(laid.record.CrownElev[1], 11);
}

// A row without a hole has no furrow, whatever the line between its neighbours' lengths says.
TEST(CalCrownElev, RowsWithoutAHoleHaveNoLength) {
  const Laid laid({Row("0", "10", "600", "8"), Row("50", "10", "600", "8"), Supply("90", "10"), Supply("120", "10")});
  // 0, 50, 100 (past 50, so it takes the hole of the row at 90: none); 150 is beyond the end.
  EXPECT_EQ(RowsOf(laid.record.Station, 4), (std::vector<float>{0, 50, 100, 0}));
  EXPECT_EQ(RowsOf(laid.record.FurrowLength, 3), (std::vector<std::int16_t>{600, 600, 0}));
}

TEST(CalCrownElev, StationsThatDoNotRiseAreAFault) {
  EXPECT_EQ(FaultOf([] {
              Laid({Supply("0", "10"), Supply("50", "10"), Supply("50", "11"), Supply("90", "10")});
            }),
            Fault::kDivisionByZero);
}

TEST(CalCrownElev, StationsOutsideTheLineAreAFault) {
  EXPECT_EQ(FaultOf([] { Laid({Supply("0", "10"), Supply("5285", "10")}); }), Fault::kSubscript);
  EXPECT_EQ(FaultOf([] { Laid({Supply("-3", "10"), Supply("50", "10")}); }), Fault::kSubscript);
}

// Feet 5283 and 5284 have their places but lie past the interpolation, which ends at 5282.
TEST(CalCrownElev, InterpolationEndsAtFoot5282) {
  const Laid laid({Supply("5280", "10"), Supply("5284", "14")});
  EXPECT_EQ(laid.record.ElevByFoot[5282], 12);
  EXPECT_EQ(laid.record.ElevByFoot[5283], 0);
  EXPECT_EQ(laid.record.ElevByFoot[5284], 14);  // the survey row itself
}

// Lengths 600, 600, 1200: mean 800, so 0.75, 0.75, 1.5 of the average flow of 300 / 3 = 100 gallons per minute.
TEST(FlowRatio, IsLengthOverMeanLength) {
  DesignRecord record;
  record.HoleRows = 4;
  record.WateredFurrows = 3;
  record.TargetGPM = 300;
  record.FurrowLength[1] = 600;
  record.FurrowLength[2] = 600;
  record.FurrowLength[4] = 1200;
  record.FlowRatio[3] = 7;  // a row without a length keeps what it held
  record.RequiredFlow[3] = 8;
  FlowRatio(record);
  EXPECT_EQ(RowsOf(record.FlowRatio, 4), (std::vector<float>{0.75F, 0.75F, 7, 1.5F}));
  EXPECT_EQ(RowsOf(record.RequiredFlow, 4), (std::vector<float>{75, 75, 8, 150}));
}

// 1,000 furrows of 1,320 ft are 1,320,000 ft, far past 16 bits.
TEST(FlowRatio, SumOfLengthsHasNoNarrowBound) {
  DesignRecord record;
  record.HoleRows = record.WateredFurrows = 1000;
  record.TargetGPM = 1000;
  for (int row = 1; row <= 1000; ++row) record.FurrowLength[row] = 1320;
  FlowRatio(record);
  EXPECT_EQ(record.FlowRatio[1000], 1);
  EXPECT_EQ(record.RequiredFlow[1], 1);
}

// The average flow is rounded to 32 bits before it is multiplied: 100 / 3 is 33.33333206176758 there, and its third
// share 2 / 3 of it.
TEST(FlowRatio, AverageFlowIsRoundedFirst) {
  DesignRecord record;
  record.HoleRows = record.WateredFurrows = 3;
  record.TargetGPM = 100;
  record.FurrowLength[1] = 200;
  record.FurrowLength[2] = 300;
  record.FurrowLength[3] = 400;
  FlowRatio(record);
  const double average = static_cast<double>(100.0F / 3.0F);
  EXPECT_EQ(record.RequiredFlow[1], static_cast<float>(200.0 / 300.0 * average));
  EXPECT_EQ(record.FlowRatio[3], static_cast<float>(400.0 / 300.0));
}

TEST(FlowRatio, NoWateredFurrowIsAFault) {
  DesignRecord record;
  record.HoleRows = 2;
  EXPECT_EQ(FaultOf([&] { FlowRatio(record); }), Fault::kDivisionByZero);
}

}  // namespace
}  // namespace torvale
