// The program in its real window, driven by the toolkit's own key and mouse events.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "qt/grid_view.h"
#include "qt/main_window.h"
#include "qt/qt_host.h"
#include "shell/start_up.h"
#include "support/source_folder.h"

namespace torvale {

class WindowTest : public ::testing::Test {
 protected:
  // Settings and data go to folders of the test's own. There is no defaults file, so fields hold their start-up values.
  void SetUp() override {
    QFile::copy(QString(kSourceFolder) + "/data/SoilsName.txt", data_.filePath("SoilsName.txt"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QObject::connect(&unexpected_, &QTimer::timeout, [] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      ADD_FAILURE() << "a box that nobody expected: " << box->text().toStdString();
      box->buttons().back()->click();
    });
    unexpected_.start(1000);
    Start();
  }
  void TearDown() override { End(); }

  virtual std::unique_ptr<QtHost> MakeHost() { return std::make_unique<QtHost>(data_.path()); }

  void Start() {
    host_ = MakeHost();
    program_ = std::make_unique<Program>(*host_);
    StartProgram(*program_);
    window_ = std::make_unique<MainWindow>(*program_);
    host_->Attach(window_.get(), [this] { window_->Sync(); });
    window_->Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  void End() {
    window_.reset();
    program_.reset();
    host_.reset();
  }

  MainScreen& main() { return program_->main; }
  DesignRecord& record() { return program_->record; }

  template <typename Widget>
  Widget& Find(const char* name) {
    auto* widget = window_->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return *widget;
  }
  GridView& Sheet() { return *static_cast<GridView*>(&Find<QTableView>("Grid1")); }
  GridView& Results() { return *static_cast<GridView*>(&Find<QTableView>("Grid2")); }
  QLineEdit& Info(int index) { return Find<QLineEdit>(("txtInfo(" + std::to_string(index) + ")").c_str()); }

  void Choose(const char* menu_entry) { Find<QAction>(menu_entry).trigger(); }
  void Press(const char* button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  static void Type(QWidget& widget, const char* text) { QTest::keyClicks(&widget, text); }
  static void Key(QWidget& widget, Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (int i = 0; i < times; ++i) QTest::keyClick(&widget, key, modifiers);
  }

  // Where a cell of the grid, counted as the grid counts, stands in the table's viewport.
  static QPoint PointOf(const GridView& grid, int row, int column) {
    return grid.visualRect(grid.model()->index(row - 1, column)).center();
  }

  // Presses a button of the message box that is about to open, and keeps what it said.
  void AnswerNextBox(QMessageBox::StandardButton button) {
    QTimer::singleShot(0, qApp, [this, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      box_text_ = box->text().toStdString();
      box_title_ = box->windowTitle().toStdString();
      box->button(button)->click();
    });
  }

  // The fields of a design, typed with the keyboard alone: Enter leads from one to the next.
  void TypeFields(const char* name, const char* gpm, const char* head) {
    Info(0).setFocus();
    Type(Info(0), name);
    Key(Info(0), Qt::Key_Return, 1);
    Key(Info(1), Qt::Key_Return, 1);
    Type(Info(2), gpm);
    Key(Info(2), Qt::Key_Return, 1);
    // The focus selects the text, which typing replaces.
    Type(Info(3), head);
    Key(Info(3), Qt::Key_Return, 2);
  }

  // A level line of `length` feet with 600 feet furrows and holes `spacing` feet apart, every cell typed by hand. Each
  // "+" of `plus` steps the hole size on by 1/32 or 1/16 inch, from none.
  void TypeLevelLine(const char* length, const char* spacing, const char* plus) {
    Sheet().setFocus();
    const char* const first[] = {"", "10", "600", spacing, "15", plus, "1", "10", spacing};
    Key(Sheet(), Qt::Key_Home, 1, Qt::ControlModifier);
    for (const char* text : first) {
      if (*text != '\0') {
        Key(Sheet(), Qt::Key_Backspace, 7);
        Type(Sheet(), text);
      }
      Key(Sheet(), Qt::Key_Right);
    }
    Key(Sheet(), Qt::Key_Home);
    Key(Sheet(), Qt::Key_Down);
    Type(Sheet(), length);
    // Enter in an empty cell copies the one above.
    for (int column = 1; column < 9; ++column) {
      Key(Sheet(), Qt::Key_Right);
      Key(Sheet(), Qt::Key_Return);
      Key(Sheet(), Qt::Key_Up);
    }
  }

  QTimer unexpected_;
  QTemporaryDir settings_;
  QTemporaryDir data_;
  std::unique_ptr<QtHost> host_;
  std::unique_ptr<Program> program_;
  std::unique_ptr<MainWindow> window_;
  std::string box_text_;
  std::string box_title_;
};

}  // namespace torvale
