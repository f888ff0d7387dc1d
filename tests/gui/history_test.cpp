// Undo, what is brought back, and earlier versions, with real keys in real windows.
#include <QDir>
#include <QMenu>

#include "gui/window_test.h"
#include "shell/commands.h"

namespace torvale {
namespace {

class HistoryWindowTest : public WindowTest {
 protected:
  QAction& Undo() { return Find<QAction>("mnuEditUndo"); }
  QAction& Redo() { return Find<QAction>("mnuEditRedo"); }
  QString Status() { return Find<QLabel>("sbStatusBar").text(); }
  std::string Cell(int row, int column) { return main().Grid1.Text(row, column); }

  void TypeCell(int row, int column, const char* text) {
    Sheet().setFocus();
    QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {}, PointOf(Sheet(), row, column));
    Type(Sheet(), text);
  }
  void SaveAs(const QString& name) {
    record().SaveFileName = data_.filePath(name).toStdString();
    Choose("mnuFileSave");
  }
  QWidget& Versions() { return *Find<QTableView>("Grd_EarlierVersions").window(); }

  // With TORVALE_PICTURES naming a folder the picture is left there for a look.
  static void Picture(QWidget& widget, const char* name) {
    const QString folder = qEnvironmentVariable("TORVALE_PICTURES");
    if (folder.isEmpty()) return;
    EXPECT_TRUE(widget.grab().save(QDir(folder).filePath(name)));
  }
};

TEST_F(HistoryWindowTest, TheKeysWorkInTheSheet) {
  TypeCell(3, 2, "1250");
  EXPECT_EQ(Undo().text(), "&Undo typing in row 3, Furrow Length");
  QMenu& menu = *Find<QAction>("mnuEdit").menu();
  menu.popup(window_->mapToGlobal(QPoint(60, 30)));
  Picture(*window_, "undo-window.png");
  Picture(menu, "undo-menu.png");
  menu.close();
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Z, 1, Qt::ControlModifier);
  EXPECT_EQ(Cell(3, 2), "");
  EXPECT_EQ(Status(), "Undone: typing in row 3, Furrow Length");
  EXPECT_FALSE(Undo().isEnabled());
  Key(Sheet(), Qt::Key_Y, 1, Qt::ControlModifier);
  EXPECT_EQ(Cell(3, 2), "1250");
  Key(Sheet(), Qt::Key_Z, 1, Qt::ControlModifier);
  Key(Sheet(), Qt::Key_Z, 1, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Cell(3, 2), "1250");
  EXPECT_EQ(Sheet().model()->index(2, 2).data().toString(), "1250");
}

// The field's own undo stays out of it: a name is one step, however it was typed.
TEST_F(HistoryWindowTest, TheKeysWorkInAField) {
  Info(0).setFocus();
  Type(Info(0), "Dunn");
  Key(Info(0), Qt::Key_Backspace);
  Type(Info(0), "e");
  EXPECT_EQ(Info(0).text(), "Dune");
  Key(Info(0), Qt::Key_Z, 1, Qt::ControlModifier);
  EXPECT_EQ(Info(0).text(), "");
  Key(Info(0), Qt::Key_Z, 1, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Info(0).text(), "Dune");
  Key(Info(0), Qt::Key_Z, 1, Qt::ControlModifier);
  Key(Info(0), Qt::Key_Y, 1, Qt::ControlModifier);
  EXPECT_EQ(Info(0).text(), "Dune");
}

TEST_F(HistoryWindowTest, TheMenuOfAFieldHasTheSameUndo) {
  Info(4).setFocus();
  Type(Info(4), "South");
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(2, 2), Info(4).mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&Info(4), &asked);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_FALSE(menu->actions().isEmpty());
  EXPECT_EQ(menu->actions().front(), &Undo());
  menu->close();
}

// The program goes without a word; the next one offers the work on its screen and in its menu, in no box.
TEST_F(HistoryWindowTest, LastWorkIsOfferedAndBroughtBack) {
  TypeFields("Dunn", "850", "2");
  TypeCell(2, 0, "100");
  QTest::qWait(1300);  // the window's own clock: within a second all is on disk
  End();
  Start();
  auto& button = Find<QPushButton>("cmdBringBack");
  EXPECT_TRUE(button.isVisible());
  EXPECT_TRUE(Find<QAction>("mnuFileBringBack").isEnabled());
  EXPECT_TRUE(Status().startsWith("Work that was not saved can be brought back (File > Bring Back Last Work): Dunn, "))
      << Status().toStdString();
  Picture(*window_, "bring-back.png");
  button.setFocus();
  Key(button, Qt::Key_Space);
  EXPECT_EQ(Info(0).text(), "Dunn");
  EXPECT_EQ(Info(2).text(), "850");
  EXPECT_EQ(Cell(2, 0), "100");
  EXPECT_FALSE(button.isVisible());
  Picture(*window_, "brought-back.png");
}

TEST_F(HistoryWindowTest, EarlierVersionsByTheKeyboard) {
  Info(0).setFocus();
  Type(Info(0), "Dunn, east half");
  TypeCell(2, 0, "100");
  SaveAs("dunn.PFD");
  const std::string file = record().SaveFileName;
  Info(0).setFocus();
  Info(0).selectAll();
  Type(Info(0), "Smith");
  Choose("mnuFileSave");
  EXPECT_TRUE(Status().contains("Saved over another design, Dunn, east half.")) << Status().toStdString();
  Picture(*window_, "saved-over.png");
  Choose("mnuFileEarlier");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Versions()));
  auto& list = Find<QTableView>("Grd_EarlierVersions");
  EXPECT_EQ(list.model()->index(0, 2).data().toString(), "Dunn, east half");
  Picture(Versions(), "earlier-versions.png");
  Key(list, Qt::Key_Escape);
  EXPECT_FALSE(Versions().isVisible());
  Choose("mnuFileEarlier");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Versions()));
  Key(list, Qt::Key_Return);
  EXPECT_FALSE(Versions().isVisible());
  EXPECT_EQ(Info(0).text(), "Dunn, east half");
  EXPECT_NE(record().SaveFileName, file);
  Picture(*window_, "earlier-version-open.png");
}

}  // namespace
}  // namespace torvale
