// What a reader of the screen is told, and what the keyboard reaches.
#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <set>

#include "display/grid_layout.h"
#include "gui/window_test.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

QString SpokenName(QObject& object) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&object);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

class AccessibilityTest : public WindowTest {
 protected:
  // A level line of 26 holes, shown.
  void Design() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("150", "6", "++++++++++");
    Key(Sheet(), Qt::Key_F5);
    ASSERT_TRUE(Results().isVisible());
  }
};

TEST_F(AccessibilityTest, WhateverCanHaveTheFocusHasAName) {
  Design();
  Choose("mnuProfile");
  Press("btnBack");
  Choose("mnuSoils_and_Furrow");
  int named = 0;
  for (QWidget* widget : window_->findChildren<QWidget*>()) {
    const bool inner = widget->objectName().startsWith("qt_") || qobject_cast<QMenu*>(widget) != nullptr;
    if (inner || widget->focusPolicy() == Qt::NoFocus) continue;
    // The list that drops out of a box belongs to it.
    if (widget->window()->windowType() == Qt::Popup) continue;
    ++named;
    EXPECT_FALSE(SpokenName(*widget).isEmpty())
        << widget->metaObject()->className() << " " << widget->objectName().toStdString();
  }
  EXPECT_GT(named, 30);
}

TEST_F(AccessibilityTest, FramesAreNamedAfterTheirCaption) {
  Choose("mnuPreference");
  EXPECT_EQ(SpokenName(Find<QWidget>("Frame1")), "Defaults");
}

TEST_F(AccessibilityTest, MenusSayTheirEntries) {
  int entries = 0;
  for (QMenu* menu : window_->findChildren<QMenu*>()) {
    for (QAction* action : menu->actions()) {
      if (action->isSeparator() || action->text().isEmpty()) continue;
      QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(menu);
      ASSERT_NE(spoken, nullptr);
      const int index = static_cast<int>(menu->actions().indexOf(action));
      QAccessibleInterface* entry = spoken->child(index);
      ASSERT_NE(entry, nullptr);
      EXPECT_EQ(entry->text(QAccessible::Name), QString(action->text()).remove('&')) << index;
      ++entries;
    }
  }
  EXPECT_GT(entries, 20);
}

TEST_F(AccessibilityTest, GridsAreTablesWithHeadings) {
  Design();
  for (GridView* grid : {&Sheet(), &Results()}) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(grid);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::Table);
    QAccessibleTableInterface* table = spoken->tableInterface();
    ASSERT_NE(table, nullptr);
    const Grid& cells = grid == &Sheet() ? main().Grid1 : main().Grid2;
    EXPECT_EQ(table->rowCount(), cells.rows() - 1);
    EXPECT_EQ(table->columnCount(), cells.column_count());
    for (int column = 0; column < 9; ++column) {
      EXPECT_EQ(table->columnDescription(column), ToQt(cells.Text(0, column)));
      QAccessibleInterface* cell = table->cellAt(1, column);
      ASSERT_NE(cell, nullptr);
      EXPECT_EQ(cell->text(QAccessible::Name), ToQt(cells.Text(2, column)));
      ASSERT_NE(cell->tableCellInterface(), nullptr);
      const auto headings = cell->tableCellInterface()->columnHeaderCells();
      ASSERT_EQ(headings.size(), 1);
      EXPECT_EQ(headings.front()->text(QAccessible::Name), ToQt(cells.Text(0, column)));
    }
  }
}

// Every colour of a result is told in words: in the tool tip for those who see it, and to readers of the screen.
TEST_F(AccessibilityTest, ColoursAreTold) {
  Design();
  for (const char* name : {"lblEffic", "lblActiveInactive", "frmDisplayLbl(1)", "frmDisplayLbl(5)"}) {
    auto& label = Find<QLabel>(name);
    const QString words = QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Description);
    EXPECT_TRUE(words.contains("Green:") || words.contains("Yellow:")) << name << words.toStdString();
    EXPECT_TRUE(label.toolTip().contains("Green:") || label.toolTip().contains("Yellow:")) << name;
  }
  int told = 0;
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&Results())->tableInterface();
  for (int row = 1; row <= record().HoleRows; ++row) {
    const auto colour = main().Grid2.Back(row, kResultFlowRatio);
    if (!colour) continue;
    ++told;
    const QString words = Results().model()->index(row - 1, kResultFlowRatio).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(words.contains("of the flow that the furrow needs")) << words.toStdString();
    EXPECT_EQ(table->cellAt(row - 1, kResultFlowRatio)->text(QAccessible::Description), words);
  }
  EXPECT_GT(told, 20);
  EXPECT_FALSE(Results().model()->index(0, kResultHead).data(Qt::ToolTipRole).isValid());
}

// A label takes the words of the colour that it has now.
TEST_F(AccessibilityTest, WordsFollowTheColour) {
  Design();
  auto& label = Find<QLabel>("frmDisplayLbl(5)");
  main().frmDisplayLbl[5].back = kYellow;
  window_->Sync();
  EXPECT_TRUE(label.toolTip().contains("Yellow: the lowest head is below half a foot."));
  main().frmDisplayLbl[5].back = kStrongGreen;
  window_->Sync();
  EXPECT_TRUE(label.toolTip().contains("Green: the lowest head is half a foot or more."));
  EXPECT_FALSE(label.toolTip().contains("Yellow:"));
}

// The names of what Tab goes through until it comes back to where it began, or a few more where it doesn't.
std::vector<std::string> TabRound(QWidget& window) {
  std::vector<std::string> round;
  for (int i = 0; i < 40; ++i) {
    QWidget* now = QApplication::focusWidget();
    if (now == nullptr) break;
    const std::string name = now->objectName().toStdString();
    if (!round.empty() && name == round.front()) return round;
    round.push_back(name);
    // In the survey sheet Tab itself goes from cell to cell.
    QTest::keyClick(now, Qt::Key_Tab, name == "Grid1" ? Qt::ControlModifier : Qt::NoModifier);
  }
  ADD_FAILURE() << "Tab does not come back in " << window.windowTitle().toStdString();
  return round;
}

TEST_F(AccessibilityTest, TabGoesThroughTheInputScreenAndBack) {
  Info(0).setFocus();
  EXPECT_EQ(TabRound(*window_),
            (std::vector<std::string>{"txtInfo(0)", "txtInfo(1)", "txtInfo(2)", "txtInfo(3)", "txtInfo(4)",
                                      "txtInfo(5)", "Grid1", "cmdInterpolate", "cmdOpenSample", "cmdWorkedExample",
                                      "cmdCloseFirstSteps", "listSoils"}));
}

TEST_F(AccessibilityTest, TabGoesThroughTheResultsAndBack) {
  Design();
  Info(0).setFocus();
  EXPECT_EQ(TabRound(*window_),
            (std::vector<std::string>{"txtInfo(0)", "txtInfo(1)", "txtInfo(2)", "txtInfo(3)", "txtInfo(4)",
                                      "txtInfo(5)", "Grid2", "cmdReCalc", "cmdDesignToggle", "listSoils"}));
}

// The names of what has the focus now and after each of so many Tabs.
std::vector<std::string> TabSteps(std::size_t count) {
  std::vector<std::string> names;
  for (;;) {
    QWidget* now = QApplication::focusWidget();
    names.push_back(now == nullptr ? "" : now->objectName().toStdString());
    if (now == nullptr || names.size() > count) return names;
    QTest::keyClick(now, Qt::Key_Tab);
  }
}

// A panel that opens takes the focus, and Tab leads through it.
TEST_F(AccessibilityTest, TabGoesThroughThePanels) {
  Choose("mnuPreference");
  std::vector<std::string> preferences;
  for (int i = 0; i < 16; ++i) preferences.push_back("txtDefault(" + std::to_string(i) + ")");
  preferences.emplace_back("btnDefaultExit");
  EXPECT_EQ(TabSteps(16), preferences);
  EXPECT_TRUE(Find<QWidget>("Frame1").isVisible());
  Press("btnDefaultExit");
  TypeFields("North Forty", "400", "2");
  Choose("mnuManHoleSelection");
  EXPECT_EQ(TabSteps(5), (std::vector<std::string>{"listAllHoles", "cmdADDtoSelected", "listHolesSelected",
                                                   "cmdremoveSelected", "Command1", "cmdExitHoleSelect"}));
  // Once entered, a panel doesn't call the focus back.
  Info(0).setFocus();
  window_->Sync();
  EXPECT_TRUE(Info(0).hasFocus());
}

// Whatever has the focus by the keyboard looks other than without it.
TEST_F(AccessibilityTest, TheFocusIsSeen) {
  Design();
  Info(0).setFocus();
  int seen = 0;
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QWidget* widget = QApplication::focusWidget();
    ASSERT_NE(widget, nullptr);
    const QImage with = widget->grab().toImage();
    QTest::keyClick(widget, Qt::Key_Tab);
    ASSERT_FALSE(widget->hasFocus());
    const QImage without = widget->grab().toImage();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    ASSERT_TRUE(widget->hasFocus());
    EXPECT_NE(with, without) << widget->objectName().toStdString();
    ++seen;
  }
  EXPECT_EQ(seen, 10);
}

// The menus that a letter opens.
TEST_F(AccessibilityTest, EachMenuOpensByItsLetter) {
  std::set<QMenu*> opened;
  for (QAction* action : window_->menuBar()->actions()) {
    if (!action->isVisible() || action->menu() == nullptr) continue;
    const qsizetype mark = action->text().indexOf('&');
    ASSERT_GE(mark, 0) << action->text().toStdString();
    // Two menus of one letter open in turn.
    for (int press = 0; press < 2; ++press) {
      QTest::keyClick(window_.get(), action->text().at(mark + 1).toLatin1(), Qt::AltModifier);
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu == nullptr) continue;
      opened.insert(menu);
      QTest::keyClick(menu, Qt::Key_Escape);
      menu->hide();
      window_->setFocus();
    }
  }
  for (QAction* action : window_->menuBar()->actions()) {
    if (!action->isVisible() || action->menu() == nullptr) continue;
    EXPECT_TRUE(opened.contains(action->menu())) << action->text().toStdString();
  }
}

}  // namespace
}  // namespace torvale
