#include "search/elev_adjust.h"

#include "search_program.h"

namespace torvale {
namespace {

constexpr float kSlope = 0.0009765625F;  // 2^-10: every elevation below is exact in 32 bits
constexpr float kDoubled = 20 * kSlope;  // the drop of ten feet at twice the slope

class ElevAdjustTest : public SearchTest {
 protected:
  // Rows ten feet apart, laid at the constant slope from elevation 100 (or rod 100) on, high above the existing crown.
  void LaidLine(int rows, const std::string& kind = "E", float slope = kSlope) {
    TypeInfo("10", "2", kind);
    record.DesignType = kDualSlope;
    record.HoleRows = static_cast<std::int16_t>(rows);
    record.CrownSlope = slope;
    const bool rods = kind == "R";
    for (int i = 1; i <= rows; ++i) {
      record.Station[i] = static_cast<float>(10 * (i - 1)) + 0.5F;
      record.SurveyHoleDia[i] = i == 1 ? 0 : 0.375F;
      record.CrownElev[i] = rods ? 200 : 50;
      record.DesignElev[i] = 100 + (rods ? 10 : -10) * slope * static_cast<float>(i - 1);
    }
    record.DesignElev[rows + 1] = -1;  // no row
  }
  void Compare(const std::vector<float>& crown) {
    for (std::size_t i = 0; i < crown.size(); ++i) {
      EXPECT_EQ(record.DesignElev[static_cast<int>(i) + 1], crown[i]) << "row " << i + 1;
    }
  }
};

struct Break {
  int rows;
  int break_row;  // the last row of the slope: Int(rows / 2 + 0.5)
  float station;  // Int of the station of row rows / 2 + 1, a half to even: 10 x (row - 1)
};

// A half goes to the even neighbour in the row whose station is shown, and upward in the row that ends the slope.
TEST_F(ElevAdjustTest, BreaksTheLineAtHalfItsRows) {
  for (const Break& b : {Break{10, 5, 50}, Break{9, 5, 50}, Break{11, 6, 50}, Break{7, 4, 30}, Break{2, 1, 10},
                         Break{5, 3, 30}, Break{3, 2, 10}}) {
    SCOPED_TRACE(b.rows);
    LaidLine(b.rows);
    ElevAdjust(program);
    std::vector<float> crown;
    for (int i = 1; i <= b.rows; ++i) {
      crown.push_back(100 - kDoubled * static_cast<float>(std::min(i, b.break_row) - 1));
    }
    Compare(crown);
    ASSERT_TRUE(record.DualBreakStation);
    EXPECT_EQ(*record.DualBreakStation, b.station);
  }
}

// Past the last row of the design nothing is laid.
TEST_F(ElevAdjustTest, LeavesWhatLiesPastTheLine) {
  LaidLine(9);
  ElevAdjust(program);
  EXPECT_EQ(record.DesignElev[10], -1);
}

TEST_F(ElevAdjustTest, RodsGrowDownTheSlope) {
  LaidLine(4, "R");  // rows 2 of 4 slope
  record.CrownElev[1] = 300;
  ElevAdjust(program);
  Compare({100, 100 + kDoubled, 100 + kDoubled, 100 + kDoubled});
}

TEST_F(ElevAdjustTest, ARisingCrownRisesOnItsFirstHalf) {
  LaidLine(6, "E", -kSlope);  // rows 2 and 3 of 6
  ElevAdjust(program);
  Compare({100, 100 + kDoubled, 100 + 2 * kDoubled, 100 + 2 * kDoubled, 100 + 2 * kDoubled, 100 + 2 * kDoubled});
  EXPECT_EQ(record.CrownSlope, -0.195F);
}

// 2^-10 feet per foot are .09765625 per 100 feet, doubled .1953125: three decimals. The caption still has feet per
// foot.
TEST_F(ElevAdjustTest, TurnsTheSlopeIntoFeetPer100Feet) {
  LaidLine(10);
  ElevAdjust(program);
  EXPECT_EQ(record.CrownSlope, 0.195F);
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = .0009765625 feet per 100 feet");
}

TEST_F(ElevAdjustTest, LaysNoBrokenLineForAConstantSlope) {
  LaidLine(4);
  record.DesignType = kConstantSlope;
  record.DualBreakStation.reset();
  main.lblCrownSlope.caption = "before";
  ElevAdjust(program);
  Compare({100, 100 - 10 * kSlope, 100 - 20 * kSlope, 100 - 30 * kSlope});
  EXPECT_EQ(record.CrownSlope, kSlope);
  EXPECT_FALSE(record.DualBreakStation);
  EXPECT_EQ(main.lblCrownSlope.caption, "before");
}

// ---- The lift ----

class LiftTest : public SearchTest {
 protected:
  void Crowns(const std::string& kind, const std::vector<float>& existing, const std::vector<float>& designed) {
    main.txtInfo[5].Set(kind);
    record.DesignType = kConstantSlope;
    record.HighestFill = 0;
    record.HoleRows = static_cast<std::int16_t>(existing.size());
    for (std::size_t i = 0; i < existing.size(); ++i) {
      record.CrownElev[static_cast<int>(i) + 1] = existing[i];
      record.DesignElev[static_cast<int>(i) + 1] = designed[i];
    }
  }
  std::vector<float> Lifted() {
    LiftCrown(program);
    std::vector<float> crown;
    for (int i = 1; i <= record.HoleRows; ++i) crown.push_back(record.DesignElev[i]);
    return crown;
  }
};

// The largest lack, 0.5 at row 2, lifts the whole line, row 1 with it. The largest gap is the 0.75 by which row 3 lies
// above: it is measured before the lift and in both directions.
TEST_F(LiftTest, RaisesTheWholeCrownToTheExistingOne) {
  Crowns("E", {100, 100.25F, 99, 100}, {100, 99.75F, 99.75F, 99.75F});
  EXPECT_EQ(Lifted(), (std::vector<float>{100.5F, 100.25F, 100.25F, 100.25F}));
  EXPECT_EQ(record.HighestFill, 0.75F);
}

TEST_F(LiftTest, LowersTheRodReadings) {
  Crowns("R", {5, 4.75F, 6}, {5, 5.25F, 5.5F});
  EXPECT_EQ(Lifted(), (std::vector<float>{4.5F, 4.75F, 5}));
  EXPECT_EQ(record.HighestFill, 0.5F);
  Crowns("e", {5, 4.75F, 6}, {5, 5.25F, 5.5F});  // any text but "E" means rods
  EXPECT_EQ(Lifted(), (std::vector<float>{4.5F, 4.75F, 5}));
}

TEST_F(LiftTest, LeavesACrownThatNowhereLiesBelow) {
  Crowns("E", {99, 100, 98}, {100, 100, 100});
  EXPECT_EQ(Lifted(), (std::vector<float>{100, 100, 100}));
  EXPECT_EQ(record.HighestFill, 2);
}

// 2^-14 feet are .00006103515625, which four decimals make .0001; 2^-15 come to .0000.
TEST_F(LiftTest, RoundsTheLiftToFourDecimals) {
  Crowns("E", {1.00006103515625F}, {1});
  EXPECT_EQ(Lifted(), (std::vector<float>{1.0001F}));
  Crowns("E", {1.000030517578125F}, {1});
  EXPECT_EQ(Lifted(), (std::vector<float>{1}));
}

TEST_F(LiftTest, KeepsTheHighestFillOfAnEarlierDesign) {
  Crowns("E", {100}, {99.5F});
  record.HighestFill = 2;
  EXPECT_EQ(Lifted(), (std::vector<float>{100}));
  EXPECT_EQ(record.HighestFill, 2);
  Crowns("E", {100}, {97});
  record.HighestFill = 2;
  LiftCrown(program);
  EXPECT_EQ(record.HighestFill, 3);
}

TEST_F(LiftTest, DoesNothingForOtherDesigns) {
  Crowns("E", {100}, {99});
  record.DesignType = kPlanned;
  EXPECT_EQ(Lifted(), (std::vector<float>{99}));
  EXPECT_EQ(record.HighestFill, 0);
}

// ---- On the screen ----

// A shown dual slope names twice the slope that was laid, and its break.
TEST_F(ElevAdjustTest, IsShownDoubledWithItsBreak) {
  LevelLine("6");  // no head left: the line is laid at the slope found before
  record.CrownSlope = kSlope;
  mnuDesignDualSlope_Click(program);
  EXPECT_EQ(record.CrownSlope, 0.195F);
  // Eleven rows from 0 to 100: row 6.5 goes to 6, at 50 feet.
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = .39 ft. /100 ft. from Station  0 to 50");
  // Row 6 ends the slope: five spans of twice ten feet at 2^-10.
  EXPECT_EQ(main.frmDisplayLbl[15].caption, ".10 ft.");
}

}  // namespace
}  // namespace torvale
