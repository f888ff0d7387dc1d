// What must hold of every march, whatever the line.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "display/grid_layout.h"
#include "engine/flow_calc.h"
#include "engine/stations.h"
#include "engine/uniformity.h"
#include "properties/chain_program.h"
#include "properties/random_survey.h"
#include "properties/watchdog.h"
#include "screen/screen_engine_host.h"

namespace torvale {
namespace {

// A watered line on a level crown, from two survey rows: holes, spacing, pipe and flow at random.
struct LevelLine {
  explicit LevelLine(Random& random) {
    const int spacing = random.Whole(1, 40);
    const int holes = random.Whole(2, 120);
    const std::string hole(random.Of(kSomeHoles));
    const std::string pipe = std::to_string(random.Whole(8, 22));
    for (int row = 1; row <= 2; ++row) {
      const std::string cells[] = {std::to_string((row - 1) * spacing * (holes - 1)),
                                   "100",
                                   std::to_string(random.Whole(300, 1320)),
                                   std::to_string(spacing),
                                   pipe,
                                   hole,
                                   "1",
                                   "10",
                                   std::to_string(spacing)};
      for (int column = 0; column < kSurveyColumns; ++column) sheet.Set(row, column, cells[column]);
    }
    record.DesignType = kPlanned;
    record.DesignOK = "True";
    record.SurveyRows = 2;
    record.LowQuarter = 0.25F;
    record.HazenWilliamsC = static_cast<float>(random.Whole(100, 150));
    record.DischargeCoef = static_cast<float>(random.Real(0.5, 0.9));
    record.TargetGPM = static_cast<float>(holes * random.Real(0.3, 8));
    CalCrownDist(record, sheet);
    CalStations(record);
    CalHoleStation(record, sheet);
    record.AverageFurrowFlow = record.TargetGPM / static_cast<float>(record.WateredFurrows);
    CalCrownElev(record, sheet);
    FlowRatio(record);
  }

  TextGrid sheet{kSurveyGridRows, kSurveyColumns};
  DesignRecord record;
};

// On a level crown head falls toward the far end by friction alone: it never rises, and where all holes are alike their
// flows never rise either. The first row has the highest head and the last the lowest.
TEST(MarchProperties, HeadFallsByFrictionAlone) {
  Watchdog watchdog(std::chrono::seconds(60));
  Random random(11);
  RandomDesktop desktop(random);
  Program program(desktop.host);
  ScreenEngineHost host(program);
  const std::string head = "1";
  const std::string kind = "E";
  int converged = 0;
  double largest_imbalance = 0;
  const unsigned rounds = Rounds(400);
  for (unsigned round = 0; round < rounds && !HasFailure(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    watchdog.Begin("level line, round " + std::to_string(round));
    LevelLine line(random);
    DesignRecord& r = line.record;
    FlowCalc(r, {line.sheet, head, kind}, host);
    ExpectFinite(r);
    if (r.CancelFlag) continue;
    ++converged;
    const bool balanced = ExpectMassBalance(r);
    EXPECT_TRUE(balanced || r.Head[1] == 2.0);
    if (balanced) largest_imbalance = std::max(largest_imbalance, Imbalance(r));
    for (int row = 2; row <= r.HoleRows; ++row) {
      EXPECT_LE(r.Head[row], r.Head[row - 1]);
      EXPECT_LE(r.FurrowFlow[row], r.FurrowFlow[row - 1]);
    }
    EXPECT_EQ(r.MaxHead, static_cast<float>(r.Head[1]));
    EXPECT_EQ(r.MaxHeadStation, 0);
    EXPECT_EQ(r.MinHead, static_cast<float>(r.Head[r.HoleRows]));

    // The uniformity of a finished march is a percentage to one decimal.
    SortFurrows(r);
    DistributionEffic(r, host);
    EXPECT_GE(r.Uniformity, 0);
    EXPECT_LE(r.Uniformity, 100);
    EXPECT_NEAR(static_cast<double>(r.Uniformity) * 10, std::round(static_cast<double>(r.Uniformity) * 10), 1e-4);
  }
  EXPECT_GT(converged, 200);
  RecordProperty("converged", converged);
  RecordProperty("largest_imbalance", std::to_string(largest_imbalance));
}

// The more head at the far end, the more flow out of the line.
TEST(MarchProperties, MoreHeadIsMoreFlow) {
  Random random(12);
  RandomDesktop desktop(random);
  Program program(desktop.host);
  ScreenEngineHost host(program);
  const std::string kind = "E";
  const unsigned rounds = Rounds(200);
  for (unsigned round = 0; round < rounds && !HasFailure(); ++round) {
    LevelLine line(random);
    DesignRecord& r = line.record;
    double flow_before = 0;
    for (const char* const text : {"0.1", "0.5", "1", "2", "4"}) {
      const std::string head = text;
      // One march with a target that it can not meet; Cancel ends the second one at its first yield, which may come
      // after the last row was worked again, so that this row is left out of the sum.
      r.TargetGPM = 1e9F;
      desktop.CancelAfter(r.HoleRows - r.HoleRows / 10 + 1, [&] { r.CancelFlag = true; });
      r.CancelFlag = false;
      ASSERT_EQ(FlowCalc(r, {line.sheet, head, kind}, host).tries, 1);
      double flow = 0;
      for (int row = 1; row < r.HoleRows; ++row) flow += static_cast<double>(r.FurrowFlow[row]);
      EXPECT_GT(flow, flow_before);
      flow_before = flow;
    }
  }
}

}  // namespace
}  // namespace torvale
