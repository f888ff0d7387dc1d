// The version of the program.
#pragma once

#include <string>

namespace torvale {

// Major.minor.revision: what a design file begins with.
std::string ProgramVersion();

}  // namespace torvale
