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

// A maximised window of 1920 x 1080 pixels has some 1000 of them in height for the screens: 630 are needed at 100
// percent, 788 at 125, 945 at 150.
TEST_F(DeskTest, ZoomFitsTheWindow) {
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 100) << "there is no window";
  program.main.room_width = 1920 * 15;
  program.main.room_height = 944 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 125);
  program.main.room_height = 945 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 150);
  EXPECT_TRUE(program.main.mnuZoomTo[3].ticked);
  program.main.room_width = 600 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 75) << "the smallest where none fits";
  // With 90 pixels of menus, tool bar and the like, which grow too, 150 percent want 720 x 1.5 = 1080 pixels in all.
  program.main.room_width = 1920 * 15;
  program.main.bars_height = 90 * 15;
  program.main.room_height = 1079 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 125);
  program.main.room_height = 1080 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 150);
  // A desk of 420 pixels has no room beside screens of 1032 at 150 percent (2178), and none below them.
  program.main.desk_width = 420 * 15;
  program.main.desk_height = 276 * 15;
  Click(program, "mnuZoomFit");
  EXPECT_EQ(program.main.zoom, 125);
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

// Two pipes of which the table knows the first, up to station 100.
TEST_F(DeskTest, ChartHasWhatEachPipeIsToBear) {
  program.pipe_strengths = {{15, 10, 2.2}};
  TypeText(program, "txtInfo(2)", "30");
  TypeText(program, "txtInfo(3)", "2");
  TypeText(program, "txtInfo(5)", "E");
  Guarded(program, [&] {
    const char* const rows[3][9] = {{"0", "10", "1320", "20", "15", "5/8", "1", "10", "20"},
                                    {"100", "10", "1320", "20", "15", "5/8", "1", "10", "20"},
                                    {"140", "10", "1320", "20", "12", "5/8", "1", "10", "20"}};
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 9; ++column) program.main.Grid1.Set(row + 1, column, rows[row][column]);
    }
  });
  Click(program, "mnuDesk(2)");
  Click(program, "mnuDesignField");
  // Eight holes 20 feet apart; those up to 100 feet in the 15-inch pipe.
  const SupplyChart& chart = program.desk.chart;
  EXPECT_EQ(chart.stations, (std::vector<double>{0, 20, 40, 60, 80, 100, 120, 140}));
  EXPECT_EQ(chart.safe_heads, (std::vector<double>{2.2, 2.2, 2.2, 2.2, 2.2, 2.2, 0, 0}));
  EXPECT_TRUE(program.desk.lblChartPoint.caption.ends_with("; the tubing is to bear 2.20 feet"))
      << program.desk.lblChartPoint.caption;
  const auto drawn = chart.revision;
  GridKey(program, "Grid2", {Key::kDown, ""});
  EXPECT_EQ(program.desk.chart.revision, drawn) << "the lines are the same";
}

TEST_F(DeskTest, ChartOfNothingSaysSo) {
  Click(program, "mnuDesk(2)");
  EXPECT_TRUE(program.desk.chart.stations.empty());
  EXPECT_EQ(program.desk.lblChartPoint.caption, "No design is shown.");
  ChartPoint(program, 100);  // nothing to go to
}

}  // namespace
}  // namespace torvale
