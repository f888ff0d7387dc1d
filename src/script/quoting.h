// The words of a script line, and texts in quotes.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "screen/spoken.h"

namespace torvale {

// A line of a script that can't be understood, or that names something that isn't there.
struct ScriptError : std::runtime_error {
  explicit ScriptError(const SpokenComplaint& complaint) : std::runtime_error(complaint.text()) {}
};

// The text in double quotes, with \" \\ \n \r \t.
std::string Quoted(std::string_view text);

// A word of a script line, or a text that stood in double quotes (without them, escapes resolved).
struct Token {
  std::string text;
  bool quoted = false;
  bool operator==(const Token&) const = default;
};

// The words and texts of a script line. Blanks part them; "#" outside quotes begins a comment. Throws ScriptError at a
// text without its closing quote and at an unknown escape.
std::vector<Token> Tokens(std::string_view line);

// The whole number that a word is. Throws ScriptError where it is none.
int WholeNumber(std::string_view word);

}  // namespace torvale
