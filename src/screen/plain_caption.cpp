#include "screen/plain_caption.h"

namespace torvale {

std::string PlainCaption(std::string_view caption) {
  std::string plain(caption);
  std::erase(plain, '&');
  while (plain.ends_with('.') || plain.ends_with(' ')) plain.pop_back();
  return plain;
}

}  // namespace torvale
