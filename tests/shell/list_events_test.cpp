#include "started_program.h"

namespace torvale {
namespace {

struct ListEventsTest : StartedProgramTest {
  ListEventsTest() { program.main.frameHoleSelection.visible = true; }
  std::vector<std::string> Chosen() {
    std::vector<std::string> lines;
    for (int i = 0; i < program.main.listHolesSelected.count(); ++i) {
      lines.push_back(program.main.listHolesSelected.Line(i));
    }
    return lines;
  }
};

TEST_F(ListEventsTest, SelectsTheseLinesAndNoOthers) {
  EXPECT_EQ(SelectLines(program, "listAllHoles", {5, 7}), Reach::kUsable);
  EXPECT_EQ(SelectLines(program, "listAllHoles", {7, 9}), Reach::kUsable);
  for (int i = 0; i < 50; ++i) EXPECT_EQ(program.main.listAllHoles.Selected(i), i == 7 || i == 9) << i;
}

TEST_F(ListEventsTest, ADoubleClickAddsASize) {
  SelectLines(program, "listAllHoles", {1, 2});
  EXPECT_EQ(DoubleClickLine(program, "listAllHoles", 5), Reach::kUsable);
  EXPECT_EQ(DoubleClickLine(program, "listAllHoles", 7), Reach::kUsable);
  EXPECT_EQ(Chosen(), (std::vector<std::string>{"1/4", "3/8"}));
  EXPECT_FALSE(program.main.listAllHoles.Selected(1));
}

TEST_F(ListEventsTest, ADoubleClickOnAChosenSizeRemovesIt) {
  for (const int line : {5, 7, 9}) DoubleClickLine(program, "listAllHoles", line);
  SelectLines(program, "listHolesSelected", {0});
  EXPECT_EQ(DoubleClickLine(program, "listHolesSelected", 1), Reach::kUsable);
  EXPECT_EQ(Chosen(), (std::vector<std::string>{"1/4", "1/2"}));
}

TEST_F(ListEventsTest, AHiddenPanelTakesNoClicks) {
  program.main.frameHoleSelection.visible = false;
  EXPECT_EQ(SelectLines(program, "listAllHoles", {5}), Reach::kHidden);
  EXPECT_EQ(DoubleClickLine(program, "listAllHoles", 5), Reach::kHidden);
  EXPECT_FALSE(program.main.listAllHoles.Selected(5));
  EXPECT_EQ(Chosen().size(), 0U);
}

TEST_F(ListEventsTest, KnowsOnlyLists) {
  EXPECT_EQ(SelectLines(program, "txtInfo(0)", {0}), Reach::kUnknown);
  EXPECT_EQ(DoubleClickLine(program, "nothing", 0), Reach::kUnknown);
  EXPECT_EQ(FindList(program, "listHolesSelected"), &program.main.listHolesSelected);
  EXPECT_EQ(FindList(program, "Grid1"), nullptr);
}

}  // namespace
}  // namespace torvale
