#include "search/slope_search.h"

#include <algorithm>

#include "base/format.h"
#include "engine/uniformity.h"
#include "screen/screen_engine_host.h"
#include "search/best_fit_head.h"
#include "search/flow_run.h"
#include "search/survey_completion.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;

class SlopeSearchTest : public SearchTest {
 protected:
  // The distinct values of `look` in the order seen at the yields of a run.
  template <typename Look>
  auto Sequence(void (*command)(Program&), Look look) {
    std::vector<decltype(look())> seen;
    WatchYields([&] {
      if (seen.empty() || seen.back() != look()) seen.push_back(look());
    });
    command(program);
    host.event = nullptr;
    return seen;
  }

  // The longest furrows stand at the head of the line: the search rises.
  void RisingLine() {
    LevelLine();
    FillSheet({WateredRow("0", "100", "1100"), WateredRow("50", "100", "1000"), WateredRow("100", "100", "1000")});
  }

  void Keep(float uniformity, float slope) {
    record.Uniformity = uniformity;
    record.SlopeDelta = slope;
    GradeEfficAdj(program);
  }
};

TEST_F(SlopeSearchTest, TriesTheLevelCrownFirstWhenFalling) {
  LevelLine();
  const std::vector<float> slopes = Sequence(mnuDesignConstSlope_Click, [&] { return record.SlopeDelta; });
  ASSERT_GT(slopes.size(), 3U);
  EXPECT_EQ(slopes[0], 0);
  EXPECT_EQ(slopes[1], 0.00001F);
  EXPECT_EQ(slopes[2], 0.00002F);
  EXPECT_LE(record.MinHead, 2);
}

TEST_F(SlopeSearchTest, BeginsAStepUpWhenRising) {
  RisingLine();
  const std::vector<float> slopes = Sequence(mnuDesignConstSlope_Click, [&] { return record.SlopeDelta; });
  ASSERT_GT(slopes.size(), 3U);
  EXPECT_EQ(slopes[0], 0);  // the march over the level crown, which is no candidate
  EXPECT_EQ(slopes[1], -0.00001F);
  EXPECT_EQ(slopes[2], -0.00002F);
  EXPECT_LT(record.CrownSlope, 0);
}

// The loop ends with the first trial whose lowest head is at or below 0.1 foot; in the falling search the slope has
// been stepped once more by then.
TEST_F(SlopeSearchTest, EndsWhenTheLowestHeadIsSpent) {
  for (const bool rising : {false, true}) {
    SCOPED_TRACE(rising);
    if (rising) {
      RisingLine();
    } else {
      LevelLine();
    }
    mnuDesignConstSlope_Click(program);
    const float last = rising ? record.SlopeDelta : record.SlopeDelta - 0.00001F;
    const auto lowest_at = [&](float slope) {
      record.DesignElev[1] = record.CrownElev[1];
      LayCrown(program, slope);
      int tries = 0;
      RunFlowCalc(program, tries);
      return record.MinHead;
    };
    EXPECT_LE(lowest_at(last), 0.1F);
    EXPECT_GT(lowest_at(last + (rising ? 0.00001F : -0.00001F)), 0.1F);
  }
}

TEST_F(SlopeSearchTest, CaptionsItsTrials) {
  LevelLine();
  const std::vector<std::string> falling =
      Sequence(mnuDesignConstSlope_Click, [&] { return main.lblCrownSlope.caption; });
  ASSERT_GT(falling.size(), 3U);
  EXPECT_EQ(falling[1], "          Crown Slope: .  Per 100 Feet");
  EXPECT_EQ(falling[2], "          Crown Slope: .001  Per 100 Feet");
  EXPECT_EQ(falling[3], "          Crown Slope: .002  Per 100 Feet");
  // In the last march the slope tried last stands in the caption, one blank ahead of it.
  EXPECT_EQ(falling.back(),
            " Crown Slope: " + Format(static_cast<double>(record.SlopeDelta) * 100, "##.###") + "  Per 100 Feet");

  RisingLine();
  mnuWindowInfo_Click(program);
  const std::vector<std::string> rising =
      Sequence(mnuDesignConstSlope_Click, [&] { return main.lblCrownSlope.caption; });
  ASSERT_GT(rising.size(), 3U);
  EXPECT_EQ(rising[1], "       Crown Slope: -.001  Per 100 Feet");
  EXPECT_EQ(rising[2], "       Crown Slope: -.002  Per 100 Feet");
}

TEST_F(SlopeSearchTest, ShowsUniformityAndHeadsAfterEachTrial) {
  LevelLine();
  main.frmDisplayLbl[5].visible = false;
  main.lblEffic.visible = false;
  bool looked = false;
  WatchYields([&] {
    if (looked || main.lblCrownSlope.caption != "          Crown Slope: .001  Per 100 Feet") return;
    looked = true;
    const std::string uniformity = GeneralText(record.Uniformity);
    EXPECT_EQ(main.lblEffic.caption, "Distribution Uniformity = " + uniformity);
    EXPECT_TRUE(main.lblEffic.visible);
    EXPECT_TRUE(main.lblCrownSlope.visible);
    EXPECT_FALSE(main.lblHeadCount.visible);
    // Both heads of the nearly level line are 0.105 feet but for half a thousandth.
    EXPECT_THAT(main.frmDisplayLbl[1].caption, testing::AnyOf(".10", ".11"));
    EXPECT_THAT(main.frmDisplayLbl[5].caption, testing::AnyOf(".10", ".11"));
    EXPECT_TRUE(main.frmDisplayLbl[1].visible && main.frmDisplayLbl[3].visible && main.frmDisplayLbl[5].visible);
    EXPECT_THAT(Status(), testing::StartsWith("Slope 0.001 ft per 100 ft, uniformity " + uniformity +
                                              " %, best so far 100 % at 0.000"));
  });
  mnuDesignConstSlope_Click(program);
  EXPECT_TRUE(looked);
}

// ---- Keeping the best ----

TEST_F(SlopeSearchTest, KeepsTheFlattestOfEquals) {
  record.BestUniformity = 0;
  Keep(90.5F, 0);
  Keep(90.5F, 0.00001F);
  EXPECT_EQ(record.CrownSlope, 0);
  Keep(90.6F, 0.00002F);
  EXPECT_EQ(record.CrownSlope, 0.00002F);
  Keep(90.6F, 0.00003F);
  Keep(89, 0.00004F);
  EXPECT_EQ(record.CrownSlope, 0.00002F);
  EXPECT_EQ(record.BestUniformity, 90.6F);
}

TEST_F(SlopeSearchTest, TellsTheBestSlopeSoFar) {
  main.lblHeadCount.visible = true;
  main.lblCrownSlope.visible = false;
  main.frmDisplayLbl[1].visible = main.frmDisplayLbl[3].visible = false;
  record.BestUniformity = 0;
  Keep(90, 0.00125F);
  EXPECT_EQ(main.lblCrownSlope.caption, "          Calculating Best Slope: .125 Per 100 Feet");
  EXPECT_TRUE(main.lblCrownSlope.visible);
  EXPECT_FALSE(main.lblHeadCount.visible);
  EXPECT_TRUE(main.frmDisplayLbl[1].visible);
  EXPECT_TRUE(main.frmDisplayLbl[3].visible);
}

// A level line of equal furrows can't be bettered: level comes to 100 percent, and no trial after it is
// strictly better.
TEST_F(SlopeSearchTest, LeavesALevelLineLevel) {
  LevelLine();
  record.CrownSlope = 7;
  mnuDesignConstSlope_Click(program);
  EXPECT_EQ(record.CrownSlope, 0);
  EXPECT_EQ(record.BestUniformity, 100);
  EXPECT_EQ(record.Uniformity, 100);
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = . feet per 100 feet");
}

// ---- Starting where no head is left ----

// A tenth of a foot gives each 3/8 inch hole 0.5676 GPM, the eleven 6.243. At 6 GPM the level line stands below it: no
// trial is made, and the crown is laid at the slope that was found before.
TEST_F(SlopeSearchTest, UsesTheSlopeFoundBeforeWhereTheHeadIsSpent) {
  LevelLine("6");
  record.CrownSlope = 0.0009765625F;  // 2^-10
  const std::vector<std::string> captions =
      Sequence(mnuDesignConstSlope_Click, [&] { return main.lblCrownSlope.caption; });
  EXPECT_EQ(record.BestUniformity, 0);
  EXPECT_EQ(record.CrownSlope, 0.0009765625F);
  EXPECT_EQ(record.SlopeDelta, 0);
  EXPECT_EQ(captions.back(), " Crown Slope: .  Per 100 Feet");
  EXPECT_EQ(main.lblCrownSlope.caption, "Crown Slope = .098 feet per 100 feet");
  // Ten feet at 2^-10 are 10/1024 feet. The lowest row, the far end, lies 100/1024 = 0.09765625 feet below the existing
  // crown; the lift is that with four decimals, 0.0977.
  EXPECT_EQ(record.DesignElev[1], 100.0977F);
  EXPECT_NEAR(record.DesignElev[11], 100.0977 - 0.09765625, 1e-5);
}

// ---- Short lines ----

TEST_F(SlopeSearchTest, ALineOfOneRowIsTriedOnce) {
  TypeInfo("0.6", "0.2", "E");
  FillSheet({WateredRow("0", "100"), WateredRow("100", "100")});
  cmdInterpolate_Click(program);
  record.HoleRows = record.WateredFurrows = 1;
  record.HoleDia[1] = 0.375F / 12;
  record.SurveyHoleDia[1] = 0.375F;
  record.HolesPerFurrow[1] = 1;
  record.PipeDia[1] = 15;
  record.FurrowLength[1] = 100;
  record.FlowRatio[1] = 1;
  record.AverageFurrowFlow = 0.6F;
  record.CrownElev[1] = 100;
  record.DesignType = kConstantSlope;
  record.DesignOK = "True";
  BestFitHead(program);
  EXPECT_EQ(record.CrownSlope, 0);
  EXPECT_EQ(record.SlopeDelta, 0.00001F);
  EXPECT_EQ(record.DesignElev[1], 100);
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
}

// The hole at the head of the line has the longer half to itself, so the line rises.
TEST_F(SlopeSearchTest, LinesOfTwoAndThreeRowsRise) {
  for (const auto& [last, gpm] : {std::pair{"10", "1.165"}, {"20", "1.748"}}) {
    SCOPED_TRACE(last);
    TypeInfo(gpm, "0.2", "E");  // 0.5825 GPM for each hole: 0.1053 feet
    FillSheet({WateredRow("0", "100"), WateredRow(last, "100")});
    mnuDesignConstSlope_Click(program);
    EXPECT_LT(record.SlopeDelta, 0);
    EXPECT_LE(record.CrownSlope, -0.00001F);
    EXPECT_EQ(record.DesignOK, "True");
  }
}

// ---- Run flags inside the search ----

// Only the falling search looks at `DesignOK`.
TEST_F(SlopeSearchTest, OnlyTheFallingSearchStopsForDesignOK) {
  for (const bool rising : {false, true}) {
    SCOPED_TRACE(rising);
    if (rising) {
      RisingLine();
    } else {
      LevelLine();
    }
    bool spoilt = false;
    std::vector<float> slopes;
    WatchYields([&] {
      if (slopes.empty() || slopes.back() != record.SlopeDelta) slopes.push_back(record.SlopeDelta);
      if (slopes.size() == 2 && !spoilt) {
        spoilt = true;
        record.DesignOK = "False";
      }
    });
    mnuDesignConstSlope_Click(program);
    host.event = nullptr;
    EXPECT_EQ(slopes.size() > 2, rising);
    EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");  // the command leads back in both cases
  }
}

// Whatever the search had in flight, the record of a cancelled one is that of the trial at which Cancel was pressed:
// its crown, its march, its uniformity, as a calculation of that crown alone has them.
TEST_F(SlopeSearchTest, CancelLeavesTheFiguresOfATrial) {
  for (const bool rising : {false, true}) {
    SCOPED_TRACE(rising);
    if (rising) {
      RisingLine();
    } else {
      LevelLine();
    }
    cmdInterpolate_Click(program);
    record.DesignType = kConstantSlope;
    record.DesignOK = "True";
    record.CancelFlag = false;
    mnuDesignConstSlope_Click(program);
    ASSERT_EQ(record.DesignOK, "True");
    const float wanted = rising ? -0.00003F : 0.00003F;
    WatchYields([&] {
      if (record.SlopeDelta == wanted) cmdCancel_Click(program);
    });
    BestGradeEffic(program);
    host.event = nullptr;
    EXPECT_TRUE(record.CancelFlag);
    EXPECT_EQ(record.SlopeDelta, wanted);
    const DesignRecord cancelled = record;
    record.CancelFlag = false;
    record.DesignOK = "True";
    LayCrown(program, wanted);
    int tries = 0;
    RunFlowCalc(program, tries);
    EXPECT_TRUE(cancelled.DesignElev == record.DesignElev);
    EXPECT_TRUE(cancelled.Head == record.Head);
    EXPECT_TRUE(cancelled.FurrowFlow == record.FurrowFlow);
    EXPECT_EQ(cancelled.MinHead, record.MinHead);
    EXPECT_EQ(cancelled.AccumGPM, record.AccumGPM);
    SortFurrows(record);
    EXPECT_TRUE(cancelled.NormFurrowFlow == record.NormFurrowFlow);
    mnuWindowInfo_Click(program);
  }
}

TEST_F(SlopeSearchTest, ShowsTheDesignAndUnlocksTheScreenItself) {
  LevelLine();
  cmdInterpolate_Click(program);
  record.DesignType = kConstantSlope;
  mnuDesignConstSlope_Click(program);
  main.lblActiveInactive.caption.clear();
  main.mnuDesign.enabled = false;
  main.busy = true;
  BestGradeEffic(program);
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_FALSE(main.busy);
}

// ---- A trial that finds no head ----

// From a target head of -92 feet the search for the head at the far end climbs by the foot. At 20 GPM the level crown
// is met within its hundred tries; the lower the crown, the more tries it takes, and the crown at 0.010 takes too many.
constexpr const char* kSunkenHead = "-92";
constexpr int kTrialThatGivesUp = 10;

// The trials one after the other on the record, as the command makes them; the last one gives up.
void MakeTrialsPlainly(Program& program) {
  DesignRecord& record = program.record;
  int tries = 0;
  for (int trial = 0; trial <= kTrialThatGivesUp; ++trial) {
    if (trial > 0) record.SlopeDelta = static_cast<float>(static_cast<double>(record.SlopeDelta) + 0.00001F);
    LayCrown(program, record.SlopeDelta);
    RunFlowCalc(program, tries);
    SortFurrows(record);
    if (record.CancelFlag) return;  // no furrow has a flow: a uniformity of them is a fault, which ends the run
    ScreenEngineHost host(program);
    DistributionEffic(record, host);
  }
}

TEST_F(SlopeSearchTest, ATrialThatGivesUpEndsTheFallingSearchWithItsOwnFigures) {
  LevelLine("20");
  main.txtInfo[3].Set(kSunkenHead);
  std::vector<std::string> captions;
  WatchYields([&] { captions.push_back(main.lblCrownSlope.caption); });
  mnuDesignConstSlope_Click(program);
  host.event = nullptr;
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_EQ(host.messages.size(), 1U);
  // While the trial that gives up is worked, the one before it is the last that is known.
  ASSERT_FALSE(captions.empty());
  EXPECT_EQ(captions.back(), "          Crown Slope: .009  Per 100 Feet");
  EXPECT_NEAR(record.SlopeDelta, 0.0001F, 1e-9F);

  const DesignRecord ended = record;
  LevelLine("20");
  main.txtInfo[3].Set(kSunkenHead);
  cmdInterpolate_Click(program);
  record.DesignType = kConstantSlope;
  record.DesignOK = "True";
  record.CancelFlag = false;
  record.SlopeDelta = 0;
  record.DesignElev[1] = record.CrownElev[1];
  MakeTrialsPlainly(program);
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_TRUE(ended.DesignElev == record.DesignElev);
  EXPECT_TRUE(ended.Head == record.Head);
  EXPECT_TRUE(ended.FurrowFlow == record.FurrowFlow);
  EXPECT_TRUE(ended.NormFurrowFlow == record.NormFurrowFlow);
  EXPECT_EQ(ended.AccumGPM, record.AccumGPM);
  EXPECT_EQ(ended.MinHead, record.MinHead);
  EXPECT_EQ(ended.Uniformity, record.Uniformity);
}

// What the desktop is told of does not depend on whether anything happens there.
TEST_F(SlopeSearchTest, CountsTheSameYieldsWhetherOneIsWatchedOrNot) {
  std::vector<long> counted;
  for (const bool watched : {false, true}) {
    LevelLine();
    const long before = host.yields;
    if (watched) WatchYields([] {});
    mnuDesignConstSlope_Click(program);
    host.event = nullptr;
    counted.push_back(host.yields - before);
    mnuWindowInfo_Click(program);
  }
  EXPECT_GT(counted[0], 0);
  EXPECT_EQ(counted[0], counted[1]);
}

TEST_F(SlopeSearchTest, TheColourOfTheUniformityIsThatOfItsTrial) {
  LevelLine();
  bool looked = false;
  WatchYields([&] {
    if (looked || main.lblCrownSlope.caption != "          Crown Slope: .001  Per 100 Feet") return;
    looked = true;
    EXPECT_GE(record.Uniformity, 90);
    EXPECT_EQ(main.lblEffic.back, kBrightGreen);
  });
  main.lblEffic.back = kYellow;  // of a design before
  mnuDesignConstSlope_Click(program);
  EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace torvale
