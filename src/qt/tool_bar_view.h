#pragma once

#include <QAction>
#include <QToolBar>
#include <functional>
#include <string>
#include <vector>

#include "qt/scale.h"
#include "screen/program.h"
#include "shell/tool_bar.h"

namespace torvale {

// The tool bar of the main screen. Buttons whose command does not exist are left out; none takes the keyboard from the
// field or sheet that has it.
class ToolBarView {
 public:
  // `click` runs what a click on the button of that name does.
  ToolBarView(Program& program, QToolBar& bar, const std::function<void(const std::string& name)>& click);

  // Applies what changed in the structure since the last call.
  void Draw(const Scale& scale);
  // Pixels of height that the bar takes from the window.
  int Height() const;

 private:
  struct Button {
    const ControlFacts* entry;
    QAction* action;
  };
  Program& program_;
  QToolBar& bar_;
  std::vector<Button> buttons_;
};

}  // namespace torvale
