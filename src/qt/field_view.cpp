#include "qt/field_view.h"

#include <QApplication>
#include <QTimer>

#include "qt/to_qt.h"

namespace torvale {
namespace {

int CharactersOf(QStringView text) {
  return static_cast<int>(text.toUcs4().size());
}

void Select(QLineEdit& edit, const TextSelection& selection) {
  const QString text = edit.text();
  const int start = UnitsOf(text, selection.start);
  const int end = UnitsOf(text, selection.start + selection.length);
  if (end > start) {
    edit.setSelection(start, end - start);
  } else {
    edit.setCursorPosition(start);
  }
}

// What the user was typing in can be taken back by the field's own undo.
void SetText(QLineEdit& edit, const QString& text) {
  if (!edit.hasFocus()) {
    edit.setText(text);
    return;
  }
  edit.selectAll();
  edit.insert(text);
}

}  // namespace

TextSelection SelectionOf(const QLineEdit& edit) {
  const QString text = edit.text();
  const QString selected = edit.selectedText();
  const int start = selected.isEmpty() ? edit.cursorPosition() : edit.selectionStart();
  return {CharactersOf(QStringView(text).left(start)), CharactersOf(selected)};
}

void DrawField(QLineEdit& edit, const TextField& field, DrawnText& drawn) {
  // Setting a limit takes a selection away, even the limit that stands.
  const int limit = field.max_length > 0 ? field.max_length : kLongestText;
  const bool limited = edit.maxLength() != limit;
  if (limited) edit.setMaxLength(limit);
  // A text that came out of a file may be longer than what can be typed.
  if (limited || drawn.text != field.text()) {
    drawn.text = field.text();
    drawn.shown = ToQt(field.text()).left(limit);
  }
  if (edit.text() != drawn.shown) SetText(edit, drawn.shown);
  const TextSelection selection = field.selection();
  if (SelectionOf(edit) == selection) return;
  Select(edit, selection);
  // A click that brought the focus goes on to place the caret, which takes the selection away again.
  if (selection.length == 0 || QApplication::mouseButtons() == Qt::NoButton) return;
  QTimer::singleShot(0, &edit, [&edit, selection] { Select(edit, selection); });
}

}  // namespace torvale
