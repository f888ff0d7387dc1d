#include "script/arguments.h"

#include <algorithm>

#include "script/words.h"

namespace torvale {

void Arguments::Need(std::size_t least, std::size_t most) const {
  if (count() < least) throw ScriptError(script_words::kNotComplete);
  if (count() > most) throw ScriptError(script_words::kTooMuch(tokens_[most].text));
}

const std::string& Arguments::Word(std::size_t i) const {
  if (tokens_[i].quoted) throw ScriptError(script_words::kNoWord(tokens_[i].text));
  return tokens_[i].text;
}

const std::string& Arguments::Text(std::size_t i) const {
  if (!tokens_[i].quoted) throw ScriptError(script_words::kNoText(tokens_[i].text));
  return tokens_[i].text;
}

std::size_t Arguments::OneOf(std::size_t i, std::span<const std::string_view> words) const {
  const std::string& word = Word(i);
  const auto found = std::find(words.begin(), words.end(), word);
  if (found == words.end()) throw ScriptError(script_words::kNotUnderstood(word));
  return static_cast<std::size_t>(found - words.begin());
}

}  // namespace torvale
