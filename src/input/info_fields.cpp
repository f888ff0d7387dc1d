#include "input/info_fields.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/grid_layout.h"
#include "engine/survey.h"
#include "input/field_marks.h"
#include "input/focus.h"
#include "screen/fields.h"
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"

namespace torvale {
namespace {

constexpr int kLastField = InfoField::kSurveyKind;

TextField& Field(Program& program, int index) {
  return program.main.txtInfo.at(static_cast<std::size_t>(index));
}

const InfoFacts& FactsOfField(int index) {
  return kInfoFacts.at(static_cast<std::size_t>(index));
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
  for (int i = first; i <= last; ++i) Field(program, i).max_length = FactsOfField(i).longest;
}

void txtInfo_Change(Program& program, int index) {
  if (index == InfoField::kGpm) {
    TakeNumber(Field(program, index), program.record.TargetGPM);
  } else {
    MarkField(Field(program, index), FactsOfField(index).form);
  }
  if (index == InfoField::kSurveyKind) {
    Field(program, index).Set(UpperCase(std::string(Field(program, index).text())));
  }
  NameCrown(program, kRodHeading, kElevationHeading);
  SetLongestTexts(program, index);
}

std::string FieldName(int index) {
  return NameOf(static_cast<InfoField::Index>(index));
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

}  // namespace

void ConnectInfoFields(Program& program) {
  for (int i = 0; i <= kLastField; ++i) {
    Field(program, i).on_change = [&program, i] { txtInfo_Change(program, i); };
  }
  for (TextField& field : program.main.txtBest) {
    field.on_change = [&field] { MarkField(field, FieldForm::kNumber); };
  }
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
  TickPipe(program);
  main.Grid1.Set(0, kHoleSizeColumn, rigid ? kHoleWidthHeading : kHoleDiameterHeading);
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

}  // namespace torvale
