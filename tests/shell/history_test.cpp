#include "shell/history.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include "engine/survey.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/level_field.h"
#include "shell/packed_changes.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct HistoryTest : ::testing::Test {
  HistoryTest() { StartProgram(program); }

  void Press(std::string_view characters) {
    for (const char& c : characters) GridKey(program, "Grid1", {Key::kCharacter, std::string_view(&c, 1), false});
  }
  void Enter() { GridKey(program, "Grid1", {Key::kEnter, "", false}); }
  void At(int row, int column) {
    FocusGained(program, "Grid1");
    GridPoint(program, "Grid1", row, column, false);
  }
  void Undo() { Click(program, "mnuEditUndo"); }
  void Redo() { Click(program, "mnuEditRedo"); }
  const std::string& Cell(int row, int column) const { return program.main.Grid1.Text(row, column); }
  const std::string& UndoCaption() const { return program.main.mnuEditUndo.caption; }
  const std::string& RedoCaption() const { return program.main.mnuEditRedo.caption; }

  // A level line of 100 feet: 15 inch pipe, a hole of 5/8 inch each 20 feet.
  void TypeField() {
    TypeText(program, "txtInfo(0)", "Level");
    TypeLevelField(program);
    FocusGained(program, "Grid1");  // an event that takes note of the cells
  }

  FakeHost host;
  Program program{host};
};

TEST_F(HistoryTest, NothingCanBeUndoneAtTheStart) {
  EXPECT_FALSE(program.main.mnuEditUndo.enabled);
  EXPECT_FALSE(program.main.mnuEditRedo.enabled);
  EXPECT_EQ(UndoCaption(), "&Undo");
  EXPECT_EQ(Click(program, "mnuEditUndo"), Reach::kDisabled);
}

TEST_F(HistoryTest, WhatIsTypedIntoOneCellIsOneStep) {
  At(3, 2);
  Press("1250");
  EXPECT_EQ(UndoCaption(), "&Undo typing in row 3, Furrow Length");
  Undo();
  EXPECT_EQ(Cell(3, 2), "");
  EXPECT_EQ(UndoCaption(), "&Undo");
  EXPECT_EQ(RedoCaption(), "&Redo typing in row 3, Furrow Length");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Undone: typing in row 3, Furrow Length");
  Redo();
  EXPECT_EQ(Cell(3, 2), "1250");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Done again: typing in row 3, Furrow Length");
  EXPECT_FALSE(program.main.mnuEditRedo.enabled);
}

// The cell takes its number form when the cursor leaves it; that belongs to the typing.
TEST_F(HistoryTest, TheFormOfACellThatIsLeftBelongsToItsTyping) {
  At(3, 1);
  Press("5.2");
  Enter();
  EXPECT_EQ(Cell(3, 1), "5.20");
  Undo();
  EXPECT_EQ(Cell(3, 1), "");
  EXPECT_FALSE(program.main.mnuEditUndo.enabled);
  EXPECT_EQ(program.main.Grid1.row, 3);  // the user sees what came back
  EXPECT_EQ(program.main.Grid1.column, 1);
}

TEST_F(HistoryTest, EachCellIsAStepAndSoIsASecondVisit) {
  At(2, 2);
  Press("10");
  Enter();
  Press("20");
  At(2, 2);
  Press("5");  // "105"
  Undo();
  EXPECT_EQ(Cell(2, 2), "10");
  Undo();
  EXPECT_EQ(Cell(3, 2), "");
  EXPECT_EQ(Cell(2, 2), "10");
  Undo();
  EXPECT_EQ(Cell(2, 2), "");
  EXPECT_FALSE(program.main.mnuEditUndo.enabled);
}

TEST_F(HistoryTest, ACellTypedBackToWhatItWasLeavesNoStep) {
  At(2, 2);
  Press("1");
  GridKey(program, "Grid1", {Key::kBackspace, "", false});
  EXPECT_FALSE(program.main.mnuEditUndo.enabled);
}

TEST_F(HistoryTest, AFieldIsOneStepUntilItIsLeft) {
  FocusGained(program, "txtInfo(4)");
  for (const char* text : {"S", "So", "South"}) TypeText(program, "txtInfo(4)", text);
  FocusGained(program, "txtInfo(0)");
  for (const char* text : {"D", "Dunn"}) TypeText(program, "txtInfo(0)", text);
  EXPECT_EQ(UndoCaption(), "&Undo typing in Name");
  Undo();
  EXPECT_EQ(program.main.txtInfo[0].text(), "");
  EXPECT_EQ(UndoCaption(), "&Undo typing in Location");
  Undo();
  EXPECT_EQ(program.main.txtInfo[4].text(), "");
  EXPECT_EQ(program.main.focus, "txtInfo(4)");
}

// The change handling runs: the pumped flow reaches the record.
TEST_F(HistoryTest, UndoRunsTheChangeHandlingOfAField) {
  TypeText(program, "txtInfo(2)", "850");
  EXPECT_EQ(program.record.TargetGPM, 850.0F);
  Undo();
  EXPECT_EQ(program.record.TargetGPM, 0.0F);
}

TEST_F(HistoryTest, NewIsOneStepAndBringsEveryInputBack) {
  TypeField();
  program.main.listHolesSelected.Add("1/4");
  program.main.listHolesSelected.Add("1/2");
  TypeText(program, "txtDefault(10)", "3");
  const InputTexts before = InputsOf(program);
  Click(program, "mnuFileNew");
  EXPECT_NE(InputsOf(program), before);
  EXPECT_EQ(UndoCaption(), "&Undo New");
  const InputTexts after = InputsOf(program);
  Undo();
  EXPECT_EQ(InputsOf(program), before);
  Redo();
  EXPECT_EQ(InputsOf(program), after);
}

TEST_F(HistoryTest, OpenIsOneStepAndBringsTheFormerNamesBack) {
  TypeField();
  program.record.SaveFileName = host.ProgramFolder() + "/level.PFD";
  Click(program, "mnuDesignField");
  Click(program, "mnuFileSave");
  const std::string level = program.record.SaveFileName;
  program.record.OpenedFileName = level;
  Click(program, "mnuFileNew");
  TypeText(program, "txtInfo(0)", "Other");
  program.record.OpenedFileName = "other.PFD";
  const InputTexts before = InputsOf(program);
  host.paths.push_back(level);
  Click(program, "mnuFileOpen");
  EXPECT_EQ(program.main.txtInfo[0].text(), "Level");
  EXPECT_EQ(UndoCaption(), "&Undo Open");
  Undo();
  EXPECT_EQ(InputsOf(program), before);
  EXPECT_EQ(program.record.OpenedFileName, "other.PFD");
}

// A name that a save gave after the step stays: undo takes back what was put in, not what was saved.
TEST_F(HistoryTest, ANameGivenSinceStays) {
  TypeField();
  program.record.OpenedFileName = "first.PFD";
  host.paths.push_back("nowhere.PFD");
  Click(program, "mnuFileOpen");  // fails with a message; the sheet is empty, the name is that of the file
  EXPECT_EQ(program.record.OpenedFileName, "nowhere.PFD");
  program.record.OpenedFileName = "since.PFD";
  Undo();
  EXPECT_EQ(program.main.txtInfo[0].text(), "Level");
  EXPECT_EQ(program.record.OpenedFileName, "since.PFD");
}

TEST_F(HistoryTest, ASurveyPasteIsOneStep) {
  host.clipboard = "0\t10\r\n100\t9.8\r\n200\t9.6\r\n";
  Click(program, "mnuSurveyCopy");
  EXPECT_EQ(Cell(3, 0), "200");
  EXPECT_EQ(UndoCaption(), "&Undo Paste Excel Survey");
  Undo();
  EXPECT_EQ(Cell(3, 0), "");
  EXPECT_EQ(Cell(1, 1), "10.00");
}

// Cut reaches the sheet behind the results. One undo brings the cells back, and with them the very inputs that the
// results were worked out from: they stay on the screen.
TEST_F(HistoryTest, CutOverResultsIsOneStepAndTheDesignIsActiveAgainWithItsInputs) {
  TypeField();
  Click(program, "mnuDesignField");
  ASSERT_TRUE(program.main.Grid2.control.visible);
  ASSERT_EQ(program.main.lblActiveInactive.caption, "Active Design");
  program.main.focus = "Grid2";
  program.main.Grid1.SetCurrent(2, 0);
  const std::string station = Cell(2, 0);
  Click(program, "mnuEditCut");
  EXPECT_EQ(Cell(2, 0), "");
  EXPECT_EQ(UndoCaption(), "&Undo Cut");
  Undo();
  EXPECT_EQ(Cell(2, 0), station);
  EXPECT_TRUE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.main.lblActiveInactive.caption, "Active Design");
  // Redo gives a sheet that the design was not worked out from.
  Redo();
  EXPECT_EQ(Cell(2, 0), "");
  EXPECT_FALSE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.main.lblActiveInactive.caption, "Inactive Design");
}

// The run has completed the sheet; the sheet as it was before has no design.
TEST_F(HistoryTest, UndoBehindADesignLeavesItForTheSheet) {
  TypeField();
  Click(program, "mnuDesignField");
  ASSERT_TRUE(program.main.Grid2.control.visible);
  ASSERT_EQ(UndoCaption(), "&Undo Planned Design");
  ASSERT_EQ(Cell(2, 1), "10.00");
  Undo();
  EXPECT_EQ(Cell(2, 1), "10");
  EXPECT_FALSE(program.main.Grid2.control.visible);
  EXPECT_TRUE(program.main.Grid1.control.visible);
  EXPECT_EQ(program.main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_FALSE(program.main.lblEffic.visible);
  EXPECT_FALSE(program.main.frmDisplay.visible);
  EXPECT_FALSE(program.main.mnuProfile.visible);
  EXPECT_EQ(program.record.DesignType, kNoDesign);
}

// The other table of a design is no new result: a field typed before it was called up counts as typed after the run.
TEST_F(HistoryTest, TheOtherTableOfADesignIsNoNewResult) {
  TypeField();
  Click(program, "mnuDesignField");
  TypeText(program, "txtInfo(2)", "31");
  Click(program, "cmdDesignToggle");
  TypeText(program, "txtInfo(4)", "South");
  Undo();  // to 31 gallons, for which nothing was worked out
  EXPECT_FALSE(program.main.Grid2.control.visible);
}

TEST_F(HistoryTest, ThePipeComesBackWithItsTicksAndHeading) {
  Click(program, "mnuRigidPipe");
  EXPECT_EQ(UndoCaption(), "&Undo Type of Pipe");
  EXPECT_EQ(Cell(0, 5), "Hole Width (fractions)");
  Undo();
  EXPECT_EQ(program.record.PipeKind, "L");
  EXPECT_TRUE(program.main.mnuLayflatPipe.ticked);
  EXPECT_FALSE(program.main.mnuRigidPipe.ticked);
  EXPECT_EQ(Cell(0, 5), "Hole Diameter (fractions)");
}

TEST_F(HistoryTest, TheHoleListComesBack) {
  TypeField();
  Click(program, "mnuManHoleSelection");
  SelectLines(program, "listAllHoles", {3, 7});
  Click(program, "cmdADDtoSelected");
  ASSERT_EQ(program.main.listHolesSelected.count(), 2);
  EXPECT_EQ(UndoCaption(), "&Undo Add to Selected Holes");
  Click(program, "Command1");
  EXPECT_EQ(UndoCaption(), "&Undo Clear All Selected Holes");
  Undo();
  EXPECT_EQ(program.main.listHolesSelected.count(), 2);
  EXPECT_EQ(program.main.listHolesSelected.Line(0), program.main.listAllHoles.Line(3));
  Undo();
  EXPECT_EQ(program.main.listHolesSelected.count(), 0);
}

// What a new design drops of preferences that were typed and not kept by Exit, one undo brings back.
TEST_F(HistoryTest, AbandonedPreferencesComeBack) {
  Click(program, "mnuPreference");
  Click(program, "btnDefaultExit");  // the defaults file holds 140
  Click(program, "mnuPreference");
  TypeText(program, "txtDefault(3)", "100");
  Click(program, "mnuFileNew");
  ASSERT_EQ(program.main.txtDefault[3].text(), "140.00");
  Undo();
  EXPECT_EQ(program.main.txtDefault[3].text(), "100");
  EXPECT_EQ(program.record.HazenWilliamsC, 100.0F);
}

// A preference that comes back with the panel closed is kept for the next start, and the distance between stations
// follows its field.
TEST_F(HistoryTest, APreferenceThatComesBackIsKeptAndApplied) {
  Click(program, "mnuPreference");
  TypeText(program, "txtDefault(0)", "100");
  FocusGained(program, "txtInfo(0)");
  Click(program, "mnuPreference");
  FocusGained(program, "txtDefault(0)");
  TypeText(program, "txtDefault(0)", "50");
  Click(program, "btnDefaultExit");
  ASSERT_EQ(program.record.StationInterval, 50);
  while (program.main.txtDefault[0].text() == "50" && program.main.mnuEditUndo.enabled) Undo();
  EXPECT_EQ(program.main.txtDefault[0].text(), "100");
  EXPECT_EQ(program.record.StationInterval, 100);
  FakeHost other;
  Program next(host);
  StartProgram(next);
  EXPECT_EQ(next.main.txtDefault[0].text(), "100");
}

TEST_F(HistoryTest, RowsComeBack) {
  TypeField();
  At(1, 0);
  Click(program, "mnuDeleteRow");
  EXPECT_EQ(UndoCaption(), "&Undo Delete Row");
  Undo();
  EXPECT_EQ(Cell(1, 0), "0");
  EXPECT_EQ(Cell(2, 0), "100");
  Click(program, "mnuInsertRow");
  EXPECT_EQ(UndoCaption(), "&Undo Insert Row");
}

TEST_F(HistoryTest, ANewStepForgetsWhatWasUndone) {
  At(2, 2);
  Press("10");
  Undo();
  At(4, 2);
  Press("7");
  EXPECT_FALSE(program.main.mnuEditRedo.enabled);
}

TEST_F(HistoryTest, NothingIsUndoneUnderARunningCalculation) {
  TypeField();
  host.event_at = 1;
  host.event = [&] { Undo(); };
  const std::string flow = program.main.txtInfo[2].text();
  Click(program, "mnuDesignField");
  EXPECT_FALSE(host.event) << "the march never yielded";
  EXPECT_EQ(program.main.txtInfo[2].text(), flow);
  EXPECT_EQ(Cell(2, 0), "100");
  EXPECT_TRUE(program.main.Grid2.control.visible);
}

TEST_F(HistoryTest, TheKeysUndoInASheetAndInAField) {
  At(3, 2);
  Press("1");
  GridKey(program, "Grid1", {Key::kUndo, "", false});
  EXPECT_EQ(Cell(3, 2), "");
  GridKey(program, "Grid1", {Key::kRedo, "", false});
  EXPECT_EQ(Cell(3, 2), "1");
  FocusGained(program, "txtInfo(0)");
  TypeText(program, "txtInfo(0)", "Dunn");
  EXPECT_TRUE(FieldKey(program, "txtInfo(0)", {Key::kUndo, "", false}));
  EXPECT_EQ(program.main.txtInfo[0].text(), "");
}

// Whatever is done, undone to the start and redone to the end, the inputs are the same at each step both ways.
TEST_F(HistoryTest, BackToTheStartAndOnToTheEndMeetsTheSameInputs) {
  TypeField();
  Click(program, "mnuDesignField");
  Click(program, "mnuWindowInfo");
  At(2, 2);
  Press("900");
  Enter();
  Click(program, "mnuRigidPipe");
  Click(program, "mnuFileNew");
  TypeText(program, "txtInfo(0)", "Second");
  std::vector<InputTexts> seen = {InputsOf(program)};
  while (program.main.mnuEditUndo.enabled) {
    Undo();
    seen.push_back(InputsOf(program));
  }
  EXPECT_GE(seen.size(), 6U);
  for (std::size_t i = seen.size() - 1; i > 0; --i) {
    EXPECT_EQ(InputsOf(program), seen[i]);
    Redo();
  }
  EXPECT_EQ(InputsOf(program), seen[0]);
}

TEST(HistoryChanges, PackedAndBack) {
  const std::vector<InputChange> changes = {
      {0, "", "0"}, {2870, "a\nb", std::string(300, 'x')}, {PlaceOf(InputKind::kFileName), "x", ""}};
  EXPECT_EQ(UnpackChanges(PackChanges(changes)), changes);
}

std::size_t AllocatedBytes() {
  return mallinfo2().uordblks;
}

TEST_F(HistoryTest, TenThousandStepsOfTypingCostLessThanTwentyMegabytes) {
  constexpr int kSteps = 10'000;
  FocusGained(program, "Grid1");
  const std::size_t before = AllocatedBytes();
  for (int i = 0; i < kSteps; ++i) {
    // Each in another cell than the one before, in columns whose form keeps every digit.
    At(2 + i % 318, i / 318 % 2 == 0 ? 6 : 7);
    Press("1");
  }
  EXPECT_EQ(program.history->done.size(), static_cast<std::size_t>(kSteps));
  EXPECT_LT(AllocatedBytes() - before, std::size_t{20} << 20U);
  EXPECT_LT(program.history->bytes, std::size_t{20} << 20U);
}

// Steps that empty and fill a whole sheet are dear; the oldest of them are forgotten in time.
TEST_F(HistoryTest, TenThousandStepsThatFillTheSheetCostLessThanTwentyMegabytes) {
  constexpr int kSteps = 10'000;
  FocusGained(program, "Grid1");
  const std::size_t before = AllocatedBytes();
  for (int i = 0; i < kSteps; ++i) {
    const std::string text = i % 2 == 0 ? "1234.5" : "";
    for (int row = 2; row < kSurveyGridRows; ++row) {
      for (int column = 1; column < kSurveyColumns; ++column) program.main.Grid1.Set(row, column, text);
    }
    GridPoint(program, "Grid1", 1, 0, false);
  }
  EXPECT_EQ(program.history->steps, static_cast<std::uint64_t>(kSteps));
  EXPECT_LT(program.history->done.size(), static_cast<std::size_t>(kSteps));
  EXPECT_LT(AllocatedBytes() - before, std::size_t{20} << 20U);
  Undo();
  EXPECT_EQ(Cell(300, 3), "1234.5");
}

}  // namespace
}  // namespace torvale
