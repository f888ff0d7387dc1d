#pragma once

#include <string>

#include "screen/program.h"

namespace torvale {

// The line at the foot of the screen. It tells news, what came of a command, until the next news; while there is none,
// what the control is for that the user is at.

// Tells news, in one plain sentence.
void Say(Program& program, std::string sentence);
// Adds a sentence to the news that stand.
void SayToo(Program& program, const std::string& sentence);
// A run begins, or a design is gone: what was told of the one before is no longer true.
void ForgetNews(Program& program);

}  // namespace torvale
