#include "input/hole_step.h"

#include "base/arithmetic.h"
#include "engine/survey.h"
#include "record/hole_sizes.h"

namespace torvale {
namespace {

// Puts the index next to the lowest filled size from the first row down to the cursor's. Where the size above is the
// last or the first of the table, the index then stands at an end already when the step is taken.
void SeekBelowFilledSize(DesignRecord& record, const Grid& sheet, int offset) {
  for (int row = 1; row <= sheet.row; ++row) {
    const int index = HoleSizeByName(record, sheet.Text(row, kHoleSizeColumn));
    if (index > 0) record.HoleSizeIndexLimit = index + offset;
  }
}

}  // namespace

void FollowHoleSize(Program& program) {
  const Grid& sheet = program.main.Grid1;
  const int index = HoleSizeByName(program.record, sheet.Text(sheet.row, kHoleSizeColumn));
  if (index > 0) program.record.HoleSizeIndexLimit = index;
}

void StepHoleSize(Program& program, HoleStep step) {
  DesignRecord& record = program.record;
  Grid& sheet = program.main.Grid1;
  const int row = sheet.row;
  const int offset = step == HoleStep::kLarger ? 1 : -1;
  if (sheet.Text(row, kHoleSizeColumn).empty()) {
    SeekBelowFilledSize(record, sheet, offset);
    if (row > 1) sheet.Set(row, kHoleSizeColumn, std::string(sheet.Text(row - 1, kHoleSizeColumn)));
  }
  const std::string& shown = sheet.Text(row, kHoleSizeColumn);
  const bool no_hole = shown.empty() || shown == record.HoleSizeName[0];
  if (no_hole) record.HoleSizeIndexLimit = 0;

  const int limit = ToWhole(Number(record.HoleSizeIndexLimit));
  const bool at_end = step == HoleStep::kLarger ? limit >= kHoleSizes : limit <= 0;
  const int index = HoleSizeByName(record, shown);
  if (at_end) {
    record.HoleSizeIndexLimit = step == HoleStep::kLarger ? 0 : kHoleSizes;
  } else if (index > 0 || no_hole) {
    record.HoleSizeIndexLimit = index + offset;
  }
  // A text that the table does not know leaves the index where it was and gives way to the size that it stands for.
  sheet.Set(row, kHoleSizeColumn, SteppedHoleSize(record, ToWhole(Number(record.HoleSizeIndexLimit))));
}

}  // namespace torvale
