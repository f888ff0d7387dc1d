#include "shell/help_search.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace torvale {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

// Letters beyond ASCII are compared as they are.
std::string Small(std::string_view text) {
  std::string small(text);
  for (char& c : small) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return small;
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char c : Small(text)) {
    if (!IsBlank(c)) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

std::ptrdiff_t CountIn(const std::string& text, const std::vector<std::string>& words) {
  return std::count_if(words.begin(), words.end(), [&](const std::string& w) { return text.find(w) != text.npos; });
}

// The stretch around `at` from the start of a word to the end of one.
std::string Excerpt(const std::string& text, std::size_t at) {
  constexpr std::size_t kAhead = 30;
  constexpr std::size_t kLength = 90;
  std::size_t start = 0;
  if (at > kAhead) start = std::min(text.find(' ', at - kAhead), at - 1) + 1;
  const std::size_t end = text.find(' ', start + kLength);
  return (start > 0 ? "... " : "") + text.substr(start, end - start) + (end == std::string::npos ? "" : " ...");
}

}  // namespace

std::vector<HelpHit> SearchHelp(const std::vector<HelpPage>& pages, std::string_view words) {
  struct Found {
    HelpHit hit;
    std::ptrdiff_t in_title;
  };
  const std::vector<std::string> wanted = WordsOf(words);
  std::vector<Found> found;
  if (wanted.empty()) return {};
  for (const HelpPage& page : pages) {
    const std::string small = Small(page.text);
    if (CountIn(small, wanted) < static_cast<std::ptrdiff_t>(wanted.size())) continue;
    // The title opens the text; a hit behind it says more.
    const std::size_t behind = small.find(wanted.front(), page.title.size());
    const std::size_t at = behind == std::string::npos ? small.find(wanted.front()) : behind;
    found.push_back({{&page, Excerpt(page.text, at)}, CountIn(Small(page.title), wanted)});
  }
  std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.in_title > b.in_title; });
  std::vector<HelpHit> hits;
  hits.reserve(found.size());
  for (Found& one : found) hits.push_back(std::move(one.hit));
  return hits;
}

}  // namespace torvale
