// What stands behind the first word of a statement.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "script/quoting.h"

namespace torvale {

// The words and texts, asked for by their place from 0. What is no word, text or number where one is needed is a
// ScriptError. `Need` says first how many there are.
class Arguments {
 public:
  explicit Arguments(std::span<const Token> tokens) : tokens_(tokens) {}

  // Throws ScriptError where there are fewer or more.
  void Need(std::size_t least, std::size_t most) const;
  std::size_t count() const { return tokens_.size(); }
  const Token& Any(std::size_t i) const { return tokens_[i]; }
  const std::string& Word(std::size_t i) const;
  const std::string& Text(std::size_t i) const;
  int Number(std::size_t i) const { return WholeNumber(Word(i)); }
  // The place of the word in a list of words; a ScriptError where it is none of them.
  std::size_t OneOf(std::size_t i, std::span<const std::string_view> words) const;

 private:
  std::span<const Token> tokens_;
};

}  // namespace torvale
