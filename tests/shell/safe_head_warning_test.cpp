// The warnings of a head that the tubing is not to bear, and of furrows that get no water.
#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/events.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

// A hole of 5/8 inch each 20 feet on 100 feet of level 15-inch pipe of 10 mil: six holes take 30 GPM, 5 GPM each. A
// hole lets 3.14 / 4 x (5/96)^2 x sqrt(64.4) x 448.8 x .65 = 4.985 GPM out under one foot.
struct SafeHeadWarningTest : ::testing::Test {
  void Start(std::string_view table) {
    host.WriteFile("SafeHeads.txt", table);
    StartProgram(program);
    TypeText(program, "txtInfo(2)", "30");
    TypeText(program, "txtInfo(3)", "2");
    TypeText(program, "txtInfo(5)", "E");
    const char* const rows[2][9] = {{"0", "10", "1320", "20", "15", "5/8", "1", "10", "20"},
                                    {"100", "10", "1320", "20", "15", "5/8", "1", "10", "20"}};
    for (int row = 0; row < 2; ++row) {
      for (int column = 0; column < 9; ++column) program.main.Grid1.Set(row + 1, column, rows[row][column]);
    }
    Click(program, "mnuDesignField");
    ASSERT_TRUE(program.main.Grid2.control.visible);
  }
  const std::string& Mark() const { return program.main.frmDisplayLbl[1].mark; }
  const std::string& Status() const { return program.main.sbStatusBar.caption; }

  FakeHost host;
  Program program{host};
};

constexpr const char* kSentence =
    "The head of 1.01 feet at station 0 is more than the 0.90 feet that 15-inch tubing of 10 mil is to bear.";

TEST_F(SafeHeadWarningTest, IsToldWithTheDesignAndStaysWithIt) {
  Start("15,10,.9");
  EXPECT_EQ(Mark(), kSentence);
  EXPECT_NE(Status().find(kSentence), std::string::npos) << Status();
  // The other table tells it no second time.
  program.main.sbStatusBar.caption = "Saved";
  Click(program, "cmdDesignToggle");
  EXPECT_EQ(Mark(), kSentence);
  EXPECT_EQ(Status(), "Saved");
  // Another run does.
  Click(program, "cmdReCalc");
  EXPECT_NE(Status().find(kSentence), std::string::npos) << Status();
  // It goes where the head is borne.
  TypeText(program, "txtInfo(2)", "20");
  Click(program, "cmdReCalc");
  EXPECT_EQ(Mark(), "");
}

TEST_F(SafeHeadWarningTest, NothingIsSaidOfWhatIsBorneOrNotKnown) {
  Start("15,10,1.2\n15,9,.5\n");
  EXPECT_EQ(Mark(), "");
  EXPECT_EQ(Status().find("tubing"), std::string::npos);
}

// Whatever left the furrows without water, the design says so as long as it stands.
TEST_F(SafeHeadWarningTest, FurrowsWithoutWaterAreTold) {
  Start("");
  EXPECT_EQ(program.main.frmDisplayLbl[11].mark, "");
  program.record.FurrowFlow[2] = 0;
  Click(program, "cmdDesignToggle");
  EXPECT_EQ(program.main.frmDisplayLbl[11].mark, "The furrow at station 20 gets no water.");
  EXPECT_NE(Status().find("The furrow at station 20 gets no water."), std::string::npos) << Status();
  program.record.FurrowFlow[5] = 0;
  Click(program, "cmdDesignToggle");
  EXPECT_EQ(program.main.frmDisplayLbl[11].mark, "2 furrows get no water, the first at station 20.");
  Click(program, "cmdReCalc");
  EXPECT_EQ(program.main.frmDisplayLbl[11].mark, "");
}

TEST_F(SafeHeadWarningTest, ANewDesignForgetsIt) {
  Start("15,10,.9");
  Click(program, "mnuFileNew");
  EXPECT_EQ(Mark(), "");
}

}  // namespace
}  // namespace torvale
