#include "shell/panel_drag.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "shell/commands.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

// The panel of preferences, open at (10000, 700), 5400 wide and 8600 high, on a screen of 15400 by 9330.
struct PanelDragTest : StartedProgramTest {
  PanelDragTest() { Click(program, "mnuPreference"); }
  void ExpectAt(int left, int top) {
    EXPECT_EQ(panel.left, left);
    EXPECT_EQ(panel.top, top);
  }
  Place& panel = program.main.Frame1.place;
};

TEST_F(PanelDragTest, AGrabIsRememberedWithItsHeightRounded) {
  GrabPanel(program, "Frame1", 10.5F, 20.5F);
  EXPECT_EQ(program.main.drag.DragX, 10.5F);
  EXPECT_EQ(program.main.drag.DragY, 20);  // half to even
  GrabPanel(program, "Frame1", 0, 21.5F);
  EXPECT_EQ(program.main.drag.DragY, 22);
  EXPECT_EQ(FaultOf([&] { GrabPanel(program, "Frame1", 0, 40000); }), Fault::kOverflow);
}

TEST_F(PanelDragTest, ADropOnThePanelMovesItByTheWayOfTheGrab) {
  panel = {9000, 600, 5400, 8600};
  GrabPanel(program, "Frame1", 100, 50);
  DropOnPanel(program, 400, 20);
  ExpectAt(9300, 570);
}

TEST_F(PanelDragTest, ADropOnTheScreenPutsThePanelUnderTheGrab) {
  GrabPanel(program, "Frame1", 100, 50);
  DropOnScreen(program, 3000, 450);
  ExpectAt(2900, 400);
  // The grab is over: the pointer goes on alone.
  DragPanel(program, 5000, 600);
  DropOnScreen(program, 5000, 600);
  ExpectAt(2900, 400);
}

TEST_F(PanelDragTest, ThePanelGoesWithThePointerAndBackFromADropElsewhere) {
  GrabPanel(program, "Frame1", 100, 50);
  DragPanel(program, 3000, 450);
  ExpectAt(2900, 400);
  DragPanel(program, 3100, 350);
  ExpectAt(3000, 300);
  DropElsewhere(program);
  ExpectAt(10000, 700);
}

TEST_F(PanelDragTest, ThePanelIsHeldInsideTheScreen) {
  GrabPanel(program, "Frame1", 100, 50);
  DragPanel(program, -3000, -2000);
  ExpectAt(0, 0);
  DragPanel(program, 40000, 30000);
  ExpectAt(15400 - 5400, 9330 - 8600);
  DropOnScreen(program, -1e30F, 1e30F);
  ExpectAt(0, 730);
}

TEST_F(PanelDragTest, WhatIsNoOpenPanelIsNotGrabbed) {
  for (const char* name : {"frmDisplay", "Grid1", "frameHoleSelection", "nothing"}) {
    GrabPanel(program, name, 1, 1);
    EXPECT_EQ(program.main.drag.panel, "") << name;
  }
  DropOnPanel(program, 400, 20);
  DropElsewhere(program);
  ExpectAt(10000, 700);
  program.main.frameHoleSelection.visible = true;
  GrabPanel(program, "frameHoleSelection", 1, 1);
  EXPECT_EQ(program.main.drag.panel, "frameHoleSelection");
}

TEST_F(PanelDragTest, TheMouseGrabsMovesAndDropsAPanel) {
  const auto mouse = [&](const char* over, MouseAction action, int x, int y) {
    ScreenMouse(program, over, action, MouseButton::kLeft, x, y);
  };
  mouse("Frame1", MouseAction::kDown, 100, 50);
  mouse("frmMainForm", MouseAction::kMove, 3000, 450);
  ExpectAt(2900, 400);
  mouse("frmMainForm", MouseAction::kUp, 3100, 350);
  ExpectAt(3000, 300);
  mouse("Frame1", MouseAction::kDown, 100, 50);
  mouse("Frame1", MouseAction::kUp, 200, 60);
  ExpectAt(3100, 310);
  mouse("Frame1", MouseAction::kDown, 100, 50);
  mouse("frmMainForm", MouseAction::kMove, 3000, 450);
  mouse("", MouseAction::kUp, 0, 0);
  ExpectAt(3100, 310);
  ScreenMouse(program, "Frame1", MouseAction::kDown, MouseButton::kRight, 100, 50);
  EXPECT_EQ(program.main.drag.panel, "");
}

TEST_F(PanelDragTest, OverTheBackgroundTheMouseReadsTheAcres) {
  program.record.TotalAcres = 12;
  ScreenMouse(program, "frmMainForm", MouseAction::kMove, MouseButton::kNone, 0, 0);
  EXPECT_EQ(program.main.lblAcresTotal.caption, "Total Acres = 12.0");
}

}  // namespace
}  // namespace torvale
