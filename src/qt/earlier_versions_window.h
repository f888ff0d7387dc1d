#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "qt/control_view.h"
#include "screen/program.h"

namespace torvale {

// The list of earlier versions, a window that keeps the main one waiting; it shows what `Program::versions` says.
class EarlierVersionsWindow final : public QWidget {
 public:
  // What the user does is worked on inside `run`, which brings all windows up to date afterwards.
  using Run = std::function<void(const std::function<void()>&)>;
  EarlierVersionsWindow(Program& program, Run run, QWidget* parent);

  // Applies what changed in the structure since the last call.
  void Sync();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  // The window's own cross does what its Close button does.
  void closeEvent(QCloseEvent* event) override;

 private:
  void Connect(const ControlView& view);
  void RunClick(const std::string& name);
  void FitSize();

  Program& program_;
  Run run_;
  std::vector<ControlView> controls_;
  int drawn_zoom_ = 0;
};

}  // namespace torvale
