#pragma once

#include <string>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// The line at the foot of the screen. It tells news, what came of a command, until the next news; while there is none,
// what the control is for that the user is at.

// Tells news, in one plain sentence.
void Say(Program& program, const SpokenSentence& sentence);
// Adds a sentence to the news that stand.
void SayToo(Program& program, const SpokenSentence& sentence);
// Adds news that stood before, as `News` gave them, behind those that stand.
void SayAgain(Program& program, const std::string& news);
// Tells what is wrong with a control, as its mark says.
void SayMark(Program& program, const Control& control);
// A run begins, or a design is gone: what was told of the one before, the warnings at its figures too, is no longer
// true.
void ForgetNews(Program& program);
// What stands in the line.
const std::string& News(const Program& program);

}  // namespace torvale
