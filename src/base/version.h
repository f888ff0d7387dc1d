#pragma once

#include <string>

namespace torvale {

// Version of the program, major.minor.revision: what a design file begins with.
std::string ProgramVersion();

}  // namespace torvale
