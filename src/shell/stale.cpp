#include "shell/stale.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "display/input_screen.h"
#include "input/focus.h"
#include "record/kinds.h"
#include "screen/field_facts.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::string_view kBegin = "The figures shown are for ";

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

bool Enters(EntersDesign designs, const DesignRecord& record) {
  switch (designs) {
    case EntersDesign::kNever:
      return false;
    case EntersDesign::kAlways:
      return true;
    case EntersDesign::kOnRigidPipe:
      return IsRigid(record);
    case EntersDesign::kOverHeads:
      return record.DesignType == kLimitedHoles;
  }
  return false;
}

// The places whose input the results don't know of; of the sheet the first one.
std::vector<int> StalePlaces(const Program& program, const InputTexts& shown, const InputTexts& now) {
  std::vector<int> places;
  const auto look = [&](int place) {
    const auto at = static_cast<std::size_t>(place);
    if (Trimmed(shown[at]) != Trimmed(now[at])) places.push_back(place);
  };
  const auto look_at_fields = [&](int place, const auto& facts) {
    for (const auto& field : facts) {
      if (Enters(field.enters, program.record)) look(place);
      ++place;
    }
  };
  look_at_fields(kInfoPlace, kInfoFacts);
  look_at_fields(kPreferencePlace, kPreferenceFacts);
  if (program.record.DesignType == kLimitedHoles) look(kHolesPlace);
  look(kPipePlace);
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

bool TellsOfField(const std::string& told) {
  return std::ranges::any_of(kInfoFacts, [&](const InfoFacts& field) {
    return field.enters != EntersDesign::kNever && field.hint.text() == told;
  });
}

// That typing has made figures stale is news, and stands behind what else the same event had to tell; who changes the
// sheet behind them has news of its own. That they are still stale is told where nothing else is.
void TellStale(Program& program, const SpokenSentence& sentence, bool typed) {
  const std::string& told = News(program);
  if (sentence.empty()) {
    if (told.starts_with(kBegin) || TellsOfField(told)) ForgetNews(program);
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
