
#include "gui/window_test.h"

namespace torvale {
namespace {

class SheetTest : public WindowTest {
 protected:
  std::string Shown(int row, int column) {
    return Sheet().model()->index(row - 1, column).data().toString().toStdString();
  }
};

TEST_F(SheetTest, KeysGoIntoTheCurrentCell) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down);
  Type(Sheet(), "150");
  EXPECT_EQ(main().Grid1.Text(2, 0), "150");
  EXPECT_EQ(Shown(2, 0), "150");
  Key(Sheet(), Qt::Key_Backspace);
  EXPECT_EQ(main().Grid1.Text(2, 0), "15");
  EXPECT_EQ(Shown(2, 0), "15");
}

TEST_F(SheetTest, LettersAreNotTaken) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down);
  Type(Sheet(), "1a/ 2");
  EXPECT_EQ(main().Grid1.Text(2, 0), "12");
}

// Stations begin at 0, and an empty one becomes the one above plus the 100 feet between stations.
TEST_F(SheetTest, EnterFillsAndMovesDown) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Return);
  EXPECT_EQ(main().Grid1.row, 2);
  Key(Sheet(), Qt::Key_Enter, 2);
  EXPECT_EQ(main().Grid1.row, 4);
  EXPECT_EQ(Shown(2, 0), "100");
  EXPECT_EQ(Shown(3, 0), "200");
}

TEST_F(SheetTest, PlusStepsTheHoleSizeAndStarGoesToTheNextColumn) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Right, 5);
  const std::string before = main().Grid1.Text(1, 5);
  Type(Sheet(), "+");
  EXPECT_NE(main().Grid1.Text(1, 5), before);
  EXPECT_EQ(Shown(1, 5), main().Grid1.Text(1, 5));
  Type(Sheet(), "*");
  EXPECT_EQ(main().Grid1.column, 6);
}

TEST_F(SheetTest, ArrowsMoveAndWithShiftSelect) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down, 3);
  Key(Sheet(), Qt::Key_Right, 2);
  Key(Sheet(), Qt::Key_Down, 2, Qt::ShiftModifier);
  Key(Sheet(), Qt::Key_Right, 1, Qt::ShiftModifier);
  EXPECT_EQ(main().Grid1.row, 4);
  EXPECT_EQ(main().Grid1.column, 2);
  EXPECT_EQ(main().Grid1.row_sel, 6);
  EXPECT_EQ(main().Grid1.column_sel, 3);
  EXPECT_EQ(Sheet().currentIndex(), Sheet().model()->index(3, 2));
}

TEST_F(SheetTest, MousePointsDragsAndExtends) {
  QWidget& cells = *Sheet().viewport();
  QTest::mouseClick(&cells, Qt::LeftButton, {}, PointOf(Sheet(), 3, 4));
  EXPECT_EQ(main().Grid1.row, 3);
  EXPECT_EQ(main().Grid1.column, 4);
  EXPECT_EQ(main().focus, "Grid1");
  QTest::mouseClick(&cells, Qt::LeftButton, Qt::ShiftModifier, PointOf(Sheet(), 6, 5));
  EXPECT_EQ(main().Grid1.row, 3);
  EXPECT_EQ(main().Grid1.row_sel, 6);
  EXPECT_EQ(main().Grid1.column_sel, 5);
  QTest::mousePress(&cells, Qt::LeftButton, {}, PointOf(Sheet(), 8, 1));
  QMouseEvent drag(QEvent::MouseMove, PointOf(Sheet(), 10, 2), cells.mapToGlobal(PointOf(Sheet(), 10, 2)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&cells, &drag);
  QTest::mouseRelease(&cells, Qt::LeftButton, {}, PointOf(Sheet(), 10, 2));
  EXPECT_EQ(main().Grid1.row, 8);
  EXPECT_EQ(main().Grid1.row_sel, 10);
  EXPECT_EQ(main().Grid1.column_sel, 2);
}

TEST_F(SheetTest, AStationPastTheLimitIsToldInABox) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down);
  Type(Sheet(), "528");
  AnswerNextBox(QMessageBox::Ok);
  Type(Sheet(), "1");
  EXPECT_EQ(box_text_, "Station length can not be greater than 5280 feet.");
  EXPECT_EQ(box_title_, "Station Length");
  EXPECT_EQ(Shown(2, 0), "");
}

TEST_F(SheetTest, TheCurrentCellStaysInView) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down, 100);
  EXPECT_EQ(main().Grid1.row, 101);
  EXPECT_TRUE(Sheet().viewport()->rect().contains(PointOf(Sheet(), 101, 0)));
  EXPECT_GT(main().Grid1.top_row, 1);
  EXPECT_LE(main().Grid1.top_row, 101);
  // Code scrolls by the structure.
  main().Grid1.top_row = 1;
  window_->Sync();
  EXPECT_TRUE(Sheet().viewport()->rect().contains(PointOf(Sheet(), 1, 0)));
}

TEST_F(SheetTest, TabLeadsIntoTheSheetAndCtrlTabOnToTheNextControl) {
  Info(5).setFocus();
  Key(Info(5), Qt::Key_Tab);
  EXPECT_EQ(main().focus, "Grid1");
  Key(Sheet(), Qt::Key_Tab, 1, Qt::ControlModifier);
  EXPECT_EQ(main().focus, "cmdInterpolate");
  EXPECT_EQ(main().Grid1.column, 0);
}

TEST_F(SheetTest, HeadingsFollowTheSurveyKind) {
  Info(5).setFocus();
  Info(5).selectAll();
  Type(Info(5), "r");
  EXPECT_EQ(Info(5).text(), "R");
  EXPECT_EQ(Sheet().model()->headerData(1, Qt::Horizontal).toString(), "Rod Reading (feet)");
}

TEST_F(SheetTest, StatusBarTellsWhatACellHolds) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Right, 2);
  const QLabel& status = Find<QLabel>("sbStatusBar");
  EXPECT_FALSE(status.text().isEmpty());
  EXPECT_EQ(status.text().toStdString(), main().sbStatusBar.caption);
}

}  // namespace
}  // namespace torvale
