// What the steps of the history are called: "typing in row 3, Furrow Length", "New".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"
#include "shell/inputs.h"

namespace torvale {

// Whether an event of that cause, the control or command that it began with, is typing into a cell or a field.
bool IsTyping(std::string_view cause);

// The name of a step of that cause that made these changes.
std::string NameOfStep(Program& program, std::string_view cause, const std::vector<InputChange>& changes);

}  // namespace torvale
