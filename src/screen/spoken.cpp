#include "screen/spoken.h"

namespace torvale {

std::string FillGaps(std::string_view text, const std::string_view* values) {
  std::string filled;
  for (std::size_t gap = text.find("{}"); gap != std::string_view::npos; gap = text.find("{}")) {
    filled.append(text.substr(0, gap)).append(*values++);
    text.remove_prefix(gap + 2);
  }
  return filled.append(text);
}

}  // namespace torvale
