// Changes of inputs as one text, so that ten thousand steps of typing take little room.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/inputs.h"

namespace torvale {

std::string PackChanges(const std::vector<InputChange>& changes);
// And back.
std::vector<InputChange> UnpackChanges(std::string_view packed);

}  // namespace torvale
