// Hole data of each row of the line.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "engine/sheet.h"
#include "engine/stations.h"

namespace torvale {
namespace {

struct Laid {
  explicit Laid(const std::vector<SheetRow>& rows) : sheet(Sheet(rows)) {
    record.SurveyRows = static_cast<std::int16_t>(rows.size());
    Again();
  }
  void Again() {
    CalCrownDist(record, sheet);
    CalStations(record);
    CalHoleStation(record, sheet);
  }

  TextGrid sheet;
  DesignRecord record;
};

SheetRow Watered(const std::string& station, const std::string& hole, const std::string& count = "1",
                 const std::string& width = "60") {
  return {station, "10", "600", "50", "8", hole, count, "7", width};
}
SheetRow Supply(const std::string& station) {
  return {station, "10", "    Supply", "Line", "8", "", "", "7", ""};
}

float Feet(float inches) {
  return static_cast<float>(static_cast<double>(inches) / 12);
}

// Rows at 0, 50, 100, 150, 200. Row 1 takes survey row 1; 50 and 100 lie up to survey row 2, 150 and 200 up to row 3.
TEST(CalHoleStation, EachRowTakesTheSurveyRowItWalksTowards) {
  const Laid laid({Watered("0", "1/4"), Watered("100", "1/2", "2", "30"), Watered("200", "3/4", "3", "36")});
  const DesignRecord& r = laid.record;
  EXPECT_EQ(RowsOf(r.SurveyHoleDia, 5), (std::vector<float>{0.25F, 0.5F, 0.5F, 0.75F, 0.75F}));
  EXPECT_EQ(RowsOf(r.HoleDia, 5), (std::vector<float>{Feet(0.25F), Feet(0.5F), Feet(0.5F), Feet(0.75F), Feet(0.75F)}));
  EXPECT_EQ(RowsOf(r.HolesPerFurrow, 5), (std::vector<std::int16_t>{1, 2, 2, 3, 3}));
  EXPECT_EQ(RowsOf(r.PlantedWidth, 5), (std::vector<float>{60, 30, 30, 36, 36}));
  EXPECT_EQ(RowsOf(r.HoleSpacing, 5), (std::vector<float>{50, 50, 50, 50, 50}));
  EXPECT_EQ(r.WateredFurrows, 5);
}

// What makes the first survey row no watered furrow: no length, no spacing, no hole, no count. Any one of the four
// empties all five cells, the planted width too; station, crown, pipe and mil stay.
TEST(CalHoleStation, FirstRowThatIsNoFurrowLosesItsCells) {
  for (const int missing : {kFurrowLengthColumn, kSpacingColumn, kHoleSizeColumn, kHoleCountColumn}) {
    for (const char* const text : {"", "0", "    Supply"}) {
      SheetRow first = Watered("0", "1/4");
      first[static_cast<std::size_t>(missing)] = text;
      const Laid laid({first, Watered("100", "1/2")});
      EXPECT_EQ(RowOf(laid.sheet, 1), (SheetRow{"0", "10", "", "", "8", "", "", "7", ""})) << missing << text;
      EXPECT_EQ(laid.record.HoleDia[1], 0);
      EXPECT_EQ(laid.record.SurveyHoleDia[1], 0);
      EXPECT_EQ(laid.record.HolesPerFurrow[1], 0);
      EXPECT_EQ(laid.record.HoleSpacing[1], 0);
    }
  }
}

TEST(CalHoleStation, FirstRowThatIsAFurrowKeepsItsCells) {
  const Laid laid({Watered("0", "1/4"), Watered("100", "1/2")});
  EXPECT_EQ(RowOf(laid.sheet, 1), Watered("0", "1/4"));
}

// A survey whose rows were never counted has no rows to read, but what was typed in the first one stays.
TEST(CalHoleStation, UncountedSurveyKeepsItsCells) {
  TextGrid sheet = Sheet({Watered("0", "1/4"), Watered("100", "1/2")});
  DesignRecord record;
  CalHoleStation(record, sheet);
  EXPECT_EQ(RowOf(sheet, 1), Watered("0", "1/4"));
  EXPECT_EQ(record.WateredFurrows, 0);
  EXPECT_EQ(record.HoleDia[1], 0);
}

// Only the first survey row is tidied.
TEST(CalHoleStation, LaterRowsKeepTheirCells) {
  SheetRow second = Watered("100", "1/2");
  second[kHoleCountColumn] = "";
  const Laid laid({Watered("0", "1/4"), second});
  EXPECT_EQ(RowOf(laid.sheet, 2), second);
}

// "1-1/4" reads as the number 1 and is found by its text. With a blank behind it, it is no listed size: no hole, but
// the row counts as watered all the same. So does ".3", and "2-1/8", which the catalogue writes "2-/8".
TEST(CalHoleStation, SizesAreFoundByExactText) {
  const Laid listed({Watered("0", "1-1/4"), Watered("50", "2-/8")});
  EXPECT_EQ(listed.record.SurveyHoleDia[1], 1.25F);
  EXPECT_EQ(listed.record.SurveyHoleDia[2], 2.125F);
  for (const char* const unknown : {"1-1/4 ", ".3", "2-1/8", "17"}) {
    const Laid laid({Watered("0", unknown), Watered("50", unknown)});
    EXPECT_EQ(RowsOf(laid.record.SurveyHoleDia, 2), (std::vector<float>{0, 0})) << unknown;
    EXPECT_EQ(RowsOf(laid.record.HoleDia, 2), (std::vector<float>{0, 0}));
    EXPECT_EQ(RowsOf(laid.record.HolesPerFurrow, 2), (std::vector<std::int16_t>{1, 1}));
    EXPECT_EQ(laid.record.WateredFurrows, 2);
  }
}

// A row up to a survey row without a hole gets none, and keeps the planted width that an earlier run left.
TEST(CalHoleStation, SupplyRowsKeepTheirPlantedWidth) {
  Laid laid({Watered("0", "1/4"), Watered("100", "1/4"), Supply("150"), Supply("200")});
  // Rows 0, 50, 100, then 150 is the end of the reach, 200 its own row.
  EXPECT_EQ(RowsOf(laid.record.Station, 5), (std::vector<float>{0, 50, 100, 150, 200}));
  laid.record.PlantedWidth[5] = 44;
  laid.Again();
  EXPECT_EQ(laid.record.SurveyHoleDia[5], 0);
  EXPECT_EQ(laid.record.PlantedWidth[5], 44);
  EXPECT_EQ(laid.record.WateredFurrows, 3);
}

// A row laid past the last furrow has no hole, even where the walk has reached a watered survey row again: 0, 80, and
// 160 past the reach. Survey row 3 stands at 140; 160 lies past it, so the pointer stands at the watered row 4.
TEST(CalHoleStation, RowsPastTheReachGetNoHole) {
  SheetRow first = Watered("0", "1/4");
  SheetRow second = Watered("100", "1/4");
  first[kSpacingColumn] = second[kSpacingColumn] = "60";
  // 0, 60, 120 (past 100: row 3 next), then 180: end of the reach, past 140: row 4 next. Row 4 begins a reach at 250.
  const Laid laid({first, second, Supply("140"), Watered("250", "1/2"), Watered("300", "1/2")});
  EXPECT_EQ(RowsOf(laid.record.Station, 6), (std::vector<float>{0, 60, 120, 180, 250, 300}));
  EXPECT_EQ(laid.record.PastReach[4], 1);
  EXPECT_EQ(RowsOf(laid.record.HoleDia, 6),
            (std::vector<float>{Feet(0.25F), Feet(0.25F), 0, 0, Feet(0.5F), Feet(0.5F)}));
  EXPECT_EQ(laid.record.HolesPerFurrow[4], 0);
}

// The count alone makes the first row one of the watered furrows: "x" is a hole size that is no number, so the row is
// tidied; with a listed size and a spacing all three are taken.
TEST(CalHoleStation, WateredFurrowsAreCounted) {
  const Laid supply_first({Supply("0"), Watered("50", "1/4"), Watered("150", "1/4")});
  EXPECT_EQ(supply_first.record.HoleRows, 4);  // 0, 50, 100, 150
  EXPECT_EQ(supply_first.record.WateredFurrows, 3);
  const Laid none({Supply("0"), Supply("100")});
  EXPECT_EQ(none.record.WateredFurrows, 0);
}

TEST(CalHoleStation, EarlierHolesAreCleared) {
  Laid laid({Watered("0", "1/4"), Watered("100", "1/4")});
  laid.sheet = Sheet({Supply("0"), Supply("100")});
  laid.Again();
  EXPECT_EQ(laid.record.HoleDia[2], 0);
  EXPECT_EQ(laid.record.SurveyHoleDia[1], 0);
  EXPECT_EQ(laid.record.HolesPerFurrow[2], 0);
  EXPECT_EQ(laid.record.HoleSpacing[1], 0);
}

}  // namespace
}  // namespace torvale
