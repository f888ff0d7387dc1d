// Designs that open with something unusual about them or their file.
#include "engine/survey.h"
#include "files/file_commands.h"
#include "files/new_design.h"
#include "search/hole_selection_panel.h"
#include "small_file.h"

namespace torvale {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct ReopenedDesignsTest : FileProgram, ::testing::Test {
  // A file of computer selected holes; opening one runs the selection anew.
  std::string ComputerHoles() {
    TypeSurvey();
    mnuComputerHoleSelection_Click(program);
    EXPECT_EQ(record.DesignType, kComputerHoles);
    EXPECT_EQ(Save(Path("x")), "");
    return Path("x.CSH");
  }

  // The sheet with the survey that was read, and nothing that speaks of a design.
  static void ExpectSheetAlone(FileProgram& p) {
    EXPECT_TRUE(p.main.Grid1.control.visible);
    for (const Control* hidden : {&p.main.Grid2.control, &p.main.lblEffic, &p.main.cmdReCalc, &p.main.cmdDesignToggle,
                                  &p.main.frmDisplay, &p.main.cmdCancel, &p.main.mnuProfile, &p.main.lblCrownSlope,
                                  &p.main.GridInchesApplied.control, &p.main.mnuWindowInfo}) {
      EXPECT_FALSE(hidden->visible && hidden->enabled);
    }
    EXPECT_NE(p.main.lblActiveInactive.caption, "Active Design");
    EXPECT_EQ(p.main.lblAcresTotal.caption, "");
    EXPECT_TRUE(p.main.cmdInterpolate.visible);
    EXPECT_TRUE(p.main.mnuSurveyCopy.visible);
    EXPECT_EQ(p.main.Grid1.Text(2, kStationColumn), "100");
    EXPECT_EQ(p.main.txtInfo[0].text(), "East 40");
  }
};

TEST_F(ReopenedDesignsTest, ACancelledSelectionAtOpeningShowsNoHalfDesign) {
  const std::string path = ComputerHoles();
  for (const bool from_results : {false, true}) {
    FileProgram other;
    other.TypeSurvey();
    if (from_results) mnuDesignField_Click(other.program);
    ASSERT_EQ(other.main.Grid2.control.visible, from_results);
    other.host.event_at = other.host.yields + 5;
    other.host.event = [&] { cmdCancel_Click(other.program); };
    EXPECT_EQ(other.Open(path), "");
    EXPECT_FALSE(other.host.event) << "the selection never yielded";
    ExpectSheetAlone(other);
    EXPECT_EQ(other.record.DesignType, kNoDesign);
  }
}

TEST_F(ReopenedDesignsTest, ARefusedSelectionAtOpeningShowsNoHalfDesign) {
  const std::string path = ComputerHoles();
  std::string bytes = BytesOf(path);
  const std::size_t gpm = bytes.find("\"6.4\"");
  ASSERT_NE(gpm, std::string::npos);
  bytes.replace(gpm, 5, "\"\"");
  WriteTestFile(path, bytes);
  FileProgram other;
  other.FillPreferences();
  EXPECT_NE(other.Open(path), "") << "the missing flow is told of";
  ASSERT_EQ(other.host.messages.size(), 1U);
  EXPECT_EQ(other.host.messages[0].body.find(kOpeningFailed), std::string::npos) << "the file itself is whole";
  ExpectSheetAlone(other);
}

// The gate's height divides; a design of it opens, and what it divides is empty.
TEST_F(ReopenedDesignsTest, ARigidDesignOfGatesWithoutHeightOpens) {
  TypeSurvey();
  record.PipeKind = "R";
  main.mnuLayflatPipe.ticked = false;
  main.mnuRigidPipe.ticked = true;
  main.txtDefault[11].Set("R");
  main.txtDefault[12].Set("0");
  mnuDesignField_Click(program);
  ASSERT_TRUE(main.Grid2.control.visible) << main.sbStatusBar.caption;
  ASSERT_EQ(Save(Path("rigid")), "");
  FileProgram other;
  other.FillPreferences();
  other.main.txtDefault[11].Set("R");
  other.main.txtDefault[12].Set("0");
  EXPECT_EQ(other.Open(Path("rigid.PFD")), "");
  EXPECT_TRUE(other.main.Grid2.control.visible);
  EXPECT_EQ(other.record.PipeKind, "R");
  EXPECT_EQ(other.record.HoleRows, record.HoleRows);
  for (int row = 1; row <= record.HoleRows; ++row) {
    for (int column = 0; column < main.Grid2.column_count(); ++column) {
      EXPECT_EQ(other.main.Grid2.Text(row, column), main.Grid2.Text(row, column)) << row << ' ' << column;
    }
  }
}

TEST_F(ReopenedDesignsTest, ADesignBehindAByteOrderMarkOpens) {
  TypeSurvey();
  main.txtInfo[4].Set("Ca\u00F1on");
  mnuDesignField_Click(program);
  ASSERT_EQ(Save(Path("x")), "");
  std::string bytes = BytesOf(Path("x.PFD"));
  // What marks a file is UTF-8 behind the mark; a mark ahead of the code page's bytes is passed over alone.
  const std::string plain = std::string(kByteOrderMark) + bytes;
  const std::size_t letter = bytes.find('\xF1');
  ASSERT_NE(letter, std::string::npos);
  const std::string unicode = std::string(kByteOrderMark) + bytes.replace(letter, 1, "\xC3\xB1");
  for (const std::string& text : {plain, unicode}) {
    WriteTestFile(Path("marked.PFD"), text);
    FileProgram other;
    other.FillPreferences();
    EXPECT_EQ(other.Open(Path("marked.PFD")), "");
    EXPECT_TRUE(other.main.Grid2.control.visible);
    EXPECT_EQ(other.record.FileVersion, record.FileVersion);
    EXPECT_EQ(other.main.txtInfo[4].text(), "Ca\u00F1on");
  }
}

TEST_F(ReopenedDesignsTest, DefaultsBehindAByteOrderMarkAreRead) {
  WriteTestFile(Path("Default50.TVL"), std::string(kByteOrderMark) + "50\r\n1/2\r\n");
  ReadDefaultsFile(program);
  EXPECT_EQ(main.txtDefault[0].text(), "50");
  EXPECT_EQ(main.txtDefault[1].text(), "1/2");
}

TEST_F(ReopenedDesignsTest, RecentFilesBehindAByteOrderMarkAreRead) {
  WriteTestFile(Path("RecentTORVALEFileName.Dat"), std::string(kByteOrderMark) + "/home/u/a.PFD\r\n/b.PFD\r\n\r\n\r\n");
  OpenRecentFiles(program);
  EXPECT_EQ(record.RecentFiles[0], "/home/u/a.PFD");
  EXPECT_EQ(record.RecentFiles[1], "/b.PFD");
  EXPECT_EQ(main.mnuFileList[0].caption, "/home/u/a.PFD");
}

}  // namespace
}  // namespace torvale
