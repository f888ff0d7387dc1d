#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The desktop's clipboard as the program reads it: every line end is CR LF, whatever the desktop uses, and a double
// quote is a closing quotation mark, as from the keyboard. A zero byte ends the text.
std::string ClipboardText(Program& program);

// The text with CR LF in the place of every CR LF, CR or LF.
std::string WithLineEnds(std::string_view text);

// A straight double quote would cut a saved design short, so each becomes a closing quotation mark (U+201D).
std::string WithClosingQuotes(std::string_view text);

// The text as a field holds it, on one line: line ends at its end are dropped, others and further control characters
// become blanks.
std::string OnOneLine(std::string_view text);

// The selected block of a grid as text: cells separated by tabs, each row ended by CR LF.
std::string SelectedCells(const Grid& grid);

}  // namespace torvale
