// The table of heads that tubing bears, out of its file.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

inline constexpr std::string_view kSafeHeadsFile = "SafeHeads.txt";

// Reads `Program::pipe_strengths` from the table in the program's folder. Each line names a pipe: its diameter in
// inches, the thickness of its wall in mils and the highest head in feet, with commas between them; quotes around a
// figure, empty lines and lines that begin with "#" are passed over. A line that is none of these, and one that names a
// pipe again, is left out; a message tells of the first of them, with its number, and of how many others there are.
// Where there is no such file nothing is known and nothing is said.
void ReadPipeStrengths(Program& program);

}  // namespace torvale
