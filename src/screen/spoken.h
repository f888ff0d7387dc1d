#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace torvale {

// What the program says to its user comes out of one table, screen/words.h. Its rows are the types below; only from
// them can be made what the procedures that speak take. A front end without a screen has a table of its own for what it
// complains of in a text that is read elsewhere.

enum class SpeechKind { kSentence, kMessage, kQuestion, kComplaint };

// Words with all that belongs into them. The title is that of a box; empty, it is the program's name.
template <SpeechKind kKind>
class Spoken {
 public:
  Spoken() = default;  // nothing
  const std::string& text() const { return text_; }
  std::string_view title() const { return title_; }
  bool empty() const { return text_.empty(); }
  friend bool operator==(const Spoken& spoken, std::string_view text) { return spoken.text_ == text; }

 private:
  template <SpeechKind, std::size_t>
  friend class Words;
  Spoken(std::string text, std::string_view title) : text_(std::move(text)), title_(title) {}

  std::string text_;
  std::string_view title_;
};

// The text with one value after the other in the place of each "{}".
std::string FillGaps(std::string_view text, const std::string_view* values);

// A row of the table: a text with so many gaps, "{}", for what the program puts in.
template <SpeechKind kKind, std::size_t kGaps>
class Words {
 public:
  consteval Words(std::string_view text, std::string_view title = {}) : text_(text), title_(title) {
    std::size_t gaps = 0;
    for (std::size_t at = text.find("{}"); at != std::string_view::npos; at = text.find("{}", at + 2)) ++gaps;
    if (gaps != kGaps) throw "the text has another number of gaps";
  }

  constexpr std::string_view text() const { return text_; }

  // The words with these values in their gaps.
  template <std::convertible_to<std::string_view>... Values>
  requires(sizeof...(Values) == kGaps) Spoken<kKind>
  operator()(const Values&... values) const {
    const std::string_view all[] = {values..., ""};
    return {FillGaps(text_, all), title_};
  }
  operator Spoken<kKind>() const requires(kGaps == 0) { return {std::string(text_), title_}; }

 private:
  std::string_view text_;
  std::string_view title_;
};

// A sentence for the line at the foot of the screen, or for the mark of a field; the body and the title of a message
// box; those of a question that is answered with Yes or No.
template <std::size_t kGaps>
using Sentence = Words<SpeechKind::kSentence, kGaps>;
template <std::size_t kGaps>
using Message = Words<SpeechKind::kMessage, kGaps>;
template <std::size_t kGaps>
using Question = Words<SpeechKind::kQuestion, kGaps>;
// What is wrong with a line of a file or of a command, for a file of results or standard error.
template <std::size_t kGaps>
using Complaint = Words<SpeechKind::kComplaint, kGaps>;

using SpokenSentence = Spoken<SpeechKind::kSentence>;
using SpokenMessage = Spoken<SpeechKind::kMessage>;
using SpokenQuestion = Spoken<SpeechKind::kQuestion>;
using SpokenComplaint = Spoken<SpeechKind::kComplaint>;

}  // namespace torvale
