#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "qt/control_view.h"
#include "qt/window_run.h"
#include "screen/program.h"

namespace torvale {

// A window of its own around a list, as the earlier versions and the stakes have one. It keeps the main window waiting
// and shows what its screen in the program says.
class ListWindow final : public QWidget {
 public:
  // What the user does is worked on inside `run`, which brings all windows up to date afterwards. `close` is the button
  // that leaves the window, which its own cross and Esc do, too; F1 opens the guide at what it says of `grid`.
  ListWindow(Program& program, const std::vector<NamedControl>& controls, const std::string& grid, std::string close,
             WindowRun run, QWidget* parent);

  // Applies what changed in the structure since the last call.
  void Sync();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Connect(const ControlView& view);
  void RunClick(const std::string& name);
  void FitSize();
  void DrawControls();
  void FollowFocus();

  Program& program_;
  WindowRun run_;
  std::string close_;
  const Control* window_ = nullptr;
  std::vector<ControlView> controls_;
  int drawn_zoom_ = 0;
  bool syncing_ = false;
};

}  // namespace torvale
