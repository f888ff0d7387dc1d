#include "search/design_commands.h"

#include <cstdint>
#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "display/input_screen.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/cal_dsign_var.h"
#include "search/survey_completion.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

bool Refused(const DesignRecord& record) {
  return record.DesignOK == "False" || record.MissingData == -1;
}

bool GaveUp(const DesignRecord& record) {
  return record.CancelFlag || record.DesignOK == "False";
}

// The two designs that march the input holes over the existing crown differ in their titles and marks alone.
void StartOnExistingCrown(Program& program, std::int16_t design_type) {
  MainScreen& main = program.main;
  main.lblCrownSlope.visible = false;
  BeginRun(program, *FindDesignKind(design_type));
  main.busy = true;
  cmdInterpolate_Click(program);
  Cal_Dsign_Var(program);
  if (Refused(program.record)) {
    const bool offered = main.cmdInterpolate.visible;
    ShowInput(program);  // the pointer stays as the failing step left it
    // After a cancelled run the button comes back with the next change of the input.
    if (program.record.MissingData == 0) main.cmdInterpolate.visible = offered;
  } else {
    main.busy = false;
  }
}

// The end of a run. The commands that leave the screen as it was where the input was refused leave the table of the
// design before.
void EndRun(Program& program) {
  LeaveRun(program);
  if (program.record.MissingData != -1 || !program.main.Grid2.control.visible) return;
  SayToo(program, words::kFormerTable);
}

// Goes back to the input screen where a run was given up.
void GoBack(Program& program) {
  if (GaveUp(program.record)) mnuWindowInfo_Click(program);
}

// Locks the screen for a slope search; the Cancel button alone stays usable.
void LockForSearch(Program& program) {
  ScreenControlsOff(program);
  program.main.cmdCancel.enabled = true;
}

// Whether the fields for the limits of the best holes stand on the panel; a limited selection hides them.
void OfferBestHoles(MainScreen& main, bool offered) {
  for (Control& label : main.lblBest) label.visible = offered;
  for (TextField& field : main.txtBest) field.control.visible = offered;
  main.cmdFindBestHoles.visible = offered;
  main.cmdCloseBestHoles.visible = offered;
  main.cmdExitHoleSelect.visible = !offered;
}

}  // namespace

void BeginRun(Program& program, const DesignKind& kind) {
  MainScreen& main = program.main;
  program.record.DesignType = kind.type;
  main.title = TitleWith(kind.title);
  TickDesign(program, &kind);
  main.cmdInterpolate.visible = false;
  main.frmDisplayLbl[Figure::kCrownDifferential].caption.clear();
}

void mnuDesignField_Click(Program& program) {
  StartOnExistingCrown(program, kPlanned);
}

void mnuExistingDesign_Click(Program& program) {
  StartOnExistingCrown(program, kExistingField);
}

// This command alone leaves the crown slope's label as it stands.
void mnuDesignConstSlope_Click(Program& program) {
  MainScreen& main = program.main;
  BeginRun(program, *FindDesignKind(kConstantSlope));
  program.record.SlopeDelta = 0;
  LockForSearch(program);
  cmdInterpolate_Click(program);
  main.busy = true;
  Cal_Dsign_Var(program);
  GoBack(program);
  main.busy = false;
  ScreenControlsOn(program);
  EndRun(program);
}

void mnuDesignDualSlope_Click(Program& program) {
  MainScreen& main = program.main;
  BeginRun(program, *FindDesignKind(kDualSlope));
  program.record.SlopeDelta = 0;
  main.lblCrownSlope.visible = false;
  LockForSearch(program);
  main.busy = true;
  cmdInterpolate_Click(program);
  Cal_Dsign_Var(program);
  main.busy = false;
  ScreenControlsOn(program);
  GoBack(program);
  EndRun(program);
}

void mnuComputerHoleSelection_Click(Program& program) {
  MainScreen& main = program.main;
  program.record.DesignOK = "True";
  main.lblCrownSlope.visible = false;
  BeginRun(program, *FindDesignKind(kComputerHoles));
  main.busy = true;
  cmdInterpolate_Click(program);
  Cal_Dsign_Var(program);
  main.busy = false;
  GoBack(program);
  EndRun(program);
}

void mnuManHoleSelection_Click(Program& program) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  record.MissingData = 0;
  record.DesignOK = "True";
  record.ManualTargetHead = Store32(Val(TextOf(main, InfoField::kTargetHead)));
  record.BestUniformity = 0;
  if (const SpokenSentence missing = EmptyFieldSentence(program); !missing.empty()) {
    Say(program, missing);
    RefuseInput(program);
    Tell(program, words::kInfoMissingForSelection);
    return;
  }
  main.frameHoleSelection.visible = true;
  OfferBestHoles(main, false);
  main.listSortSelectedHoles.Clear();
}

void mnuBestHoles_Click(Program& program) {
  mnuManHoleSelection_Click(program);
  if (program.record.MissingData == 0) OfferBestHoles(program.main, true);
}

void cmdReCalc_Click(Program& program) {
  bool ran_here = false;
  program.main.lblAcresTotal.caption = TotalAcresText(program) + std::string(48, ' ');
  program.main.main_busy = true;
  cmdInterpolate_Click(program);
  switch (program.record.DesignType) {
    case kLimitedHoles:
      if (program.main.best_holes) {
        mnuBestHoles_Click(program);
      } else {
        mnuManHoleSelection_Click(program);
      }
      break;
    case kConstantSlope:
      mnuDesignConstSlope_Click(program);
      break;
    default:
      Cal_Dsign_Var(program);
      ran_here = true;
  }
  program.main.main_busy = false;
  if (program.record.CancelFlag) GoBack(program);
  if (ran_here) EndRun(program);
}

void cmdCancel_Click(Program& program) {
  program.record.CancelFlag = true;
  program.record.DesignOK = "False";
  program.main.cmdCancel.visible = false;
}

void ShowInputScreen(Program& program) {
  MainScreen& main = program.main;
  main.title = TitleWith("");
  GiveUpDesign(program);
  main.mnuWindowInfo.visible = false;
  UntickDesignsOnTheWayBack(program);
  program.record.DesignType = kNoDesign;
  program.record.SpacingWarningOff = 0;
  program.record.CancelFlag = false;
}

void mnuWindowInfo_Click(Program& program) {
  ShowInputScreen(program);
  cmdInterpolate_Click(program);
}

}  // namespace torvale
