#include "files/new_design.h"

#include <array>

#include "display/grid_layout.h"
#include "display/input_screen.h"
#include "engine/survey.h"
#include "files/preferences.h"
#include "input/info_fields.h"
#include "screen/status_line.h"
#include "search/best_holes_panel.h"

namespace torvale {
namespace {

constexpr std::size_t kHoleSizeDefault = 1;

struct FirstRowDefault {
  int column;
  std::size_t preference;
};

constexpr std::array<FirstRowDefault, 6> kFirstRow = {{
    {kSpacingColumn, 6},
    {kHoleSizeColumn, kHoleSizeDefault},
    {kHoleCountColumn, 7},
    {kMilColumn, 8},
    {kPipeDiaColumn, 5},
    {kPlantedWidthColumn, 6},
}};

void SetFirstRowCell(Program& program, const FirstRowDefault& cell) {
  program.main.Grid1.Set(1, cell.column, program.main.txtDefault[cell.preference].text());
}

// The screen goes back to the sheet; Planned is the marked kind.
void ShowEmptySheet(MainScreen& main) {
  main.mnuWindowInfo.enabled = false;
  main.mnuDesignField.ticked = true;
  main.mnuSurveyCopy.enabled = true;
  for (Control* entry : {&main.mnuDesignConstSlope, &main.mnuDesignDualSlope, &main.mnuExistingDesign,
                         &main.mnuManHoleSelection, &main.mnuComputerHoleSelection, &main.mnuBestHoles}) {
    entry->ticked = false;
  }
  main.title = "TORVALE   ";
}

}  // namespace

void Default_Values(Program& program) {
  ReadDefaultsFile(program);
  TakeDefaultFields(program);
  ApplyCoefficients(program);
  FillFirstRow(program);
}

void mnuFileNew_Click(Program& program) {
  MainScreen& main = program.main;
  main.Grid1.Clear();
  main.Grid2.Clear();
  GridSet(program);
  ForgetDesign(program);
  ForgetNews(program);
  ShowEmptySheet(main);
  for (TextField& field : main.txtInfo) field.Set("");
  ResetBestHoleLimits(main);
  main.txtInfo[1].Set(program.host.Today());
  ClearRowArrays(program.record);
  Default_Values(program);

  // The user starts at the hole size.
  main.Grid1.SetCurrent(1, kHoleSizeColumn);
  main.Grid1.Set(1, kCrownColumn, kFirstCrown);
  for (const FirstRowDefault& cell : kFirstRow) SetFirstRowCell(program, cell);
  ++program.stored_count;
  MoveFocus(program, "txtInfo(0)");
}

void FillFirstRow(Program& program) {
  for (const FirstRowDefault& cell : kFirstRow) {
    if (program.main.Grid1.Text(1, cell.column).empty()) SetFirstRowCell(program, cell);
  }
}

void TakeDefaultFields(Program& program) {
  program.main.txtInfo[3].Set(program.main.txtDefault[10].text());
  program.main.txtInfo[5].Set(program.main.txtDefault[9].text());
}

}  // namespace torvale
