// The window shows what the structures say: places, captions, menus, focus, zoom.
#include <QAbstractButton>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <algorithm>

#include "gui/window_test.h"
#include "qt/to_qt.h"
#include "shell/commands.h"

namespace torvale {
namespace {

class ScreenTest : public WindowTest {
 protected:
  QWidget& Canvas() { return Find<QWidget>("canvas"); }

  void ExpectControlsInPlace() {
    const Scale scale(main().zoom);
    int seen = 0;
    for (const NamedControl& named : ControlsOf(main())) {
      if (!OnScreen(named.kind)) continue;
      auto* widget = window_->findChild<QWidget*>(ToQt(named.name));
      ASSERT_NE(widget, nullptr) << named.name;
      EXPECT_EQ(widget->isVisible(), ReachOf(*program_, named.name) != Reach::kHidden) << named.name;
      if (!widget->isVisible()) continue;
      ++seen;
      EXPECT_EQ(widget->geometry().topLeft(), scale.Rect(named.control->place).topLeft()) << named.name;
      EXPECT_EQ(widget->width(), scale.Rect(named.control->place).width()) << named.name;
      EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << named.name;
      const QRect on_canvas(widget->mapTo(&Canvas(), QPoint()), widget->size());
      EXPECT_TRUE(Canvas().rect().contains(on_canvas)) << named.name << " can't be scrolled to";
    }
    EXPECT_GT(seen, 15);
  }
};

TEST_F(ScreenTest, EveryVisibleControlStandsInItsPlace) {
  ExpectControlsInPlace();
  // The results screen too, without a calculation.
  for (Control* control :
       {&main().frmDisplay, &main().frameShowLimitedHoles, &main().cmdReCalc, &main().cmdDesignToggle,
        &main().Grid2.control, &main().GridInchesApplied.control, &main().lblEffic}) {
    control->visible = true;
  }
  main().Grid1.control.visible = false;
  window_->Sync();
  ExpectControlsInPlace();
}

TEST_F(ScreenTest, ANormalWindowShowsTheWholeScreen) {
  main().frameShowLimitedHoles.visible = true;
  window_->Sync();
  auto* area = window_->findChild<QScrollArea*>("screens");
  ASSERT_NE(area, nullptr);
  EXPECT_LE(Canvas().width(), area->viewport()->width());
  EXPECT_LE(Canvas().height(), area->viewport()->height());
}

TEST_F(ScreenTest, ButtonsOverTheResultsStandAboveThem) {
  for (Control* control : {&main().Grid2.control, &main().cmdReCalc, &main().frmDisplay}) control->visible = true;
  main().Grid1.control.visible = false;
  window_->Sync();
  for (const char* name : {"cmdReCalc", "frmDisplay"}) {
    QWidget& above = Find<QWidget>(name);
    const QWidget* top = Canvas().childAt(above.geometry().center());
    ASSERT_NE(top, nullptr);
    EXPECT_TRUE(top == &above || above.isAncestorOf(top)) << name;
  }
}

TEST_F(ScreenTest, FieldsAndButtonsHaveNamesForReaders) {
  for (const NamedControl& named : ControlsOf(main())) {
    if (named.kind != ControlKind::kField && named.kind != ControlKind::kButton && named.kind != ControlKind::kGrid) {
      continue;
    }
    EXPECT_FALSE(Find<QWidget>(std::string(named.name).c_str()).accessibleName().isEmpty()) << named.name;
  }
  EXPECT_EQ(Info(2).accessibleName(), "GPM");
  EXPECT_EQ(Info(3).accessibleName(), "Target Head (ft)");
  EXPECT_EQ(Info(5).accessibleName(), "Enter Rod Readings or Elevations (R or E)");
  EXPECT_EQ(Find<QWidget>("cmdCancel").accessibleName(), "Cancel");
}

TEST_F(ScreenTest, MenusHoldTheCommandsAndNothingElse) {
  int entries = 0;
  for (const NamedControl& named : ControlsOf(main())) {
    if (named.kind != ControlKind::kMenu) continue;
    auto* action = window_->findChild<QAction*>(ToQt(named.name));
    if (action == nullptr) {
      EXPECT_FALSE(HasCommand(named.name)) << named.name;
      continue;
    }
    ++entries;
    EXPECT_EQ(action->text().section('\t', 0, 0).toStdString(), named.control->caption);
    EXPECT_TRUE(action->menu() != nullptr || HasCommand(named.name)) << named.name;
    EXPECT_EQ(action->isVisible(), named.control->visible) << named.name;
  }
  EXPECT_GT(entries, 10);
  EXPECT_EQ(window_->menuBar()->actions().front()->text(), "&File");
}

TEST_F(ScreenTest, MenuEntriesRunTheirCommands) {
  EXPECT_TRUE(Find<QAction>("mnuLayflatPipe").isChecked());
  Choose("mnuRigidPipe");
  EXPECT_EQ(record().PipeKind, "R");
  EXPECT_TRUE(Find<QAction>("mnuRigidPipe").isChecked());
  EXPECT_FALSE(Find<QAction>("mnuLayflatPipe").isChecked());
  // Choosing what is ticked already leaves the tick.
  Choose("mnuRigidPipe");
  EXPECT_TRUE(Find<QAction>("mnuRigidPipe").isChecked());
}

TEST_F(ScreenTest, KeysRunMenuEntries) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down);
  Type(Sheet(), "150");
  Key(Sheet(), Qt::Key_I, 1, Qt::ControlModifier);
  EXPECT_EQ(main().Grid1.Text(2, 0), "");
  EXPECT_EQ(main().Grid1.Text(3, 0), "150");
}

TEST_F(ScreenTest, FirstFieldHasTheFocusAtStart) {
  EXPECT_EQ(main().focus, "txtInfo(0)");
  EXPECT_TRUE(Info(0).hasFocus());
}

TEST_F(ScreenTest, EnterAndArrowsLeadThroughTheFields) {
  Key(Info(0), Qt::Key_Return);
  EXPECT_TRUE(Info(1).hasFocus());
  Key(Info(1), Qt::Key_Down);
  EXPECT_TRUE(Info(2).hasFocus());
  EXPECT_EQ(main().focus, "txtInfo(2)");
  Key(Info(2), Qt::Key_Up);
  EXPECT_TRUE(Info(1).hasFocus());
}

TEST_F(ScreenTest, AFieldIsSelectedWholeAndTypingReplacesIt) {
  main().txtInfo[3].Set("2.5");
  window_->Sync();
  EXPECT_EQ(Info(3).text(), "2.5");
  Info(3).setFocus();
  EXPECT_EQ(Info(3).selectedText(), "2.5");
  EXPECT_EQ(main().txtInfo[3].SelectedText(), "2.5");
  Type(Info(3), "3");
  EXPECT_EQ(main().txtInfo[3].text(), "3");
}

// Nothing is out of the user's reach where the desktop is small: what a design brings up is scrolled to.
TEST_F(ScreenTest, AWindowSmallerThanTheResultsScrollsToTheirEdge) {
  auto* area = window_->findChild<QScrollArea*>("screens");
  ASSERT_NE(area, nullptr);
  window_->resize(700, 500);
  QTest::qWait(1);
  main().Grid2.control.visible = true;
  main().frameShowLimitedHoles.visible = true;
  window_->Sync();
  const QWidget& frame = Find<QWidget>("frameShowLimitedHoles");
  EXPECT_GT(Canvas().width(), frame.geometry().right());
  QScrollBar& bar = *area->horizontalScrollBar();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.maximum(), Canvas().width() - area->viewport()->width());
  bar.setValue(bar.maximum());
  EXPECT_TRUE(
      area->viewport()->rect().contains(QRect(frame.mapTo(area->viewport(), QPoint()), QSize(frame.width(), 1))));
}

TEST_F(ScreenTest, TypingFlowReachesTheRecordAtOnce) {
  Info(2).setFocus();
  Type(Info(2), "850");
  EXPECT_EQ(record().TargetGPM, 850.0F);
}

TEST_F(ScreenTest, ZoomScalesTheScreenAndIsRemembered) {
  const int width = Sheet().width();
  Choose("mnuZoomTo(3)");
  EXPECT_EQ(main().zoom, 150);
  EXPECT_NEAR(Sheet().width(), width * 1.5, 1);
  ExpectControlsInPlace();
  End();
  Start();
  EXPECT_EQ(main().zoom, 150);
  EXPECT_NEAR(Sheet().width(), width * 1.5, 1);
  Key(Sheet(), Qt::Key_0, 1, Qt::ControlModifier);
  EXPECT_EQ(main().zoom, 100);
  EXPECT_EQ(Sheet().width(), width);
}

TEST_F(ScreenTest, AResizedWindowGoesBackToItsWidthOnce) {
  const int width = window_->width();
  window_->resize(900, 600);
  QTest::qWait(700);
  EXPECT_EQ(main().window.width, 10000);
  EXPECT_EQ(main().window.top, 500);
  EXPECT_EQ(window_->width(), width);
  EXPECT_EQ(window_->height(), 600);
}

TEST_F(ScreenTest, ThePlaceIsSavedOnClosing) {
  const int height = 600 + Find<QToolBar>("tbToolBar").height();
  window_->resize(window_->width(), height);
  QTest::qWait(700);
  // The tool bar does not count; 600 pixels are 600 x 15 / 1.6 = 5625 twips.
  EXPECT_EQ(main().window.height, 5625);
  window_->close();
  EXPECT_TRUE(main().closed);
  EXPECT_FALSE(window_->isVisible());
  End();
  Start();
  EXPECT_EQ(main().window.height, 5625);
  EXPECT_EQ(window_->height(), height);
}

TEST_F(ScreenTest, ExitClosesTheWindow) {
  Choose("mnuFileExit");
  EXPECT_TRUE(main().closed);
  EXPECT_FALSE(window_->isVisible());
}

// The window that comes up gives the focus to the name. One that comes back to the front leaves the user where he was.
TEST_F(ScreenTest, LaterActivationsLeaveTheFocusAlone) {
  EXPECT_TRUE(Info(0).hasFocus());
  Info(3).setFocus();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_FALSE(window_->isActiveWindow());
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  EXPECT_TRUE(Info(3).hasFocus());
  EXPECT_EQ(main().focus, "txtInfo(3)");
}

TEST_F(ScreenTest, BusyPointerDoesNotOutliveItsCommand) {
  main().busy = true;
  window_->Sync();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ScreenTest, ALongHoleSummaryScrolls) {
  std::string lines = " Stations \n";
  for (int i = 0; i < 100; ++i) lines += std::to_string(i) + "\r";
  main().lblSumStation.caption = lines;
  main().frameShowLimitedHoles.visible = true;
  window_->Sync();
  auto& frame = Find<QScrollArea>("frameShowLimitedHoles");
  const QLabel& label = Find<QLabel>("lblSumStation");
  EXPECT_EQ(label.text().count('\n'), 100);
  EXPECT_GT(label.height(), frame.height());
  EXPECT_EQ(frame.widget()->height(), label.geometry().bottom() + 1);
  main().lblSumStation.caption = " Stations \n0 - 1\r";
  window_->Sync();
  EXPECT_LE(frame.widget()->height(), frame.height());
}

}  // namespace
}  // namespace torvale
