// Whole designs, from the keyboard to the results on the screen.
#include <QScrollBar>

#include "gui/window_test.h"
#include "input/focus.h"
#include "input/info_fields.h"

namespace torvale {
namespace {

class DesignTest : public WindowTest {
 protected:
  std::string Cell(int row, int column) {
    return Results().model()->index(row - 1, column).data().toString().toStdString();
  }
  void TypeShortDesign() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
  }
  // As many rows as a record holds. A hole of 1/32 inch gives some 0.03 gallons a minute under 3 feet of head.
  void TypeLongDesign() {
    TypeFields("Long Line", "150", "3");
    TypeLevelLine("5280", "1", "+");
  }
};

TEST_F(DesignTest, APlannedDesignFromAnEmptySheetByKeyboard) {
  TypeShortDesign();
  Key(Sheet(), Qt::Key_F5);
  EXPECT_EQ(main().txtInfo[0].text(), "North Forty");
  EXPECT_TRUE(Results().isVisible());
  EXPECT_FALSE(Sheet().isVisible());
  EXPECT_TRUE(Results().hasFocus());
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text(), "Results. Drag over rows to see their acres");
  EXPECT_EQ(window_->windowTitle(), "TORVALE   Planned Design");
  EXPECT_EQ(Find<QLabel>("lblActiveInactive").text(), "Active Design");
  // The march meets the flow within 0.0005 of it: 400 to the whole gallon.
  EXPECT_EQ(Find<QLabel>("frmDisplayLbl(13)").text(), "400");
  EXPECT_EQ(Find<QLabel>("lblEffic").text().toStdString(), main().lblEffic.caption);
  // Holes stand 6 feet apart from station 0 on.
  EXPECT_EQ(Cell(1, 0), "0");
  EXPECT_EQ(Cell(2, 0), "6");
  EXPECT_EQ(Cell(2, 2), "2");
  EXPECT_TRUE(Find<QLabel>("lblSumStation").text().startsWith("Stations\n0 - "));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);

  Press("cmdDesignToggle");
  EXPECT_EQ(Find<QPushButton>("cmdDesignToggle").text(), "Summary");
  EXPECT_EQ(main().cmdDesignToggle.caption, "Summary");
  Choose("mnuWindowInfo");
  EXPECT_TRUE(Sheet().isVisible());
  EXPECT_FALSE(Results().isVisible());
  EXPECT_TRUE(Sheet().hasFocus());
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text().toStdString(), FocusHint(*program_, "Grid1"));
  EXPECT_EQ(Find<QLabel>("lblActiveInactive").text(), "Inactive Design");
}

TEST_F(DesignTest, ThePanelOfHoleSizesTellsWhatToDoInIt) {
  TypeShortDesign();
  Key(Sheet(), Qt::Key_F8, 1, Qt::ShiftModifier);
  ASSERT_TRUE(Find<QWidget>("frameHoleSelection").isVisible());
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text(),
            "Hole sizes that can be had. Double-click one to add it to the selected holes");
}

TEST_F(DesignTest, WhatIsMissingIsToldInABox) {
  Info(3).setFocus();
  AnswerNextBox(QMessageBox::Ok);
  Choose("mnuDesignField");
  EXPECT_EQ(box_text_, "Some Information Data is missing(i.e. GPM, Target Head)");
  EXPECT_EQ(box_title_, "Missing Data");
  EXPECT_TRUE(Sheet().isVisible());
  EXPECT_FALSE(Find<QPushButton>("cmdCancel").isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesignTest, AQuestionIsAnsweredNo) {
  TypeShortDesign();
  main().Grid1.Set(3, 0, "300");
  main().Grid1.Set(3, 1, "10");
  main().Grid1.Set(3, 2, "600");
  main().Grid1.Set(3, 4, "15");
  main().Grid1.Set(3, 5, "1/2");
  AnswerNextBox(QMessageBox::No);
  Choose("mnuDesignField");
  EXPECT_NE(box_text_.find("is this ok?"), std::string::npos) << box_text_;
  EXPECT_EQ(box_title_, "TORVALE");
  EXPECT_EQ(record().MissingData, -1);
  EXPECT_TRUE(Sheet().isVisible());
}

TEST_F(DesignTest, ALongTableScrollsToItsEnd) {
  TypeLongDesign();
  Choose("mnuDesignField");
  ASSERT_TRUE(Results().isVisible());
  // 5,284 rows, one of them the headings.
  EXPECT_EQ(Results().model()->rowCount(), 5283);
  Key(Results(), Qt::Key_End, 1, Qt::ControlModifier);
  EXPECT_GT(main().Grid2.row, 5270);
  EXPECT_NEAR(std::stod(Cell(main().Grid2.row, 0)), 5280, 1);
  EXPECT_TRUE(Results().viewport()->rect().contains(PointOf(Results(), main().Grid2.row, 0)));
  EXPECT_GT(main().Grid2.top_row, 5200);
  Results().verticalScrollBar()->setValue(99);
  EXPECT_EQ(main().Grid2.top_row, 100);
}

TEST_F(DesignTest, SelectedRowsTellTheirAcres) {
  TypeShortDesign();
  Choose("mnuDesignField");
  QWidget& cells = *Results().viewport();
  QTest::mouseClick(&cells, Qt::LeftButton, {}, PointOf(Results(), 2, 0));
  QTest::mouseClick(&cells, Qt::LeftButton, Qt::ShiftModifier, PointOf(Results(), 12, 0));
  EXPECT_EQ(main().Grid2.row, 2);
  EXPECT_EQ(main().Grid2.row_sel, 12);
  EXPECT_NE(main().lblAcresTotal.caption.find("Acres Selected"), std::string::npos);
  EXPECT_EQ(Find<QLabel>("lblAcresTotal").text().toStdString().substr(0, 14), "Total Acres = ");
}

// With rigid pipe the pressed button shows which layflat hole a gate stands for; letting go takes it away.
TEST_F(DesignTest, TheGateUnderThePointerIsExplained) {
  TypeShortDesign();
  Choose("mnuRigidPipe");
  Choose("mnuDesignField");
  QWidget& cells = *Results().viewport();
  QTest::mousePress(&cells, Qt::LeftButton, {}, PointOf(Results(), 3, 1));
  EXPECT_TRUE(Find<QWidget>("frameHoleEquiv").isVisible());
  EXPECT_TRUE(Find<QLabel>("lblHoleEquiv").text().endsWith("in. Diameter Layflat hole"));
  QTest::mouseRelease(&cells, Qt::LeftButton, {}, PointOf(Results(), 3, 1));
  EXPECT_FALSE(Find<QWidget>("frameHoleEquiv").isVisible());
}

TEST_F(DesignTest, ARunIsCancelledByTheButton) {
  TypeLongDesign();
  bool pressed = false;
  QTimer::singleShot(0, window_.get(), [&] {
    auto& cancel = Find<QPushButton>("cmdCancel");
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    pressed = cancel.isVisible() && cancel.isEnabled();
    QTest::mouseClick(&cancel, Qt::LeftButton);
  });
  Choose("mnuDesignField");
  EXPECT_TRUE(pressed) << "no event was let run during the calculation";
  EXPECT_TRUE(record().CancelFlag);
  EXPECT_EQ(record().DesignOK, "False");
  EXPECT_TRUE(Sheet().isVisible());
  EXPECT_FALSE(Results().isVisible());
  EXPECT_FALSE(Find<QPushButton>("cmdCancel").isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesignTest, EscapeCancelsTooAndOnlyDuringARun) {
  TypeLongDesign();
  Key(Sheet(), Qt::Key_Escape);
  EXPECT_FALSE(record().CancelFlag);
  QTimer::singleShot(0, window_.get(), [&] { Key(Sheet(), Qt::Key_Escape); });
  Choose("mnuDesignField");
  EXPECT_TRUE(record().CancelFlag);
  EXPECT_FALSE(Results().isVisible());
}

// The window closes in the middle of a calculation: the calculation unwinds first, then the program ends.
TEST_F(DesignTest, ClosingDuringARunEndsTheProgram) {
  TypeLongDesign();
  bool closed_inside = false;
  bool unwound = false;
  QTimer::singleShot(0, window_.get(), [&] {
    QTimer::singleShot(0, window_.get(), [&] { closed_inside = window_->close(); });
    Choose("mnuDesignField");
    unwound = true;
    EXPECT_TRUE(closed_inside);
  });
  QTimer watchdog;
  QObject::connect(&watchdog, &QTimer::timeout, [] { QApplication::exit(1); });
  watchdog.start(20000);
  EXPECT_EQ(QApplication::exec(), 0) << "the program did not end";
  EXPECT_TRUE(unwound);
  EXPECT_TRUE(main().closed);
  EXPECT_TRUE(record().CancelFlag);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace torvale
