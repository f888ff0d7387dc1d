// What stands in a journal: text, a line for each place that has changed, its name and its text with a tab between;
// each write ends with a line that tells its moment. A line that the end of the program cut short does not count.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/inputs.h"

namespace torvale {

inline constexpr std::string_view kJournalHeading = "TORVALE journal 1\n";

// What a journal comes to.
struct LostWork {
  std::string path;
  std::int64_t moment = 0;  // of its last write, as Host::Clock tells time
  InputTexts texts = InputTexts(kInputPlaces);
  bool stored = false;  // nothing of it is lost
};

// One write of a journal, and all of them read again. Lines that are not understood are passed over, also a first line
// that is none of a journal; of a journal in a form that another version writes nothing is read.
std::string JournalText(const InputTexts& before, const InputTexts& now, bool stored, std::int64_t moment);
LostWork ReadJournal(std::string_view text);

// Whether it is a journal in a form that another version of the program has.
bool IsJournalOfAnotherForm(std::string_view text);

}  // namespace torvale
