#include "shell/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "base/run_time_fault.h"
#include "display/design_display.h"
#include "input/sheet.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

using ::testing::HasSubstr;

struct EventsTest : ::testing::Test {
  EventsTest() { StartProgram(program); }
  Grid& sheet() { return program.main.Grid1; }
  Grid& results() { return program.main.Grid2; }
  void Press(Key key, bool shift = false) { GridKey(program, "Grid1", {key, "", shift}); }
  void Press(std::string_view character) { GridKey(program, "Grid1", {Key::kCharacter, character}); }
  void ExpectAt(const Grid& grid, int row, int column) {
    EXPECT_EQ(grid.row, row);
    EXPECT_EQ(grid.column, column);
  }
  const std::string& Info(std::size_t index) { return program.main.txtInfo[index].text(); }
  FakeHost host;
  Program program{host};
};

// The boundary

TEST_F(EventsTest, AFaultEndsInAPlainMessageThatNamesIt) {
  for (const Fault fault :
       {Fault::kDivisionByZero, Fault::kOverflow, Fault::kSubscript, Fault::kTypeMismatch, Fault::kInvalidArgument}) {
    host.messages.clear();
    Guarded(program, [&] { throw RunTimeFault{fault}; });
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].title, "");
    EXPECT_THAT(host.messages[0].body, HasSubstr("The program could not finish this: "));
    EXPECT_THAT(host.messages[0].body, HasSubstr(std::string(FaultText(fault))));
  }
}

TEST_F(EventsTest, AnyOtherExceptionEndsInAMessageToo) {
  Guarded(program, [] { throw std::runtime_error("0x7f"); });
  Guarded(program, [] { throw std::bad_alloc(); });
  ASSERT_EQ(host.messages.size(), 2U);
  EXPECT_THAT(host.messages[0].body, HasSubstr("Something unexpected went wrong."));
  EXPECT_THAT(host.messages[1].body, HasSubstr("out of memory"));
}

TEST_F(EventsTest, WorkThatEndsWellSaysNothing) {
  bool done = false;
  Guarded(program, [&] { done = true; });
  EXPECT_TRUE(done);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(EventsTest, AFaultEndsTheBusyPointersAndTheCancelButtonOfItsWork) {
  Guarded(program, [&] {
    program.main.busy = program.main.main_busy = program.main.cmdCancel.visible = true;
    throw RunTimeFault{Fault::kOverflow};
  });
  EXPECT_FALSE(program.main.busy);
  EXPECT_FALSE(program.main.main_busy);
  EXPECT_FALSE(program.main.cmdCancel.visible);
}

TEST_F(EventsTest, AFaultInTheMiddleOfACalculationLeavesItsPointerAndItsCancelButton) {
  Guarded(program, [&] {
    program.main.busy = program.main.cmdCancel.visible = true;
    Guarded(program, [] { throw RunTimeFault{Fault::kOverflow}; });
    EXPECT_TRUE(program.main.busy);
    EXPECT_TRUE(program.main.cmdCancel.visible);
  });
  EXPECT_EQ(host.messages.size(), 1U);
}

TEST_F(EventsTest, AFaultUnlocksTheScreenThatItsWorkLocked) {
  Guarded(program, [&] {
    ScreenControlsOff(program);
    Guarded(program, [] { throw RunTimeFault{Fault::kOverflow}; });
    EXPECT_FALSE(program.main.mnuFile.enabled) << "the lock belongs to the work outside";
    throw RunTimeFault{Fault::kOverflow};
  });
  EXPECT_TRUE(program.main.mnuFile.enabled);
  EXPECT_TRUE(program.main.txtInfo[2].control.enabled);
}

TEST_F(EventsTest, NothingTypedIsLost) {
  sheet().Set(2, 2, "900");
  TypeText(program, "txtInfo(2)", "1E39");  // past the 32-bit flow
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(Info(2), "1E39");
  EXPECT_EQ(sheet().Text(2, 2), "900");
}

// Keys in the sheet

TEST_F(EventsTest, CharactersEnterAndBackspaceGoToTheEditor) {
  sheet().SetCurrent(2, 2);
  Press("9");
  Press("1");
  Press(Key::kBackspace);
  EXPECT_EQ(sheet().Text(2, 2), "9");
  Press(Key::kEnter);
  ExpectAt(sheet(), 3, 2);
  Press("x");
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(EventsTest, EscapeIsAControlCharacterAndDoesNothing) {
  sheet().SetCurrent(2, 2);
  Press(Key::kEscape);
  ExpectAt(sheet(), 2, 2);
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(EventsTest, ArrowsMoveTheCursorAndLeaveTheCell) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  Press(Key::kDown);
  ExpectAt(sheet(), 5, 3);
  EXPECT_EQ(sheet().Text(4, 3), "6.00");
  Press(Key::kRight);
  ExpectAt(sheet(), 5, 4);
  EXPECT_EQ(program.main.sbStatusBar.caption, ColumnHint(4));
  Press(Key::kUp);
  ExpectAt(sheet(), 4, 4);
  Press(Key::kLeft);
  ExpectAt(sheet(), 4, 3);
}

TEST_F(EventsTest, ArrowsStopAtTheEdges) {
  sheet().SetCurrent(1, 0);
  Press(Key::kUp);
  Press(Key::kLeft);
  ExpectAt(sheet(), 1, 0);
  sheet().SetCurrent(319, 8);
  Press(Key::kDown);
  Press(Key::kRight);
  ExpectAt(sheet(), 319, 8);
}

TEST_F(EventsTest, AnArrowBringsTheCursorBackFromTheHeadings) {
  for (const Key key : {Key::kUp, Key::kDown, Key::kPageUp, Key::kHome}) {
    sheet().SetCurrent(0, 5);
    Press(key);
    EXPECT_EQ(sheet().row, 1);
  }
}

// The sheet is 7100 twips high, its heading row 1060, a row 240: (7100 - 1060) / 240 = 25 whole rows.
TEST_F(EventsTest, LongStepsGoByScreensAndToTheEnds) {
  sheet().SetCurrent(30, 4);
  Press(Key::kPageDown);
  ExpectAt(sheet(), 55, 4);
  Press(Key::kPageUp);
  Press(Key::kPageUp);
  ExpectAt(sheet(), 5, 4);
  Press(Key::kPageUp);
  ExpectAt(sheet(), 1, 4);
  Press(Key::kEnd);
  ExpectAt(sheet(), 1, 8);
  Press(Key::kHome);
  ExpectAt(sheet(), 1, 0);
  sheet().Set(40, 2, "900");
  Press(Key::kCtrlEnd);
  ExpectAt(sheet(), 40, 8);
  Press(Key::kCtrlHome);
  ExpectAt(sheet(), 1, 0);
}

TEST_F(EventsTest, ShiftMovesTheFarCornerAndTheCursorStays) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  Press(Key::kDown, true);
  Press(Key::kDown, true);
  Press(Key::kRight, true);
  ExpectAt(sheet(), 4, 3);
  EXPECT_EQ(sheet().row_sel, 6);
  EXPECT_EQ(sheet().column_sel, 4);
  EXPECT_EQ(sheet().Text(4, 3), "6");  // the cell was not left
  Press(Key::kDown);
  EXPECT_EQ(sheet().row_sel, 5);
  EXPECT_EQ(sheet().column_sel, 3);
}

TEST_F(EventsTest, PointingMovesTheCursorOrTheFarCorner) {
  sheet().SetCurrent(4, 3);
  sheet().Set(4, 3, "6");
  GridPoint(program, "Grid1", 9, 2, false);
  ExpectAt(sheet(), 9, 2);
  EXPECT_EQ(sheet().Text(4, 3), "6.00");
  GridPoint(program, "Grid1", 12, 4, true);
  ExpectAt(sheet(), 9, 2);
  EXPECT_EQ(sheet().row_sel, 12);
  GridPoint(program, "Grid1", 0, 4, false);  // a click on a heading
  ExpectAt(sheet(), 1, 4);
}

TEST_F(EventsTest, AGridThatIsHiddenOrUnknownTakesNoKeys) {
  sheet().SetCurrent(4, 3);
  sheet().control.visible = false;
  Press(Key::kDown);
  Press("5");
  GridPoint(program, "Grid1", 9, 2, false);
  ExpectAt(sheet(), 4, 3);
  EXPECT_EQ(sheet().Text(4, 3), "");
  GridKey(program, "Grid9", {Key::kDown, ""});
  GridKey(program, "GridInchesApplied", {Key::kDown, ""});
  EXPECT_TRUE(host.messages.empty());
}

// Results

TEST_F(EventsTest, ArrowsInTheResultsMoveTheSelectionAndShowItsAcres) {
  results().control.visible = true;
  program.record.HoleRows = 20;
  program.record.TotalAcres = 10;
  for (int row = 1; row <= 20; ++row) {
    program.record.FurrowLength[row] = 1089;  // 1089 ft x 20 ft = 21,780 square feet: half an acre
    program.record.PlantedWidth[row] = 20;
  }
  results().SetCurrent(3, 0);
  GridKey(program, "Grid2", {Key::kDown, ""});
  ExpectAt(results(), 4, 0);
  program.main.lblAcresTotal.caption = "";
  GridKey(program, "Grid2", {Key::kDown, "", true});
  ExpectAt(results(), 4, 0);
  EXPECT_EQ(results().row_sel, 5);
  EXPECT_THAT(program.main.lblAcresTotal.caption, HasSubstr("Total Acres = 10.0"));
  GridPoint(program, "Grid2", 9000, 40, false);
  ExpectAt(results(), 5283, 12);
  GridPoint(program, "Grid2", 0, 0, true);
  EXPECT_EQ(results().row_sel, 1);
}

TEST_F(EventsTest, CharactersInTheResultsDoNothing) {
  results().control.visible = true;
  results().SetCurrent(3, 1);
  results().Set(3, 1, "5/8");
  GridKey(program, "Grid2", {Key::kCharacter, "5"});
  GridKey(program, "Grid2", {Key::kEnter, ""});
  EXPECT_EQ(results().Text(3, 1), "5/8");
  ExpectAt(results(), 3, 1);
}

TEST_F(EventsTest, TheMouseOverTheBackgroundShowsTheAcres) {
  program.record.TotalAcres = 12.34F;
  program.main.lblAcresTotal.visible = false;
  BackgroundMouse(program);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "Total Acres = 12.3");
  EXPECT_TRUE(program.main.lblAcresTotal.visible);
}

TEST_F(EventsTest, TheMouseOverHiddenResultsDoesNothing) {
  program.main.lblAcresTotal.caption = "before";
  ResultMouse(program, MouseAction::kDown, MouseButton::kLeft, 10, 2000);
  ResultMouse(program, MouseAction::kMove, MouseButton::kLeft, 10, 3000);
  ResultMouse(program, MouseAction::kUp, MouseButton::kLeft, 10, 3000);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "before");
}

// Fields

TEST_F(EventsTest, TypedTextRunsTheChangeHandling) {
  TypeText(program, "txtInfo(2)", "850");
  EXPECT_EQ(program.record.TargetGPM, 850.0F);
  TypeText(program, "txtInfo(5)", "e");
  EXPECT_EQ(Info(5), "E");
}

TEST_F(EventsTest, TypedTextIsCutToTheLongest) {
  TypeText(program, "txtInfo(2)", "12345678901");
  EXPECT_EQ(Info(2), "1234567890");
  TypeText(program, "txtInfo(5)", "er");
  EXPECT_EQ(Info(5), "E");
}

TEST_F(EventsTest, TheLongestTextIsCountedInCharacters) {
  std::string accents;
  for (int i = 0; i < 13; ++i) accents += "\xC3\xA9";
  TypeText(program, "txtInfo(1)", accents);
  EXPECT_EQ(Info(1), accents.substr(0, 24));  // 12 characters of 2 bytes
}

TEST(FirstChangeTest, BeforeTheFirstChangeNoLimitIsKnown) {
  FakeHost host;
  Program program(host);
  TypeText(program, "txtInfo(2)", "12345678901");
  EXPECT_EQ(program.main.txtInfo[2].text(), "12345678901");
}

TEST_F(EventsTest, ADoubleQuoteBecomesAClosingQuotationMark) {
  TypeText(program, "txtInfo(0)", "The \"long\" field");
  EXPECT_EQ(Info(0), "The \xE2\x80\x9Dlong\xE2\x80\x9D field");
}

TEST_F(EventsTest, FieldsThatAreDisabledHiddenOrUnknownTakeNoText) {
  program.main.txtInfo[4].control.enabled = false;
  TypeText(program, "txtInfo(4)", "x");
  EXPECT_EQ(Info(4), "");
  TypeText(program, "txtDefault(3)", "100");  // its frame is hidden
  EXPECT_EQ(program.main.txtDefault[3].text(), "140");
  TypeText(program, "txtInfo(6)", "x");
  TypeText(program, "lblEffic", "x");
  EXPECT_EQ(program.main.lblEffic.caption, "");
}

TEST_F(EventsTest, PreferencesThatAreShownTakeText) {
  program.main.Frame1.visible = true;
  TypeText(program, "txtDefault(3)", "100");
  EXPECT_EQ(program.record.HazenWilliamsC, 100.0F);
  TypeText(program, "txtDefault(9)", "r");
  EXPECT_EQ(program.main.txtDefault[9].text(), "R");
}

TEST_F(EventsTest, KeysMoveBetweenTheFields) {
  FocusGained(program, "txtInfo(0)");
  EXPECT_TRUE(FieldKey(program, "txtInfo(0)", {Key::kEnter, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(1)");
  EXPECT_TRUE(FieldKey(program, "txtInfo(1)", {Key::kDown, ""}));
  EXPECT_TRUE(FieldKey(program, "txtInfo(2)", {Key::kDown, ""}));
  EXPECT_TRUE(FieldKey(program, "txtInfo(3)", {Key::kUp, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(2)");
  EXPECT_FALSE(FieldKey(program, "txtInfo(5)", {Key::kEnter, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(2)");
}

TEST_F(EventsTest, KeysWithACharacterGiveTheShortHeadingsAndOthersDoNot) {
  for (const Key key : {Key::kDelete, Key::kHome, Key::kEnd, Key::kLeft, Key::kRight, Key::kPageDown}) {
    EXPECT_FALSE(FieldKey(program, "txtInfo(0)", {key, ""}));
  }
  EXPECT_EQ(sheet().Text(0, 1), "Elevations (feet)");  // as the layout wrote it
  for (const KeyStroke& stroke : {KeyStroke{Key::kCharacter, "a"}, KeyStroke{Key::kBackspace, ""}}) {
    sheet().Set(0, 1, "");
    EXPECT_FALSE(FieldKey(program, "txtInfo(0)", stroke));
    EXPECT_EQ(sheet().Text(0, 1), "Elevations");
  }
}

TEST_F(EventsTest, FieldsThatTheUserCannotReachTakeNoKeys) {
  FocusGained(program, "txtInfo(0)");
  program.main.txtInfo[0].control.enabled = false;
  EXPECT_FALSE(FieldKey(program, "txtInfo(0)", {Key::kDown, ""}));
  EXPECT_FALSE(FieldKey(program, "txtInfo(7)", {Key::kDown, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

}  // namespace
}  // namespace torvale
