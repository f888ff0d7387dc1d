#pragma once

#include <QString>
#include <initializer_list>
#include <string>
#include <string_view>

namespace torvale {

// The texts that aren't empty, each on a line of its own.
std::string InLines(std::initializer_list<std::string_view> texts);

// A tool tip that wraps and keeps its blanks.
QString TipText(std::string_view text);

}  // namespace torvale
