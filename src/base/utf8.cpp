#include "base/utf8.h"

#include <algorithm>

namespace torvale {
namespace {

bool StartsCharacter(char byte) {
  return !ContinuesCharacter(byte);
}

}  // namespace

int CharacterCount(std::string_view text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::size_t CharacterOffset(std::string_view text, int index) {
  if (index <= 0) return 0;
  int seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (StartsCharacter(text[i]) && seen++ == index) return i;
  }
  return text.size();
}

}  // namespace torvale
