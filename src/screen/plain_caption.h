// A caption as a sentence and a reader of the screen have it.
#pragma once

#include <string>
#include <string_view>

namespace torvale {

// Without the mark of its mnemonic and the points of a dialog.
std::string PlainCaption(std::string_view caption);

}  // namespace torvale
