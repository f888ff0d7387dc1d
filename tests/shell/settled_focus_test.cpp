// Where the user is when an event has ended.
#include "shell/commands.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using SettledFocusTest = StartedProgramTest;

TEST_F(SettledFocusTest, AControlThatIsGoneLeavesTheFocusToTheResults) {
  FocusGained(program, "Grid1");
  Guarded(program, [&] {
    sheet().control.visible = false;
    results().control.visible = true;
    EXPECT_EQ(program.main.focus, "Grid1");  // not while the event runs
  });
  EXPECT_EQ(program.main.focus, "Grid2");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Results. Drag over rows to see their acres");
}

// What an event in the middle of another leaves hidden may be shown again before the outer one ends.
TEST_F(SettledFocusTest, AnEventInsideAnotherSettlesNothing) {
  FocusGained(program, "txtInfo(3)");
  Guarded(program, [&] {
    Guarded(program, [&] { program.main.txtInfo[3].control.visible = false; });
    EXPECT_EQ(program.main.focus, "txtInfo(3)");
    program.main.txtInfo[3].control.visible = true;
  });
  EXPECT_EQ(program.main.focus, "txtInfo(3)");
}

TEST_F(SettledFocusTest, APanelThatOpensTakesTheFocusOnce) {
  FocusGained(program, "txtInfo(3)");
  Click(program, "mnuPreference");
  EXPECT_EQ(program.main.focus, "txtDefault(0)");
  FocusGained(program, "txtDefault(4)");
  Click(program, "mnuZoomTo(0)");
  EXPECT_EQ(program.main.focus, "txtDefault(4)");  // it was open already
  Click(program, "btnDefaultExit");
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
  Click(program, "mnuPreference");
  EXPECT_EQ(program.main.focus, "txtDefault(0)");
}

TEST_F(SettledFocusTest, APreferenceThatIsLeftIsRepaired) {
  Click(program, "mnuPreference");
  FocusGained(program, "txtDefault(9)");
  TypeText(program, "txtDefault(9)", "x");
  EXPECT_EQ(program.main.txtDefault[9].text(), "X");
  EXPECT_EQ(host.beeps, 0);
  FocusGained(program, "txtDefault(8)");
  EXPECT_EQ(program.main.txtDefault[9].text(), "E");
  EXPECT_EQ(host.beeps, 1);
}

// A fault ends the work, not what comes after it.
TEST_F(SettledFocusTest, AFaultLeavesNoFocusBehindOnAHiddenControl) {
  FocusGained(program, "Grid1");
  Guarded(program, [&] {
    sheet().control.visible = false;
    results().control.visible = true;
    throw RunTimeFault{Fault::kOverflow};
  });
  EXPECT_EQ(program.main.focus, "Grid2");
  EXPECT_EQ(program.events.open, 0);
  EXPECT_EQ(host.messages.size(), 1U);
}

}  // namespace
}  // namespace torvale
