#pragma once

#include <QMainWindow>
#include <QScrollArea>
#include <string>

#include "qt/grid_view.h"
#include "qt/menu_view.h"
#include "qt/window_run.h"
#include "screen/program.h"

namespace torvale {

// The editor of soils as a window beside the main one; it shows what `Program::soils` says.
class SoilsWindow final : public QMainWindow {
 public:
  // What the user does is worked on inside `run`, which brings all windows up to date afterwards.
  SoilsWindow(Program& program, WindowRun run, QWidget* parent);

  // Applies what changed in the structure since the last call.
  void Sync();

 protected:
  // The window's own cross does what its Exit entry does.
  void closeEvent(QCloseEvent* event) override;

 private:
  void RunClick(const std::string& name);
  void LayOut();

  Program& program_;
  WindowRun run_;
  QScrollArea* area_;
  QWidget* canvas_;
  GridView* grid_;
  MenuView menus_;
  int drawn_zoom_ = 0;
};

}  // namespace torvale
