#include "search/best_grade.h"

#include "search/survey_completion.h"
#include "search_program.h"

namespace torvale {
namespace {

class BestGradeTest : public SearchTest {
 protected:
  // Rows ten feet apart; row 3 has no hole.
  void Line(const std::vector<double>& heads, const std::vector<double>& losses) {
    LevelLine("1.75");
    cmdInterpolate_Click(program);
    record.DesignType = kConstantSlope;
    record.HoleRows = static_cast<std::int16_t>(heads.size());
    for (int i = 1; i <= record.HoleRows; ++i) {
      const auto k = static_cast<std::size_t>(i - 1);
      record.Station[i] = static_cast<float>(10 * (i - 1));
      record.Head[i] = heads[k];
      record.FrictionLoss[i] = losses[k];
      record.SurveyHoleDia[i] = i == 3 ? 0 : 0.375F;
      record.HoleDia[i] = record.SurveyHoleDia[i] / 12;
      record.HolesPerFurrow[i] = 1;
      record.PipeDia[i] = 15;
      record.CrownElev[i] = 50;
      record.DesignElev[i] = i == 1 ? 100 : 0;
      record.FlowRatio[i] = 1;
      record.FurrowLength[i] = 100;
    }
  }
};

TEST_F(BestGradeTest, LevelsFromTheFirstRow) {
  Line({1, 1, 1, 1}, {0, 0, 0, 0});
  record.DesignElev[5] = 7;
  CalConstantSlopeElev(record);
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(record.DesignElev[i], 100);
  EXPECT_EQ(record.DesignElev[5], 7);
}

// Rows 1, 2 and 4 stand at 0, 10 and 30: mean 40/3. Head and loss together are 2, 1.5 and 0.5: a straight line of slope
// -0.05, whatever row 3 says. 0.8 of that is -0.04, so the crown rises by 0.4 over ten feet. Row 3 has no hole and is
// left level with row 2 as it was; row 4 goes on from row 3.
TEST_F(BestGradeTest, LaysFourFifthsOfTheRegressionSlope) {
  Line({1.5, 1, 77, 0}, {0.5, 0.5, 9, 0.5});
  BestGrade(program);
  EXPECT_EQ(record.DesignElev[1], 100);
  EXPECT_FLOAT_EQ(record.DesignElev[2], 100.4F);
  EXPECT_EQ(record.DesignElev[3], 100);
  EXPECT_FLOAT_EQ(record.DesignElev[4], 100.4F);
  EXPECT_EQ(record.CrownSlope, 4);  // feet per 100 feet, without its sign
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = 4.00 feet per 100 feet");
}

// 0, 1 and 4 at 0, 10 and 30: means 40/3 and 5/3, sxy = 120 + 10 - 3 x 40/3 x 5/3 = 190/3, sxx = 1000 - 1600/3 =
// 1400/3; the slope is 19/140 = 0.135714, 0.8 of it 0.108571: 10.86 per 100 feet.
TEST_F(BestGradeTest, FitsTheLeastSquares) {
  Line({0, 1, 0, 4}, {0, 0, 0, 0});
  BestGrade(program);
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = 10.86 feet per 100 feet");
  EXPECT_EQ(record.CrownSlope, 10.86F);
  EXPECT_NEAR(record.DesignElev[2], 100 - 1.08571, 1e-4);
}

TEST_F(BestGradeTest, LiftsTheCrownAndMarchesOnce) {
  Line({1.5, 1, 77, 0}, {0.5, 0.5, 9, 0.5});
  record.CrownElev[2] = 100.9F;
  BestGrade(program);
  EXPECT_NEAR(record.DesignElev[1], 100.5, 1e-4);
  EXPECT_NEAR(record.DesignElev[2], 100.9, 1e-4);
  EXPECT_EQ(record.FlowCalcStatus, "Ok");
  EXPECT_NEAR(record.AccumGPM, 1.75, 0.001);
}

TEST_F(BestGradeTest, RowsAtOneStationAreAFault) {
  Line({1, 1, 1, 1}, {0, 0, 0, 0});
  record.Station[2] = record.Station[4] = 0;
  EXPECT_THROW(BestGrade(program), RunTimeFault);
}

}  // namespace
}  // namespace torvale
