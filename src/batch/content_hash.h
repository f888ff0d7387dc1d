// Fingerprints of what a result depends on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace torvale {

// FNV-1a of a sequence of texts, 64 bits: tells whether something is what it was, not who wrote it.
class ContentHash {
 public:
  void Add(std::string_view text) {
    for (const char c : text) Step(static_cast<unsigned char>(c));
    // "ab" and "c" are not "a" and "bc".
    for (std::size_t length = text.size(), i = 0; i < 8; ++i, length >>= 8U) Step(static_cast<unsigned char>(length));
  }
  std::uint64_t value() const { return value_; }

 private:
  void Step(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001b3ULL; }

  std::uint64_t value_ = 0xcbf29ce484222325ULL;
};

// Sixteen hexadecimal digits.
inline std::string HexText(std::uint64_t value) {
  std::string text;
  for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789abcdef"[(value >> shift) & 15U];
  return text;
}

}  // namespace torvale
