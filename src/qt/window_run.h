// How a window has what its user does worked on.
#pragma once

#include <functional>

namespace torvale {

// Runs the work as an event of the program, and brings all windows up to date afterwards.
using WindowRun = std::function<void(const std::function<void()>& work)>;

}  // namespace torvale
