#include "input/focus.h"

#include <algorithm>
#include <iterator>

#include "display/input_screen.h"
#include "engine/survey.h"
#include "input/sheet.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

// The index of an information field by its name, or -1.
int InfoIndex(std::string_view control) {
  for (int i = 0; i <= int{InfoField::kSurveyKind}; ++i) {
    if (control == NameOf(static_cast<InfoField::Index>(i))) return i;
  }
  return -1;
}

const std::string& ShownText(Program& program, std::string_view control) {
  static const std::string nothing;
  if (const TextField* field = FindField(program, control)) return field->text();
  const Control* other = FindControl(program, control);
  return other != nullptr ? other->caption : nothing;
}

struct Hint {
  std::string_view control;
  Sentence<0> text;
};

constexpr Hint kHints[] = {
    {"txtInfo(0)", words::kHintDesignName},
    {"txtInfo(1)", words::kHintDesignDate},
    {"txtInfo(2)", words::kHintGpm},
    {"txtInfo(3)", words::kHintTargetHead},
    {"txtInfo(4)", words::kHintLocation},
    {"txtInfo(5)", words::kHintSurveyKind},
    {"txtDefault(0)", words::kHintStationInterval},
    {"txtDefault(1)", words::kHintNewHoleSize},
    {"txtDefault(2)", words::kHintOrifice},
    {"txtDefault(3)", words::kHintRoughness},
    {"txtDefault(4)", words::kHintFillWarning},
    {"txtDefault(5)", words::kHintNewPipeDiameter},
    {"txtDefault(6)", words::kHintNewSpacing},
    {"txtDefault(7)", words::kHintNewHoleCount},
    {"txtDefault(8)", words::kHintNewMil},
    {"txtDefault(9)", words::kHintNewSurveyKind},
    {"txtDefault(10)", words::kHintNewTargetHead},
    {"txtDefault(11)", words::kHintGateForm},
    {"txtDefault(12)", words::kHintGateSize},
    {"txtDefault(13)", words::kHintHighestHead},
    {"txtDefault(14)", words::kHintHeadStep},
    {"txtDefault(15)", words::kHintOpenFilter},
    {"txtBest(0)", words::kHintStretches},
    {"txtBest(1)", words::kHintLeastHead},
    {"txtBest(2)", words::kHintHighestHeadOfPipe},
    {"listAllHoles", words::kHintAllHoles},
    {"listHolesSelected", words::kHintSelectedHoles},
    {"Grid2", words::kHintResults},
    {"cmdReCalc", words::kHintResults},
    {"cmdDesignToggle", words::kHintResults},
};

}  // namespace

void txtInfo_GotFocus(Program& program, int index) {
  SelectWhereShown(program, program.main.txtInfo.at(static_cast<std::size_t>(index)));
  if (!program.main.Frame1.visible) return;
  program.main.Frame1.visible = false;
  ShowBehindPreferences(program);
}

void SelectWhereShown(Program& program, TextField& field) {
  if (ShownText(program, program.main.focus) == field.text()) field.SelectAll();
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
    if (named.parent != panel || !TakesFocus(named.kind) || ReachOf(program, named.name) != Reach::kUsable) continue;
    MoveFocus(program, named.name);
    return;
  }
}

SpokenSentence FocusHint(const Program& program, std::string_view control) {
  if (control == "Grid1") return ColumnHint(program.main.Grid1.column);
  for (const Hint& hint : kHints) {
    if (hint.control == control) return hint.text;
  }
  return {};
}

bool IsHint(std::string_view text) {
  for (int column = 0; column < kSurveyColumns; ++column) {
    if (ColumnHint(column) == text) return true;
  }
  return std::any_of(std::begin(kHints), std::end(kHints), [&](const Hint& hint) { return hint.text.text() == text; });
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
