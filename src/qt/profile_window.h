#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <string>
#include <vector>

#include "qt/crown_chart.h"
#include "qt/window_run.h"
#include "screen/program.h"

namespace torvale {

// The crown profile as a window over the main one, which waits until it is closed; it shows what `Program::profile`
// says.
class ProfileWindow final : public QWidget {
 public:
  // The object name, by which it is found among the windows of the main window.
  static constexpr char kName[] = "CrownProfile";

  // What the user does is worked on inside `run`, which brings all windows up to date afterwards.
  ProfileWindow(Program& program, WindowRun run, QWidget* parent);

  // Applies what changed in the structure since the last call.
  void Sync();
  // Draws labels and chart over the whole of a sheet of that size, in dark ink on white.
  void PaintOnPaper(QCPPainter& painter, const QSize& paper);

 protected:
  // The window's own cross does what Back does.
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Text {
    const Control* control;
    QLabel* label;
  };
  struct Button {
    const Control* control;
    QPushButton* button;
  };
  void MakeControls();
  void DrawLetters();
  void Centre();
  void Click(const std::string& name);

  Program& program_;
  WindowRun run_;
  std::vector<Text> texts_;
  std::vector<Button> buttons_;
  CrownChart* chart_;
  int drawn_zoom_ = 0;
  std::uint64_t drawn_points_ = 0;
};

}  // namespace torvale
