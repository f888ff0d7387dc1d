// The prepass of the slope search, and what the search starts from. With `CancelFlag` set ahead of it the search leaves
// at its first yield, and the prepass's heads (but for the far end's) and friction losses stand.
#include "base/arithmetic.h"
#include "search/best_fit_head.h"
#include "search/slope_search.h"
#include "search_program.h"

namespace torvale {
namespace {

class SlopePrepassTest : public SearchTest {
 protected:
  // `rows` rows ten feet apart from station 0 on, each with one 3/8 inch hole and a furrow of 100 feet.
  void Rows(int rows) {
    TypeInfo("30", "2", "E");
    record.HoleRows = static_cast<std::int16_t>(rows);
    record.WateredFurrows = record.HoleRows;
    record.AverageFurrowFlow = 10;
    for (int i = 1; i <= rows; ++i) {
      record.Station[i] = static_cast<float>(10 * (i - 1));
      record.HoleDia[i] = 0.375F / 12;
      record.SurveyHoleDia[i] = 0.375F;
      record.HolesPerFurrow[i] = 1;
      record.PipeDia[i] = 15;
      record.FlowRatio[i] = 1;
      record.FurrowLength[i] = 100;
      record.CrownElev[i] = 100;
    }
    record.DesignType = kConstantSlope;
  }
  void RunPrepass() {
    record.CancelFlag = true;
    BestFitHead(program);
  }
};

// Area = (0.375 / 2)^2 x 3.14 / 144 = 7.6660156e-4 square feet; capacity = area x 448.8 x 0.65 = 0.22363301;
// head = (10 / 0.22363301)^2 / 64.4 = 31.048619 feet.
TEST_F(SlopePrepassTest, GivesEachRowTheHeadThatItsFlowNeeds) {
  Rows(3);
  RunPrepass();
  EXPECT_NEAR(record.Head[1], 31.048619, 1e-5);
  EXPECT_NEAR(record.Head[2], 31.048619, 1e-5);
  EXPECT_EQ(record.Head[3], 2);  // the march that follows starts its far end at the Target Head
}

// Two holes at a furrow halve the flow of each: a quarter of the head.
TEST_F(SlopePrepassTest, CountsTheHolesOfAFurrow) {
  Rows(3);
  record.HolesPerFurrow[2] = 2;
  RunPrepass();
  EXPECT_NEAR(record.Head[2], 31.048619 / 4, 1e-5);
}

// The coefficient is read from the preference, not from the record.
TEST_F(SlopePrepassTest, ReadsTheDischargeCoefficientOfThePreferences) {
  Rows(3);
  main.txtDefault[2].Set("1.3");
  RunPrepass();
  EXPECT_NEAR(record.Head[2], 31.048619 / 4, 1e-5);
  EXPECT_EQ(record.DischargeCoef, 0.65F);
}

// 10 x 1/3 = 3.33333 is taken as 3.3333: (3.3333 / 0.22363301)^2 / 64.4 = 3.449778, and not 3.449847.
TEST_F(SlopePrepassTest, RoundsTheWantedFlowToFourDecimals) {
  Rows(3);
  record.FlowRatio[2] = 1.0F / 3;
  RunPrepass();
  EXPECT_NEAR(record.Head[2], 3.449778, 1e-6);
}

// The flow grows toward the head of the line: 10, 20, 30. Factor = (100 / 140)^1.852 x 0.2083 = 0.11170179;
// 15^4.866 = 528275.0. Row 3: 10 / 100 x 0.11170179 x 10^1.852 / 528275.0 = 1.50383e-6, row 2 2^1.852 = 3.61001 times
// that. Row 1 has no span ahead of it.
TEST_F(SlopePrepassTest, AddsTheFrictionOfTheFlowSoFar) {
  Rows(3);
  RunPrepass();
  const double row3 = 0.1 * 0.2083 * std::pow(100.0 / 140, 1.852) * std::pow(10, 1.852) / std::pow(15, 4.866);
  EXPECT_NEAR(row3, 1.504e-6, 1e-9);
  EXPECT_NEAR(record.FrictionLoss[3] / row3, 1, 1e-6);
  EXPECT_NEAR(record.FrictionLoss[2] / row3, std::pow(2, 1.852), 1e-6);
  EXPECT_EQ(record.FrictionLoss[1], 0);
}

TEST_F(SlopePrepassTest, ClearsTheFrictionOfALongerLine) {
  Rows(3);
  record.FrictionLoss[4] = 7;
  RunPrepass();
  EXPECT_EQ(record.FrictionLoss[4], 0);
}

// A row without holes keeps the head it had; its share of flow is counted all the same.
TEST_F(SlopePrepassTest, LeavesTheHeadOfASupplyRow) {
  Rows(3);
  record.SurveyHoleDia[2] = 0;
  record.HoleDia[2] = 0;
  record.Head[2] = 4.5;
  record.FlowRatio[2] = 0;
  RunPrepass();
  EXPECT_EQ(record.Head[2], 4.5);
  EXPECT_NEAR(record.FrictionLoss[2] / record.FrictionLoss[3], 1, 1e-12);
}

// The fault shows the prepass's own limits, from which its extremes start, and how far it has come: with the fault at
// the far end they stand as set, with the fault one row up row 3 has left its head and flow in them.
TEST_F(SlopePrepassTest, AHoleWithoutAShareOfFlowIsAFault) {
  Rows(3);
  record.AccumGPM = 7;
  record.FlowRatio[3] = 0;
  EXPECT_THROW(RunPrepass(), RunTimeFault);
  EXPECT_EQ(record.MaxHead, 0);
  EXPECT_EQ(record.MinHead, 100000);
  EXPECT_EQ(record.MaxFurrowFlow, 0);
  EXPECT_EQ(record.MinFurrowFlow, 10000);
  EXPECT_EQ(record.AccumGPM, 0);
  Rows(3);
  record.FlowRatio[2] = 0;
  EXPECT_THROW(RunPrepass(), RunTimeFault);
  EXPECT_NEAR(record.MaxHead, 31.048619, 1e-4);
  EXPECT_EQ(record.MinHead, record.MaxHead);
  EXPECT_EQ(record.MaxFurrowFlow, 10);
  EXPECT_EQ(record.MinFurrowFlow, 10);
  EXPECT_EQ(record.NormFurrowFlow[1], 10);
}

// The level line starts from the first row's existing elevation.
TEST_F(SlopePrepassTest, LevelsTheCrownFromTheFirstRow) {
  Rows(4);
  record.CrownElev[1] = 98.5F;
  RunPrepass();
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(record.DesignElev[i], 98.5F);
}

// ---- Direction ----

struct Lengths {
  const char* about;
  std::vector<int> lengths;
  bool rising;
};

// A rising search has stepped its slope once when it notices the cancel, a falling one not at all.
TEST_F(SlopePrepassTest, FollowsTheLongFurrows) {
  const Lengths cases[] = {
      {"alike: falling", {100, 100, 100, 100, 100, 100, 100, 100, 100, 100}, false},
      {"one foot more in rows 1 to 5", {101, 100, 100, 100, 100, 100, 100, 100, 100, 100}, true},
      {"more in rows 4 to 8", {100, 100, 100, 100, 100, 100, 100, 900, 100, 100}, false},
      {"rows 9 and 10 are not looked at", {101, 100, 100, 100, 100, 100, 100, 100, 900, 900}, true},
      {"rows 4 and 5 count on both sides", {100, 100, 100, 900, 900, 100, 100, 100, 100, 100}, false},
      {"row 5 does not tip the scale", {101, 100, 100, 100, 900, 100, 100, 100, 100, 100}, true},
      {"11 rows: as with 10, row 9 is not looked at", {101, 100, 100, 100, 100, 100, 100, 100, 900, 900, 900}, true},
      {"one row: both sums are 0", {100}, false},
      {"two rows: the second sum looks at no row", {100, 100}, true},
      {"two rows, the first without a furrow", {0, 100}, false},
      {"three rows: as with two", {100, 900, 900}, true},
      {"four rows: rows 1 and 2 against 1 and 2", {100, 100, 900, 900}, false},
  };
  for (const Lengths& c : cases) {
    SCOPED_TRACE(c.about);
    Rows(static_cast<int>(c.lengths.size()));
    for (std::size_t i = 0; i < c.lengths.size(); ++i) {
      record.FurrowLength[static_cast<int>(i) + 1] = static_cast<std::int16_t>(c.lengths[i]);
    }
    RunPrepass();
    EXPECT_EQ(record.SlopeDelta, c.rising ? -0.00001F : 0.0F);
  }
}

// ---- Laying a crown ----

TEST_F(SlopePrepassTest, LaysAFallingCrownInElevationsAndInRods) {
  Rows(3);
  record.DesignElev[1] = 100;
  LayCrown(program, 0.015625F);  // 1/64: 0.15625 feet for ten
  EXPECT_EQ(record.DesignElev[2], 99.84375F);
  EXPECT_EQ(record.DesignElev[3], 99.6875F);
  main.txtInfo[5].Set("R");  // a rod reading grows as the ground falls
  LayCrown(program, 0.015625F);
  EXPECT_EQ(record.DesignElev[2], 100.15625F);
  EXPECT_EQ(record.DesignElev[3], 100.3125F);
  main.txtInfo[5].Set("r");  // any other text means elevations
  LayCrown(program, -0.015625F);
  EXPECT_EQ(record.DesignElev[2], 100.15625F);
  EXPECT_EQ(record.DesignElev[1], 100);
}

// Beyond 2^24 whole feet go in steps of two: adding one foot comes back to the even neighbour, 2^24, each time, where a
// sum carried on in 64 bits would reach 2^24 + 2 at the third row. Below it single feet are kept.
TEST_F(SlopePrepassTest, RoundsEachElevationTo32Bits) {
  Rows(3);
  record.DesignElev[1] = 16777216;
  main.txtInfo[5].Set("R");
  LayCrown(program, 0.1F);
  EXPECT_EQ(record.DesignElev[3], 16777216);
  main.txtInfo[5].Set("E");
  LayCrown(program, 0.1F);
  EXPECT_EQ(record.DesignElev[3], 16777214);
}

// 3 x 0.1 in 32 bits: 0.1F is 0.100000001490116, three times that 0.300000004470348, and the nearest float is
// 0.300000011920929. From 2^-25 less than that the sum shows it: -0.300000011920929 + 0.300000011920929 is 0, and with
// the product unrounded it would be 7.45e-9.
TEST_F(SlopePrepassTest, RoundsEachDropTo32Bits) {
  Rows(2);
  record.Station[2] = 3;
  record.DesignElev[1] = 0.300000011920929F;
  LayCrown(program, 0.1F);
  EXPECT_EQ(record.DesignElev[2], 0);
}

}  // namespace
}  // namespace torvale
