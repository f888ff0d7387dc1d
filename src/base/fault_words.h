// Faults in words, whoever caught them.
#pragma once

#include <exception>
#include <string>

namespace torvale {

// One plain sentence, for the user, on what was thrown, whatever it is.
std::string FaultWords(const std::exception_ptr& thrown);

}  // namespace torvale
