// From survey rows to the stations of the line.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "engine/sheet.h"
#include "engine/stations.h"

namespace torvale {
namespace {

using Stations = std::vector<float>;
using Counts = std::vector<std::int16_t>;

// The line that a survey of these rows gives.
struct Laid {
  explicit Laid(const std::vector<SheetRow>& rows) : sheet(Sheet(rows)) {
    record.SurveyRows = static_cast<std::int16_t>(rows.size());
    CalCrownDist(record, sheet);
    CalStations(record);
  }
  Stations stations() const { return RowsOf(record.Station, record.HoleRows); }
  Counts counts() const { return RowsOf(record.HolesPerFurrow, record.HoleRows); }

  TextGrid sheet;
  DesignRecord record;
};

// A watered survey row.
SheetRow Watered(const std::string& station, const std::string& spacing, const std::string& count = "1") {
  return {station, "10", "600", spacing, "8", "1/4", count, "7", "60"};
}
// A row of bare supply line.
SheetRow Supply(const std::string& station) {
  return {station, "10", "    Supply", "Line", "8", "", "", "7", ""};
}

// 0, 30, 60, 90; the next hole would stand at 120, beyond the end, and is dropped. The survey's end has no row.
TEST(CalCrownDist, HoleBeyondTheEndIsDropped) {
  const Laid laid({Watered("0", "30"), Watered("100", "30")});
  EXPECT_EQ(laid.stations(), (Stations{0, 30, 60, 90}));
  EXPECT_EQ(laid.record.Station[5], 0);
  EXPECT_EQ(laid.record.HolesPerFurrow[5], 0);
}

TEST(CalCrownDist, LineEndsOnItsLastStationExactly) {
  const Laid laid({Watered("0", "25"), Watered("100", "25")});
  EXPECT_EQ(laid.stations(), (Stations{0, 25, 50, 75, 100}));
}

// Holes stand at the spacing of the survey row that is walked towards: 40 up to the row at 100, 25 from there on. The
// row at 120 lies past 100, so that the walk goes on with the third row: 145, 170, 195; 220 is beyond 200.
TEST(CalCrownDist, SpacingIsThatOfTheRowWalkedTowards) {
  const Laid laid({Watered("0", "10"), Watered("100", "40"), Watered("200", "25")});
  EXPECT_EQ(laid.stations(), (Stations{0, 40, 80, 120, 145, 170, 195}));
}

// The first watered row after supply line stands at its own station, and the walk goes on from there.
TEST(CalCrownDist, StartOfAWateredReach) {
  const Laid laid({Supply("0"), Watered("50", "30", "2"), Watered("110", "30", "3")});
  // Row 2: start at 50, next survey row. Rows 3 and 4: 80 and 110, which is the end.
  EXPECT_EQ(laid.stations(), (Stations{0, 50, 80, 110}));
  EXPECT_EQ(laid.counts(), (Counts{0, 2, 3, 3}));
}

// One row for each unwatered survey row, with no holes.
TEST(CalCrownDist, SupplyRowsGiveARowEach) {
  const Laid laid({Supply("0"), Supply("35.5"), Supply("80"), Supply("120")});
  EXPECT_EQ(laid.stations(), (Stations{0, 35.5, 80, 120}));
  EXPECT_EQ(laid.counts(), (Counts{0, 0, 0, 0}));
}

// After the furrows, the spacing of the last watered survey row carries on until the supply row's station is passed:
// 30, 60, 90, 120 are holes of the reach up to 100 (120 lies past 100, so the walk goes on with the row at 160); 150
// and 180 are laid with the spacing of the row before. 180 is beyond the end of the survey and is dropped.
TEST(CalCrownDist, EndOfAWateredReachTakesTheSpacingOfTheRowBefore) {
  const Laid laid({Watered("0", "30"), Watered("100", "30"), Supply("160")});
  EXPECT_EQ(laid.stations(), (Stations{0, 30, 60, 90, 120, 150}));
  EXPECT_EQ(RowsOf(laid.record.PastReach, 6), (std::vector<unsigned char>{0, 0, 0, 0, 0, 1}));
}

// The walk enters the supply line's second row only once a laid row lies past the first.
TEST(CalCrownDist, SupplyLineGoesOnAtItsSurveyStations) {
  const Laid laid({Watered("0", "50"), Watered("100", "50"), Supply("120"), Supply("210"), Supply("300")});
  // 50, 100 (not past 100: the walk stays), 150 (past it: survey row 3 next). 200 is the end of the reach and lies past
  // 120, so that survey row 4 is next. It and the row before are unwatered: rows at 210 and 300.
  EXPECT_EQ(laid.stations(), (Stations{0, 50, 100, 150, 200, 210, 300}));
  EXPECT_EQ(RowsOf(laid.record.PastReach, 7), (std::vector<unsigned char>{0, 0, 0, 0, 1, 0, 0}));
}

// 20.012 * 100 + 0.9 is 2002.1, so 20.02, and 30.01 stays: 3001 + 0.9 is below 3002. In 64 bits 10.011 * 100 is a hair
// below 1001.1, so that 10.011 falls to 10.01.
TEST(CalCrownDist, StationsAreRoundedUpToHundredths) {
  const Laid laid({Supply("10.011"), Supply("20.012"), Supply("30.01"), Supply("40.0101")});
  EXPECT_EQ(laid.stations(), (Stations{10.01F, 20.02F, 30.01F, 40.01F}));
}

// The running station is not rounded itself: three times 33.333 is 99.999, up to 100.
TEST(CalCrownDist, RunningStationKeepsItsDecimals) {
  const Laid laid({Watered("0", "33.333"), Watered("100", "33.333")});
  EXPECT_EQ(laid.stations(), (Stations{0, 33.34F, 66.67F, 100}));
}

// A spacing of 0 in a watered row does not advance: rows are laid at station 0 up to the last row, 5282. All of them
// stand at 0, so that the list ends at row 1.
TEST(CalCrownDist, SpacingOfZeroStandsStill) {
  const Laid laid({Watered("0", "0"), Watered("100", "0")});
  EXPECT_EQ(laid.record.HoleRows, 1);
  EXPECT_EQ(laid.record.HolesPerFurrow[5282], 1);
  EXPECT_EQ(laid.record.HolesPerFurrow[5283], 0);
}

// With the line away from 0 the same fills every row up to 5282 with the station it stands at.
TEST(CalCrownDist, SpacingOfZeroAwayFromZeroFillsTheRows) {
  const Laid laid({Supply("0"), Watered("10", "5"), Watered("100", "0")});
  EXPECT_EQ(laid.record.Station[2], 10);
  EXPECT_EQ(laid.record.Station[5282], 10);
  EXPECT_EQ(laid.record.Station[5283], 0);
  EXPECT_EQ(laid.record.HoleRows, 5282);
}

// Steps of 0.1 from 1,000 ft on: at most one survey row is passed with each laid row, although two lie behind it.
TEST(CalCrownDist, PassesOneSurveyRowAtATime) {
  const Laid laid({Watered("0", "50"), Watered("10", "50"), Watered("20", "7"), Watered("64", "7")});
  // 50 lies past 10, so row 3 is walked: 57 with its 7 (past 20: row 4), then 64 with row 4's 7: the end.
  EXPECT_EQ(laid.stations(), (Stations{0, 50, 57, 64}));
}

// One survey row: the next row would be laid with the spacing of row 1, beyond the survey's end.
TEST(CalCrownDist, OneSurveyRowIsOneHoleRow) {
  const Laid laid({Watered("40", "30", "2")});
  // Row 2 is the end of a reach: the running station begins unset, at 0, so 30, which does not reach 40; no station
  // follows (row 2 reads as empty, 0 < 30), and the walk passes the survey's end.
  EXPECT_EQ(laid.stations(), (Stations{40}));
  EXPECT_EQ(laid.counts(), (Counts{2}));
}

TEST(CalCrownDist, HoleCountsAreRoundedHalfToEven) {
  const Laid laid({Watered("0", "50", "2.5"), Watered("100", "50", "3.5")});
  EXPECT_EQ(laid.counts(), (Counts{2, 4, 4}));
}

TEST(CalCrownDist, EarlierStationsAreCleared) {
  Laid laid({Watered("0", "25"), Watered("100", "25")});
  laid.sheet = Sheet({Watered("0", "50"), Watered("100", "50")});
  CalCrownDist(laid.record, laid.sheet);
  CalStations(laid.record);
  EXPECT_EQ(laid.stations(), (Stations{0, 50, 100}));
  EXPECT_EQ(laid.record.Station[5], 0);
}

TEST(CalCrownDist, CountTooLargeForItsFieldIsAFault) {
  EXPECT_EQ(FaultOf([] { Laid({Watered("0", "50", "40000"), Watered("100", "50")}); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Laid({Watered("1e39", "50"), Watered("100", "50")}); }), Fault::kOverflow);
}

// Row 1 may stand at station 0 and does not end the list.
TEST(CalStations, BeginsLookingAtRowTwo) {
  DesignRecord record;
  record.Station[2] = 30;
  record.Station[3] = 60;
  CalStations(record);
  EXPECT_EQ(record.HoleRows, 3);
  record.Station[2] = 0;
  CalStations(record);
  EXPECT_EQ(record.HoleRows, 1);
}

TEST(CalStations, FullListKeepsTheCount) {
  DesignRecord record;
  record.HoleRows = 17;
  for (int row = 2; row <= kLastRow; ++row) record.Station[row] = 1;
  CalStations(record);
  EXPECT_EQ(record.HoleRows, 17);
  record.Station[kLastRow] = 0;
  CalStations(record);
  EXPECT_EQ(record.HoleRows, 5283);
}

}  // namespace
}  // namespace torvale
