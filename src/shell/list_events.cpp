// What a user does to the lines of lists: see shell/events.h.
#include <algorithm>
#include <array>

#include "files/soils.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/history.h"

namespace torvale {
namespace {

// A double click on a line of a list presses the button beside it.
struct ListButton {
  std::string_view list;
  std::string_view button;
};

constexpr std::array<ListButton, 2> kListButtons = {{
    {"listAllHoles", "cmdADDtoSelected"},
    {"listHolesSelected", "cmdremoveSelected"},
}};

}  // namespace

Reach SelectLines(Program& program, std::string_view list, const std::vector<int>& lines) {
  ListBox* box = FindList(program, list);
  if (box == nullptr) return Reach::kUnknown;
  const Reach reach = ReachOf(program, list);
  if (reach != Reach::kUsable) return reach;
  for (int i = 0; i < box->count(); ++i) box->Select(i, false);
  for (const int line : lines) box->Select(line, true);
  if (box == &program.main.listSoils)
    Guarded(program, [&] {
      NameCause(program, list);
      listSoils_Click(program);
    });
  return reach;
}

Reach DoubleClickLine(Program& program, std::string_view list, int line) {
  const Reach reach = SelectLines(program, list, {line});
  if (reach != Reach::kUsable) return reach;
  for (const ListButton& pair : kListButtons) {
    if (pair.list == list) return Click(program, pair.button);
  }
  return reach;
}

}  // namespace torvale
