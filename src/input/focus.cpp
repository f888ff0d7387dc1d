#include "input/focus.h"

#include <algorithm>

#include "display/input_screen.h"
#include "engine/survey.h"
#include "input/sheet.h"
#include "screen/field_facts.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

const std::string& ShownText(Program& program, std::string_view control) {
  static const std::string nothing;
  if (const TextField* field = FindField(program, control)) return field->text();
  const Control* other = FindControl(program, control);
  return other != nullptr ? other->caption : nothing;
}

struct ControlHint {
  std::string_view control;
  Sentence<0> hint;
};

// Those of the information fields and the preferences stand in screen/field_facts.h.
constexpr ControlHint kHints[] = {
    {"txtBest(0)", words::kHintStretches},
    {"txtBest(1)", words::kHintLeastHead},
    {"txtBest(2)", words::kHintHighestHeadOfPipe},
    {"listAllHoles", words::kHintAllHoles},
    {"listHolesSelected", words::kHintSelectedHoles},
    {"Grid2", words::kHintResults},
    {"cmdReCalc", words::kHintResults},
    {"cmdDesignToggle", words::kHintResults},
};

// Selects a field's whole text where the active control shows the same text, as the field itself does on gaining the
// focus.
void SelectWhereShown(Program& program, TextField& field) {
  if (ShownText(program, program.main.focus) == field.text()) field.SelectAll();
}

// Whether the status bar's text is the hint of a control, not news.
bool IsHint(std::string_view text) {
  for (int column = 0; column < kSurveyColumns; ++column) {
    if (ColumnHint(column) == text) return true;
  }
  const auto is_text = [&](const auto& row) { return row.hint.text() == text; };
  return std::ranges::any_of(kInfoFacts, is_text) || std::ranges::any_of(kPreferenceFacts, is_text) ||
         std::ranges::any_of(kHints, is_text);
}

}  // namespace

void txtInfo_GotFocus(Program& program, int index) {
  SelectWhereShown(program, program.main.txtInfo.at(static_cast<std::size_t>(index)));
  if (!program.main.Frame1.visible) return;
  program.main.Frame1.visible = false;
  ShowBehindPreferences(program);
}

void MoveFocus(Program& program, std::string_view control) {
  if (ReachOf(program, control) != Reach::kUsable) return;
  TextField* left = FindField(program, program.main.focus);
  if (left != nullptr && program.main.focus != control) left->Select(left->selection().start, 0);
  const bool came = program.main.focus != control;
  program.main.focus = control;
  const int index = InfoIndex(control);
  if (index >= 0) {
    txtInfo_GotFocus(program, index);
  } else if (TextField* field = FindField(program, control)) {
    SelectWhereShown(program, *field);
  }
  const SpokenSentence hint = FocusHint(program, control);
  if (came && !hint.empty()) Say(program, hint);
  if (FindField(program, control) != nullptr) TellMark(program, control, "");
}

void LeaveHiddenControl(Program& program) {
  MainScreen& main = program.main;
  if (main.focus.empty() || ReachOf(program, main.focus) != Reach::kHidden) return;
  const bool told_mark = FindControl(program, main.focus)->mark == News(program);
  main.focus = main.Grid2.control.visible ? "Grid2" : "Grid1";
  if (told_mark || IsHint(News(program))) Say(program, FocusHint(program, main.focus));
}

std::string_view OpenPanel(Program& program) {
  const auto* const open = std::find_if(kPanels.begin(), kPanels.end(), [&](std::string_view panel) {
    return ReachOf(program, panel) != Reach::kHidden;
  });
  return open == kPanels.end() ? std::string_view() : *open;
}

void EnterPanel(Program& program, std::string_view panel) {
  for (const NamedControl& named : ControlsOf(program.main)) {
    if (named.parent != panel || !TakesFocus(named) || ReachOf(program, named.name) != Reach::kUsable) continue;
    MoveFocus(program, named.name);
    return;
  }
}

SpokenSentence FocusHint(const Program& program, std::string_view control) {
  if (control == "Grid1") return ColumnHint(program.main.Grid1.column);
  if (const int index = InfoIndex(control); index >= 0) return kInfoFacts.at(static_cast<std::size_t>(index)).hint;
  if (const int index = PreferenceIndex(control); index >= 0) {
    return kPreferenceFacts.at(static_cast<std::size_t>(index)).hint;
  }
  for (const ControlHint& row : kHints) {
    if (row.control == control) return row.hint;
  }
  return {};
}

std::string NewsOf(const Program& program) {
  const std::string& told = News(program);
  return IsHint(told) ? "" : told;
}

void AddNews(Program& program, const SpokenSentence& sentence) {
  if (IsHint(News(program))) ForgetNews(program);
  SayToo(program, sentence);
}

void TellMark(Program& program, std::string_view field, const std::string& before) {
  const Control& control = FindField(program, field)->control;
  if (!control.mark.empty()) {
    SayMark(program, control);
  } else if (!before.empty() && News(program) == before) {
    Say(program, FocusHint(program, field));
  }
}

}  // namespace torvale
