// The other ways out of the search: negative heads, the try limit, faults, Cancel; and the count of yields.
#include <gtest/gtest.h>

#include "engine/flow_calc.h"
#include "engine/test_line.h"

namespace torvale {
namespace {

constexpr long kManyQuiet = 1000000000;

// The search gave up; the last try had ended at this row, where the head and the flow now stand so.
void ExpectTryLimit(const TestLine& line, int row, double head, double flow) {
  EXPECT_EQ(line.end.way, FlowEnd::Way::kTryLimit);
  ASSERT_EQ(line.end.fail_row, row);
  EXPECT_NEAR(line.record.Head[row], head, 0.001);
  EXPECT_NEAR(static_cast<double>(line.record.AccumGPM), flow, 0.3);
}

// The crown rises by 5 ft toward the head of the line. From 1 ft up to 4.5 ft at the far end the head there is
// negative: eight marches, each counted at row 2 and again at row 1, which is tried with 2 ft. At 5 ft the head of the
// line has 0 ft and no flow, one count; at 5.5 ft it has half a foot, and that is the flow wanted.
TEST(FlowCalc, NegativeHeadCostsTwoTries) {
  TestLine line(2);
  line.record.PipeDia[2] = 1000;
  line.record.CrownElev[1] = 105;
  line.record.TargetGPM = static_cast<float>(Orifice(0.1, 5.5) + Orifice(0.1, 0.5));
  EXPECT_EQ(line.Run(), 8 * 2 + 1);
  EXPECT_EQ(line.record.Head[2], 5.5);
  EXPECT_NEAR(line.record.Head[1], 0.5, 1e-6);
}

// A target that the first row alone meets under 2 ft ends the search there, negative head or not: the flow is row 1's,
// while the head that went negative stays as it is in the list.
TEST(FlowCalc, NegativeHeadMayMeetTheTarget) {
  TestLine line(3);
  line.record.CrownElev[1] = line.record.CrownElev[2] = 105;
  line.record.TargetGPM = static_cast<float>(Orifice(0.1, 2));
  EXPECT_EQ(line.Run(), 1);
  EXPECT_EQ(line.record.Head[1], 2);
  EXPECT_LT(line.record.Head[2], 0);
  EXPECT_EQ(line.record.AccumGPM, line.record.FurrowFlow[1]);
}

// No hole gives any flow: 200 marches, each half a foot more, then the first pass of the next march gives up. The last
// count was made at row 1, in the march at 1 + 199 halves: 100.5 ft.
TEST(FlowCalc, TryLimitByDesignType) {
  for (std::int16_t type = 1; type <= 6; ++type) {
    const bool selection = type == 4 || type == 6;
    const bool slope = type == 2 || type == 3;
    TestLine line(3, 12);
    line.record.DesignType = type;
    line.record.SeedEndHead = 1;
    for (int row = 1; row <= 3; ++row) line.record.HoleDia[row] = 0;
    EXPECT_EQ(line.Run(), 200);
    EXPECT_EQ(line.end.way, FlowEnd::Way::kTryLimit) << type;
    EXPECT_EQ(line.end.fail_row, 1) << type;
    EXPECT_EQ(line.record.DesignOK, "False");
    EXPECT_TRUE(line.record.CancelFlag);
    EXPECT_EQ(line.record.CalcProblem, slope ? "" : "Problem") << type;
    EXPECT_EQ(line.record.FlowCalcStatus, selection ? "Ok" : "") << type;
    EXPECT_EQ(line.record.MissingData, 0);
    EXPECT_EQ(line.record.Head[3], 101);  // nothing is undone
    EXPECT_EQ(line.record.Head[2], 101);  // row 3 was worked once more
    EXPECT_EQ(line.record.Head[1], 100.5);
    EXPECT_EQ(line.record.MinHead, 200000.0F);  // no extremes
  }
}

// The head goes negative in every march: two counts each, so that 100 marches reach the limit; the last count was made
// at row 1 with its 2 ft. Row 2 of the next march, at 1 + 100 halves, 51 ft, is worked before the search gives up: the
// head at row 1 is 51 - 8900, the flow that of a 0.1 ft hole, 0.00785 sq ft * sqrt(3284.4) * 448.8 * 0.65 = 131.2.
TEST(FlowCalc, TryLimitThroughNegativeHeads) {
  TestLine line(2);
  line.record.PipeDia[2] = 1000;  // no friction to speak of
  line.record.CrownElev[1] = 9000;
  line.record.TargetGPM = 5000;
  EXPECT_EQ(line.Run(), 200);
  ExpectTryLimit(line, 1, -8849, 131.2);
}

// The limit in the middle of a pass. The crown rises by 99.9 ft between rows 3 and 2. March 1, at 100 ft, is counted
// once; the head is lowered by halves, and from march 2 on it is negative at row 2: counted at row 3 and, with 2 ft and
// too much flow, at row 1. After march 100 there are 199 counts, and march 101, at 50 ft, makes the 200th at row 3. The
// next pass finds -49.9 ft at row 2, goes to row 1 with its 2 ft (26 gallons per minute) and gives up there.
TEST(FlowCalc, TryLimitAtANegativeHead) {
  TestLine line(3, 40);
  for (int row = 1; row <= 3; ++row) line.record.PipeDia[row] = 1000;
  line.record.CrownElev[1] = line.record.CrownElev[2] = 199.9F;
  line.target_head = "100";
  line.record.TargetGPM = 1;
  EXPECT_EQ(line.Run(), 200);
  ExpectTryLimit(line, 2, -49.9, 26);
}

// A far-end head that is negative itself is one count a march. Crown 5 ft higher at row 1, from 6 ft: 6, 5.5 and 5 are
// single counts (3), 4.5 down to 0.5 go negative at row 1 (9 * 2), so do 0.4, 0.3, 0.2, 0.1 and what 64 bits leave of
// 0.1 - 0.1 (5 * 2): 31. The last stage then goes below zero: 169 marches at -0.0001 to -0.0169. At -0.0170 the search
// gives up, and names the far end: -1.7 + 0.5 is -1.2 hundredths, downward -2.
TEST(FlowCalc, TryLimitWithANegativeFarEnd) {
  TestLine line(2, 40);
  line.record.PipeDia[1] = line.record.PipeDia[2] = 1000;
  line.record.CrownElev[1] = 105;
  line.target_head = "6.0";
  line.record.TargetGPM = 1;
  EXPECT_EQ(line.Run(), 200);
  EXPECT_NEAR(line.record.Head[2], -0.0170, 1e-9);
  ExpectTryLimit(line, 2, -0.017, 26);
}

// A fault: the mark of 100 tries, and the flags; `DesignOK` stays.
void ExpectFault(TestLine& line) {
  EXPECT_EQ(line.Run(), 100);
  EXPECT_EQ(line.end.way, FlowEnd::Way::kFault);
  EXPECT_TRUE(line.record.CancelFlag);
  EXPECT_EQ(line.record.MissingData, -1);
  EXPECT_EQ(line.record.DesignOK, "True");
}

TEST(FlowCalc, ZeroDiameterIsAFault) {
  for (int row = 1; row <= 3; ++row) {
    TestLine line(3);
    line.record.PipeDia[row] = 0;
    ExpectFault(line);
    EXPECT_EQ(line.record.FurrowFlow[row] > 0, true);  // the row's holes had given their flow
  }
}

TEST(FlowCalc, ZeroRoughnessCoefficientIsAFault) {
  TestLine line(3);
  line.record.HazenWilliamsC = 0;
  ExpectFault(line);
}

TEST(FlowCalc, NegativeFlowIsAFault) {
  TestLine line(3);
  line.record.HolesPerFurrow[3] = -1;
  ExpectFault(line);
}

TEST(FlowCalc, FlowRatioOfZeroIsAFault) {
  TestLine line(1);
  line.record.FlowRatio[1] = 0;
  line.record.TargetGPM = static_cast<float>(Orifice(0.1, 1));
  ExpectFault(line);
}

TEST(FlowCalc, HeadBeyondTheRangeIsAFault) {
  TestLine line(2);
  line.target_head = "1e400";
  ExpectFault(line);
}

TEST(FlowCalc, StationBeyondSixteenBitsIsAFault) {
  TestLine line(2, 40000);
  ExpectFault(line);
}

// One row whose first march meets the target needs no friction: a diameter of 0 goes unnoticed.
TEST(FlowCalc, DiameterIsNotLookedAtPastConvergence) {
  TestLine line(1);
  line.record.PipeDia[1] = 0;
  line.record.TargetGPM = static_cast<float>(Orifice(0.1, 1));
  EXPECT_EQ(line.Run(), 0);
}

// Rows that are no multiple of ten yield: of rows 1 to 25 all but 10 and 20. Whatever the host promises to be quiet,
// it is told of 23 yields a march.
TEST(FlowCalc, NineRowsInTenYield) {
  for (const long idle : {0L, 1L, 5L, 22L, 23L, kManyQuiet}) {
    TestLine line(25);
    line.host.idle = idle;
    for (int row = 1; row <= 25; ++row) line.record.HoleDia[row] = 0;
    EXPECT_EQ(line.Run(), 200);
    EXPECT_EQ(line.host.yields, 200 * 23 + 1) << idle;  // row 25 of the march that gives up
  }
}

// A host that promises nothing is asked at each of them, one that promises much is asked once and told the rest at the
// end.
TEST(FlowCalc, QuietHostIsAskedSeldom) {
  TestLine busy(25);
  busy.Run();
  EXPECT_EQ(busy.host.calls, busy.host.yields);
  TestLine quiet(25);
  quiet.host.idle = kManyQuiet;
  quiet.Run();
  EXPECT_EQ(quiet.host.calls, 2);
  EXPECT_EQ(quiet.host.yields, busy.host.yields);
}

// A fault in row 14 of 25: 25 to 21, 19 to 14 have yielded, row 14 among them.
TEST(FlowCalc, YieldsUpToAFaultAreCounted) {
  for (const long idle : {0L, 3L, kManyQuiet}) {
    TestLine line(25);
    line.host.idle = idle;
    line.record.PipeDia[14] = 0;
    EXPECT_EQ(line.Run(), 100);
    EXPECT_EQ(line.host.yields, 11) << idle;
  }
}

// Cancelled at the third yield of a line of 12 rows: yields at 12, 11, then 9. Rows 12, 11 and 10 are worked, 9 isn't.
TEST(FlowCalc, CancelStopsAtTheYield) {
  for (const long idle : {0L, 1L, kManyQuiet}) {
    TestLine line(12);
    line.host.idle = idle;
    line.host.CancelAt(3, line.record);
    EXPECT_EQ(line.Run(), 0) << idle;
    EXPECT_EQ(line.host.yields, 3);
    EXPECT_GT(line.record.FurrowFlow[10], 0);
    EXPECT_GT(line.record.Head[9], 0);
    EXPECT_EQ(line.record.FurrowFlow[9], 0);
    EXPECT_EQ(line.record.Head[8], 0);
    EXPECT_EQ(line.record.AccumGPM,
              line.record.FurrowFlow[12] + line.record.FurrowFlow[11] + line.record.FurrowFlow[10]);
    EXPECT_TRUE(line.record.CancelFlag);
    EXPECT_EQ(line.record.FlowCalcStatus, "");
    EXPECT_EQ(line.end.way, FlowEnd::Way::kCancelled);
  }
}

// A flag that is up before the march begins stops it at its first yield. Row 10 has none, so that it is worked.
TEST(FlowCalc, CancelFlagFromBefore) {
  TestLine line(10);
  line.record.CancelFlag = true;
  EXPECT_EQ(line.Run(), 0);
  EXPECT_EQ(line.host.yields, 1);
  EXPECT_GT(line.record.FurrowFlow[10], 0);
  EXPECT_EQ(line.record.FurrowFlow[9], 0);
}

}  // namespace
}  // namespace torvale
