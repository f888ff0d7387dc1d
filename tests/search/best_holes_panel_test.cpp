#include "search/best_holes_panel.h"

#include <sstream>

#include "base/format.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class BestHolesTest : public SearchTest {
 protected:
  // Eleven furrows ten feet apart whose length doubles toward the far end, on a level crown.
  void Prepare(const std::vector<const char*>& sizes, const std::string& stretches, const std::string& target = "2") {
    TypeInfo("20", target, "E");
    FillSheet({WateredRow("0", "100", "600"), WateredRow("100", "100", "1200")});
    ResetBestHoleLimits(main);
    mnuBestHoles_Click(program);
    main.listHolesSelected.Clear();
    for (const char* size : sizes) main.listHolesSelected.Add(size);
    main.txtBest[kStretchesField].Set(stretches);
  }

  // What a limited selection with the same list comes to.
  float Classic() {
    mnuManHoleSelection_Click(program);
    cmdExitHoleSelect_Click(program);
    return record.Uniformity;
  }

  int StretchesShown() const {
    int stretches = 0;
    float before = 0;
    for (int row = 1; row <= record.HoleRows; ++row) {
      stretches += record.LimitedHoleDia[row] != before;
      before = record.LimitedHoleDia[row];
    }
    return stretches;
  }
};

TEST_F(BestHolesTest, ShowsALimitedSelectionWithItsBound) {
  Prepare({"3/8", "5/16", "7/16"}, "2");
  cmdFindBestHoles_Click(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.DesignType, kLimitedHoles);
  EXPECT_THAT(Ticked(), ElementsAre("mnuBestHoles"));
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_TRUE(main.lblBestHoles.visible);
  EXPECT_EQ(main.lblBestHoles.caption, "Stretches: 2. No other plan is better.");  // all plans of so few are looked at
  EXPECT_THAT(Status(), HasSubstr("uniformity " + Format(static_cast<double>(record.Uniformity), "##0.0")));
  EXPECT_EQ(StretchesShown(), 2);
  EXPECT_LE(record.MaxHead, 2);
  EXPECT_GE(record.MinHead, 0.5F);
  EXPECT_EQ(record.BestUniformity, record.Uniformity);  // what was looked for is what the program itself works out
  EXPECT_FALSE(main.busy);
  EXPECT_TRUE(main.mnuFile.enabled);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_EQ(main.txtInfo[3].text(), "2");
}

// The plans that the limited selection tries are among those looked at.
TEST_F(BestHolesTest, IsNeverBelowTheLimitedSelection) {
  Prepare({"5/16", "3/8", "7/16"}, "3");
  main.txtBest[kLeastHeadField].Set("0.01");
  const float classic = Classic();
  main.txtInfo[3].Set("2");
  mnuBestHoles_Click(program);
  cmdFindBestHoles_Click(program);
  ASSERT_TRUE(main.Grid2.control.visible);
  EXPECT_GE(record.Uniformity, classic);
}

TEST_F(BestHolesTest, TheFieldsStandInThePanelForThisCommandAlone) {
  Prepare({"3/8"}, "1");
  EXPECT_TRUE(main.txtBest[0].control.visible);
  EXPECT_TRUE(main.cmdFindBestHoles.visible);
  EXPECT_FALSE(main.cmdExitHoleSelect.visible);
  mnuManHoleSelection_Click(program);
  EXPECT_FALSE(main.txtBest[0].control.visible);
  EXPECT_FALSE(main.lblBest[2].visible);
  EXPECT_FALSE(main.cmdFindBestHoles.visible);
  EXPECT_FALSE(main.cmdCloseBestHoles.visible);
  EXPECT_TRUE(main.cmdExitHoleSelect.visible);
}

TEST_F(BestHolesTest, AMissingFieldKeepsThePanelClosed) {
  TypeInfo("20", "", "E");
  mnuBestHoles_Click(program);
  EXPECT_FALSE(main.frameHoleSelection.visible);
  EXPECT_EQ(record.MissingData, -1);
  EXPECT_FALSE(main.txtBest[0].control.visible);
}

TEST_F(BestHolesTest, ARefusedLimitKeepsThePanelAndTheFocusGoesToIt) {
  struct Case {
    std::size_t field;
    const char* text;
  };
  for (const Case& wrong : {Case{kStretchesField, "0"}, Case{kStretchesField, "1.5"}, Case{kStretchesField, "65"},
                            Case{kStretchesField, "x"}, Case{kLeastHeadField, "0"}, Case{kLeastHeadField, "-1"},
                            Case{kHighestHeadField, "0.5"}, Case{kHighestHeadField, "101"}}) {
    Prepare({"3/8"}, "1");
    main.txtBest.at(wrong.field).Set(wrong.text);
    host.messages.clear();
    cmdFindBestHoles_Click(program);
    EXPECT_EQ(host.messages.size(), 1U) << wrong.text;
    EXPECT_TRUE(main.frameHoleSelection.visible) << wrong.text;
    EXPECT_EQ(main.focus, "txtBest(" + std::to_string(wrong.field) + ")") << wrong.text;
    EXPECT_EQ(record.DesignType, kNoDesign) << wrong.text;
  }
}

TEST_F(BestHolesTest, TellsWhereNoPlanKeepsTheHeads) {
  Prepare({"3/8"}, "1");
  main.txtBest[kLeastHeadField].Set("1.98");
  main.txtBest[kHighestHeadField].Set("1.99");
  cmdFindBestHoles_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_THAT(host.messages[0].body,
              StartsWith("No plan of the selected hole sizes gives the GPM with every head from"));
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_FALSE(main.lblBestHoles.visible);
  EXPECT_TRUE(main.mnuFile.enabled);
}

// A survey that the run refuses ends as it does in every other design: the sheet is there and nothing is locked.
TEST_F(BestHolesTest, ARefusedSurveyLeavesTheSheetUnlocked) {
  Prepare({"3/8"}, "1");
  main.Grid1.Set(2, kPipeDiaColumn, "");
  main.Grid1.Set(1, kPipeDiaColumn, "");
  cmdFindBestHoles_Click(program);
  EXPECT_EQ(record.MissingData, -1);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_TRUE(main.mnuFile.enabled);
  EXPECT_FALSE(main.busy);
}

// Cancel keeps the best so far. 41 furrows of four sizes in four stretches are too many plans to look at one by one.
TEST_F(BestHolesTest, CancelShowsTheBestSoFar) {
  Prepare({"1/4", "5/16", "3/8", "7/16"}, "4");
  FillSheet({WateredRow("0", "100", "600"), WateredRow("400", "100", "1200")});
  main.txtInfo[2].Set("60");
  record.TargetGPM = 60;
  std::vector<std::string> captions;
  WatchYields([&] {
    captions.push_back(main.lblHeadCount.caption);
    EXPECT_TRUE(main.cmdCancel.visible && main.cmdCancel.enabled);
    if (captions.size() == 30) cmdCancel_Click(program);
  });
  cmdFindBestHoles_Click(program);
  host.event = nullptr;
  EXPECT_EQ(captions.size(), 30U);
  EXPECT_THAT(captions.back(), StartsWith("Best Holes: "));
  EXPECT_THAT(captions.back(), HasSubstr(" % looked at"));
  EXPECT_THAT(Status(), StartsWith("Cancelled: this is the best plan so far."));
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_FALSE(record.CancelFlag);
}

// One line for each number of stretches under a heading; the figure for the stretches of the plan is the plan's.
TEST_F(BestHolesTest, TellsWhatOneMoreStretchBuys) {
  Prepare({"5/16", "3/8", "7/16"}, "2");
  cmdFindBestHoles_Click(program);
  ASSERT_TRUE(main.frameBestCurve.visible);
  EXPECT_EQ(main.lblCurve[0].caption, "Stretches\n1\n2\n3\n4\n5\n6\n7\n8");
  EXPECT_THAT(main.lblCurve[1].caption, StartsWith("Uniformity\n"));
  std::vector<std::string> lines;
  std::istringstream text(main.lblCurve[1].caption);
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[2], Format(static_cast<double>(record.Uniformity), "##0.0"));
  for (std::size_t i = 2; i < lines.size(); ++i) EXPECT_GE(Val(lines[i]), Val(lines[i - 1]));
  // The shortest bar has one block, of three bytes.
  EXPECT_THAT(main.lblCurve[2].caption, StartsWith(" \n\u2501\n\u2501"));
  MarchShownSelection(program);
  EXPECT_FALSE(main.frameBestCurve.visible);
}

// Re-calculate opens the panel as the command that the shown design came from does.
TEST_F(BestHolesTest, ReCalculateOpensItsPanelAgain) {
  Prepare({"3/8", "7/16"}, "2");
  cmdFindBestHoles_Click(program);
  cmdReCalc_Click(program);
  EXPECT_TRUE(main.cmdFindBestHoles.visible);
  mnuManHoleSelection_Click(program);
  cmdExitHoleSelect_Click(program);
  EXPECT_FALSE(main.lblBestHoles.visible);
  cmdReCalc_Click(program);
  EXPECT_FALSE(main.cmdFindBestHoles.visible);
}

// The bound was worked out for one kind of pipe.
TEST_F(BestHolesTest, AnotherKindOfPipeDropsTheBound) {
  Prepare({"3/8", "7/16"}, "2");
  cmdFindBestHoles_Click(program);
  MarchShownSelection(program);
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_FALSE(main.lblBestHoles.visible);
  EXPECT_TRUE(main.lblBestHoles.caption.empty());
}

// What was said of the selection is not said of its march over the other kind of pipe; where that march faults, it is
// said why, and no half of it is shown.
TEST_F(BestHolesTest, AnotherKindOfPipeDropsWhatWasSaid) {
  Prepare({"3/8", "7/16"}, "2");
  mnuManHoleSelection_Click(program);
  cmdExitHoleSelect_Click(program);
  ASSERT_TRUE(main.Grid2.control.visible);
  Say(program, words::kSlopeProgress("1", "2", "3", "4", "5", "6"));
  MarchShownSelection(program);
  EXPECT_EQ(Status(), "");
  EXPECT_TRUE(main.Grid2.control.visible);
  record.WateredFurrows = 0;  // the flow is divided by them
  MarchShownSelection(program);
  EXPECT_EQ(Status(), "No row has holes: a watered row needs a furrow length, a hole size and a number of holes.");
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_EQ(record.DesignOK, "False");
}

}  // namespace
}  // namespace torvale
