#include "qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <utility>

#include "qt/keys.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/help.h"
#include "shell/main_form.h"
#include "shell/panel_drag.h"
#include "shell/recovery.h"

namespace torvale {
namespace {

constexpr std::chrono::milliseconds kIdleInterval(250);

// A focus that goes and comes back with the window, a menu or a list that drops down is not moved by the user.
bool OnlyReturns(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

}  // namespace

MainWindow::MainWindow(Program& program)
    : program_(program),
      area_(new QScrollArea(this)),
      canvas_(new QWidget),
      desk_(new DeskView(
          program, Runner(), [this](const std::string& name, Qt::FocusReason reason) { WidgetEntered(name, reason); },
          this)),
      status_(new QLabel(this)),
      place_(*this, program.main, [this] { Guarded(program_, [this] { Form_Resize(program_); }); }),
      comparison_(program, [this] {
        QMetaObject::invokeMethod(
            this, [this] { TakeNews(); }, Qt::QueuedConnection);
      }) {
  setAcceptDrops(true);
  MakeFrame();
  MakeBars();
  MakeWindows();
  MakeControls();
  NameControls();
  MakeShortcuts();
  Watch();
  auto* idle = new QTimer(this);
  connect(idle, &QTimer::timeout, this, [this] { KeepOn(); });
  idle->start(kIdleInterval);
  Sync();
}

// What is written of the work in the meantime is seen only where it could not be.
void MainWindow::KeepOn() {
  const std::string said = program_.main.sbStatusBar.caption;
  Idle(program_);
  if (program_.main.sbStatusBar.caption != said) Sync();
}

// Whatever the user does comes through here: no fault gets out, and the window shows at once what came of it.
void MainWindow::Run(const std::function<void()>& work) {
  Guarded(program_, work);
  comparison_.Follow();
  Sync();
}

// What was worked out beside the screen. The call may come when the window is closing.
void MainWindow::TakeNews() {
  if (!program_.main.closed && comparison_.Take()) Sync();
}

WindowRun MainWindow::Runner() {
  return [this](const std::function<void()>& work) { Run(work); };
}

void MainWindow::RunClick(const std::string& name) {
  Run([&] { Click(program_, name); });
}

void MainWindow::OpenDesign(const QString& path) {
  Run([&] { FileDropped(program_, QDir::toNativeSeparators(path).toStdString()); });
}

void MainWindow::ExplainMessage(const std::string& body) {
  Run([&] { OpenHelpOnMessage(program_, body); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls.front().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  OpenDesign(event->mimeData()->urls().front().toLocalFile());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  place_.Close();
  // A calculation that is still running finds itself cancelled and unwinds; the objects live until it has.
  Guarded(program_, [this] { Form_Unload(program_); });
  DrawBusy();
  soils_->Sync();
  profile_->Sync();
  versions_->Sync();
  stakes_->Sync();
  help_->Sync();
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) place_.StateChanged();
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && !activated_) {
    activated_ = true;
    Run([this] { Form_Activate(program_); });
  }
  QMainWindow::changeEvent(event);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  place_.Moved();
  QMainWindow::moveEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  place_.Resized();
  QMainWindow::resizeEvent(event);
  PlaceDesk();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  const std::string name = watched->objectName().toStdString();
  switch (event->type()) {
    case QEvent::KeyPress:
      if (HelpOnMenu(watched, static_cast<QKeyEvent&>(*event))) return true;
      if (TypedWithAlt(watched, static_cast<QKeyEvent&>(*event))) return true;
      if (FindField(program_, name) != nullptr) return FieldKeyPressed(name, static_cast<QKeyEvent&>(*event));
      break;
    case QEvent::ContextMenu:
      if (auto* edit = qobject_cast<QLineEdit*>(watched)) {
        ShowFieldMenu(*edit, static_cast<QContextMenuEvent&>(*event).globalPos());
        return true;
      }
      break;
    case QEvent::FocusIn:
      WidgetEntered(name, static_cast<QFocusEvent&>(*event).reason());
      break;
    case QEvent::MouseButtonPress:
      MousePressed(watched, static_cast<QMouseEvent&>(*event));
      break;
    case QEvent::MouseButtonRelease:
      MouseReleased(static_cast<QMouseEvent&>(*event));
      break;
    case QEvent::MouseMove:
      MouseMoved(watched, static_cast<QMouseEvent&>(*event));
      break;
    case QEvent::Resize:
      if (watched == area_->viewport()) RoomChanged();
      break;
    case QEvent::Wheel: {
      const auto& wheel = static_cast<QWheelEvent&>(*event);
      if (!wheel.modifiers().testFlag(Qt::ControlModifier) || wheel.angleDelta().y() == 0) break;
      Run([&] { StepZoom(program_, wheel.angleDelta().y() > 0 ? 1 : -1); });
      return true;
    }
    default:
      break;
  }
  return QMainWindow::eventFilter(watched, event);
}

// F1 on an entry of an open menu tells what the entry does. No shortcut works while a menu is open.
bool MainWindow::HelpOnMenu(QObject* watched, const QKeyEvent& event) {
  const auto* menu = qobject_cast<QMenu*>(watched);
  if (menu == nullptr || event.key() != Qt::Key_F1) return false;
  const QAction* entry = menu->activeAction() != nullptr ? menu->activeAction() : menu->menuAction();
  const std::string name = entry->objectName().toStdString();
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  Run([&] { OpenHelp(program_, HelpPlaceFor(program_, name)); });
  return true;
}

// A list would look for the letter, a menu has letters of its own.
bool MainWindow::TypedWithAlt(const QObject* watched, const QKeyEvent& event) const {
  std::string character;
  const auto stroke = StrokeOf(event, character);
  return stroke && stroke->alt && qobject_cast<const QMenu*>(watched) == nullptr;
}

// True where the key goes no further.
bool MainWindow::FieldKeyPressed(const std::string& name, const QKeyEvent& event) {
  std::string character;
  const auto stroke = StrokeOf(event, character);
  if (!stroke) return false;
  bool swallowed = false;
  Run([&] { swallowed = FieldKey(program_, name, *stroke); });
  return swallowed;
}

// The toolkit's own menu of a field would undo, cut, copy and paste in its own way; this one has the entries of the
// Edit menu.
void MainWindow::ShowFieldMenu(QLineEdit& edit, const QPoint& at) {
  auto* menu = new QMenu(&edit);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setFont(menuBar()->font());
  for (const char* entry : {"mnuEditUndo", "mnuEditRedo"}) menu->addAction(findChild<QAction*>(entry));
  menu->addSeparator();
  for (const char* entry : {"mnuEditCut", "mnuEditCopy", "mnuEditPaste"}) {
    menu->addAction(findChild<QAction*>(entry));
  }
  menu->addSeparator();
  menu->addAction("Select &All", &edit, &QLineEdit::selectAll);
  menu->popup(at);
}

void MainWindow::ShowGridMenu(const std::string& name, int row, int column, const QPoint& at) {
  std::vector<std::string_view> entries;
  Run([&] { entries = GridMenu(program_, name, row, column); });
  PopUpMenu(program_, entries, at, *ViewOf(name)->widget, [this](const std::string& entry) { RunClick(entry); });
}

void MainWindow::WidgetEntered(const std::string& name, Qt::FocusReason reason) {
  if (syncing_ || OnlyReturns(reason) || FindControl(program_, name) == nullptr) return;
  Run([&] { FocusGained(program_, name); });
}

// What is under the pointer, by its own name and place, in twips: the panels take hold where they hold nothing else.
void MainWindow::MousePressed(const QObject* on, const QMouseEvent& event) {
  for (const std::string_view panel : kPanels) {
    const ControlView* view = ViewOf(panel);
    if (on == view->inside && event.button() == Qt::LeftButton)
      TellMouse(panel, *view->widget, MouseAction::kDown, event);
  }
}

void MainWindow::MouseMoved(const QObject* on, const QMouseEvent& event) {
  const bool dragging = !program_.main.drag.panel.empty();
  if (dragging || on == canvas_) TellMouse(kMainForm, *canvas_, MouseAction::kMove, event);
}

// The panel goes with the pointer, so that whatever shows of the screen lies under the two of them.
void MainWindow::MouseReleased(const QMouseEvent& event) {
  if (program_.main.drag.panel.empty()) return;
  const QWidget& screen = *area_->viewport();
  const bool inside = screen.rect().contains(screen.mapFromGlobal(event.globalPosition().toPoint()));
  TellMouse(inside ? kMainForm : std::string_view(), *canvas_, MouseAction::kUp, event);
}

void MainWindow::TellMouse(std::string_view over, const QWidget& widget, MouseAction action, const QMouseEvent& event) {
  const Scale scale = ScreenScale();
  const QPoint at = widget.mapFromGlobal(event.globalPosition().toPoint());
  const MouseButton button = ButtonOf(event);
  Run([&] { ScreenMouse(program_, over, action, button, scale.TwipsAcross(at.x()), scale.Twips(at.y())); });
}

}  // namespace torvale
