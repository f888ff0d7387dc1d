#include "qt/user_events.h"

#include <QShortcut>

#include "qt/field_view.h"
#include "shell/events.h"
#include "shell/help.h"

namespace torvale {

GridEvents KeysAndClicks(Program& program, const std::string& name, const WindowRun& run) {
  GridEvents events;
  events.key = [&program, name, run](const KeyStroke& stroke) { run([&] { GridKey(program, name, stroke); }); };
  events.point = [&program, name, run](int row, int column, bool extend) {
    run([&] { GridPoint(program, name, row, column, extend); });
  };
  return events;
}

void ConnectField(QLineEdit& edit, Program& program, const std::string& name, const bool& syncing,
                  const WindowRun& run) {
  const auto select = [&edit, &program, name, &syncing] {
    // A field that loses the focus to a menu drops its selection, which the menu is about to work on.
    if (!syncing && edit.hasFocus()) SelectText(program, name, SelectionOf(edit));
  };
  QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&program, name, &syncing, run, select](const QString& text) {
    if (syncing) return;
    run([&] {
      TypeText(program, name, text.toStdString());
      select();
    });
  });
  QObject::connect(&edit, &QLineEdit::selectionChanged, &edit, select);
  QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, select);
}

void HelpOnF1(QWidget& window, Program& program, const std::string& control, const WindowRun& run) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  QObject::connect(key, &QShortcut::activated, &window,
                   [&program, control, run] { run([&] { OpenHelp(program, HelpPlaceFor(program, control)); }); });
}

}  // namespace torvale
