#include "qt/control_widgets.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>

#include "qt/grid_view.h"
#include "qt/scale.h"

namespace torvale {
namespace {

constexpr int kTextMargin = 4;  // pixels ahead of a text that stands at a side

QWidget* MakeLabel(const NamedControl& named, QWidget* parent) {
  const TextLook& look = named.facts->look;
  auto* label = new QLabel(parent);
  const int margin = look.place == TextPlace::kLeft ? kTextMargin : 0;
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(AlignmentOf(look.place));
  label->setContentsMargins(margin, 0, margin, 0);
  if (look.framed) label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  QFont font = label->font();
  font.setBold(look.bold);
  label->setFont(font);
  return label;
}

// A frame's content stands on a widget of its own that may be longer than the frame.
ControlWidget MakeFrame(const Control& control, QWidget* parent) {
  auto* frame = new QScrollArea(parent);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  frame->setFocusPolicy(Qt::NoFocus);
  frame->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frame->setAutoFillBackground(true);
  auto* inside = new QWidget;
  inside->setAutoFillBackground(true);
  frame->setWidget(inside);
  if (control.caption.empty()) return {frame, inside};
  auto* title = new QLabel(inside);
  title->setObjectName("title");
  title->setAttribute(Qt::WA_TransparentForMouseEvents);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  return {frame, inside, title};
}

QWidget* MakeList(const ListBox& list, QWidget* parent) {
  if (list.drop_down) return new QComboBox(parent);
  auto* lines = new QListWidget(parent);
  lines->setSelectionMode(list.multiple ? QListWidget::ExtendedSelection : QListWidget::SingleSelection);
  return lines;
}

}  // namespace

int LettersOf(const TextLook& look) {
  return look.pixels > 0 ? look.pixels : kTextPixels;
}

Qt::Alignment AlignmentOf(TextPlace place) {
  switch (place) {
    case TextPlace::kRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    case TextPlace::kCentre:
      return Qt::AlignCenter;
    case TextPlace::kTop:
      return Qt::AlignHCenter | Qt::AlignTop;
    case TextPlace::kFoot:
      return Qt::AlignHCenter | Qt::AlignBottom;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

ControlWidget MakeWidget(const NamedControl& named, QWidget* parent) {
  switch (named.kind) {
    case ControlKind::kButton:
      return {new QPushButton(parent)};
    case ControlKind::kFrame:
      return MakeFrame(*named.control, parent);
    case ControlKind::kField:
      return {new QLineEdit(parent)};
    case ControlKind::kList:
      return {MakeList(*named.list, parent)};
    case ControlKind::kGrid:
      return {new GridView(std::string(named.name), *named.grid, parent)};
    default:
      return {MakeLabel(named, parent)};
  }
}

}  // namespace torvale
