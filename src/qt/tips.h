#pragma once

#include <QString>
#include <string_view>

namespace torvale {

// A tool tip that wraps and keeps its blanks.
QString TipText(std::string_view text);

}  // namespace torvale
