// Keeps the main window where the screen structure says.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "screen/main_screen.h"

namespace torvale {

// Keeps a window and the place that the screen structure gives it together.
class WindowPlace {
 public:
  // `on_resize` is told of a window of normal state that the user or the desktop has resized, once the size has
  // settled, and may change the structure's place. It is asked for once more each time, never in answer to its own
  // correction.
  WindowPlace(QWidget& window, MainScreen& screen, std::function<void()> on_resize);

  // Pixels of height that the structure's place does not count: a bar above the screen makes the window higher.
  void SetBarHeight(int pixels) { bar_height_ = pixels; }
  // First showing, inside what the display has room for: a window too large for it is maximised.
  void Show();
  // The window was moved, resized or changed its state.
  void Moved();
  void Resized();
  void StateChanged();
  // The window is about to close: what it was moved by last counts.
  void Close();
  // Gives the window the structure's place, as far as the display has room.
  void Apply();

 private:
  QSize WantedSize() const;
  QRect Wanted() const;
  bool Movable() const;
  void Read();
  void ReadCorner();
  void Settle();

  QWidget& window_;
  MainScreen& screen_;
  std::function<void()> on_resize_;
  QTimer settle_;
  QTimer moved_;  // a move settles, too: one that comes with being maximised is none
  int bar_height_ = 0;
  bool correcting_ = false;  // the last change of size or place was ours
  bool refused_ = false;     // the desktop did not let us: it decides from now on
};

}  // namespace torvale
