// The language of scripts: its statements.
#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "script/session.h"

namespace torvale {

// The lines of a script, with the number of the one that was read last.
class ScriptLines {
 public:
  explicit ScriptLines(std::istream& source) : source_(source) {}

  // The next line without its line end. False after the last.
  bool Next(std::string& line);
  int number() const { return number_; }

 private:
  std::istream& source_;
  int number_ = 0;
};

// Runs the statement that `line` holds; a line of blanks and comments is none. A statement of several lines takes the
// rest from `lines`. Throws ScriptError where it can't be understood.
//
//   type txtInfo(2) "850"           replaces a field's text as if typed, with its change handling; also where the panel
//                                   that the field stands in is hidden; a field that is disabled refuses
//   cell Grid1 2 0 "100"            writes one cell
//   fill Grid1 1 0 ... end          writes rows of tab-separated cells from that cell on, up to the line `end`; the
//                                   lines are cells and nothing else, so no comments, quotes or escapes
//   click mnuDesignField            a click; a control that is hidden or disabled refuses
//   key Grid1 "52.5" Enter          keys: characters in quotes, and Enter, Backspace, Delete, Escape, Up, Down, Left,
//                                   Right, PageUp, PageDown, Home, End, Ctrl+Home, Ctrl+End, Ctrl+C, Ctrl+X, Ctrl+V,
//                                   Ctrl+Z, Ctrl+Y, Ctrl+Shift+Z
//   at Grid1 5 0 / at Grid1 5 0 9 3 moves the current cell / and the selection's far corner
//   choose listAllHoles "1/4" 8     selects these lines of a list and no others, by text or by index from 0
//   doubleclick listAllHoles "1/4"  a double click on a line
//   focus txtInfo(0)                moves the focus
//   mouse Grid2 down left 300 900   the mouse over the results: down, move, up; left, right, none; x and y in twips
//   mouse frmMainForm move none 0 0 the mouse over the screen's background
//   select txtInfo(0) 4 6           selects 6 characters of a field, from its fifth on
//   clipboard "10\t5.2\r\n"         puts text on the desktop's clipboard
//   answer Yes / answer No          the answer to the next question
//   copies 2 / copies cancel        what the next printer dialog gives
//   on yield 40 click cmdCancel     at the 40th yield from here on, that click
//   wait 2                          two seconds pass; what the program does when it is idle is done
//   kill                            the program ends as by a power failure and starts again in the same folder
//   show NAME ...                   prints state, see show.h; `all NAME` every element of a list that isn't zero or
//                                   empty, `at GRID` the grid's current cell; `printed` every drawing operation of the
//                                   reports since the last such line; `clipboard` the text on the desktop's clipboard
void RunStatement(Session& session, const std::string& line, ScriptLines& lines);

// The first word of every statement there is.
std::vector<std::string_view> StatementWords();

}  // namespace torvale
