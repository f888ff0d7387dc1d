#include <gtest/gtest.h>

#include <sstream>

#include "script/runner.h"

namespace torvale {
namespace {

struct Result {
  int status;
  std::string transcript;
  std::string errors;
};

Result Replayed(const std::string& text) {
  std::istringstream script(text);
  std::ostringstream transcript;
  std::ostringstream errors;
  const int status = RunScript(script, transcript, errors);
  return {status, transcript.str(), errors.str()};
}

TEST(Statements, PrintsFieldsCellsAndControls) {
  const Result result = Replayed(
      "type txtInfo(2) \"850\"   # with its change handling\n"
      "show txtInfo(2) TargetGPM DualBreakStation CancelFlag\n"
      "cell Grid1 2 0 \"100\"\n"
      "show Grid1[2,0] Grid1[3,0]\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.status, kScriptDone);
  EXPECT_EQ(result.transcript,
            "txtInfo(2) = \"850\"\nTargetGPM = 850\nDualBreakStation = unset\nCancelFlag = False\n"
            "Grid1[2,0] = \"100\"\nGrid1[3,0] = \"\"\n");
}

// The grid of results, where nothing is said of a cell.
TEST(Statements, FillWritesRowsOfCellsAsTheyStand) {
  const Result result = Replayed(
      "cell Grid2 3 1 \"stays\"\n"
      "fill Grid2 2 0\n"
      "100\t5.2\t\"1320\"\n"
      "200\n"
      "\t#\n"
      "end\n"
      "show Grid2[2,0] Grid2[2,1] Grid2[2,2] Grid2[3,0] Grid2[3,1] Grid2[4,1]\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.transcript,
            "Grid2[2,0] = \"100\"\nGrid2[2,1] = \"5.2\"\nGrid2[2,2] = \"\\\"1320\\\"\"\nGrid2[3,0] = \"200\"\n"
            "Grid2[3,1] = \"stays\"\nGrid2[4,1] = \"#\"\n");
}

TEST(Statements, AHiddenControlRefusesAClick) {
  // Cancel is hidden until a calculation runs.
  EXPECT_EQ(Replayed("click cmdCancel\n").transcript, "refused: cmdCancel is hidden\n");
}

TEST(Statements, ADisabledControlRefusesAClick) {
  std::istringstream script("click mnuRigidPipe\n");
  std::ostringstream transcript;
  Session session(transcript);
  session.program.main.mnuTypeOfPipe.enabled = false;
  ReplayScript(session, script);
  EXPECT_EQ(transcript.str(), "refused: mnuRigidPipe is disabled\n");
}

TEST(Statements, AListShowsItsRowsInUseOrAllThatIsSet) {
  std::istringstream script("show Head all Head Head[2]\n");
  std::ostringstream transcript;
  Session session(transcript);
  session.program.record.HoleRows = 2;
  session.program.record.Head[2] = 2.0374609375;
  session.program.record.Head[9] = 1.5;
  ReplayScript(session, script);
  EXPECT_EQ(transcript.str(),
            "Head[1] = 0\nHead[2] = 2.0374609375\nHead[2] = 2.0374609375\nHead[9] = 1.5\nHead[2] = 2.0374609375\n");
}

TEST(Statements, ColoursAreToldWhereTheyAreSet) {
  std::istringstream script("show lblCrownSlope Grid2[1,5] frmMainForm\n");
  std::ostringstream transcript;
  Session session(transcript);
  MainScreen& main = session.program.main;
  main.lblCrownSlope = {"Crown", "", {}, true, true, false, kBrightGreen, kBlack, ""};
  main.Grid2.Set(1, 5, "1.00");
  main.Grid2.SetBack(1, 5, kStrongGreen);
  main.Grid2.SetFore(1, 5, kRed);
  main.title = "TORVALE   ";
  main.busy = true;
  main.focus = "txtInfo(0)";
  ReplayScript(session, script);
  EXPECT_EQ(transcript.str(),
            "lblCrownSlope = \"Crown\" visible enabled back 0,255,0\n"
            "Grid2[1,5] = \"1.00\" back 0,192,0 fore 255,0,0\n"
            "frmMainForm = \"TORVALE   \" pointer busy focus txtInfo(0)\n");
}

TEST(Statements, AnErrorStopsTheScriptWithItsLineAndStatus) {
  const Result result = Replayed("show txtInfo(0)\n\nleap txtInfo(0)\nshow txtInfo(0)\n");
  EXPECT_EQ(result.status, kScriptNotUnderstood);
  EXPECT_EQ(result.errors, "line 3: not a statement: leap\n");
  EXPECT_EQ(result.transcript, "txtInfo(0) = \"\"\n");
}

TEST(Statements, WhatCannotBeUnderstoodStops) {
  for (const char* line : {"type txtInfo(9) \"1\"",
                           "type txtInfo(2) 850",
                           "type txtInfo(2)",
                           "cell Grid1 320 0 \"1\"",
                           "cell Grid1 1 9 \"1\"",
                           "cell Grid9 1 0 \"1\"",
                           "fill Grid1 1 0\n1\t2",
                           "click mnuNothing",
                           "click lblEffic",
                           "key Grid1 Return",
                           "key lblEffic Enter",
                           "at Grid1 1",
                           "at Grid1 1 0 2",
                           "focus nothing",
                           "mouse Grid1 down left 0 0",
                           "mouse Grid2 press left 0 0",
                           "answer Maybe",
                           "clipboard text",
                           "select Grid1 0 1",
                           "select txtInfo(0) 0",
                           "on yield 0 click cmdCancel",
                           "on yield 5 click cmdNothing",
                           "show nothing",
                           "show",
                           "show all",
                           "show Grid1[320,0]",
                           "show Head[5285]",
                           "show Uniformity[1]",
                           "type txtInfo(0) \"open"}) {
    const Result result = Replayed(line);
    EXPECT_EQ(result.status, kScriptNotUnderstood) << line;
    EXPECT_TRUE(result.errors.starts_with("line ")) << line << ": " << result.errors;
  }
}

TEST(Statements, TheClipboardIsSetAndShown) {
  EXPECT_EQ(Replayed("show clipboard\nclipboard \"0\\t5.2\\r\\n\"\nshow clipboard\n").transcript,
            "clipboard = \"\"\nclipboard = \"0\\t5.2\\r\\n\"\n");
}

TEST(Statements, TextIsSelectedAndCopied) {
  EXPECT_EQ(Replayed("type txtInfo(0) \"North field\"\nfocus txtInfo(0)\nselect txtInfo(0) 6 5\n"
                     "key txtInfo(0) Ctrl+C\nshow clipboard\nkey txtInfo(0) Ctrl+X\nshow txtInfo(0)\n"
                     "key txtInfo(0) Ctrl+V\nshow txtInfo(0)\n")
                .transcript,
            "clipboard = \"field\"\ntxtInfo(0) = \"North \"\ntxtInfo(0) = \"North field\"\n");
}

TEST(Statements, TheBlockClipboardShowsItsFilledCells) {
  EXPECT_EQ(
      Replayed("cell Grid1 4 0 \"150\"\nat Grid1 4 0 5 1\nkey Grid1 Ctrl+C\nshow GridClipboard PasteRow1\n").transcript,
      "GridClipboard[4,0] = \"150\"\nPasteRow1 = 4\n");
}

TEST(Statements, TheCurrentCellAndTheFarCorner) {
  EXPECT_EQ(Replayed("at Grid1 5 0\nshow at Grid1\nat Grid1 5 0 9 3\nshow at Grid1\n").transcript,
            "Grid1 at 5 0\nGrid1 at 5 0 9 3\n");
}

}  // namespace
}  // namespace torvale
