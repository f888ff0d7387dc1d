#include "display/tips.h"

#include <initializer_list>

#include "display/colour_meanings.h"

namespace torvale {
namespace {

constexpr std::string_view kFilledTip =
    "Grey: the program filled this in. Type over it, or clear it from the Edit menu.";

// The texts that aren't empty, each on a line of its own.
std::string InLines(std::initializer_list<std::string_view> texts) {
  std::string lines;
  for (const std::string_view text : texts) {
    if (!lines.empty() && !text.empty()) lines += '\n';
    lines += text;
  }
  return lines;
}

}  // namespace

std::string TipOf(std::string_view name, const Control& control) {
  return InLines(
      {control.mark, control.tool_tip, control.back ? MeaningOfColour(name, *control.back) : std::string_view()});
}

std::string TipOfCell(std::string_view name, const Grid& grid, int row, int column) {
  const auto back = grid.Back(row, column);
  const bool coloured = back && !grid.Text(row, column).empty();
  return InLines({grid.Mark(row, column), grid.Tip(row, column),
                  grid.Filled(row, column) ? kFilledTip : std::string_view(),
                  coloured ? MeaningOfCellColour(name, column, *back) : std::string_view()});
}

}  // namespace torvale
