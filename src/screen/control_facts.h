// The facts of a control stand in one row of one table: how it is called, where it is found in the screen's structure,
// and how it looks and sounds when the screen is made. The tables of the main screen are screen/main_*_rows.h; each
// other screen has its own beside its structure. What a click runs stands beside the control's name in
// shell/commands.cpp, since the procedures live above the screens.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "screen/controls.h"

namespace torvale {

enum class ControlKind { kLabel, kButton, kFrame, kField, kGrid, kList, kMenu, kToolBar, kStatusBar };

// Menus and bars stand around the screen and have no place of their own on it.
inline bool OnScreen(ControlKind kind) {
  return kind != ControlKind::kMenu && kind != ControlKind::kToolBar && kind != ControlKind::kStatusBar;
}

// Who sees to the key of a menu entry: the window, or the control that has the focus, for which the menu only tells it.
enum class ShortcutOwner { kWindow, kControl };

// Where the text of a label stands: at one side or in the middle of its height; at the top or the foot of its middle.
enum class TextPlace { kLeft, kRight, kCentre, kTop, kFoot };

// How a label stands out; most are plain text.
struct TextLook {
  TextPlace place = TextPlace::kLeft;
  int pixels = 0;  // height of the letters at 100 percent; 0 for that of all other texts
  bool bold = false;
  bool framed = false;
};

// The button of the tool bar that stands for a menu entry.
struct ToolKey {
  std::string_view key = {};   // a click names it by this: "tbToolBar(Save)"; empty for none
  std::string_view icon = {};  // name in data/icons, without ".svg"
  int order = 0;               // buttons stand from left to right in this order
  bool starts_group = false;
};

// What few controls have of their own.
struct RareFacts {
  bool visible = true;
  std::string_view spoken = {};   // what a reader of the screen calls a grid, a list or a frame
  bool worked_in = true;          // a grid that is only read can't have the focus
  TextLook look = {};             // of a label
  std::string_view picture = {};  // of a part of the splash screen: name in data/icons, without ".svg"
  // Of a menu entry
  std::string_view shortcut = {};  // "Ctrl+N"; empty for none
  bool starts_group = false;       // a line stands above it
  ShortcutOwner shortcut_owner = ShortcutOwner::kWindow;
  bool shows_name = false;  // the caption is the name of a file: an "&" in it is a character
  ToolKey tool = {};
};

struct ControlFacts : RareFacts {
  std::string_view name;  // "lblEffic", "txtInfo(3)"
  ControlKind kind = ControlKind::kLabel;
  std::string_view parent;  // the frame or menu that it stands in; empty for the screen itself
  Place place;  // grids, the result panel and the frames beside it are placed again as the screen is laid out
  std::string_view caption;
  std::string_view tool_tip;
};

// The store of a control in its screen. All have a Control; fields, grids and lists are more than that.
struct ControlStore {
  Control* control = nullptr;
  TextField* field = nullptr;  // of kind kField
  Grid* grid = nullptr;        // of kind kGrid
  ListBox* list = nullptr;     // of kind kList
};

// A row of a screen's table.
template <typename Screen>
struct ControlRow : ControlFacts {
  ControlStore (*find)(Screen&) = nullptr;
};

// One control of a screen that there is: its row, and its store in that screen.
struct NamedControl : ControlStore {
  const ControlFacts* facts = nullptr;
  // Often asked for
  std::string_view name;
  ControlKind kind = ControlKind::kLabel;
  std::string_view parent;
};

// What the keyboard can be at.
inline bool TakesFocus(const NamedControl& named) {
  const bool of_that_kind = named.kind == ControlKind::kButton || named.kind == ControlKind::kField ||
                            named.kind == ControlKind::kGrid || named.kind == ControlKind::kList;
  return of_that_kind && named.facts->worked_in;
}

// Every control of a screen: in tab order where it can have the focus, menus in the order of the menu bar. No text is
// copied. A screen tells its table by `Screen::Rows()`.
template <typename Screen>
std::vector<NamedControl> ControlsOf(Screen& screen) {
  std::vector<NamedControl> all;
  all.reserve(Screen::Rows().size());
  for (const ControlRow<Screen>& row : Screen::Rows()) {
    all.push_back({row.find(screen), &row, row.name, row.kind, row.parent});
  }
  return all;
}

// Gives the controls of a screen that is being made what their rows say.
template <typename Screen>
void TakeFacts(Screen& screen) {
  for (const ControlRow<Screen>& row : Screen::Rows()) {
    Control& control = *row.find(screen).control;
    control.caption = row.caption;
    control.tool_tip = row.tool_tip;
    control.place = row.place;
    control.visible = row.visible;
  }
}

// How rows are written: `Label<&MainScreen::lblName>("lblName", "", {120, 75, 1000, 315}, "Name:")`, with the index
// behind the member where it is a list of controls.
namespace rows {

inline constexpr int kWhole = -1;  // the member is the control itself

inline ControlStore StoreOf(Control& control) {
  return {&control};
}
inline ControlStore StoreOf(TextField& field) {
  return {&field.control, &field};
}
inline ControlStore StoreOf(Grid& grid) {
  return {&grid.control, nullptr, &grid};
}
inline ControlStore StoreOf(ListBox& list) {
  return {&list.control, nullptr, nullptr, &list};
}

template <typename Screen, typename Member>
Screen ScreenOf(Member Screen::*);

template <auto kMember, int kIndex>
constexpr auto Row(ControlKind kind, std::string_view name, std::string_view parent, Place place,
                   std::string_view caption, std::string_view tool_tip, const RareFacts& rare) {
  using Screen = decltype(ScreenOf(kMember));
  ControlRow<Screen> row;
  static_cast<RareFacts&>(row) = rare;
  row.name = name;
  row.kind = kind;
  row.parent = parent;
  row.place = place;
  row.caption = caption;
  row.tool_tip = tool_tip;
  row.find = [](Screen& screen) {
    if constexpr (kIndex == kWhole) {
      return StoreOf(screen.*kMember);
    } else {
      return StoreOf((screen.*kMember)[kIndex]);
    }
  };
  return row;
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Menu(std::string_view name, std::string_view parent, std::string_view caption,
                    std::string_view tool_tip = "", const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kMenu, name, parent, {}, caption, tool_tip, rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Label(std::string_view name, std::string_view parent, Place place, std::string_view caption = "",
                     std::string_view tool_tip = "", const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kLabel, name, parent, place, caption, tool_tip, rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Button(std::string_view name, std::string_view parent, Place place, std::string_view caption,
                      std::string_view tool_tip, const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kButton, name, parent, place, caption, tool_tip, rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Frame(std::string_view name, Place place, std::string_view caption = "", const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kFrame, name, "", place, caption, "", rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Field(std::string_view name, std::string_view parent, Place place, std::string_view tool_tip,
                     const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kField, name, parent, place, "", tool_tip, rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto Sheet(std::string_view name, std::string_view parent, Place place, std::string_view tool_tip,
                     const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kGrid, name, parent, place, "", tool_tip, rare);
}

template <auto kMember, int kIndex = kWhole>
constexpr auto List(std::string_view name, std::string_view parent, Place place, std::string_view tool_tip,
                    const RareFacts& rare = {}) {
  return Row<kMember, kIndex>(ControlKind::kList, name, parent, place, "", tool_tip, rare);
}

// One table out of several.
template <typename Row, std::size_t... kCounts>
constexpr auto Joined(const Row (&... parts)[kCounts]) {
  std::array<Row, (kCounts + ...)> all{};
  std::size_t at = 0;
  const auto take = [&](const auto& part) {
    for (const Row& row : part) all[at++] = row;
  };
  (take(parts), ...);
  return all;
}

}  // namespace rows
}  // namespace torvale
