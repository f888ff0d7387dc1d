// What must hold of every search for a slope or for hole sizes, whatever the field.
#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "engine/uniformity.h"
#include "properties/random.h"
#include "screen/screen_engine_host.h"
#include "search/flow_run.h"
#include "search/hole_selection_panel.h"
#include "search/search_program.h"
#include "search/slope_search.h"

namespace torvale {
namespace {

// A slope and the uniformity it gives.
struct Trial {
  float slope = 0;
  float uniformity = 0;
};

class SearchProperties : public SearchTest {
 protected:
  // A small field: up to four survey rows, a bumpy crown, furrows of different lengths, now and then a supply line.
  void RandomField(Random& random) {
    main.Grid1.Clear();
    GridSet(program);
    main.listHolesSelected.Clear();
    record.CrownSlope = 0;
    record.SpacingWarningOff = 0;
    const int survey_rows = random.Whole(2, 4);
    const std::string spacing = std::to_string(random.Whole(5, 20));
    const bool rods = random.OneIn(2);
    std::vector<SurveyRow> rows;
    for (int r = 0; r < survey_rows; ++r) {
      const std::string station = std::to_string(r * random.Whole(40, 45));
      const std::string crown = Format((rods ? 8 : 100) + random.Real(-0.04, 0.04), "0.00");
      if (r == 0 && random.OneIn(4)) {
        rows.push_back(SupplyRow(station, crown));
        continue;
      }
      rows.push_back(WateredRow(station, crown, std::to_string(random.Whole(300, 1320)), spacing));
    }
    FillSheet(rows);
    gpm_ = Format(random.Real(4, 12), "0.0");
    TypeInfo(gpm_, "1", rods ? "R" : "E");
  }

  void ChooseSizes(Random& random) {
    for (int count = random.Whole(1, 5); count > 0; --count) {
      main.listHolesSelected.Add(record.HoleSizeName[random.Whole(1, 12)]);
    }
  }

  // Whether the search came to its end with a design.
  bool Search(void (*command)(Program&)) {
    host.messages.clear();
    TypeInfo(gpm_, "1", main.txtInfo[5].text());
    if (command == cmdExitHoleSelect_Click) mnuManHoleSelection_Click(program);
    command(program);
    return record.DesignType != kNoDesign && record.DesignOK == "True" && record.MissingData == 0;
  }

  float UniformityAt(float slope) {
    record.DesignElev[1] = record.CrownElev[1];
    LayCrown(program, slope);
    int tries = 0;
    RunFlowCalc(program, tries);
    SortFurrows(record);
    ScreenEngineHost engine_host(program);
    DistributionEffic(record, engine_host);
    return record.Uniformity;
  }

  // Every slope that a search may try, one after the other, until the lowest head is spent.
  std::vector<Trial> AllTrials() {
    double first = 0;
    double second = 0;
    const int half = record.HoleRows / 2 - 1;
    for (int i = 1; i <= record.HoleRows; ++i) {
      if (i <= half + 1) first += record.FurrowLength[i];
      if (i >= half && i <= 2 * half) second += record.FurrowLength[i];
    }
    const bool rising = first > second;
    UniformityAt(0);
    std::vector<Trial> trials;
    float slope = 0;
    while (record.MinHead > 0.1F) {
      if (rising || !trials.empty()) {
        slope = static_cast<float>(static_cast<double>(slope) + (rising ? -0.00001 : 0.00001));
      }
      trials.push_back({slope, UniformityAt(slope)});
    }
    return trials;
  }

  std::string gpm_;
};

TEST_F(SearchProperties, TheSlopeFoundIsTheFirstOfTheBest) {
  Random random(20261121);
  unsigned searched = 0;
  for (unsigned round = 0; round < Rounds(15); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    if (!Search(mnuDesignConstSlope_Click)) continue;
    const Trial found = {record.CrownSlope, record.BestUniformity};
    const std::vector<Trial> trials = AllTrials();
    if (trials.empty()) {
      EXPECT_EQ(found.uniformity, 0);
      continue;
    }
    ++searched;
    const auto best = std::max_element(trials.begin(), trials.end(), [](const Trial& a, const Trial& b) {
      return a.uniformity < b.uniformity;  // the first of equals
    });
    EXPECT_EQ(found.uniformity, best->uniformity);
    EXPECT_EQ(found.slope, best->slope);
  }
  EXPECT_GT(searched, Rounds(15) / 2);
}

// The lift is rounded to four decimals, so the crown may lie half of the last one too low; the elevations have 32 bits.
TEST_F(SearchProperties, TheLaidCrownNowhereLiesBelowTheExistingOne) {
  Random random(311);
  unsigned searched = 0;
  for (unsigned round = 0; round < Rounds(24); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    if (!Search(round % 2 == 0 ? mnuDesignConstSlope_Click : mnuDesignDualSlope_Click)) continue;
    ++searched;
    double least = 1;
    for (int i = 1; i <= record.HoleRows; ++i) {
      const double fill = static_cast<double>(record.DesignElev[i]) - static_cast<double>(record.CrownElev[i]);
      least = std::min(least, main.txtInfo[5].text() == "E" ? fill : -fill);
    }
    EXPECT_GT(least, -0.00007);
    EXPECT_GE(record.HighestFill, 0);
  }
  EXPECT_GT(searched, Rounds(24) / 2);
}

// A dual slope is level from its break on, and its slope has one sign.
TEST_F(SearchProperties, ADualSlopeIsLevelPastItsBreak) {
  Random random(77);
  unsigned searched = 0;
  for (unsigned round = 0; round < Rounds(20); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    if (!Search(mnuDesignDualSlope_Click)) continue;
    ++searched;
    const int break_row = (record.HoleRows + 1) / 2;
    for (int i = break_row + 1; i <= record.HoleRows; ++i) {
      EXPECT_EQ(record.DesignElev[i], record.DesignElev[i - 1]) << i;
    }
    const bool grows = (record.CrownSlope > 0) == (main.txtInfo[5].text() == "R");
    for (int i = 2; i <= break_row && record.CrownSlope != 0; ++i) {
      EXPECT_EQ(record.DesignElev[i] > record.DesignElev[i - 1], grows) << i;
    }
  }
  EXPECT_GT(searched, Rounds(20) / 2);
}

// The largest size of the table below the ideal; no hole where the ideal stands above 2-15/16 and not above 3 inches.
TEST_F(SearchProperties, TableSizesStayBelowTheIdeal) {
  Random random(4);
  unsigned rows = 0;
  for (unsigned round = 0; round < Rounds(200); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    gpm_ = Format(std::exp(random.Real(std::log(0.5), std::log(3000.0))), "0.00");
    if (!Search(mnuComputerHoleSelection_Click)) continue;
    for (int i = 1; i <= record.HoleRows; ++i) {
      const float ideal = record.HoleSizeIdeal[i];
      if (!(ideal > 0)) continue;
      ++rows;
      float expected = 0;
      for (int size = 1; size <= kHoleSizes; ++size) {
        if (record.HoleSizeValue[size] < ideal) expected = record.HoleSizeValue[size];
      }
      if (ideal > record.HoleSizeValue[49] && ideal <= 3) expected = 0;
      EXPECT_EQ(record.ComputerHoleDia[i], expected) << "row " << i << " ideal " << ideal;
    }
  }
  EXPECT_GT(rows, 100U);
}

// The largest size of the list below the ideal, and where there is none the smallest.
TEST_F(SearchProperties, ListedSizesStayBelowTheIdeal) {
  Random random(6);
  unsigned rows = 0;
  for (unsigned round = 0; round < Rounds(60); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    ChooseSizes(random);
    if (!Search(cmdExitHoleSelect_Click)) continue;
    const int count = main.listHolesSelected.count();
    for (int i = 1; i <= record.HoleRows; ++i) {
      const float ideal = record.HoleSizeIdeal[i];
      if (!(ideal > 0)) continue;
      ++rows;
      float expected = record.SelectedHoleValue[0];
      for (int j = 1; j < count; ++j) {
        if (record.SelectedHoleValue[j] < ideal) expected = record.SelectedHoleValue[j];
      }
      EXPECT_EQ(record.LimitedHoleDia[i], expected) << "row " << i << " ideal " << ideal;
    }
  }
  EXPECT_GT(rows, 100U);
}

// The best head of a limited selection is one of those that were tried, and its design is the one shown.
TEST_F(SearchProperties, TheBestHeadIsTheOneShown) {
  Random random(66);
  unsigned searched = 0;
  for (unsigned round = 0; round < Rounds(60); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    ChooseSizes(random);
    if (!Search(cmdExitHoleSelect_Click)) continue;
    ++searched;
    EXPECT_EQ(record.Uniformity, record.BestUniformity);
    EXPECT_EQ(static_cast<float>(Val(main.txtInfo[3].text())), record.BestHeadFound);
    const double fifths = (2 - static_cast<double>(record.BestHeadFound)) / 0.2;
    EXPECT_NEAR(fifths, std::round(fifths), 1e-5);
    EXPECT_GE(fifths, 1 - 1e-5);
  }
  EXPECT_GT(searched, Rounds(60) / 4);
}

TEST_F(SearchProperties, ASearchRepeatedGivesTheSameBits) {
  Random random(8);
  unsigned searched = 0;
  for (unsigned round = 0; round < Rounds(24); ++round) {
    SCOPED_TRACE(round);
    RandomField(random);
    ChooseSizes(random);
    const auto command = std::vector{mnuDesignConstSlope_Click, mnuDesignDualSlope_Click,
                                     mnuComputerHoleSelection_Click, cmdExitHoleSelect_Click}[round % 4];
    if (!Search(command)) continue;
    ++searched;
    const DesignRecord first = record;
    ASSERT_TRUE(Search(command));
    EXPECT_EQ(first.Head, record.Head);
    EXPECT_EQ(first.FurrowFlow, record.FurrowFlow);
    EXPECT_EQ(first.DesignElev, record.DesignElev);
    EXPECT_EQ(first.ComputerHoleDia, record.ComputerHoleDia);
    EXPECT_EQ(first.LimitedHoleDia, record.LimitedHoleDia);
    EXPECT_EQ(first.NormFurrowFlow, record.NormFurrowFlow);
    EXPECT_EQ(first.CrownSlope, record.CrownSlope);
    EXPECT_EQ(first.Uniformity, record.Uniformity);
    EXPECT_EQ(first.BestHeadFound, record.BestHeadFound);
    EXPECT_EQ(first.HighestFill, record.HighestFill);
  }
  EXPECT_GT(searched, Rounds(24) / 2);
}

}  // namespace
}  // namespace torvale
