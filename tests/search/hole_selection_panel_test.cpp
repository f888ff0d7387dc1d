#include "search/hole_selection_panel.h"

#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanelTest : public SearchTest {
 protected:
  void Select(ListBox& list, const std::vector<std::string>& lines) {
    for (int i = 0; i < list.count(); ++i) {
      list.Select(i, std::find(lines.begin(), lines.end(), list.Line(i)) != lines.end());
    }
  }
  void Add(const std::vector<std::string>& lines) {
    Select(main.listAllHoles, lines);
    cmdADDtoSelected_Click(program);
  }
  static std::vector<std::string> Lines(const ListBox& list) {
    std::vector<std::string> lines;
    for (int i = 0; i < list.count(); ++i) lines.push_back(list.Line(i));
    return lines;
  }
  std::vector<std::string> Chosen() { return Lines(main.listHolesSelected); }
};

TEST_F(PanelTest, OffersEverySizeInOrder) {
  ASSERT_EQ(main.listAllHoles.count(), 50);
  EXPECT_EQ(main.listAllHoles.Line(0), "1/32");
  EXPECT_EQ(main.listAllHoles.Line(35), "2-/8");
  EXPECT_EQ(main.listAllHoles.Line(49), "3");
}

TEST_F(PanelTest, AddsTheSelectedSizesFromTopToBottom) {
  Add({"1/2", "1/4", "3/8"});
  EXPECT_THAT(Chosen(), ElementsAre("1/4", "3/8", "1/2"));
  EXPECT_TRUE(main.listAllHoles.Selected(5));  // the selection stays
  Add({"1/8"});
  EXPECT_THAT(Chosen(), ElementsAre("1/4", "3/8", "1/2", "1/8"));
}

TEST_F(PanelTest, AddingNothingChangesNothing) {
  Add({});
  EXPECT_THAT(Chosen(), IsEmpty());
}

TEST_F(PanelTest, MergesNeighboursOnly) {
  Add({"1/4"});
  Add({"1/4"});
  EXPECT_THAT(Chosen(), ElementsAre("1/4"));
  Add({"3/8"});
  Add({"1/4"});
  EXPECT_THAT(Chosen(), ElementsAre("1/4", "3/8", "1/4"));
  cmdremoveSelected_Click(program);  // nothing is selected there
  EXPECT_EQ(Chosen().size(), 3U);
}

TEST_F(PanelTest, RemovesTheSelectedLines) {
  Add({"1/8", "1/4", "3/8", "1/2"});
  main.listHolesSelected.Select(0, true);
  main.listHolesSelected.Select(2, true);
  cmdremoveSelected_Click(program);
  EXPECT_THAT(Chosen(), ElementsAre("1/4", "1/2"));
}

TEST_F(PanelTest, ClearsTheList) {
  Add({"1/8", "1/4"});
  Command1_Click(program);
  EXPECT_THAT(Chosen(), IsEmpty());
}

// The record holds 51 sizes. Fifty lines stand already; of two more the first fits, and one beep tells of the rest.
TEST_F(PanelTest, BeepsOnceWhereTheListIsFull) {
  for (int i = 0; i < 25; ++i) {
    main.listHolesSelected.Add("1/4");
    main.listHolesSelected.Add("3/8");
  }
  Add({"1/2", "5/8", "3/4"});
  EXPECT_EQ(main.listHolesSelected.count(), 51);
  EXPECT_EQ(main.listHolesSelected.Line(50), "1/2");
  EXPECT_EQ(host.beeps, 1);
  Add({"5/8"});
  EXPECT_EQ(main.listHolesSelected.count(), 51);
  EXPECT_EQ(host.beeps, 2);
}

TEST_F(PanelTest, AFullListOfSizesIsDesignedWith) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  for (int i = 0; i < 51; ++i) main.listHolesSelected.Add(i % 2 == 0 ? "1/4" : "3/8");
  cmdExitHoleSelect_Click(program);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_EQ(record.SelectedHoleValue[25], 0.25F);  // 26 times 1/4, then 25 times 3/8
  EXPECT_EQ(record.SelectedHoleValue[26], 0.375F);
  EXPECT_EQ(record.SelectedHoleName[50], "3/8");
}

// ---- Leaving the panel ----

TEST_F(PanelTest, AnEmptyListAbandonsTheDesign) {
  LevelLine();
  mnuComputerHoleSelection_Click(program);
  mnuManHoleSelection_Click(program);
  record.BestUniformity = 90;
  record.BestHeadFound = 2;
  record.SpacingWarningOff = 1;
  record.CalcProblem = "Problem";
  main.frmDisplayLbl[15].caption = "1.00 ft.";
  main.lblCrownSlope.visible = true;
  main.cmdInterpolate.visible = true;
  main.txtInfo[3].Set("1.5");
  cmdExitHoleSelect_Click(program);
  EXPECT_THAT(host.messages, ElementsAre(Shown{"No Holes were Selected", ""}));
  EXPECT_EQ(record.BestUniformity, 0);
  EXPECT_EQ(record.BestHeadFound, 0);
  EXPECT_EQ(record.ManualTargetHead, 1.5F);
  EXPECT_EQ(record.CalcProblem, "");
  EXPECT_EQ(record.TotalAcres, 0);
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(record.SpacingWarningOff, 0);
  EXPECT_EQ(main.lblAcresTotal.caption, "");
  EXPECT_EQ(main.frmDisplayLbl[15].caption, "");
  EXPECT_EQ(main.title, "TORVALE   ");
  EXPECT_THAT(Ticked(), IsEmpty());
  for (const Control* hidden :
       {&main.frameHoleSelection, &main.Grid2.control, &main.mnuWindowInfo, &main.lblEffic, &main.frmDisplay,
        &main.cmdDesignToggle, &main.cmdReCalc, &main.lblCrownSlope, &main.mnuProfile, &main.cmdInterpolate}) {
    EXPECT_FALSE(hidden->visible);
  }
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_FALSE(main.busy);
}

// What stands of the design before is gone by the first yield of the first head.
TEST_F(PanelTest, ASelectionStartsAfresh) {
  LevelLine("20");
  mnuDesignConstSlope_Click(program);
  mnuManHoleSelection_Click(program);
  Add({"3/8"});
  record.BestUniformity = 100;
  record.BestHeadFound = 9;
  record.CalcProblem = "Problem";
  main.frmDisplayLbl[15].caption = "1.00 ft.";
  main.cmdInterpolate.visible = true;
  main.mnuSurveyCopy.visible = true;
  main.txtInfo[3].Set("1.5");
  bool looked = false;
  WatchYields([&] {
    if (looked) return;
    looked = true;
    EXPECT_EQ(record.DesignType, kLimitedHoles);
    EXPECT_EQ(record.BestUniformity, 0);
    EXPECT_EQ(record.BestHeadFound, 0);
    EXPECT_EQ(record.ManualTargetHead, 1.5F);
    EXPECT_EQ(record.CalcProblem, "");
    EXPECT_EQ(main.frmDisplayLbl[15].caption, "");
    EXPECT_EQ(main.title, "TORVALE   Limited Computer Selected Hole Design");
    EXPECT_THAT(Ticked(), ElementsAre("mnuManHoleSelection"));
    for (const Control* hidden :
         {&main.lblCrownSlope, &main.cmdInterpolate, &main.frameHoleSelection, &main.mnuSurveyCopy}) {
      EXPECT_FALSE(hidden->visible);
    }
    EXPECT_TRUE(main.busy);
  });
  cmdExitHoleSelect_Click(program);
  EXPECT_TRUE(looked);
}

TEST_F(PanelTest, SortsTheChosenSizesIntoTheRecord) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  for (const char* size : {"1-1/2", "3/8", "3", "1/32", "1"}) main.listHolesSelected.Add(size);
  cmdExitHoleSelect_Click(program);
  EXPECT_THAT(Chosen(), ElementsAre("1-1/2", "3/8", "3", "1/32", "1"));
  EXPECT_THAT(Lines(main.listSortSelectedHoles), ElementsAre(" .03125", " .375", " 1", " 1.5", " 3"));
  const std::vector<std::pair<std::string, float>> sizes = {
      {"1/32", 0.03125F}, {"3/8", 0.375F}, {"1", 1.0F}, {"1-1/2", 1.5F}, {"3", 3.0F}};
  for (int j = 0; j < 5; ++j) {
    EXPECT_EQ(record.SelectedHoleName[j], sizes[static_cast<std::size_t>(j)].first);
    EXPECT_EQ(record.SelectedHoleValue[j], sizes[static_cast<std::size_t>(j)].second);
  }
}

// In every order of the fifty sizes the texts sort as the numbers do.
TEST_F(PanelTest, TextOrderIsNumberOrderForTheWholeTable) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  for (int i = 49; i >= 0; --i) main.listHolesSelected.Add(main.listAllHoles.Line(i));
  cmdExitHoleSelect_Click(program);
  for (int j = 0; j < 50; ++j) {
    EXPECT_EQ(record.SelectedHoleValue[j], record.HoleSizeValue[j + 1]);
    EXPECT_EQ(record.SelectedHoleName[j], record.HoleSizeName[j + 1]);
  }
}

TEST_F(PanelTest, ASizeChosenTwiceStandsTwice) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  for (const char* size : {"1/4", "3/8", "1/4"}) main.listHolesSelected.Add(size);
  cmdExitHoleSelect_Click(program);
  EXPECT_EQ(record.SelectedHoleValue[0], 0.25F);
  EXPECT_EQ(record.SelectedHoleValue[1], 0.25F);
  EXPECT_EQ(record.SelectedHoleValue[2], 0.375F);
  EXPECT_EQ(record.SelectedHoleName[1], "1/4");
  EXPECT_EQ(record.DesignOK, "True");
}

// "2-1/8" is no name of the table, which writes that size "2-/8". The sorted list is a line shorter than the list, and
// the last value reads an empty line as 0.
TEST_F(PanelTest, ALineThatIsNoSizeAddsNone) {
  LevelLine("20");
  mnuManHoleSelection_Click(program);
  for (const char* size : {"2-1/8", "3/8", "1/4"}) main.listHolesSelected.Add(size);
  record.SelectedHoleValue[2] = 7;
  cmdExitHoleSelect_Click(program);
  EXPECT_THAT(Lines(main.listSortSelectedHoles), ElementsAre(" .25", " .375"));
  EXPECT_EQ(record.SelectedHoleValue[0], 0.25F);
  EXPECT_EQ(record.SelectedHoleValue[1], 0.375F);
  EXPECT_EQ(record.SelectedHoleValue[2], 0);
  // The name at the place of the line that is no size is the one that its line had.
  EXPECT_EQ(record.SelectedHoleName[0], "1/4");
  EXPECT_EQ(record.SelectedHoleName[1], "3/8");
  EXPECT_EQ(record.SelectedHoleName[2], "1/4");
  for (int i = 1; i <= record.HoleRows; ++i) {
    EXPECT_TRUE(record.LimitedHoleDia[i] == 0.25F || record.LimitedHoleDia[i] == 0.375F) << i;
  }
}

TEST_F(PanelTest, OneSizeGoesToEveryRow) {
  TypeInfo("20", "2", "E");
  FillSheet({SupplyRow("0", "100"), WateredRow("20", "100"), WateredRow("100", "100")});
  mnuManHoleSelection_Click(program);
  Add({"3/8"});
  cmdExitHoleSelect_Click(program);
  ASSERT_EQ(record.DesignOK, "True");
  for (int i = 1; i <= record.HoleRows; ++i) EXPECT_EQ(record.LimitedHoleDia[i], 0.375F);
  EXPECT_EQ(record.HoleDia[1], 0);  // also the row of the supply line
}

// Another command failed while the panel was open: the selection is not made, and the screen is not left locked.
TEST_F(PanelTest, DoesNotStartOnAFailedRun) {
  for (const bool missing : {true, false}) {
    LevelLine("20");
    mnuManHoleSelection_Click(program);
    main.listHolesSelected.Clear();
    Add({"3/8"});
    if (missing) {
      record.MissingData = -1;
    } else {
      record.DesignOK = "False";
    }
    main.Grid1.control.visible = false;
    cmdExitHoleSelect_Click(program);
    EXPECT_EQ(host.yields, 0);
    EXPECT_TRUE(main.Grid1.control.visible);
    EXPECT_FALSE(main.frameHoleSelection.visible);
    EXPECT_EQ(record.DesignType, kLimitedHoles);
    EXPECT_TRUE(main.mnuDesign.enabled);
    EXPECT_FALSE(main.busy);
  }
}

}  // namespace
}  // namespace torvale
