#include "script/quoting.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "script/words.h"

namespace torvale {
namespace {

struct Escape {
  char letter;  // behind the backslash
  char meaning;
};

constexpr std::array<Escape, 5> kEscapes = {{{'"', '"'}, {'\\', '\\'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

char Resolved(char letter) {
  const auto found =
      std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& escape) { return escape.letter == letter; });
  if (found == kEscapes.end()) throw ScriptError(script_words::kUnknownEscape(std::string_view(&letter, 1)));
  return found->meaning;
}

// Takes a quoted text from the front of `rest`, which begins with its opening quote.
Token TakeText(std::string_view& rest) {
  Token token{"", true};
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] == '"') {
      rest.remove_prefix(i + 1);
      return token;
    }
    if (rest[i] == '\\' && i + 1 < rest.size()) {
      token.text += Resolved(rest[++i]);
    } else {
      token.text += rest[i];
    }
  }
  throw ScriptError(script_words::kTextNotClosed);
}

Token TakeWord(std::string_view& rest) {
  const auto end = std::find_if(rest.begin(), rest.end(), [](char c) { return IsBlank(c) || c == '"' || c == '#'; });
  const auto length = static_cast<std::size_t>(end - rest.begin());
  Token token{std::string(rest.substr(0, length)), false};
  rest.remove_prefix(length);
  return token;
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto found =
        std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& escape) { return escape.meaning == c; });
    if (found != kEscapes.end()) {
      quoted += '\\';
      quoted += found->letter;
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

std::vector<Token> Tokens(std::string_view line) {
  std::vector<Token> tokens;
  while (!line.empty() && line.front() != '#') {
    if (IsBlank(line.front())) {
      line.remove_prefix(1);
    } else {
      tokens.push_back(line.front() == '"' ? TakeText(line) : TakeWord(line));
    }
  }
  return tokens;
}

int WholeNumber(std::string_view word) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size() || word.empty()) {
    throw ScriptError(script_words::kNoWholeNumber(word));
  }
  return number;
}

}  // namespace torvale
