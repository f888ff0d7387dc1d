// The head loop of a limited selection, and the run that follows it.
#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "search/cal_dsign_var.h"
#include "search/hole_selection_panel.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadLoopTest : public SearchTest {
 protected:
  void Prepare(const std::string& highest, const std::string& increment) {
    LevelLine("20");
    main.txtInfo[3].Set("1.9");
    main.txtDefault[13].Set(highest);
    main.txtDefault[14].Set(increment);
    mnuManHoleSelection_Click(program);
    main.listHolesSelected.Clear();
    for (const char* size : {"1/4", "3/8", "1/2"}) main.listHolesSelected.Add(size);
  }
  // The texts that the Target Head takes in a limited selection.
  std::vector<std::string> Heads() {
    std::vector<std::string> heads;
    main.txtInfo[3].on_change = [&] { heads.push_back(main.txtInfo[3].text()); };
    cmdExitHoleSelect_Click(program);
    main.txtInfo[3].on_change = nullptr;
    return heads;
  }
};

// Lowered before the first trial, the highest head itself is never tried; the passes number Int((3 - 0.5) / 0.5) + 1
// = 6. The last head, 0, shows as a lone point: it is counted and not worked out. Last comes the best head.
TEST_F(HeadLoopTest, TriesHeadsDownward) {
  Prepare("3.0", ".5");
  const std::vector<std::string> heads = Heads();
  ASSERT_EQ(heads.size(), 8U);
  EXPECT_THAT(std::vector(heads.begin(), heads.begin() + 7), ElementsAre("3.0", "2.5", "2.", "1.5", "1.", ".5", "."));
  EXPECT_EQ(heads.back(), GeneralText(record.BestHeadFound));
  EXPECT_THAT(host.messages, IsEmpty());
}

// An increment of 0.1 is 0.100000001490116 in 32 bits. Counted from 0.5, the sixth step stands past 1.0 by that little:
// five passes, where 64 bits would make six. The heads are read back with two decimals each time.
TEST_F(HeadLoopTest, CountsWithA32BitIncrement) {
  Prepare("1.0", ".1");
  const std::vector<std::string> heads = Heads();
  ASSERT_EQ(heads.size(), 7U);
  EXPECT_THAT(std::vector(heads.begin(), heads.begin() + 6), ElementsAre("1.0", ".9", ".8", ".7", ".6", ".5"));
}

TEST_F(HeadLoopTest, TellsTheHeadInHand) {
  Prepare("1.0", ".2");
  std::vector<std::string> captions;
  WatchYields([&] {
    if (!main.lblHeadCount.visible) return;
    if (captions.empty() || captions.back() != main.lblHeadCount.caption) captions.push_back(main.lblHeadCount.caption);
  });
  cmdExitHoleSelect_Click(program);
  EXPECT_THAT(captions, ElementsAre("Calculating Selected Holes: .8", "Calculating Selected Holes: .6",
                                    "Calculating Selected Holes: .4"));
  EXPECT_FALSE(main.lblHeadCount.visible);
}

// Each head is worked out once more by itself, highest first; the first one of the best uniformity is the one kept.
TEST_F(HeadLoopTest, KeepsTheHighestHeadOfTheBestUniformity) {
  Prepare("2", ".2");
  cmdExitHoleSelect_Click(program);
  const float best = record.BestUniformity;
  const float best_head = record.BestHeadFound;
  EXPECT_EQ(record.Uniformity, best);
  EXPECT_EQ(main.txtInfo[3].text(), GeneralText(best_head));
  float expected = 0;
  float expected_head = 0;
  for (const char* head : {"1.8", "1.6", "1.4", "1.2", "1.", ".8", ".6", ".4"}) {
    main.txtInfo[3].Set(head);
    Cal_Dsign_Var(program);
    if (record.Uniformity > expected) {
      expected = record.Uniformity;
      expected_head = static_cast<float>(Val(head));
    }
  }
  EXPECT_EQ(best, expected);
  EXPECT_EQ(best_head, expected_head);
}

TEST_F(HeadLoopTest, EndsOnTheShownDesign) {
  Prepare("2", ".2");
  cmdExitHoleSelect_Click(program);
  EXPECT_EQ(record.DesignType, kLimitedHoles);
  EXPECT_EQ(main.title, "TORVALE   Limited Computer Selected Hole Design");
  EXPECT_THAT(Ticked(), ElementsAre("mnuManHoleSelection"));
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_FALSE(main.busy);
  EXPECT_FALSE(main.frameHoleSelection.visible);
  EXPECT_EQ(record.ManualTargetHead, 1.9F);  // as it stood when the panel was left
}

// No pass is made; the run after the loop is made at "0", where the pass finds no head to fit a hole to.
TEST_F(HeadLoopTest, AHighestHeadBelowHalfAFootTriesNone) {
  Prepare(".4", ".1");
  EXPECT_THAT(Heads(), ElementsAre(".4", "0"));
  EXPECT_EQ(record.BestHeadFound, 0);
  EXPECT_EQ(main.txtInfo[3].text(), "0");
  EXPECT_THAT(host.messages,
              ElementsAre(Shown{"There is a programming problem calculating Computer Selected Holes. Try "
                                "Changing Head ",
                                "Computer Selected Hole Error"}));
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_FALSE(main.lblEffic.visible);
  EXPECT_TRUE(main.mnuDesign.enabled);
}

// The field stays as it was, nothing is tried, and the sheet comes back.
TEST_F(HeadLoopTest, AnIncrementThatIsNoNumberAboveZeroIsNotBegun) {
  for (const char* increment : {"0", "", "abc", "0,2", "-.5", "1E-60", "1E39"}) {
    SCOPED_TRACE(increment);
    Prepare("2", increment);
    main.cmdReCalc.visible = main.frmDisplay.visible = true;
    EXPECT_THAT(Heads(), IsEmpty());
    EXPECT_EQ(host.yields, 0);
    EXPECT_THAT(host.messages, IsEmpty());
    EXPECT_EQ(Status(), "The increment of the limited hole selection must be a number above 0: see the preferences.");
    EXPECT_EQ(main.txtInfo[3].text(), "1.9");
    for (const Control* hidden : {&main.lblEffic, &main.lblHeadCount, &main.frmDisplay, &main.cmdReCalc,
                                  &main.cmdDesignToggle, &main.Grid2.control, &main.cmdCancel}) {
      EXPECT_FALSE(hidden->visible);
    }
    for (const Control* shown : {&main.Grid1.control, &main.cmdInterpolate, &main.mnuSurveyCopy}) {
      EXPECT_TRUE(shown->visible);
    }
    EXPECT_TRUE(main.mnuDesign.enabled);
    EXPECT_FALSE(main.busy);
  }
}

// 2 less a thousandth shows as "2." again: the 1501 passes of the count would all be alike, and one is made.
TEST_F(HeadLoopTest, AnIncrementThatMovesNothingIsTriedOnce) {
  for (const char* increment : {".001", "1E-9"}) {
    SCOPED_TRACE(increment);
    Prepare("2", increment);
    EXPECT_THAT(Heads(), ElementsAre("2", "2.", "2"));
    EXPECT_EQ(record.BestHeadFound, 2);
    EXPECT_EQ(record.DesignOK, "True");
    EXPECT_TRUE(main.Grid2.control.visible);
  }
}

TEST_F(HeadLoopTest, TellsWhatHasBecomeOfTheTargetHead) {
  Prepare("2", ".2");
  cmdExitHoleSelect_Click(program);
  ASSERT_NE(record.BestHeadFound, 1.9F);
  EXPECT_EQ(Status(), "The Target Head went from 1.9 to " + GeneralText(record.BestHeadFound) +
                          ", the best of the heads that were tried.");
  // The head that was found is typed, and found again.
  mnuManHoleSelection_Click(program);
  cmdExitHoleSelect_Click(program);
  EXPECT_EQ(Status(), "");
}

// ---- Trials that fail ----

TEST_F(HeadLoopTest, ARefusedTrialEndsTheLoopWithOneMessage) {
  Prepare("2", ".2");
  main.txtInfo[2].Set("");
  main.Grid2.control.visible = true;
  EXPECT_THAT(Heads(), ElementsAre("2", "1.8"));
  EXPECT_THAT(host.messages,
              ElementsAre(Shown{"Some Information Data is missing(i.e. GPM, Target Head)", "Missing Data"}));
  EXPECT_EQ(record.MissingData, -1);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_EQ(main.txtInfo[3].text(), "1.8");
  EXPECT_TRUE(main.Grid1.control.visible);
  for (const Control* hidden : {&main.lblEffic, &main.lblHeadCount, &main.frmDisplay, &main.cmdReCalc,
                                &main.cmdDesignToggle, &main.Grid2.control}) {
    EXPECT_FALSE(hidden->visible);
  }
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_FALSE(main.busy);
}

// The GPM goes missing just ahead of the run that follows the loop: it is refused as a trial is, and nothing is shown.
TEST_F(HeadLoopTest, ARefusedLastRunShowsNothing) {
  Prepare("1.0", ".2");
  int changes = 0;
  main.txtInfo[3].on_change = [&] {
    if (++changes == 5) main.txtInfo[2].Set("");  // 1.0, .8, .6, .4, and the best of the three
  };
  cmdExitHoleSelect_Click(program);
  main.txtInfo[3].on_change = nullptr;
  EXPECT_EQ(changes, 5);
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(main.txtInfo[3].text(), GeneralText(record.BestHeadFound));
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_TRUE(main.mnuDesign.enabled);
}

// A run that ends without a box ends the loop in the same way, and the status bar says why.
TEST_F(HeadLoopTest, ASilentEndEndsTheLoop) {
  Prepare("2", ".2");
  FillSheet({WateredRow("0", "100"), WateredRow("0", "100"), WateredRow("100", "100")});
  host.answers = {true};
  EXPECT_EQ(Heads().size(), 2U);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(Status(), "Rows 1 and 2: the station does not rise.");
  EXPECT_FALSE(main.busy);
  EXPECT_TRUE(main.mnuDesign.enabled);
  EXPECT_FALSE(main.Grid2.control.visible);
}

TEST_F(HeadLoopTest, AFaultInAPassEndsTheLoop) {
  Prepare("2", ".2");
  FillSheet({WateredRow("0", "100"), WateredRow("100", "100")});
  main.Grid1.Set(2, kPipeDiaColumn, "0");
  EXPECT_EQ(Heads().size(), 2U);
  EXPECT_THAT(host.messages,
              ElementsAre(Shown{"There is a programming problem calculating Computer Selected Holes. Try "
                                "Changing Head ",
                                "Computer Selected Hole Error"}));
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_FALSE(main.Grid2.control.visible);
  EXPECT_TRUE(main.Grid1.control.visible);
}

}  // namespace
}  // namespace torvale
