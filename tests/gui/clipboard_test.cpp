// Cut, copy and paste with the toolkit's own keys, menus and clipboard.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>

#include "gui/window_test.h"

namespace torvale {
namespace {

class ClipboardTest : public WindowTest {
 protected:
  std::string Shown(int row, int column) {
    return Sheet().model()->index(row - 1, column).data().toString().toStdString();
  }
  static void Ctrl(QWidget& widget, Qt::Key key) { QTest::keyClick(&widget, key, Qt::ControlModifier); }
  static void Put(const char* text) { QApplication::clipboard()->setText(QString::fromUtf8(text)); }
  static std::string Held() { return QApplication::clipboard()->text().toStdString(); }
  void PointAt(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, modifiers, PointOf(Sheet(), row, column));
  }
  void TypeCell(int row, int column, const char* text) {
    PointAt(row, column);
    Type(Sheet(), text);
  }
  // Opens a menu of the bar with the mouse and clicks one of its entries.
  void ClickMenu(const char* menu, const char* entry) {
    QMenuBar& bar = *window_->menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(&Find<QAction>(menu)).center());
    auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(open, nullptr);
    QTest::mouseClick(open, Qt::LeftButton, {}, open->actionGeometry(&Find<QAction>(entry)).center());
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
  }
};

// The sheet

TEST_F(ClipboardTest, CellsAreCopiedAndPastedDownByKey) {
  TypeCell(5, 2, "600");
  TypeCell(5, 3, "6");
  PointAt(5, 2);
  PointAt(5, 3, Qt::ShiftModifier);
  Ctrl(Sheet(), Qt::Key_C);
  PointAt(6, 2);
  PointAt(9, 3, Qt::ShiftModifier);
  Ctrl(Sheet(), Qt::Key_V);
  for (int row = 5; row <= 9; ++row) {
    EXPECT_EQ(Shown(row, 2), "600") << row;
    EXPECT_EQ(Shown(row, 3), "6.00") << row;
  }
  EXPECT_EQ(main().Grid1.row, 5);
  EXPECT_EQ(main().Grid1.column, 2);
  EXPECT_TRUE(Sheet().hasFocus());
}

TEST_F(ClipboardTest, CutAndDeleteEmptyCells) {
  TypeCell(5, 2, "600");
  Ctrl(Sheet(), Qt::Key_X);
  EXPECT_EQ(Shown(5, 2), "");
  Ctrl(Sheet(), Qt::Key_V);
  EXPECT_EQ(Shown(5, 2), "600");
  Key(Sheet(), Qt::Key_Delete);
  EXPECT_EQ(Shown(5, 2), "");
  EXPECT_EQ(record().GridClipboard.Text(5, 2), "600");
  EXPECT_EQ(record().PasteRows, 1);
}

// The keys that Windows had before the letters, and that hands still know.
TEST_F(ClipboardTest, InsertAndDeleteCopyPasteAndCutAsWell) {
  TypeCell(5, 2, "600");
  Ctrl(Sheet(), Qt::Key_Insert);
  EXPECT_EQ(Shown(5, 2), "600");
  PointAt(7, 2);
  QTest::keyClick(&Sheet(), Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(Shown(7, 2), "600");
  PointAt(5, 2);
  QTest::keyClick(&Sheet(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(Shown(5, 2), "");
  PointAt(9, 2);
  QTest::keyClick(&Sheet(), Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(Shown(9, 2), "600");
}

TEST_F(ClipboardTest, OneKeyIsOneCommand) {
  TypeCell(5, 2, "600");
  Ctrl(Sheet(), Qt::Key_X);
  // A second cut of the cell, empty now, would have taken the text out of the clipboard again.
  EXPECT_EQ(record().GridClipboard.Text(5, 2), "600");
}

TEST_F(ClipboardTest, TheMenuWorksOnTheSheet) {
  TypeCell(5, 2, "600");
  ClickMenu("mnuEdit", "mnuEditCut");
  EXPECT_EQ(Shown(5, 2), "");
  PointAt(7, 2);
  ClickMenu("mnuEdit", "mnuEditPaste");
  EXPECT_EQ(Shown(7, 2), "600");
  EXPECT_EQ(main().focus, "Grid1");
  EXPECT_TRUE(Sheet().hasFocus());
}

TEST_F(ClipboardTest, TheMenuTellsTheKeys) {
  EXPECT_EQ(Find<QAction>("mnuEditCut").text(), "Cu&t\tCtrl+X");
  EXPECT_EQ(Find<QAction>("mnuEditCopy").text(), "&Copy\tCtrl+C");
  EXPECT_EQ(Find<QAction>("mnuEditPaste").text(), "&Paste\tCtrl+V");
}

// Fields

TEST_F(ClipboardTest, AFieldIsCutAndPastedByKey) {
  Info(0).setFocus();
  Type(Info(0), "North field");
  Key(Info(0), Qt::Key_Left, 6, Qt::ShiftModifier);
  EXPECT_EQ(main().txtInfo[0].SelectedText(), " field");
  Ctrl(Info(0), Qt::Key_X);
  EXPECT_EQ(Held(), " field");
  EXPECT_EQ(Info(0).text(), "North");
  EXPECT_EQ(main().txtInfo[0].text(), "North");
  Key(Info(0), Qt::Key_Home);
  Ctrl(Info(0), Qt::Key_V);
  EXPECT_EQ(Info(0).text(), " fieldNorth");
  EXPECT_EQ(main().txtInfo[0].text(), " fieldNorth");
  EXPECT_EQ(Info(0).cursorPosition(), 6);
  Type(Info(0), " ");
  EXPECT_EQ(main().txtInfo[0].text(), " field North");
}

TEST_F(ClipboardTest, AFieldIsCopiedByKeyAsByTheMenu) {
  Info(0).setFocus();
  Type(Info(0), "North field");
  Ctrl(Info(0), Qt::Key_A);
  record().GridClipboard.Set(5, 2, "x");
  Ctrl(Info(0), Qt::Key_C);
  EXPECT_EQ(Held(), "North field");
  EXPECT_EQ(record().GridClipboard.Text(5, 2), "");
  EXPECT_EQ(Info(0).selectedText(), "North field");
}

TEST_F(ClipboardTest, TheMenuWorksOnTheFieldThatHasTheFocus) {
  Info(0).setFocus();
  Type(Info(0), "North field");
  Info(0).setSelection(0, 6);
  Put("South ");
  ClickMenu("mnuEdit", "mnuEditPaste");
  EXPECT_EQ(main().txtInfo[0].text(), "South field");
  EXPECT_EQ(Info(0).text(), "South field");
  EXPECT_EQ(main().focus, "txtInfo(0)");
  EXPECT_TRUE(Info(0).hasFocus());
  Info(0).setSelection(5, 6);
  ClickMenu("mnuEdit", "mnuEditCopy");
  EXPECT_EQ(Held(), " field");
  EXPECT_EQ(Info(0).selectedText(), " field");
  ClickMenu("mnuEdit", "mnuEditCut");
  EXPECT_EQ(main().txtInfo[0].text(), "South");
}

// A menu that is opened by its key takes the focus from the field, which then shows no selection of its own accord.
TEST_F(ClipboardTest, TheMenuByKeyboardWorksOnTheSelectedText) {
  Info(0).setFocus();
  Type(Info(0), "North field");
  Info(0).setSelection(0, 6);
  QTest::keyClick(&Info(0), Qt::Key_E, Qt::AltModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_T);
  EXPECT_EQ(Held(), "North ");
  EXPECT_EQ(main().txtInfo[0].text(), "field");
  EXPECT_EQ(main().focus, "txtInfo(0)");
  EXPECT_TRUE(Info(0).hasFocus());
}

TEST_F(ClipboardTest, PastedQuotesAreClosingQuotationMarks) {
  const std::string expected = "The \xE2\x80\x9Dlong\xE2\x80\x9D field";
  Put("The \"long\" field\n");
  Info(0).setFocus();
  Ctrl(Info(0), Qt::Key_V);
  EXPECT_EQ(main().txtInfo[0].text(), expected);
  EXPECT_EQ(Info(0).text().toStdString(), expected);
  Info(4).setFocus();
  QTest::keyClick(&Info(4), Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(main().txtInfo[4].text(), expected);
}

TEST_F(ClipboardTest, APastedFlowReachesTheRecordAndIsHeldToTheLongestText) {
  Info(2).setFocus();
  Type(Info(2), "1");
  Ctrl(Info(2), Qt::Key_A);
  Put("850\r\n");
  Ctrl(Info(2), Qt::Key_V);
  EXPECT_EQ(record().TargetGPM, 850.0F);
  Put("123456789012345");
  Ctrl(Info(2), Qt::Key_V);
  EXPECT_EQ(main().txtInfo[2].text(), "8501234567");
  EXPECT_EQ(Info(2).text(), "8501234567");
}

TEST_F(ClipboardTest, APasteIntoAFieldCanBeTakenBack) {
  Info(0).setFocus();
  Type(Info(0), "North");
  Put(" field");
  Ctrl(Info(0), Qt::Key_V);
  ASSERT_EQ(main().txtInfo[0].text(), "North field");
  for (int i = 0; i < 3 && main().txtInfo[0].text() != "North"; ++i) Ctrl(Info(0), Qt::Key_Z);
  EXPECT_EQ(main().txtInfo[0].text(), "North");
  EXPECT_EQ(Info(0).text(), "North");
}

TEST_F(ClipboardTest, PositionsAreCountedInCharactersOutsideTheBasicPlaneToo) {
  main().txtInfo[0].Set("a\xF0\x9F\x98\x80z");
  window_->Sync();
  Info(0).setFocus();
  Info(0).setSelection(1, 2);  // one character, two units of the toolkit
  EXPECT_EQ(main().txtInfo[0].selection(), (TextSelection{1, 1}));
  Ctrl(Info(0), Qt::Key_X);
  EXPECT_EQ(main().txtInfo[0].text(), "az");
  EXPECT_EQ(Info(0).cursorPosition(), 1);
}

TEST_F(ClipboardTest, OnlyTheFieldWithTheFocusShowsASelection) {
  Sheet().setFocus();
  main().txtInfo[0].Set("North");
  main().txtInfo[1].Set("today");
  window_->Sync();
  Info(0).setFocus();
  EXPECT_EQ(Info(0).selectedText(), "North");
  Key(Info(0), Qt::Key_Return);
  EXPECT_EQ(Info(1).selectedText(), "today");
  EXPECT_EQ(Info(0).selectedText(), "");
  EXPECT_EQ(main().txtInfo[0].SelectedText(), "");
  Sheet().setFocus();
  EXPECT_EQ(Info(1).selectedText(), "");
}

TEST_F(ClipboardTest, AFieldsOwnMenuDoesWhatTheEditMenuDoes) {
  Info(0).setFocus();
  Type(Info(0), "North");
  Put("\"x\"\n");
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2), Info(0).mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&Info(0), &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&Find<QAction>("mnuEditPaste")).center());
  EXPECT_EQ(main().txtInfo[0].text(), "North\xE2\x80\x9Dx\xE2\x80\x9D");
}

// The survey of a spreadsheet

TEST_F(ClipboardTest, ASpreadsheetsSurveyIsPastedFromTheMenuBar) {
  Put("0\t5.10\n100\t5.25\n200\t5.40\n");
  QMenuBar& bar = *window_->menuBar();
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(&Find<QAction>("mnuSurveyCopy")).center());
  EXPECT_EQ(Shown(1, 0), "0");
  EXPECT_EQ(Shown(3, 0), "200");
  EXPECT_EQ(Shown(3, 1), "5.40");
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text(), "3 rows pasted");
}

TEST_F(ClipboardTest, AnEmptyClipboardIsToldInABox) {
  QApplication::clipboard()->clear();
  AnswerNextBox(QMessageBox::Ok);
  Choose("mnuSurveyCopy");
  EXPECT_EQ(box_text_, "No data in clipboard");
  EXPECT_EQ(box_title_, "TORVALE");
}

// Results

TEST_F(ClipboardTest, ResultsAreCopiedForASpreadsheet) {
  TypeFields("Short", "400", "2");
  TypeLevelLine("300", "6", "++++++++++");
  Key(Sheet(), Qt::Key_F5);
  ASSERT_TRUE(Results().hasFocus());
  Key(Results(), Qt::Key_Home, 1, Qt::ControlModifier);
  Key(Results(), Qt::Key_Down, 1, Qt::ShiftModifier);
  // Holes stand 6 feet apart from station 0 on.
  Ctrl(Results(), Qt::Key_C);
  EXPECT_EQ(Held(), "0\r\n6\r\n");
  Ctrl(Results(), Qt::Key_X);
  Ctrl(Results(), Qt::Key_V);
  EXPECT_EQ(Held(), "0\r\n6\r\n");
  EXPECT_EQ(main().Grid1.Text(2, 0), "300");
}

// The soils editor

TEST_F(ClipboardTest, ABlockGoesFromTheEditorOfSoilsToTheSheet) {
  Choose("mnuSoils_and_Furrow");
  auto& soils = Find<QTableView>("Grd_Soils_FurrowFlow");
  ASSERT_TRUE(QTest::qWaitForWindowActive(soils.window()));
  const std::string flow = program_->soils.Grd_Soils_FurrowFlow.Text(1, 1);
  ASSERT_FALSE(flow.empty());
  QTest::mouseClick(soils.viewport(), Qt::LeftButton, {}, soils.visualRect(soils.model()->index(0, 1)).center());
  Ctrl(soils, Qt::Key_C);
  Choose("MnuExit");
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  PointAt(4, 2);
  Ctrl(Sheet(), Qt::Key_V);
  EXPECT_EQ(Shown(4, 2), flow);
}

TEST_F(ClipboardTest, TheEditorOfSoilsHasAnEditMenu) {
  Choose("mnuSoils_and_Furrow");
  auto& soils = Find<QTableView>("Grd_Soils_FurrowFlow");
  QTest::mouseClick(soils.viewport(), Qt::LeftButton, {}, soils.visualRect(soils.model()->index(0, 0)).center());
  const std::string name = program_->soils.Grd_Soils_FurrowFlow.Text(1, 0);
  EXPECT_EQ(Find<QAction>("mnuCut").text(), "Cu&t\tCtrl+X");
  Choose("mnuCut");
  EXPECT_EQ(program_->soils.Grd_Soils_FurrowFlow.Text(1, 0), "");
  Choose("mnuPaste");
  EXPECT_EQ(program_->soils.Grd_Soils_FurrowFlow.Text(1, 0), name);
}

}  // namespace
}  // namespace torvale
