#include "shell/stale.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "display/input_screen.h"
#include "input/focus.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::string_view kBegin = "The figures shown are for ";

// Fields and preferences that enter a design: `kHoleFields` that of a limited selection alone, `kGateFields` that of
// rigid pipe.
constexpr std::array kFields = {2, 3, 5};
constexpr std::array kPreferenceFields = {2, 3};
constexpr std::array kGateFields = {11, 12};
constexpr std::array kHoleFields = {13, 14};

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

template <typename Numbers>
void Find(const InputTexts& shown, const InputTexts& now, int first, const Numbers& numbers, std::vector<int>& places) {
  for (const int number : numbers) {
    const auto place = static_cast<std::size_t>(first + number);
    if (Trimmed(shown[place]) != Trimmed(now[place])) places.push_back(first + number);
  }
}

// The places whose input the results don't know of; of the sheet the first one.
std::vector<int> StalePlaces(const Program& program, const InputTexts& shown, const InputTexts& now) {
  std::vector<int> places;
  Find(shown, now, kInfoPlace, kFields, places);
  Find(shown, now, kPreferencePlace, kPreferenceFields, places);
  if (program.record.PipeKind == "R") Find(shown, now, kPreferencePlace, kGateFields, places);
  const bool limited = program.record.DesignType == kLimitedHoles;
  if (limited) Find(shown, now, kPreferencePlace, kHoleFields, places);
  if (limited) Find(shown, now, kHolesPlace, std::array{0}, places);
  Find(shown, now, kPipePlace, std::array{0}, places);
  const auto sheet = std::mismatch(shown.begin(), shown.begin() + kSheetPlaces, now.begin());
  if (sheet.first != shown.begin() + kSheetPlaces) places.push_back(static_cast<int>(sheet.first - shown.begin()));
  return places;
}

std::string Was(const Program& program, int place, const std::string& text) {
  if (place < kSheetPlaces) return "the survey before " + PlaceName(program, place) + " was changed";
  if (place == kPipePlace) return "the other type of pipe";
  if (place == kHolesPlace) return "other hole sizes";
  return PlaceName(program, place) + " " + (text.empty() ? "empty" : text);
}

SpokenSentence FiguresAreFor(const Program& program, const InputTexts& shown, const std::vector<int>& places) {
  if (places.empty()) return {};
  std::string list;
  for (std::size_t i = 0; i < places.size(); ++i) {
    list.append(i == 0 ? "" : i + 1 == places.size() ? " and " : ", ");
    list.append(Was(program, places[i], shown[static_cast<std::size_t>(places[i])]));
  }
  return words::kFiguresAreFor(list);
}

// A mark that is none of ours stays: it says that the text is no number.
void Mark(Control& control, const std::string& sentence) {
  if (control.mark.empty() || control.mark.starts_with(kBegin)) control.mark = sentence;
}

// What a text that is no number is told of goes ahead of figures that are out of date.
bool TellsFalseText(const MainScreen& main, const std::string& told) {
  return std::any_of(main.txtInfo.begin(), main.txtInfo.end(), [&](const TextField& field) {
    return !told.empty() && field.control.mark == told && !told.starts_with(kBegin);
  });
}

bool TellsOfField(const Program& program, const std::string& told) {
  return std::any_of(kFields.begin(), kFields.end(),
                     [&](int field) { return FocusHint(program, "txtInfo(" + std::to_string(field) + ")") == told; });
}

// That typing has made figures stale is news, and stands behind what else the same event had to tell; who changes the
// sheet behind them has news of its own. That they are still stale is told where nothing else is.
void TellStale(Program& program, const SpokenSentence& sentence, bool typed) {
  const std::string& told = News(program);
  if (sentence.empty()) {
    if (told.starts_with(kBegin) || TellsOfField(program, told)) ForgetNews(program);
    return;
  }
  const bool news = typed && !TellsFalseText(program.main, told);
  const bool free = told.empty() || told.starts_with(kBegin) || FocusHint(program, program.main.focus) == told;
  if (free || (news && told == program.events.told)) {
    Say(program, sentence);
  } else if (news) {
    AddNews(program, sentence);
  }
}

}  // namespace

void MarkStale(Program& program, const InputTexts& shown, const InputTexts& now) {
  MainScreen& main = program.main;
  std::vector<int> places;
  const bool results = DesignStands(program) && main.Grid2.control.visible && shown.size() == now.size();
  if (results) places = StalePlaces(program, shown, now);
  const SpokenSentence sentence = FiguresAreFor(program, shown, places);
  const std::string before = main.cmdReCalc.mark;
  if (sentence.empty() && before.empty()) return;
  for (std::size_t i = 0; i < main.txtInfo.size(); ++i) {
    const int place = kInfoPlace + static_cast<int>(i);
    const bool stale = std::find(places.begin(), places.end(), place) != places.end();
    Mark(main.txtInfo.at(i).control, stale ? sentence.text() : "");
  }
  main.cmdReCalc.mark = sentence.text();
  const bool typed = !places.empty() && places.front() >= kSheetPlaces && sentence.text() != before;
  TellStale(program, sentence, typed);
}

}  // namespace torvale
