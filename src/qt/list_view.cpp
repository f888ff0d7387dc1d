#include "qt/list_view.h"

#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>

#include "qt/to_qt.h"

namespace torvale {
namespace {

void DrawDropDown(QComboBox& box, const ListBox& list) {
  while (box.count() > list.count()) box.removeItem(box.count() - 1);
  for (int i = 0; i < list.count(); ++i) {
    if (i == box.count()) box.addItem(QString());
    box.setItemText(i, ToQt(list.Line(i)));
  }
  box.setCurrentIndex(list.Current());
}

void DrawListBox(QListWidget& lines, const ListBox& list) {
  while (lines.count() > list.count()) delete lines.takeItem(lines.count() - 1);
  for (int i = 0; i < list.count(); ++i) {
    if (i == lines.count()) lines.addItem(QString());
    lines.item(i)->setText(ToQt(list.Line(i)));
    lines.item(i)->setSelected(list.Selected(i));
  }
}

}  // namespace

void DrawLines(QWidget& widget, const ListBox& list) {
  const QSignalBlocker quiet(widget);
  if (list.drop_down) {
    DrawDropDown(static_cast<QComboBox&>(widget), list);
  } else {
    DrawListBox(static_cast<QListWidget&>(widget), list);
  }
}

}  // namespace torvale
