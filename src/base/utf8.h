// UTF-8 texts counted in characters (code points).
#pragma once

#include <cstddef>
#include <string_view>

namespace torvale {

// Whether a byte goes on with a character that an earlier one began.
constexpr bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

int CharacterCount(std::string_view text);

// The byte at which character `index`, from 0, begins; the length of the text where it has no such character.
std::size_t CharacterOffset(std::string_view text, int index);

}  // namespace torvale
