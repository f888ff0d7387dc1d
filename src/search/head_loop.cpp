#include "search/head_loop.h"

#include <cmath>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/cal_dsign_var.h"

namespace torvale {
namespace {

// Lowers the Target Head by one increment, as the field shows it.
void LowerTargetHead(TextField& field, float increment) {
  const double head = Val(field.text()) - increment;
  field.Set(Format(Val(GeneralText(head)), "##.##"));
}

void KeepBestHead(DesignRecord& record, double head) {
  if (!(record.BestUniformity < record.Uniformity)) return;
  record.BestUniformity = record.Uniformity;
  record.BestHeadFound = Store32(head);
}

// One target head. False where the loop is over.
bool TryHead(Program& program, float increment, BuiltRows& rows) {
  TextField& field = program.main.txtInfo[InfoField::kTargetHead];
  program.main.busy = true;
  LowerTargetHead(field, increment);
  program.host.Yield(1);
  if (program.main.closed) return false;
  const double head = Val(field.text());
  if (head <= 0) return true;  // carries no water: the pass counts, nothing is worked out
  Cal_Dsign_Var(program, rows);
  if (program.record.MissingData == -1) return false;
  program.main.lblHeadCount.visible = true;
  program.main.lblHeadCount.caption = "Calculating Selected Holes: " + GeneralText(head);
  KeepBestHead(program.record, head);
  return program.record.DesignOK != "False";
}

}  // namespace

bool EfficAdjust(Program& program) {
  const Calculating calculating(program.running);
  DesignRecord& record = program.record;
  const MainScreen& main = program.main;
  const float increment = Narrow(Val(TextOf(main, Preference::kHeadStep)));
  const double highest = Val(TextOf(main, Preference::kHighestHead));
  if (!(increment > 0) || !std::isfinite(increment)) {
    Say(program, words::kIncrementTooSmall);
    return false;
  }
  record.BestHeadFound = 0;
  program.main.txtInfo[InfoField::kTargetHead].Set(TextOf(main, Preference::kHighestHead));
  BuiltRows rows;
  // The counter only counts the passes.
  for (double counter = 0.5; counter <= highest; counter += increment) {
    const double head = Val(TextOf(main, InfoField::kTargetHead));
    if (!TryHead(program, increment, rows)) return false;
    // With two decimals a small increment leaves the head where it is: all passes to come would be this one again.
    if (Val(TextOf(main, InfoField::kTargetHead)) == head) break;
  }
  program.main.txtInfo[InfoField::kTargetHead].Set(Trim(GeneralText(record.BestHeadFound)));
  Cal_Dsign_Var(program, rows);
  if (record.MissingData == -1) return false;
  DisplayDesign(program);
  ScreenControlsOn(program);
  program.main.busy = false;
  return record.DesignOK != "False";
}

}  // namespace torvale
