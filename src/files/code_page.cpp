#include "files/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/utf8.h"

namespace torvale {
namespace {

// Characters of the bytes 128 to 159; all other bytes are the character of the same number.
constexpr std::array<char32_t, 32> kHighControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

void AppendUtf8(std::string& text, char32_t c) {
  const auto byte = [&](char32_t value) { text.push_back(static_cast<char>(static_cast<std::uint8_t>(value))); };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0 | (c >> 6));
    byte(0x80 | (c & 0x3F));
  } else {
    byte(0xE0 | (c >> 12));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  }
}

// Whether a character is one, and takes that many bytes.
bool IsWellFormed(char32_t c, std::size_t length) {
  constexpr std::array<char32_t, 4> kLeast = {0, 0x80, 0x800, 0x10000};
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  return c >= kLeast.at(length - 1) && c <= 0x10FFFF && !surrogate;
}

// Takes the character at the head of `text`; a byte that begins none is taken alone.
char32_t TakeUtf8(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  bool whole = length > 0 && length <= text.size();
  for (std::size_t i = 1; whole && i < length; ++i) whole = ContinuesCharacter(text[i]);
  char32_t c = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; whole && i < length; ++i) c = (c << 6) | (byte(i) & 0x3F);
  if (!whole || !IsWellFormed(c, length)) {
    text.remove_prefix(1);
    return kNoCharacter;
  }
  text.remove_prefix(length);
  return c;
}

char ByteOf(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(static_cast<std::uint8_t>(c));
  const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), c);
  if (found == kHighControls.end()) return '?';
  return static_cast<char>(static_cast<std::uint8_t>(0x80 + (found - kHighControls.begin())));
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (TakeUtf8(bytes) == kNoCharacter) return false;
  }
  return true;
}

std::string FromCodePage(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto c = static_cast<std::uint8_t>(byte);
    AppendUtf8(text, c >= 0x80 && c < 0xA0 ? kHighControls.at(c - 0x80U) : c);
  }
  return text;
}

std::string ToCodePage(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) bytes.push_back(ByteOf(TakeUtf8(utf8)));
  return bytes;
}

}  // namespace torvale
