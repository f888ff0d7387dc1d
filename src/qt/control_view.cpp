#include "qt/control_view.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <algorithm>

#include "display/colour_meanings.h"
#include "qt/fitted_text.h"
#include "qt/grid_view.h"
#include "qt/tips.h"

namespace torvale {
namespace {

constexpr int kTitleMargin = 120;  // twips ahead of a frame's caption
constexpr int kTitleHeight = 320;  // twips
constexpr int kDarkWindow = 128;   // of 255
constexpr int kShade = 135;        // percent of the window's lightness

constexpr int kTextMargin = 4;  // pixels ahead of a text that stands at a side

int LettersOf(const TextLook& look) {
  return look.pixels > 0 ? look.pixels : kTextPixels;
}

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
QWidget* MakeFrame(ControlView& view, QWidget* parent) {
  auto* frame = new QScrollArea(parent);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  frame->setFocusPolicy(Qt::NoFocus);
  frame->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frame->setAutoFillBackground(true);
  view.inside = new QWidget;
  view.inside->setAutoFillBackground(true);
  frame->setWidget(view.inside);
  if (view.named.control->caption.empty()) return frame;
  auto* title = new QLabel(view.inside);
  title->setObjectName("title");
  title->setAttribute(Qt::WA_TransparentForMouseEvents);
  return frame;
}

QWidget* MakeList(const ListBox& list, QWidget* parent) {
  if (list.drop_down) return new QComboBox(parent);
  auto* lines = new QListWidget(parent);
  lines->setSelectionMode(list.multiple ? QListWidget::ExtendedSelection : QListWidget::SingleSelection);
  return lines;
}

QWidget* MakeWidget(ControlView& view, QWidget* parent) {
  switch (view.named.kind) {
    case ControlKind::kButton:
      return new QPushButton(parent);
    case ControlKind::kFrame:
      return MakeFrame(view, parent);
    case ControlKind::kField:
      return new QLineEdit(parent);
    case ControlKind::kList:
      return MakeList(*view.named.list, parent);
    case ControlKind::kGrid:
      return new GridView(std::string(view.named.name), *view.named.grid, parent);
    default:
      return MakeLabel(view.named, parent);
  }
}

// Carriage returns and line feeds both end a line. Blanks at the ends of a line would only push the others aside.
QString LinesOf(std::string_view text) {
  QString all = ToQt(text);
  all.replace("\r\n", "\n");
  all.replace('\r', '\n');
  QStringList lines = all.split('\n');
  for (QString& line : lines) line = line.trimmed();
  while (lines.size() > 1 && lines.last().isEmpty()) lines.removeLast();
  return lines.join('\n');
}

// The light grey sets controls apart and says nothing: on a dark desktop a shade of the desktop's own does so.
bool IsShade(const Control& control, const QPalette& palette) {
  return control.back == kLightGrey && palette.color(QPalette::Window).lightness() < kDarkWindow;
}

// A colour of the structure is drawn as it is, with black text unless the text has a colour too. What has none follows
// the desktop's palette, a dark one as well.
QPalette Colours(const Control& control, ControlKind kind) {
  QPalette palette;
  const bool button = kind == ControlKind::kButton;
  const bool field = kind == ControlKind::kField;
  const auto back_role = button ? QPalette::Button : field ? QPalette::Base : QPalette::Window;
  const auto text_role = button ? QPalette::ButtonText : field ? QPalette::Text : QPalette::WindowText;
  if (!control.mark.empty()) {
    palette.setColor(back_role, ToQt(kMarkedBack));
    palette.setColor(text_role, ToQt(kBlack));
    return palette;
  }
  if (IsShade(control, palette)) {
    palette.setColor(back_role, palette.color(QPalette::Window).lighter(kShade));
    return palette;
  }
  if (control.back) palette.setColor(back_role, ToQt(*control.back));
  if (control.back && control.enabled) palette.setColor(text_role, ToQt(control.fore.value_or(kBlack)));
  if (control.fore && !control.back && *control.fore != kBlack) palette.setColor(text_role, ToQt(*control.fore));
  return palette;
}

int CharactersOf(QStringView text) {
  return static_cast<int>(text.size() -
                          std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLowSurrogate(); }));
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

void DrawField(ControlView& view) {
  const TextField& field = *view.named.field;
  auto& edit = static_cast<QLineEdit&>(*view.widget);
  // Setting a limit takes a selection away, even the limit that stands.
  const int limit = field.max_length > 0 ? field.max_length : kLongestText;
  const bool limited = edit.maxLength() != limit;
  if (limited) edit.setMaxLength(limit);
  // A text that came out of a file may be longer than what can be typed.
  if (!view.drawn || limited || view.drawn_text != field.text()) {
    view.drawn_text = field.text();
    view.shown_text = ToQt(field.text()).left(limit);
  }
  if (edit.text() != view.shown_text) SetText(edit, view.shown_text);
  const TextSelection selection = field.selection();
  if (SelectionOf(edit) == selection) return;
  Select(edit, selection);
  // A click that brought the focus goes on to place the caret, which takes the selection away again.
  if (selection.length == 0 || QApplication::mouseButtons() == Qt::NoButton) return;
  QTimer::singleShot(0, &edit, [&edit, selection] { Select(edit, selection); });
}

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

void DrawLines(ControlView& view) {
  const ListBox& list = *view.named.list;
  if (view.drawn_lines == list.revision()) return;
  view.drawn_lines = list.revision();
  const QSignalBlocker quiet(view.widget);
  if (list.drop_down) {
    DrawDropDown(static_cast<QComboBox&>(*view.widget), list);
  } else {
    DrawListBox(static_cast<QListWidget&>(*view.widget), list);
  }
}

// What is wrong, the tool tip, and what the control's colour says.
std::string TipOf(const ControlView& view) {
  const Control& control = *view.named.control;
  return InLines({control.mark, control.tool_tip,
                  control.back ? MeaningOfColour(view.named.name, *control.back) : std::string_view()});
}

void DrawCaption(ControlView& view, int zoom) {
  const Control& control = *view.named.control;
  const int pixels = Scale(zoom).Zoomed(kTextPixels);
  if (view.named.kind == ControlKind::kLabel) {
    const int letters = Scale(zoom).Zoomed(LettersOf(view.named.facts->look));
    SetLabelText(static_cast<QLabel&>(*view.widget), LinesOf(control.caption), letters);
    // A label without text is no patch of colour.
    view.widget->setAutoFillBackground(control.back.has_value() && !control.caption.empty());
  } else if (view.named.kind == ControlKind::kButton) {
    SetButtonText(static_cast<QPushButton&>(*view.widget), ToQt(control.caption), pixels);
    view.widget->setAccessibleName(ToQt(control.caption).remove('&'));
  } else if (auto* title = view.inside != nullptr ? view.inside->findChild<QLabel*>("title") : nullptr) {
    const Scale scale(zoom);
    title->setGeometry(scale.Rect({kTitleMargin, 0, control.place.width - 2 * kTitleMargin, kTitleHeight}));
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    SetLabelText(*title, ToQt(control.caption), pixels);
    view.widget->setAccessibleName(ToQt(control.caption));
  } else if (view.named.kind != ControlKind::kGrid) {
    QFont font = view.widget->font();
    font.setPixelSize(pixels);
    view.widget->setFont(font);
  }
}

}  // namespace

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

TextSelection SelectionOf(const QLineEdit& edit) {
  const QString text = edit.text();
  const QString selected = edit.selectedText();
  const int start = selected.isEmpty() ? edit.cursorPosition() : edit.selectionStart();
  return {CharactersOf(QStringView(text).left(start)), CharactersOf(selected)};
}

ControlView MakeControlView(const NamedControl& named, QWidget* parent) {
  ControlView view;
  view.named = named;
  view.widget = MakeWidget(view, parent);
  view.widget->setObjectName(ToQt(named.name));
  view.widget->hide();
  return view;
}

Redrawn DrawControl(ControlView& view, int zoom) {
  const Control& control = *view.named.control;
  if (view.named.kind == ControlKind::kField) DrawField(view);
  if (view.named.kind == ControlKind::kList) DrawLines(view);
  if (view.drawn == control && view.drawn_zoom == zoom) return {};
  const bool moved = view.drawn_zoom != zoom || view.drawn->place != control.place;
  const bool recoloured = !view.drawn || view.drawn->back != control.back || view.drawn->fore != control.fore ||
                          view.drawn->enabled != control.enabled || view.drawn->mark != control.mark;
  const bool shown = !view.drawn || view.drawn->visible != control.visible;
  const bool said = moved || recoloured || view.drawn->caption != control.caption;
  QWidget& widget = *view.widget;
  if (moved) widget.setGeometry(Scale(zoom).Rect(control.place));
  if (recoloured) widget.setPalette(Colours(control, view.named.kind));
  if (said) DrawCaption(view, zoom);
  if (recoloured || view.drawn->tool_tip != control.tool_tip) {
    const std::string tip = TipOf(view);
    widget.setToolTip(TipText(tip));
    widget.setAccessibleDescription(ToQt(tip));
  }
  widget.setEnabled(control.enabled);
  if (shown) widget.setVisible(control.visible);
  view.drawn = control;
  view.drawn_zoom = zoom;
  return {moved || shown, said && !view.named.parent.empty()};
}

void FitFrame(ControlView& frame, std::span<ControlView> controls) {
  auto& area = static_cast<QScrollArea&>(*frame.widget);
  const QSize room = area.contentsRect().size();
  int height = room.height();
  for (ControlView& view : controls) {
    auto* label = qobject_cast<QLabel*>(view.widget);
    if (view.named.parent != frame.named.name || label == nullptr) continue;
    const QRect place = Scale(view.drawn_zoom).Rect(view.drawn->place);
    const int needed = label->text().contains('\n') ? label->sizeHint().height() : 0;
    label->resize(place.width(), std::max(place.height(), needed));
    height = std::max(height, place.top() + needed);
  }
  frame.inside->resize(room.width(), height);
  area.setFocusPolicy(height > room.height() ? Qt::TabFocus : Qt::NoFocus);
}

}  // namespace torvale
