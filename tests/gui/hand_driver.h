// Statements of a script, done through the widgets of the real windows as a user's hand would.
#pragma once

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "qt/grid_view.h"
#include "qt/main_window.h"
#include "script/quoting.h"
#include "script/statements.h"

namespace torvale {

class HandDriver {
 public:
  explicit HandDriver(std::ostream& transcript) : session(transcript), window_(session.program) {
    session.host.on_click = [this](const std::string& name) {
      window_.Sync();  // a desktop draws at a yield before it lets the user at the window
      if (!ClickByHand(name)) ClickControl(session, name);
    };
    window_.Open();
    by_hand_ = QTest::qWaitForWindowActive(&window_);
  }

  bool Ready() const { return by_hand_; }

  // Runs a statement: through widgets where a hand can do it, else as a script does it, with the window following. What
  // a user can't reach the script refuses.
  void Run(const std::string& line, ScriptLines& lines) {
    const std::vector<Token> tokens = Tokens(line);
    if (tokens.empty()) return;
    if (ByHand(tokens)) {
      ++done_by_hand;
    } else {
      if (NeedsHand(tokens)) missed += line + "\n";
      RunStatement(session, line, lines);
    }
    SettleComparison();
    window_.Sync();
  }

  Session session;
  int done_by_hand = 0;
  std::string missed;  // statements that a hand should have done and didn't

 private:
  // The window waits for the designs side by side, a script does not.
  void SettleComparison() {
    if (!session.program.desk.frmComparison.visible) return;
    session.program.desk.compared_inputs = 0;
    session.comparison.Settle();
  }

  // Whether it is an event at a control that the user can reach and a widget shows. The mouse over the results goes by
  // twips, which only the program itself can be given exactly.
  bool NeedsHand(const std::vector<Token>& tokens) {
    constexpr std::array<std::string_view, 7> kEvents = {"click",  "type",        "key",  "at",
                                                         "choose", "doubleclick", "focus"};
    if (std::find(kEvents.begin(), kEvents.end(), tokens[0].text) == kEvents.end()) return false;
    const std::string& name = tokens[1].text;
    return ReachOf(session.program, name) == Reach::kUsable &&
           window_.findChild<QObject*>(QString::fromStdString(name)) != nullptr;
  }

  bool ByHand(const std::vector<Token>& tokens) {
    const std::string& word = tokens[0].text;
    if (tokens.size() < 2) return false;
    const std::string& name = tokens[1].text;
    if (word == "click") return ClickByHand(name);
    auto* widget = window_.findChild<QWidget*>(QString::fromStdString(name));
    if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) return false;
    if (word == "type") return TypeByHand(*widget, tokens[2].text);
    if (word == "key") return KeysByHand(*widget, tokens);
    if (word == "at") return PointByHand(*widget, tokens);
    if (word == "choose") return ChooseByHand(*widget, tokens);
    if (word == "doubleclick") return DoubleClickByHand(*widget, tokens[2]);
    if (word == "focus") {
      if (widget->focusPolicy() == Qt::NoFocus) return false;
      widget->setFocus(Qt::TabFocusReason);
      return true;
    }
    return false;
  }

  bool ClickByHand(const std::string& name) {
    if (auto* action = window_.findChild<QAction*>(QString::fromStdString(name))) {
      OpenMenusOf(*action);
      if (!action->isVisible() || !action->isEnabled()) return false;
      action->trigger();
      return true;
    }
    auto* button = window_.findChild<QPushButton*>(QString::fromStdString(name));
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) return false;
    button->click();
    return true;
  }

  // The menus that the entry stands in drop down, from the entry outwards.
  static void OpenMenusOf(const QAction& action) {
    for (QObject* object : action.associatedObjects()) {
      auto* menu = qobject_cast<QMenu*>(object);
      if (menu == nullptr) continue;
      emit menu->aboutToShow();
      OpenMenusOf(*menu->menuAction());
    }
  }

  static bool TypeByHand(QWidget& widget, const std::string& text) {
    auto* edit = qobject_cast<QLineEdit*>(&widget);
    if (edit == nullptr) return false;
    edit->selectAll();
    edit->insert(QString::fromStdString(text));
    return true;
  }

  static bool KeysByHand(QWidget& widget, const std::vector<Token>& tokens) {
    widget.setFocus();
    for (std::size_t i = 2; i < tokens.size(); ++i) {
      const QString keys = QString::fromStdString(tokens[i].text);
      if (tokens[i].quoted) {
        QTest::keyClicks(&widget, keys);
      } else {
        const QKeySequence sequence(keys == "Enter" ? QString("Return") : keys);
        QTest::keyClick(&widget, sequence[0].key(), sequence[0].keyboardModifiers());
      }
    }
    return true;
  }

  static bool PointByHand(QWidget& widget, const std::vector<Token>& tokens) {
    auto* grid = qobject_cast<QTableView*>(&widget);
    if (grid == nullptr) return false;
    if (widget.objectName() == "Comparison" && tokens[2].text == "0") {
      emit grid->horizontalHeader()->sectionClicked(WholeNumber(tokens[3].text));
      return true;
    }
    for (std::size_t i = 2; i + 1 < tokens.size(); i += 2) {
      const QModelIndex cell = grid->model()->index(WholeNumber(tokens[i].text) - 1, WholeNumber(tokens[i + 1].text));
      if (!cell.isValid()) return false;  // a heading
      grid->scrollTo(cell);
      QTest::mouseClick(grid->viewport(), Qt::LeftButton, i == 2 ? Qt::NoModifier : Qt::ShiftModifier,
                        grid->visualRect(cell).center());
    }
    return true;
  }

  static int LineOf(const QListWidget& list, const Token& line) {
    if (!line.quoted) return WholeNumber(line.text);
    const auto found = list.findItems(QString::fromStdString(line.text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found.isEmpty() ? -1 : list.row(found.front());
  }

  static bool ChooseByHand(QWidget& widget, const std::vector<Token>& tokens) {
    if (auto* box = qobject_cast<QComboBox*>(&widget)) {
      const QString text = QString::fromStdString(tokens[2].text);
      const int line = tokens[2].quoted ? box->findText(text, Qt::MatchExactly) : text.toInt();
      box->setCurrentIndex(line);
      emit box->activated(line);
      return true;
    }
    auto* list = qobject_cast<QListWidget*>(&widget);
    if (list == nullptr) return false;
    list->clearSelection();
    for (std::size_t i = 2; i < tokens.size(); ++i) list->item(LineOf(*list, tokens[i]))->setSelected(true);
    return true;
  }

  static bool DoubleClickByHand(QWidget& widget, const Token& line) {
    auto* list = qobject_cast<QListWidget*>(&widget);
    if (list == nullptr) return false;
    QListWidgetItem* item = list->item(LineOf(*list, line));
    if (item == nullptr) return false;
    list->clearSelection();
    item->setSelected(true);
    emit list->itemDoubleClicked(item);
    return true;
  }

  MainWindow window_;
  bool by_hand_ = false;
};

}  // namespace torvale
