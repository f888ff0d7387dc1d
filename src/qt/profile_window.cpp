#include "qt/profile_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/tips.h"
#include "qt/to_qt.h"
#include "qt/user_events.h"
#include "shell/commands.h"

namespace torvale {
namespace {

constexpr QSize kOpeningSize(1000, 640);  // pixels at 100 percent
constexpr int kPaperWidth = 1000;         // pixels that the width of a sheet stands for
constexpr int kPaperLine = 22;
constexpr int kLabelColumns = 2;

// Where the label stands, counted along the lines. The name has a line of its own.
int PlaceOf(std::size_t label) {
  return label == 0 ? 0 : static_cast<int>(label) - 1 + kLabelColumns;
}

}  // namespace

ProfileWindow::ProfileWindow(Program& program, WindowRun run, QWidget* parent)
    : QWidget(parent, Qt::Window), program_(program), run_(std::move(run)), chart_(new CrownChart(this)) {
  setObjectName(kName);
  setWindowModality(Qt::WindowModal);
  auto* rows = new QVBoxLayout(this);
  auto* labels = new QGridLayout;
  auto* buttons = new QHBoxLayout;
  rows->addLayout(labels);
  rows->addWidget(chart_, 1);
  rows->addLayout(buttons);
  MakeControls();
  for (std::size_t i = 0; i < texts_.size(); ++i) {
    const int place = PlaceOf(i);
    labels->addWidget(texts_[i].label, place / kLabelColumns, place % kLabelColumns, 1, i == 0 ? kLabelColumns : 1);
  }
  buttons->addStretch();
  for (const Button& button : buttons_) buttons->addWidget(button.button);
  auto* back = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(back, &QShortcut::activated, this, [this] { Click("btnBack"); });
  HelpOnF1(*this, program_, kName, run_);
}

void ProfileWindow::MakeControls() {
  for (const NamedControl& named : ControlsOf(program_.profile)) {
    if (named.kind == ControlKind::kLabel) {
      auto* label = new QLabel(this);
      label->setTextFormat(Qt::PlainText);
      label->setWordWrap(true);
      label->setObjectName(ToQt(named.name));
      label->setToolTip(TipText(named.control->tool_tip));
      texts_.push_back({named.control, label});
    } else if (named.kind == ControlKind::kButton) {
      auto* button = new QPushButton(this);
      button->setObjectName(ToQt(named.name));
      button->setToolTip(TipText(named.control->tool_tip));
      connect(button, &QPushButton::clicked, this, [this, name = std::string(named.name)] { Click(name); });
      buttons_.push_back({named.control, button});
    }
  }
}

void ProfileWindow::Click(const std::string& name) {
  run_([&] { torvale::Click(program_, name); });
}

void ProfileWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Click("btnBack");
}

void ProfileWindow::DrawLetters() {
  const Scale scale(program_.main.zoom);
  const int pixels = scale.Zoomed(kTextPixels);
  for (const Text& text : texts_) SetTextSize(*text.label, pixels);
  for (const Button& button : buttons_) SetTextSize(*button.button, pixels);
  QFont bold = texts_.front().label->font();
  bold.setBold(true);
  texts_.front().label->setFont(bold);
  const QSize wanted(scale.Zoomed(kOpeningSize.width()), scale.Zoomed(kOpeningSize.height()));
  resize(wanted.boundedTo(screen()->availableSize()));
}

// In the middle of the main window, as far as the desktop has room there.
void ProfileWindow::Centre() {
  const QRect desktop = screen()->availableGeometry();
  QRect place(QPoint(), size());
  place.moveCenter(parentWidget()->window()->frameGeometry().center());
  place.moveRight(std::min(place.right(), desktop.right()));
  place.moveBottom(std::min(place.bottom(), desktop.bottom()));
  place.moveLeft(std::max(place.left(), desktop.left()));
  place.moveTop(std::max(place.top(), desktop.top()));
  move(place.topLeft());
}

void ProfileWindow::Sync() {
  const CrownProfileScreen& profile = program_.profile;
  const bool shown = profile.CrownProfile.visible && !program_.main.closed;
  if (shown) {
    const bool zoomed = drawn_zoom_ != program_.main.zoom;
    if (zoomed) DrawLetters();
    setWindowTitle(ToQt(profile.CrownProfile.caption));
    for (const Text& text : texts_) {
      text.label->setText(ToQt(text.control->caption).trimmed());
      text.label->setVisible(text.control->visible);
    }
    for (const Button& button : buttons_) {
      button.button->setText(ToQt(button.control->caption));
      button.button->setVisible(button.control->visible);
      button.button->setEnabled(button.control->enabled);
    }
    if (zoomed || drawn_points_ != profile.chart.Points.revision()) {
      chart_->Show(profile.chart, Scale(program_.main.zoom));
    }
    drawn_zoom_ = program_.main.zoom;
    drawn_points_ = profile.chart.Points.revision();
  }
  if (shown == isVisible()) return;
  if (shown) Centre();
  setVisible(shown);
  if (!shown) return;
  activateWindow();
  chart_->setFocus();
}

void ProfileWindow::PaintOnPaper(QCPPainter& painter, const QSize& paper) {
  if (paper.isEmpty()) return;
  const double scale = paper.width() / static_cast<double>(kPaperWidth);
  painter.scale(scale, scale);
  const int height = qRound(paper.height() / scale);
  painter.fillRect(0, 0, kPaperWidth, height, Qt::white);
  painter.setPen(Qt::black);
  int lines = 0;
  for (std::size_t i = 0; i < texts_.size(); ++i) {
    if (!texts_[i].control->visible) continue;
    const int place = PlaceOf(i);
    const int width = kPaperWidth / (i == 0 ? 1 : kLabelColumns);
    const QRect room(place % kLabelColumns * width, place / kLabelColumns * kPaperLine, width, kPaperLine);
    lines = place / kLabelColumns + 1;
    QFont letters = texts_[i].label->font();
    letters.setPixelSize(kTextPixels + 2);
    painter.setFont(letters);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, ToQt(texts_[i].control->caption).trimmed());
  }
  painter.translate(0, lines * kPaperLine);
  chart_->PaintOnPaper(painter, QSize(kPaperWidth, height - lines * kPaperLine));
}

}  // namespace torvale
