#include "search/hole_selection_panel.h"

#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "display/input_screen.h"
#include "engine/stations.h"
#include "engine/uniformity.h"
#include "record/hole_sizes.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/cal_dsign_var.h"
#include "search/design_commands.h"
#include "search/flow_run.h"
#include "search/head_loop.h"
#include "search/survey_completion.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

constexpr int kMostSelected = kHoleSizes + 1;  // lines that the record's list of sizes holds

// The interpolation button is hidden again as the last act; the next change of the input brings it back.
void AbandonDesign(Program& program) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  main.busy = false;
  record.BestUniformity = 0;
  record.BestHeadFound = 0;
  main.frameHoleSelection.visible = false;
  Tell(program, words::kNoHolesSelected);
  ForgetNews(program);
  ShowInput(program);
  main.mnuWindowInfo.visible = false;
  TickDesign(program, kNoDesign);
  record.DesignType = kNoDesign;
  record.SpacingWarningOff = 0;
  main.frmDisplayLbl[Figure::kCrownDifferential].caption.clear();
  main.title = TitleWith("");
  main.cmdInterpolate.visible = false;
  Say(program, words::kHowToSelectHoles);
}

// Puts the chosen sizes into the record in ascending order. A line that is no name of the table adds no size, and the
// sorted list is shorter then; a line that is not there reads as 0.
void TakeSelectedSizes(Program& program) {
  DesignRecord& record = program.record;
  const ListBox& chosen = program.main.listHolesSelected;
  ListBox& sorted = program.main.listSortSelectedHoles;
  for (int j = 0; j < chosen.count(); ++j) {
    const int size = HoleSizeByName(record, chosen.Line(j));
    if (size == 0) continue;
    record.SelectedHoleName[j] = record.HoleSizeName[size];
    record.SelectedHoleValue[j] = record.HoleSizeValue[size];
    // With its leading blank and no zero ahead of the point, the order of the texts is the order of the numbers.
    sorted.Add(" " + GeneralText(record.HoleSizeValue[size]));
  }
  for (int j = 0; j < chosen.count(); ++j) record.SelectedHoleValue[j] = Store32(Val(sorted.Line(j)));
  for (int j = 0; j < sorted.count(); ++j) {
    const int size = HoleSizeByValue(record, record.SelectedHoleValue[j]);
    if (size > 0) record.SelectedHoleName[j] = record.HoleSizeName[size];
  }
}

// The best head seldom is the one that was typed.
void TellHead(Program& program, const std::string& typed) {
  const std::string& found = TextOf(program.main, InfoField::kTargetHead);
  if (Val(typed) == Val(found)) return;
  SayToo(program, words::kBestHead(typed, found));
}

// The line of a shown selection with its holes as they are. False where no flow was found for it.
bool MarchAgain(Program& program) {
  const Calculating calculating(program.running);
  DesignRecord& record = program.record;
  record.CancelFlag = false;
  ForgetBestHoles(program.main);
  ShareFlow(record);
  FlowRatio(record);
  int tries = 0;
  RunFlowCalc(program, tries);
  if (record.CancelFlag) return false;
  SortFurrows(record);
  ScreenEngineHost host(program);
  DistributionEffic(record, host);
  DisplayDesign(program);
  return true;
}

}  // namespace

void BeginListedDesign(Program& program, const DesignKind& kind) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  main.busy = true;
  record.CalcProblem.clear();
  record.ManualTargetHead = Store32(Val(TextOf(main, InfoField::kTargetHead)));
  record.BestUniformity = 0;
  record.BestHeadFound = 0;
  TakeSelectedSizes(program);
  BeginRun(program, kind);
  main.lblCrownSlope.visible = false;
  ForgetBestHoles(main);
  ScreenControlsOff(program);
  main.busy = true;
  cmdInterpolate_Click(program);
  main.frameHoleSelection.visible = false;
}

void BackToInput(Program& program) {
  ScreenControlsOn(program);
  ShowInput(program);
  program.main.busy = false;
}

void cmdADDtoSelected_Click(Program& program) {
  const ListBox& all = program.main.listAllHoles;
  ListBox& chosen = program.main.listHolesSelected;
  for (int i = 0; i < all.count(); ++i) {
    if (!all.Selected(i)) continue;
    if (chosen.count() == kMostSelected) {
      program.host.Beep();
      break;
    }
    chosen.Add(all.Line(i));
  }
  // Only neighbours are merged: a size added again with another between stays twice.
  for (int i = chosen.count() - 1; i >= 0; --i) {
    if (i + 1 < chosen.count() && chosen.Line(i) == chosen.Line(i + 1)) chosen.Remove(i);
  }
}

void cmdremoveSelected_Click(Program& program) {
  ListBox& chosen = program.main.listHolesSelected;
  for (int i = chosen.count() - 1; i >= 0; --i) {
    if (chosen.Selected(i)) chosen.Remove(i);
  }
}

void Command1_Click(Program& program) {
  program.main.listHolesSelected.Clear();
}

void cmdExitHoleSelect_Click(Program& program) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  main.busy = true;
  record.CalcProblem.clear();
  record.ManualTargetHead = Store32(Val(TextOf(main, InfoField::kTargetHead)));
  if (main.listHolesSelected.count() == 0) {
    AbandonDesign(program);
    return;
  }
  BeginListedDesign(program, *FindDesignKind(kLimitedHoles));
  if (record.DesignOK == "False" || record.MissingData == -1) {
    // The panel was left open while another run failed; the screen must not stay locked.
    BackToInput(program);
    return;
  }
  main.busy = false;
  const std::string typed_head = TextOf(main, InfoField::kTargetHead);
  if (EfficAdjust(program)) {
    TellHead(program, typed_head);
  } else {
    BackToInput(program);
  }
}

void MarchShownSelection(Program& program) {
  ForgetNews(program);
  try {
    if (MarchAgain(program)) return;
  } catch (const RunTimeFault& fault) {
    Say(program, WhatStopped(program, fault).sentence);
  }
  program.record.DesignOK = "False";
  BackToInput(program);
}

}  // namespace torvale
