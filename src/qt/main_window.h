#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QScrollArea>
#include <QShortcut>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qt/control_view.h"
#include "qt/desk_view.h"
#include "qt/grid_view.h"
#include "qt/help_window.h"
#include "qt/list_window.h"
#include "qt/menu_view.h"
#include "qt/profile_window.h"
#include "qt/soils_window.h"
#include "qt/tool_bar_view.h"
#include "qt/window_place.h"
#include "scenarios/comparison.h"
#include "screen/program.h"
#include "shell/main_form.h"

namespace torvale {

// The main design screen as a window. It shows what the program's screen structures say and hands every event to the
// program; it keeps nothing that the structures lack.
class MainWindow final : public QMainWindow {
 public:
  // `program` has been started and outlives the window.
  explicit MainWindow(Program& program);

  // First showing, at the place that the structure tells.
  void Open() { place_.Show(); }
  // Compares the structures with what was last drawn and applies the differences. Runs after every event and, through
  // the host, at the yields of a calculation.
  void Sync();
  // Opens a design file that the desktop hands over.
  void OpenDesign(const QString& path);
  // Opens the guide at what it says of a message.
  void ExplainMessage(const std::string& body);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Building
  void MakeFrame();
  void MakeBars();
  void MakeWindows();
  void MakeControls();
  QWidget* ParentOf(const NamedControl& named) const;
  GridEvents EventsOf(const std::string& name);
  void Connect(const ControlView& view);
  void ConnectList(QListWidget& lines, const std::string& name);
  void NameControls();
  void MakeShortcuts();
  void Watch();

  // Events
  void Run(const std::function<void()>& work);
  WindowRun Runner();
  void RunClick(const std::string& name);
  bool FieldKeyPressed(const std::string& name, const QKeyEvent& event);
  void ShowFieldMenu(QLineEdit& edit, const QPoint& at);
  void WidgetEntered(const std::string& name, Qt::FocusReason reason);
  void KeepOn();
  void TakeNews();
  bool HelpOnMenu(QObject* watched, const QKeyEvent& event);
  void ShowGridMenu(const std::string& name, int row, int column, const QPoint& at);
  bool TypedWithAlt(const QObject* watched, const QKeyEvent& event) const;
  void MousePressed(const QObject* on, const QMouseEvent& event);
  void MouseMoved(const QObject* on, const QMouseEvent& event);
  void MouseReleased(const QMouseEvent& event);
  void TellMouse(std::string_view over, const QWidget& widget, MouseAction action, const QMouseEvent& event);

  // Drawing
  void DrawZoom();
  void DrawGrid(const ControlView& view);
  void DrawStatus();
  void DrawFocus();
  void DrawBusy();
  Scale ScreenScale() const { return Scale(program_.main.zoom, widening_); }
  QSize NeededRoom(const Scale& scale) const;
  bool RoomBeside() const;
  int ChartHeight() const;
  QRect ChartPlace() const;
  double Widening(bool desk) const;
  void Widen(double widening);
  int CurveBelow(const ControlView& view) const;
  void FitCanvas();
  void PlaceDesk();
  void RoomChanged();
  ControlView* ViewOf(std::string_view name);

  Program& program_;
  QScrollArea* area_;
  QWidget* canvas_;
  DeskView* desk_;
  QBoxLayout* halves_;  // the screens, and the desk beside or below them
  QLabel* status_;
  QShortcut* cancel_key_ = nullptr;
  SoilsWindow* soils_ = nullptr;
  ProfileWindow* profile_ = nullptr;
  ListWindow* versions_ = nullptr;
  ListWindow* stakes_ = nullptr;
  std::unique_ptr<HelpWindow> help_;
  std::vector<ControlView> controls_;
  std::unique_ptr<MenuView> menus_;
  std::unique_ptr<ToolBarView> tools_;
  WindowPlace place_;
  LiveComparison comparison_;
  QSize status_room_;  // that its letters were chosen for
  int drawn_zoom_ = 0;
  double widening_ = 1;   // of the screens, in a window that is wider than they are
  int bars_ = 0;          // pixels of height that the place of the window does not count
  bool syncing_ = false;  // focus and text changes are ours, not the user's
  bool busy_shown_ = false;
  bool activated_ = false;
};

}  // namespace torvale
