#include "input/clipboard_text.h"

#include <algorithm>

#include "input/block_clipboard.h"

namespace torvale {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

std::string ClipboardText(Program& program) {
  const std::string text = program.host.ClipboardText();
  return WithLineEnds(WithClosingQuotes(text.substr(0, text.find('\0'))));
}

std::string WithLineEnds(std::string_view text) {
  std::string lines;
  lines.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      lines += text[i];
      continue;
    }
    lines += kLineEnd;
    if (text.substr(i, 2) == kLineEnd) ++i;
  }
  return lines;
}

std::string WithClosingQuotes(std::string_view text) {
  std::string typed;
  typed.reserve(text.size());
  for (const char c : text) {
    if (c == '"') {
      typed += "\xE2\x80\x9D";
    } else {
      typed += c;
    }
  }
  return typed;
}

std::string OnOneLine(std::string_view text) {
  std::string line = WithLineEnds(text);
  while (line.ends_with(kLineEnd)) line.resize(line.size() - kLineEnd.size());
  std::erase(line, '\r');
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return line;
}

std::string SelectedCells(const Grid& grid) {
  const Block block = SelectedBlock(grid);
  std::string text;
  for (int row = block.row1; row <= block.row2; ++row) {
    for (int column = block.column1; column <= block.column2; ++column) {
      if (column > block.column1) text += '\t';
      text += grid.Text(row, column);
    }
    text += kLineEnd;
  }
  return text;
}

}  // namespace torvale
