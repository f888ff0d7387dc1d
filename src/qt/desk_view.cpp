#include "qt/desk_view.h"

#include <QFocusEvent>
#include <algorithm>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/tips.h"
#include "qt/to_qt.h"
#include "shell/commands.h"
#include "shell/desk_rows.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr int kMargin = 6;         // pixels at 100 percent
constexpr int kHeightBelow = 276;  // the same
constexpr int kNarrowest = 420;    // the same
constexpr int kWanted = 900;       // the same: all columns of the comparison
constexpr int kWordsLines = 3;
constexpr int kPointLines = 2;

void SetLetters(QWidget& widget, int pixels, bool bold = false) {
  QFont font = widget.font();
  if (font.pixelSize() == pixels && font.bold() == bold) return;
  font.setPixelSize(pixels);
  font.setBold(bold);
  widget.setFont(font);
}

// Words that their lines have no room for take smaller letters.
void FitWords(QLabel& label, const QString& words, int pixels) {
  const QRect room = label.contentsRect();
  const bool fits = label.wordWrap() && label.font().pixelSize() == pixels &&
                    label.fontMetrics().boundingRect(room, Qt::TextWordWrap, words).height() <= room.height();
  if (fits && label.text() == words) return;
  SetLabelText(label, words, pixels);
  label.setWordWrap(true);
}

}  // namespace

DeskView::DeskView(Program& program, Run run, Entered entered, QWidget* parent)
    : QWidget(parent),
      program_(program),
      run_(std::move(run)),
      entered_(std::move(entered)),
      layout_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
  setObjectName("desk");
  layout_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  const std::vector<NamedControl> controls = ControlsOf(program.desk);
  for (const NamedControl& named : controls) {
    if (named.kind == ControlKind::kFrame) MakeSection(named, controls);
  }
  hide();
}

void DeskView::MakeSection(const NamedControl& frame, const std::vector<NamedControl>& controls) {
  auto* widget = new QWidget(this);
  widget->setObjectName(ToQt(frame.name));
  widget->setAccessibleName(ToQt(frame.control->caption));
  Section section;
  section.frame = frame;
  section.widget = widget;
  section.title = new QLabel(ToQt(frame.control->caption), widget);
  section.close = new QPushButton(widget);
  auto* rows = new QVBoxLayout(widget);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* head = new QHBoxLayout;
  rows->addLayout(head);
  head->addWidget(section.title, 1);
  head->addWidget(section.close);
  if (frame.control == &program_.desk.frmChart) {
    section.chart =
        new SupplyChartView(widget, [this](double station) { run_([&] { ChartPoint(program_, station); }); });
    rows->addWidget(section.chart, 1);
  }
  for (const NamedControl& named : controls) {
    if (named.parent != frame.name) continue;
    if (named.kind == ControlKind::kGrid) MakeGrid(section, named, *rows);
    if (named.kind == ControlKind::kLabel) {
      section.words = new QLabel(widget);
      section.words->setObjectName(ToQt(named.name));
      section.words->setTextFormat(Qt::PlainText);
      section.words->setWordWrap(true);
      section.words->setAlignment(Qt::AlignLeft | Qt::AlignTop);
      section.words_control = named.control;
      rows->addWidget(section.words);
    }
    if (named.kind == ControlKind::kButton) {
      section.close_control = named;
      section.close->setObjectName(ToQt(named.name));
      section.close->setText(ToQt(named.control->caption));
      section.close->setToolTip(TipText(named.control->tool_tip));
      section.close->setAccessibleName(ToQt(named.control->tool_tip));
      section.close->installEventFilter(this);
      connect(section.close, &QPushButton::clicked, this,
              [this, name = std::string(named.name)] { run_([&] { Click(program_, name); }); });
    }
  }
  layout_->addWidget(widget, StretchOf(section));
  sections_.push_back(std::move(section));
}

int DeskView::StretchOf(const Section& section) const {
  return section.frame.control == &program_.desk.frmComparison ? 3 : 2;
}

void DeskView::MakeGrid(Section& section, const NamedControl& named, QBoxLayout& rows) {
  const std::string name(named.name);
  section.grid_name = name;
  section.grid = new GridView(name, *named.grid, section.widget);
  section.grid->setAccessibleName(ToQt(named.facts->spoken));
  section.grid->installEventFilter(this);
  GridEvents events;
  events.key = [this, name](const KeyStroke& stroke) { run_([&] { GridKey(program_, name, stroke); }); };
  events.point = [this, name](int row, int column, bool extend) {
    run_([&] { GridPoint(program_, name, row, column, extend); });
  };
  events.widen = [this, name](int column, int width) { run_([&] { WidenColumn(program_, name, column, width); }); };
  events.heading = [this, name](int column) { run_([&] { GridPoint(program_, name, 0, column, false); }); };
  section.grid->Connect(std::move(events));
  rows.addWidget(section.grid, 1);
}

bool DeskView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    entered_(watched->objectName().toStdString(), static_cast<QFocusEvent&>(*event).reason());
  }
  return QWidget::eventFilter(watched, event);
}

void DeskView::DrawLetters(const Section& section) const {
  const int pixels = Scale(program_.main.zoom).Zoomed(kTextPixels);
  SetLetters(*section.title, pixels, true);
  SetLetters(*section.close, pixels);
  const QFontMetrics letters = section.close->fontMetrics();
  section.close->setMinimumSize(letters.horizontalAdvance(section.close->text()) + 2 * pixels,
                                letters.height() + pixels / 2);
  if (section.words == nullptr) return;
  SetLetters(*section.words, pixels);
  const int lines = section.chart == nullptr ? kWordsLines : kPointLines;
  section.words->setFixedHeight(lines * section.words->fontMetrics().lineSpacing());
}

bool DeskView::Sync() {
  const Scale scale(program_.main.zoom);
  const bool zoomed = std::exchange(drawn_zoom_, program_.main.zoom) != program_.main.zoom;
  bool any = false;
  bool changed = zoomed;
  for (const Section& section : sections_) {
    const bool open = section.frame.control->visible;
    any = any || (open && !section.away);
    // Without the hole summary the chart has no place on the screens.
    if (section.away && !program_.main.frameShowLimitedHoles.visible) changed = true;
    if (section.widget->isVisibleTo(section.widget->parentWidget()) != open) {
      section.widget->setVisible(open);
      changed = true;
    }
    if (zoomed) DrawLetters(section);
    if (!open) continue;
    if (section.chart != nullptr) section.chart->Show(program_.desk.chart, scale);
    if (section.words != nullptr) {
      const QString words = ToQt(section.words_control->caption);
      if (section.words->text() != words) section.words->setToolTip(TipText(section.words_control->caption));
      FitWords(*section.words, words, scale.Zoomed(kTextPixels));
    }
  }
  if (isVisibleTo(parentWidget()) != any) {
    setVisible(any);
    changed = true;
  }
  if (changed && any) layout_->activate();
  for (const Section& section : sections_) {
    if (!section.frame.control->visible || section.grid == nullptr) continue;
    Grid& grid = *FindGrid(program_, section.grid_name);
    grid.control.place.width = scale.Twips(section.grid->width());
    grid.control.place.height = scale.Twips(section.grid->height());
    section.grid->Draw(scale);
  }
  return changed;
}

// The tables lay their columns out anew for the room that they have.
void DeskView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Sync();
}

void DeskView::StandChart(QWidget& screens, const QRect& place) {
  const auto found =
      std::find_if(sections_.begin(), sections_.end(), [](const Section& s) { return s.chart != nullptr; });
  Section& section = *found;
  const bool away = !place.isEmpty();
  if (away == section.away && place == chart_place_) return;
  chart_place_ = place;
  if (away != section.away) {
    section.away = away;
    layout_->removeWidget(section.widget);
    section.widget->setParent(away ? &screens : this);
    if (!away) layout_->addWidget(section.widget, StretchOf(section));
    section.widget->setVisible(section.frame.control->visible);
  }
  if (away) section.widget->setGeometry(place);
  layout_->activate();  // the others have its room, or give it up
  Sync();
}

bool DeskView::OpenBesideChart() const {
  return std::any_of(sections_.begin(), sections_.end(),
                     [](const Section& s) { return s.chart == nullptr && s.frame.control->visible; });
}

void DeskView::StandUpright(bool upright) {
  const auto direction = upright ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
  if (layout_->direction() != direction) layout_->setDirection(direction);
}

int DeskView::HeightBelow() const {
  return Scale(program_.main.zoom).Zoomed(kHeightBelow);
}

int DeskView::WantedBeside() const {
  return Scale(program_.main.zoom).Zoomed(kWanted);
}

int DeskView::NarrowestBeside() const {
  return Scale(program_.main.zoom).Zoomed(kNarrowest);
}

void DeskView::TakeFocus(const std::string& name) {
  for (const Section& section : sections_) {
    QWidget* widget = section.grid_name == name ? static_cast<QWidget*>(section.grid) : nullptr;
    if (section.close_control.name == name) widget = section.close;
    if (widget != nullptr && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
  }
}

}  // namespace torvale
