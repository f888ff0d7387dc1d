// Furrows with several gates: the table shows what one gate with the area of all would open, the tips say each.
#include <gtest/gtest.h>

#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/hole_summary.h"
#include "display/result_tables.h"
#include "display/small_line.h"

namespace torvale {
namespace {

// Two rows of rigid pipe with gates of `area` square inches for each furrow, all its `gates` together.
struct SeveralGates : SmallLine {
  SeveralGates(std::string_view shape, double area, int gates) {
    record.PipeKind = "R";
    main.mnuRigidPipe.ticked = true;
    main.txtDefault[11].Set(shape);
    for (int i = 1; i <= 2; ++i) {
      AddHole(static_cast<float>(6 * (i - 1)), 1, 95);
      record.HoleArea[i] = static_cast<float>(area / 144);
      record.HolesPerFurrow[i] = static_cast<std::int16_t>(gates);
    }
  }
  const std::string& Tip() {
    CompleteDesignTable(program);
    return main.Grid2.Tip(1, kResultOpening);
  }
};

// 1.2 square inches of gates 1.2 inches high: one would open an inch, each of two half an inch.
TEST(SeveralGatesTest, EachOfTwoRectangularGatesOpensHalfAsFar) {
  SeveralGates line("R", 1.2, 2);
  EXPECT_EQ(line.Tip(),
            "Each of the 2 gates of a furrow opens 0.500 in. The table shows what one gate with the area of all would "
            "open.");
  EXPECT_EQ(line.main.Grid2.Text(1, kResultOpening), "1.");
  EXPECT_EQ(line.main.Grid2.Tip(2, kResultOpening), line.Tip());
  EXPECT_EQ(line.main.Grid2.Tip(1, kResultStation), "");
}

// Two half circles have the area of a whole one, pi/4 for an inch: each stands half open, within the half percent of
// area to which the opening is worked out.
TEST(SeveralGatesTest, EachOfTwoCircularGatesWithTheAreaOfOneStandsHalfOpen) {
  SeveralGates line("C", 3.14159265 / 4, 2);
  const std::string tip = line.Tip();
  const std::string ahead = "Each of the 2 gates of a furrow opens ";
  ASSERT_TRUE(tip.starts_with(ahead)) << tip;
  EXPECT_NEAR(Val(tip.substr(ahead.size())), 0.5, 0.005);
}

TEST(SeveralGatesTest, OneGateAndLayflatTubingSayNothing) {
  EXPECT_EQ(SeveralGates("R", 1.2, 1).Tip(), "");
  SeveralGates layflat("R", 1.2, 2);
  layflat.record.PipeKind = "L";
  EXPECT_EQ(layflat.Tip(), "");
}

TEST(SeveralGatesTest, ATipGoesWithItsTable) {
  SeveralGates line("R", 1.2, 2);
  EXPECT_NE(line.Tip(), "");
  line.record.HolesPerFurrow[1] = line.record.HolesPerFurrow[2] = 1;
  EXPECT_EQ(line.Tip(), "");
  EXPECT_EQ(line.main.Grid2.Tip(2, kResultOpening), "");
}

TEST(SeveralGatesTest, AShorterTableHasNoTipsOfALongerOne) {
  SeveralGates line("R", 1.2, 2);
  ASSERT_NE(line.Tip(), "");
  ASSERT_NE(line.main.Grid2.Tip(2, kResultOpening), "");
  line.record.HoleRows = 1;
  EXPECT_NE(line.Tip(), "");
  EXPECT_EQ(line.main.Grid2.Tip(2, kResultOpening), "");
}

// No gate has an opening for a height of nothing; the tip is left out.
TEST(SeveralGatesTest, AnOpeningThatCannotBeWorkedOutIsNotTold) {
  SeveralGates line("R", 1.2, 2);
  line.main.txtDefault[12].Set("0");
  EXPECT_EQ(EachGateText(line.program, 1), "");
}

TEST(SeveralGatesTest, TheHoleSummaryTellsEachRun) {
  SeveralGates line("R", 1.2, 2);
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.main.lblSumHoleDia.tool_tip,
            line.record.HoleSumSeparator + "\nStations 0 - 6: Each of the 2 gates of a furrow opens 0.500 in.");
  line.record.PipeKind = "L";
  DisplayHoleSum(line.program);
  EXPECT_EQ(line.main.lblSumHoleDia.tool_tip, "");
}

}  // namespace
}  // namespace torvale
