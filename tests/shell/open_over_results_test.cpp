// What is opened while a design is shown, or while one is being worked out.
#include "failing_disk.h"
#include "files/earlier_versions.h"

namespace torvale {
namespace {

struct OpenOverResultsTest : ::testing::Test {
  OpenOverResultsTest() {
    work.Reset();
    // A survey in a file of its own, and ahead in the list of recent files.
    Click(*work.program, "mnuFileNew");
    work.program->record.DesignType = kNoDesign;
    TypeText(*work.program, "txtInfo(0)", "Survey");
    work.program->main.Grid1.Set(2, 0, "300");
    work.program->main.Grid1.Set(3, 0, "450");
    work.host.paths = {work.Path("survey")};
    Click(*work.program, "mnuFileSaveAs");
    work.host.paths = {work.Path("dunn.PFD")};
    Click(*work.program, "mnuFileOpen");
    work.host.messages.clear();
    EXPECT_TRUE(main().Grid2.control.visible);
    EXPECT_EQ(main().mnuFileList[1].caption, work.Path("survey"));
  }

  MainScreen& main() { return work.program->main; }

  void ExpectSurvey() {
    EXPECT_EQ(main().txtInfo[0].text(), "Survey");
    EXPECT_EQ(main().Grid1.Text(3, 0), "450");
    EXPECT_TRUE(main().Grid1.control.visible);
    EXPECT_FALSE(main().Grid2.control.visible) << "no results cover the sheet";
    EXPECT_NE(main().lblActiveInactive.caption, "Active Design");
    EXPECT_FALSE(main().lblEffic.visible);
    EXPECT_FALSE(main().cmdReCalc.visible);
    EXPECT_FALSE(main().cmdCancel.visible);
    EXPECT_EQ(work.program->running.calculations, 0);
    EXPECT_TRUE(work.host.messages.empty());
  }

  // Runs the design again; at its first yield `event` comes.
  void During(const std::function<void()>& event) {
    bool came = false;
    work.host.event_at = work.host.yields + 1;
    work.host.event = [&] {
      ASSERT_GT(work.program->running.calculations, 0);
      came = true;
      event();
    };
    Click(*work.program, "mnuDesignField");
    EXPECT_TRUE(came) << "the march never yielded";
  }

  WorkFolder work;
};

TEST_F(OpenOverResultsTest, ASurveyByTheRecentList) {
  Click(*work.program, "mnuFileList(1)");
  ExpectSurvey();
  // One undo brings the design's inputs back.
  Click(*work.program, "mnuEditUndo");
  EXPECT_EQ(main().txtInfo[0].text(), "Dunn");
  EXPECT_EQ(main().Grid1.Text(2, 0), "100");
}

TEST_F(OpenOverResultsTest, ASurveyByTheRecentListDuringARun) {
  During([&] {
    Click(*work.program, "mnuFileList(1)");
    EXPECT_EQ(main().txtInfo[0].text(), "Dunn") << "the run ends first";
  });
  ExpectSurvey();
}

TEST_F(OpenOverResultsTest, ASurveyByADropDuringARun) {
  During([&] { FileDropped(*work.program, work.Path("survey")); });
  ExpectSurvey();
}

// The version is the design ahead of the change to "South".
TEST_F(OpenOverResultsTest, AnEarlierVersionDuringARun) {
  TypeText(*work.program, "txtInfo(4)", "North");
  work.program->record.SaveFileName = work.Path("dunn.PFD");
  Click(*work.program, "mnuFileSave");
  ASSERT_EQ(EarlierVersions(work.host).size(), 1U);
  for (const bool by_key : {false, true}) {
    Click(*work.program, "mnuFileNew");
    work.host.paths = {work.Path("dunn.PFD")};
    Click(*work.program, "mnuFileOpen");
    During([&] {
      Click(*work.program, "mnuFileEarlier");
      ASSERT_TRUE(work.program->versions.frmEarlierVersions.visible);
      if (by_key) {
        GridKey(*work.program, "Grd_EarlierVersions", {Key::kEnter, "", false});
      } else {
        Click(*work.program, "btnOpenVersion");
      }
      EXPECT_EQ(main().txtInfo[4].text(), "North") << "the run ends first";
    });
    EXPECT_EQ(main().txtInfo[4].text(), "Levee Road");
    EXPECT_TRUE(main().Grid2.control.visible) << "the design as it was saved";
    EXPECT_EQ(main().lblActiveInactive.caption, "Active Design");
    EXPECT_FALSE(work.program->versions.frmEarlierVersions.visible);
    EXPECT_NE(work.program->record.SaveFileName.find(" as of "), std::string::npos);
    EXPECT_FALSE(main().cmdCancel.visible);
    EXPECT_EQ(work.program->running.calculations, 0);
    EXPECT_TRUE(work.host.messages.empty());
  }
}

TEST_F(OpenOverResultsTest, AnEarlierVersionThatIsASurveyOverResults) {
  TypeText(*work.program, "txtInfo(0)", "Changed");
  work.program->record.SaveFileName = work.Path("survey");
  // The survey's file is saved over by a survey, so that its versions hold one.
  Click(*work.program, "mnuFileNew");
  work.program->record.DesignType = kSurveyOnly;
  work.program->record.SaveFileName = work.Path("survey");
  TypeText(*work.program, "txtInfo(0)", "Changed");
  Click(*work.program, "mnuFileSave");
  work.host.paths = {work.Path("dunn.PFD")};
  Click(*work.program, "mnuFileOpen");
  ASSERT_TRUE(main().Grid2.control.visible);
  Click(*work.program, "mnuFileEarlier");
  Grid& list = work.program->versions.Grd_EarlierVersions;
  for (int row = 1; row < list.rows(); ++row) {
    if (list.Text(row, 0) == "survey") list.SetCurrent(row, 0);
  }
  Click(*work.program, "btnOpenVersion");
  ExpectSurvey();
}

}  // namespace
}  // namespace torvale
