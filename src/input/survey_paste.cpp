#include "input/survey_paste.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "engine/survey.h"
#include "input/clipboard_text.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

// The lines of a text as a table, rows from 1. The text outlives it.
struct PastedTable {
  int columns;  // of every row, as the first line has them
  std::vector<std::string_view> lines;

  // A row or column that the table lacks is a RunTimeFault. A line that is shorter than the first has empty cells.
  std::string_view Text(int row, int column) const {
    if (row < 1 || row > static_cast<int>(lines.size()) || column < 0 || column >= columns) {
      throw RunTimeFault{Fault::kSubscript};
    }
    std::string_view rest = lines[static_cast<std::size_t>(row) - 1];
    for (; column > 0; --column) {
      const std::size_t tab = rest.find('\t');
      if (tab == std::string_view::npos) return "";
      rest.remove_prefix(tab + 1);
    }
    return rest.substr(0, rest.find('\t'));
  }
};

constexpr std::string_view kLineEnd = "\r\n";

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find(kLineEnd));
}

// What stands after the last line end is no row.
PastedTable TableOf(std::string_view text) {
  const std::string_view first = FirstLine(text);
  PastedTable table{static_cast<int>(std::count(first.begin(), first.end(), '\t')) + 1, {}};
  for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos; end = text.find(kLineEnd)) {
    table.lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
  }
  return table;
}

// Writes rows 1 to `last` + 1.
void PastDatatoGrid1(Program& program, const PastedTable& table, int last) {
  Grid& sheet = program.main.Grid1;
  for (int i = 1; i <= last + 1; ++i) {
    sheet.Set(i, kStationColumn, table.Text(i, 0));
    sheet.Set(i, kCrownColumn, table.Text(i, 1));
  }
}

// What the user may not have meant in a text of which so many rows came in.
void Remark(Program& program, const std::string& text, int rows) {
  const std::string& station = program.main.Grid1.Text(1, kStationColumn);
  if (!text.ends_with(kLineEnd)) {
    SayToo(program, words::kLineLeftOut(GeneralText(rows + 1)));
  }
  if (!IsNumber(station)) {
    SayToo(program, words::kRowLooksLikeHeading);
  } else if (Val(station) != 0) {
    SayToo(program, words::kFirstStationIsNotZero);
  }
}

void Com_Paste(Program& program) {
  const std::string text = ClipboardText(program);
  if (text.empty()) return Tell(program, words::kClipboardEmpty);
  if (FirstLine(text).empty()) return Tell(program, words::kFirstLineEmpty);
  const PastedTable table = TableOf(text);
  // A text without a line end has no row to give, and fails at its first one.
  const int last = std::max(static_cast<int>(table.lines.size()) - 1, 0);
  try {
    PastDatatoGrid1(program, table, last);
  } catch (const RunTimeFault&) {
    return Tell(program, words::kPasteFailed);
  }
  Say(program, (last == 0 ? words::kRowPasted : words::kRowsPasted)(GeneralText(last + 1)));
  Remark(program, text, last + 1);
}

}  // namespace

void mnuSurveyCopy_Click(Program& program) {
  Com_Paste(program);
}

}  // namespace torvale
