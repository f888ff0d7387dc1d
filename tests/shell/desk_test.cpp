#include "shell/desk.h"

#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/desk_rows.h"
#include "shell/events.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct DeskTest : testing::Test {
  DeskTest() { StartProgram(program); }

  // Three designs with uniformities 80, none and 90.
  void ThreeDesigns() {
    DeskScreen& desk = program.desk;
    desk.designs.resize(3);
    const char* names[] = {"b", "c", "a"};
    for (std::size_t i = 0; i < 3; ++i) {
      desk.designs[i].key = desk.designs[i].texts[kComparedName] = names[i];
      desk.designs[i].tried = true;
      desk.designs[i].made = i != 1;
    }
    desk.designs[0].values[kComparedUniformity] = 80;
    desk.designs[2].values[kComparedUniformity] = 90;
    ShowComparison(desk);
  }
  std::string Order() {
    std::string order;
    for (int row = 1; row < program.desk.Comparison.rows(); ++row) order += program.desk.Comparison.Text(row, 0);
    return order;
  }

  FakeHost host;
  Program program{host};
};

TEST_F(DeskTest, SectionsOpenCloseAndAreRemembered) {
  EXPECT_FALSE(program.desk.frmComparison.visible);
  EXPECT_EQ(ReachOf(program, "Comparison"), Reach::kHidden);
  Click(program, "mnuDesk(0)");
  Click(program, "mnuDesk(2)");
  EXPECT_TRUE(program.desk.frmComparison.visible);
  EXPECT_FALSE(program.desk.frmRemarks.visible);
  EXPECT_TRUE(program.main.mnuDesk[0].ticked);
  EXPECT_EQ(host.settings["DeskComparison"], "1");
  Click(program, "btnCloseChart");
  EXPECT_FALSE(program.desk.frmChart.visible);
  EXPECT_FALSE(program.main.mnuDesk[2].ticked);
  EXPECT_EQ(host.settings["DeskChart"], "0");
  Program again(host);
  StartProgram(again);
  EXPECT_TRUE(again.desk.frmComparison.visible);
  EXPECT_FALSE(again.desk.frmChart.visible);
}

// A heading sorts by its column, better figures first, then the other way round; what has no figure stands below.
TEST_F(DeskTest, HeadingsSort) {
  Click(program, "mnuDesk(0)");
  ThreeDesigns();
  EXPECT_EQ(Order(), "bca");
  GridPoint(program, "Comparison", 1, 0, false);  // made of no commands: only the cursor moves
  GridPoint(program, "Comparison", 0, kComparedUniformity, false);
  EXPECT_EQ(Order(), "abc");
  EXPECT_EQ(program.desk.Comparison.Text(0, kComparedUniformity), "Unif. (%) \u25bc");
  EXPECT_EQ(program.desk.Comparison.row, 2) << "the cursor stays with its design";
  GridPoint(program, "Comparison", 0, kComparedUniformity, false);
  EXPECT_EQ(Order(), "bac");
  GridKey(program, "Comparison", {Key::kHome, ""});
  GridKey(program, "Comparison", {Key::kCharacter, " "});
  EXPECT_EQ(Order(), "abc");  // by name, but for the one that can't be made
}

TEST_F(DeskTest, RemarksLeadToTheirCells) {
  Click(program, "mnuDesk(1)");
  Grid& sheet = program.main.Grid1;
  Guarded(program, [&] {
    sheet.Set(1, 0, "0");
    sheet.Set(1, 1, "10,25");  // a decimal comma
    sheet.Set(1, 5, "9/7");    // no such size
  });
  const Grid& list = program.desk.SurveyRemarks;
  ASSERT_EQ(list.rows(), 3);
  EXPECT_EQ(list.Text(2, 0), "1");
  EXPECT_EQ(list.Text(2, 1), program.main.Grid1.Text(0, 5));
  EXPECT_NE(list.Text(2, 2).find("is not among the hole sizes"), std::string::npos) << list.Text(2, 2);
  GridPoint(program, "SurveyRemarks", 2, 2, false);
  EXPECT_EQ(program.main.Grid1.row, 1);
  EXPECT_EQ(program.main.Grid1.column, 5);
  EXPECT_EQ(program.main.focus, "Grid1");
}

// Tab leads out of the sheet through the screen and the desk, and back.
TEST_F(DeskTest, TabReachesTheDesk) {
  Click(program, "mnuDesk(0)");
  FocusGained(program, "Comparison");
  EXPECT_EQ(program.main.focus, "Comparison");
  GridKey(program, "Comparison", {Key::kTab, ""});
  EXPECT_EQ(program.main.focus, "btnCloseComparison");
  Click(program, "btnCloseComparison");
  EXPECT_EQ(program.main.focus, "Grid1") << "a control that is gone leaves the focus to a grid";
}

// The card goes with the first change of the sheet, not with a field, and comes back from the Help menu.
TEST_F(DeskTest, FirstStepsGoWithTheFirstCell) {
  EXPECT_TRUE(program.main.frameFirstSteps.visible);
  TypeText(program, "txtInfo(2)", "300");
  EXPECT_TRUE(program.main.frameFirstSteps.visible);
  GridPoint(program, "Grid1", 2, 0, false);
  EXPECT_TRUE(program.main.frameFirstSteps.visible);
  GridKey(program, "Grid1", {Key::kCharacter, "6"});
  EXPECT_FALSE(program.main.frameFirstSteps.visible);
  Click(program, "mnuHelpFirstSteps");
  EXPECT_TRUE(program.main.frameFirstSteps.visible);
  Click(program, "cmdCloseFirstSteps");
  EXPECT_FALSE(program.main.frameFirstSteps.visible);
}

TEST_F(DeskTest, ChartOfNothingSaysSo) {
  Click(program, "mnuDesk(2)");
  EXPECT_TRUE(program.desk.chart.stations.empty());
  EXPECT_EQ(program.desk.lblChartPoint.caption, "No design is shown.");
  ChartPoint(program, 100);  // nothing to go to
}

}  // namespace
}  // namespace torvale
