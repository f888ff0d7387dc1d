#include "script/headless_host.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace torvale {
namespace {

struct HeadlessHostTest : testing::Test {
  HeadlessHostTest() {
    host.on_click = [this](const std::string& control) {
      clicks.push_back(control + "@" + std::to_string(host.yields()));
    };
  }

  // Makes `count` yields as a march does: it passes over those that the host calls idle and reports them in one call
  // with the one that must reach it, or at the end.
  void March(long count) {
    long idle = 0;
    long passed = 0;
    for (long i = 0; i < count; ++i) {
      if (idle > 0) {
        --idle;
        ++passed;
        continue;
      }
      idle = host.Yield(passed + 1);
      passed = 0;
    }
    if (passed > 0) host.Yield(passed);
  }

  std::ostringstream transcript;
  HeadlessHost host{transcript};
  std::vector<std::string> clicks;
};

using Clicks = std::vector<std::string>;

TEST_F(HeadlessHostTest, ClicksAtExactlyTheYieldNamed) {
  host.OnYield(40, "cmdCancel");
  March(1000);
  EXPECT_EQ(clicks, Clicks{"cmdCancel@40"});
  EXPECT_EQ(host.yields(), 1000);
}

TEST_F(HeadlessHostTest, CountsFromTheStatementOn) {
  March(7);
  host.OnYield(1, "cmdCancel");
  March(1);
  EXPECT_EQ(clicks, Clicks{"cmdCancel@8"});
}

TEST_F(HeadlessHostTest, TellsHowManyYieldsAreIdle) {
  host.OnYield(5, "cmdCancel");
  // After the first yield, the 2nd, 3rd and 4th do nothing.
  EXPECT_EQ(host.Yield(1), 3);
  // With the 4th reported the next one clicks.
  EXPECT_EQ(host.Yield(3), 0);
  // After the last click nothing is pending.
  EXPECT_GT(host.Yield(1), 1'000'000);
  EXPECT_EQ(clicks, Clicks{"cmdCancel@5"});
}

TEST_F(HeadlessHostTest, RunsSeveralClicksInTheirOrder) {
  host.OnYield(30, "late");
  host.OnYield(10, "early");
  host.OnYield(30, "later");
  March(100);
  EXPECT_EQ(clicks, (Clicks{"early@10", "late@30", "later@30"}));
}

TEST_F(HeadlessHostTest, AClickThatStartsACalculationIsNotRunAgainInside) {
  host.on_click = [this](const std::string& control) {
    clicks.push_back(control + "@" + std::to_string(host.yields()));
    March(50);
  };
  host.OnYield(10, "outer");
  host.OnYield(20, "inner");
  March(30);
  // The outer click's own 50 yields reach the inner one, which makes 50 more.
  EXPECT_EQ(clicks, (Clicks{"outer@10", "inner@20"}));
  EXPECT_EQ(host.yields(), 130);
}

TEST_F(HeadlessHostTest, AnswersInTheOrderGivenThenNo) {
  host.Answer(true);
  host.Answer(false);
  EXPECT_TRUE(host.Question("First?", ""));
  EXPECT_FALSE(host.Question("Second?", "Title"));
  EXPECT_FALSE(host.Question("Third?", ""));
  EXPECT_EQ(transcript.str(),
            "question \"TORVALE\" \"First?\" -> Yes\n"
            "question \"Title\" \"Second?\" -> No\n"
            "question \"TORVALE\" \"Third?\" -> No\n");
}

TEST_F(HeadlessHostTest, WritesMessagesAndBeepsToTheTranscript) {
  host.Message("one\rtwo \"three\"", "");
  host.Beep();
  EXPECT_EQ(transcript.str(), "message \"TORVALE\" \"one\\rtwo \\\"three\\\"\"\nbeep\n");
}

TEST_F(HeadlessHostTest, KeepsSettingsInMemory) {
  EXPECT_EQ(host.Setting("MainLeft"), std::nullopt);
  host.SaveSetting("MainLeft", "1000");
  host.SaveSetting("MainLeft", "1200");
  EXPECT_EQ(host.Setting("MainLeft"), "1200");
}

// Alone in it stands the list of no soils, without which each start would tell of a missing file.
TEST_F(HeadlessHostTest, TheProgramFolderIsItsOwn) {
  const std::filesystem::path folder = host.ProgramFolder();
  EXPECT_TRUE(std::filesystem::is_empty(folder / "SoilsName.txt"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(HeadlessHostTest, ANamedFolderIsCopiedAndNeverWrittenTo) {
  const TemporaryFolder named;
  std::ofstream(named.path() / "Default50.TVL") << "100";
  HeadlessHost other(transcript, named.path().string());
  EXPECT_NE(other.ProgramFolder(), named.path());
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(other.ProgramFolder()) / "Default50.TVL"));
  EXPECT_FALSE(std::filesystem::exists(named.path() / "SoilsName.txt"));
}

TEST_F(HeadlessHostTest, ADialogGivesItsPreparedPathAndIsCancelledWithoutOne) {
  host.Dialog("north.PFD");
  host.Dialog(std::nullopt);
  EXPECT_EQ(host.OpenDialog({"Open", "", 1, ""}), "north.PFD");
  EXPECT_EQ(host.SaveDialog({"Save As", "", 1, "x.PFD"}), std::nullopt);
  EXPECT_EQ(host.SaveDialog({"Save As", "", 1, ""}), std::nullopt);
  EXPECT_EQ(transcript.str(),
            "dialog \"Open\" \"\" -> \"north.PFD\"\ndialog \"Save As\" \"x.PFD\" -> cancel\n"
            "dialog \"Save As\" \"\" -> cancel\n");
}

TEST(TemporaryFolder, IsRemovedWithWhatItHolds) {
  std::filesystem::path path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    std::filesystem::create_directory(path / "inside");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace torvale
