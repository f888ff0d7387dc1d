#include "qt/splash_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <utility>

#include "qt/control_widgets.h"
#include "qt/own_icons.h"
#include "qt/scale.h"
#include "qt/to_qt.h"
#include "shell/commands.h"
#include "shell/splash.h"

namespace torvale {
SplashWindow::SplashWindow(Program& program, std::function<void()> closed)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), program_(program), closed_(std::move(closed)) {
  setObjectName("frmSplash");
  setWindowTitle(ToQt(kProgramTitle));
  setFocusPolicy(Qt::StrongFocus);
  // The program goes on when this window closes, though no other may be shown yet.
  setAttribute(Qt::WA_QuitOnClose, false);
  setFixedSize(Scale(program_.main.zoom).Rect(program_.splash.Form.place).size());
  MakeLabels();
  wait_.setSingleShot(true);
  wait_.setInterval(kSplashMilliseconds);
  connect(&wait_, &QTimer::timeout, this, [this] { Finish(); });
}

// Clicks on a label go on to the window.
void SplashWindow::MakeLabels() {
  const Scale scale(program_.main.zoom);
  for (const NamedControl& named : ControlsOf(program_.splash)) {
    if (named.kind != ControlKind::kLabel || named.control->caption.empty()) continue;
    const TextLook& look = named.facts->look;
    auto* label = new QLabel(this);
    label->setObjectName(ToQt(named.name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(AlignmentOf(look.place));
    label->setGeometry(scale.Rect(named.control->place));
    QFont letters = label->font();
    letters.setPixelSize(scale.Zoomed(LettersOf(look)));
    letters.setBold(look.bold);
    label->setFont(letters);
    label->setText(ToQt(named.control->caption).remove('\r'));
  }
}

void SplashWindow::Open() {
  move(screen()->availableGeometry().center() - rect().center());
  show();
  activateWindow();
  setFocus();
  wait_.start();
}

void SplashWindow::Finish() {
  if (!closed_) return;
  wait_.stop();
  Click(program_, "frmSplash");
  const std::function<void()> closed = std::exchange(closed_, nullptr);
  // The main window comes up before this one goes, so that the desktop is not bare in between.
  closed();
  hide();
}

void SplashWindow::mousePressEvent(QMouseEvent* /*event*/) {
  Finish();
}

void SplashWindow::keyPressEvent(QKeyEvent* /*event*/) {
  Finish();
}

void SplashWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Finish();
}

void SplashWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) update();
  QWidget::changeEvent(event);
}

void SplashWindow::paintEvent(QPaintEvent* /*event*/) {
  const Scale scale(program_.main.zoom);
  QPainter painter(this);
  const QColor text = palette().color(QPalette::WindowText);
  for (const NamedControl& named : ControlsOf(program_.splash)) {
    if (named.facts->picture.empty()) continue;
    PaintPicture(painter, scale.Rect(named.control->place), named.facts->picture, text);
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace torvale
