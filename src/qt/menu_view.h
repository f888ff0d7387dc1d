#pragma once

#include <QAction>
#include <QMenuBar>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"

namespace torvale {

// The menu bar of a screen, from all its controls or its menus alone. Entries that neither do anything nor hold an
// entry that does are left out.
class MenuView {
 public:
  using Event = std::function<void(const std::string& name)>;
  // `click` runs what a click on the entry of that name does, `opened` what the menu does when it drops down.
  MenuView(std::vector<NamedControl> menus, QMenuBar& bar, const Event& click, const Event& opened);

  // Applies what changed in the structure since the last call.
  void Draw();

 private:
  struct Entry {
    const ControlFacts* facts;
    const Control* control;
    QAction* action;
    std::optional<Control> drawn;
  };
  std::vector<Entry> entries_;
};

// Opens a menu of those entries at a place of the desktop, as they stand among the controls.
void PopUpMenu(Program& program, const std::vector<std::string_view>& entries, const QPoint& at, QWidget& parent,
               const MenuView::Event& click);

}  // namespace torvale
