#include "input/info_fields.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/grid_layout.h"
#include "display/input_screen.h"
#include "engine/survey.h"
#include "input/field_marks.h"
#include "input/sheet.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"

namespace torvale {
namespace {

constexpr int kLastField = InfoField::kSurveyKind;
constexpr std::array<int, 6> kLongestText = {60, 12, 10, 10, 60, 1};

TextField& Field(Program& program, int index) {
  return program.main.txtInfo.at(static_cast<std::size_t>(index));
}

// Names the crown column of the sheet after the survey kind; any other kind leaves the headings. In the results it is
// the column of hole numbers that takes the name, until a table is shown.
void NameCrown(Program& program, std::string_view rods, std::string_view elevations) {
  const bool reads_rods = ReadsRods(program.main);
  if (!reads_rods && !ReadsElevations(program.main)) return;
  const std::string_view heading = reads_rods ? rods : elevations;
  program.main.Grid1.Set(0, kCrownColumn, heading);
  program.main.Grid2.Set(0, kResultHoleNumber, heading);
}

// The survey kind is limited after its own first change, the other fields after the first change of any of them.
void SetLongestTexts(Program& program, int index) {
  const bool is_kind = index == kLastField;
  const int first = is_kind ? kLastField : 0;
  const int last = is_kind ? kLastField : kLastField - 1;
  for (int i = first; i <= last; ++i) Field(program, i).max_length = kLongestText.at(static_cast<std::size_t>(i));
}

void txtInfo_Change(Program& program, int index) {
  if (index == InfoField::kGpm) {
    TakeNumber(Field(program, index), program.record.TargetGPM);
  } else {
    MarkField(Field(program, index), FormOfInfo(index));
  }
  if (index == InfoField::kSurveyKind) {
    Field(program, index).Set(UpperCase(std::string(Field(program, index).text())));
  }
  NameCrown(program, "Rod Reading (feet)", "Elevation (feet)");
  SetLongestTexts(program, index);
}

std::string FieldName(int index) {
  return NameOf(static_cast<InfoField::Index>(index));
}

// The index of a field by its name, or -1.
int InfoIndex(std::string_view control) {
  for (int i = 0; i <= kLastField; ++i) {
    if (control == FieldName(i)) return i;
  }
  return -1;
}

const std::string& ShownText(Program& program, std::string_view control) {
  static const std::string nothing;
  if (const TextField* field = FindField(program, control)) return field->text();
  const Control* other = FindControl(program, control);
  return other != nullptr ? other->caption : nothing;
}

void ChoosePipe(Program& program, std::string_view kind) {
  SetPipeKind(program, kind);
  program.main.Grid1.SetCurrent(0, kHoleSizeColumn);
}

// A shown design follows the kind of pipe. A limited hole selection keeps its holes: its line is marched again and the
// table shows the openings of the kind that is ticked.
void RunShownDesign(Program& program) {
  if (!program.main.Grid2.control.visible) return;
  if (program.record.DesignType == kLimitedHoles) {
    MarchShownSelection(program);
  } else {
    cmdReCalc_Click(program);
  }
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

// Whether a text tells what a field, a sheet or a column is for, and no news.
bool IsHint(std::string_view text) {
  for (int column = 0; column < kSurveyColumns; ++column) {
    if (ColumnHint(column) == text) return true;
  }
  return std::any_of(std::begin(kHints), std::end(kHints), [&](const Hint& hint) { return hint.text.text() == text; });
}

}  // namespace

void ConnectInfoFields(Program& program) {
  for (int i = 0; i <= kLastField; ++i) {
    Field(program, i).on_change = [&program, i] { txtInfo_Change(program, i); };
  }
  for (TextField& field : program.main.txtBest) {
    field.on_change = [&field] { MarkField(field, FieldForm::kNumber); };
  }
}

void txtInfo_GotFocus(Program& program, int index) {
  SelectWhereShown(program, Field(program, index));
  if (!program.main.Frame1.visible) return;
  program.main.Frame1.visible = false;
  ShowBehindPreferences(program);
}

void SelectWhereShown(Program& program, TextField& field) {
  if (ShownText(program, program.main.focus) == field.text()) field.SelectAll();
}

bool txtInfo_Key(Program& program, int index, FieldKeyKind key) {
  if (key == FieldKeyKind::kDown || key == FieldKeyKind::kUp) {
    const int next = key == FieldKeyKind::kDown ? index + 1 : index - 1;
    if (next < 0 || next > kLastField) return false;
    MoveFocus(program, FieldName(next));
    return true;
  }
  const bool goes_on = key == FieldKeyKind::kEnter && index < kLastField;
  if (goes_on) MoveFocus(program, FieldName(index + 1));
  NameCrown(program, "Rod Readings", "Elevations");
  return goes_on;
}

void SetPipeKind(Program& program, std::string_view kind) {
  MainScreen& main = program.main;
  program.record.PipeKind = kind;
  const bool rigid = IsRigid(program.record);
  main.mnuLayflatPipe.ticked = IsLayflat(program.record);
  main.mnuRigidPipe.ticked = rigid;
  main.Grid1.Set(0, kHoleSizeColumn, rigid ? "Hole Width (fractions)" : "Hole Diameter (fractions)");
}

void mnuLayflatPipe_Click(Program& program) {
  ChoosePipe(program, kLayflat);
  program.main.lblSumHoleDia.tool_tip.clear();
  RunShownDesign(program);
}

void mnuRigidPipe_Click(Program& program) {
  ChoosePipe(program, kRigid);
  RunShownDesign(program);
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

}  // namespace torvale
