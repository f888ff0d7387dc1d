#include "qt/control_view.h"

#include <QPushButton>
#include <QScrollArea>
#include <algorithm>

#include "display/tips.h"
#include "qt/control_widgets.h"
#include "qt/fitted_text.h"
#include "qt/list_view.h"
#include "qt/scale.h"
#include "qt/tips.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr int kTitleMargin = 120;  // twips ahead of a frame's caption
constexpr int kTitleHeight = 320;  // twips
constexpr int kDarkWindow = 128;   // of 255
constexpr int kShade = 135;        // percent of the window's lightness

// Blanks at the ends of a line would only push the others aside.
QString LinesOf(std::string_view text) {
  QStringList lines = LinesToQt(text).split('\n');
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

void DrawCaption(ControlView& view, const Scale& scale) {
  const Control& control = *view.named.control;
  const int pixels = scale.Zoomed(kTextPixels);
  if (view.named.kind == ControlKind::kLabel) {
    const int letters = scale.Zoomed(LettersOf(view.named.facts->look));
    SetLabelText(static_cast<QLabel&>(*view.widget), LinesOf(control.caption), letters);
    // A label without text is no patch of colour.
    view.widget->setAutoFillBackground(control.back.has_value() && !control.caption.empty());
  } else if (view.named.kind == ControlKind::kButton) {
    SetButtonText(static_cast<QPushButton&>(*view.widget), ToQt(control.caption), pixels);
    view.widget->setAccessibleName(ToQt(control.caption).remove('&'));
  } else if (view.title != nullptr) {
    view.title->setGeometry(scale.Rect({kTitleMargin, 0, control.place.width - 2 * kTitleMargin, kTitleHeight}));
    SetLabelText(*view.title, ToQt(control.caption), pixels);
    view.widget->setAccessibleName(ToQt(control.caption));
  } else if (view.named.kind != ControlKind::kGrid) {
    SetTextSize(*view.widget, pixels);
  }
}

void DrawContent(ControlView& view) {
  if (view.named.field != nullptr) {
    DrawField(static_cast<QLineEdit&>(*view.widget), *view.named.field, view.drawn_text);
  }
  const ListBox* list = view.named.list;
  if (list == nullptr || view.drawn_lines == list->revision()) return;
  view.drawn_lines = list->revision();
  DrawLines(*view.widget, *list);
}

}  // namespace

ControlView MakeControlView(const NamedControl& named, QWidget* parent) {
  const ControlWidget made = MakeWidget(named, parent);
  ControlView view{named, made.widget, made.inside, made.title};
  view.widget->setObjectName(ToQt(named.name));
  view.widget->hide();
  return view;
}

Redrawn DrawControl(ControlView& view, const Scale& scale) {
  const Control& control = *view.named.control;
  DrawContent(view);
  if (view.drawn == control && view.drawn_scale == scale) return {};
  const bool moved = view.drawn_scale != scale || view.drawn->place != control.place;
  const bool recoloured = !view.drawn || view.drawn->back != control.back || view.drawn->fore != control.fore ||
                          view.drawn->enabled != control.enabled || view.drawn->mark != control.mark;
  const bool shown = !view.drawn || view.drawn->visible != control.visible;
  const bool said = moved || recoloured || view.drawn->caption != control.caption;
  QWidget& widget = *view.widget;
  if (moved) widget.setGeometry(scale.Rect(control.place));
  if (recoloured) widget.setPalette(Colours(control, view.named.kind));
  if (said) DrawCaption(view, scale);
  if (recoloured || view.drawn->tool_tip != control.tool_tip) {
    const std::string tip = TipOf(view.named.name, control);
    widget.setToolTip(TipText(tip));
    widget.setAccessibleDescription(ToQt(tip));
  }
  widget.setEnabled(control.enabled);
  if (shown) widget.setVisible(control.visible);
  view.drawn = control;
  view.drawn_scale = scale;
  return {moved || shown, said && !view.named.parent.empty()};
}

void FitFrame(ControlView& frame, std::span<ControlView> controls) {
  auto& area = static_cast<QScrollArea&>(*frame.widget);
  const QSize room = area.contentsRect().size();
  int height = room.height();
  for (ControlView& view : controls) {
    auto* label = qobject_cast<QLabel*>(view.widget);
    if (view.named.parent != frame.named.name || label == nullptr) continue;
    const QRect place = view.drawn_scale.Rect(view.drawn->place);
    const int needed = label->text().contains('\n') ? label->sizeHint().height() : 0;
    label->resize(place.width(), std::max(place.height(), needed));
    height = std::max(height, place.top() + needed);
  }
  frame.inside->resize(room.width(), height);
  area.setFocusPolicy(height > room.height() ? Qt::TabFocus : Qt::NoFocus);
}

}  // namespace torvale
