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

// What the mark of figures that are out of date begins with.
constexpr std::string_view kBegin = words::kFiguresAreFor.text().substr(0, words::kFiguresAreFor.text().find("{}"));

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
  const auto look_at_fields = [&](InputKind kind, const auto& facts) {
    for (std::size_t i = 0; i < facts.size(); ++i) {
      if (Enters(facts.at(i).enters, program.record)) look(PlaceOf(kind, i));
    }
  };
  look_at_fields(InputKind::kInfoField, kInfoFacts);
  look_at_fields(InputKind::kPreference, kPreferenceFacts);
  if (program.record.DesignType == kLimitedHoles) look(PlaceOf(InputKind::kHoles));
  look(PlaceOf(InputKind::kPipe));
  const auto end_of_cells = shown.begin() + kCellPlaces;
  const auto cell = std::mismatch(shown.begin(), end_of_cells, now.begin()).first;
  if (cell != end_of_cells) places.push_back(static_cast<int>(cell - shown.begin()));
  return places;
}

std::string Was(const Program& program, int place, const std::string& text) {
  switch (KindAt(place).kind) {
    case InputKind::kCell:
      return "the survey before " + PlaceName(program, place) + " was changed";
    case InputKind::kPipe:
      return "the other type of pipe";
    case InputKind::kHoles:
      return "other hole sizes";
    default:
      return PlaceName(program, place) + " " + (text.empty() ? "empty" : text);
  }
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
    const int place = PlaceOf(InputKind::kInfoField, i);
    const bool stale = std::find(places.begin(), places.end(), place) != places.end();
    Mark(main.txtInfo.at(i).control, stale ? sentence.text() : "");
  }
  main.cmdReCalc.mark = sentence.text();
  const bool typed = !places.empty() && !IsCell(places.front()) && sentence.text() != before;
  TellStale(program, sentence, typed);
}

}  // namespace torvale
