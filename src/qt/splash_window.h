#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "screen/program.h"

namespace torvale {

// The splash screen as a window without a frame in the middle of the display; it shows what `Program::splash` says.
class SplashWindow final : public QWidget {
 public:
  // `closed` runs once, when the screen has closed; it shows the main window.
  SplashWindow(Program& program, std::function<void()> closed);

  // Shows the screen and starts its two seconds.
  void Open();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void MakeLabels();
  void Finish();

  Program& program_;
  std::function<void()> closed_;
  QTimer wait_;
};

}  // namespace torvale
