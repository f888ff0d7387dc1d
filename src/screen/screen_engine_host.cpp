#include "screen/screen_engine_host.h"

#include "base/format.h"

namespace torvale {

long ScreenEngineHost::Yield(long due) {
  return program_.host.Yield(due);
}

void ScreenEngineHost::TotalAcresChanged() {
  program_.main.lblAcresTotal.caption = TotalAcresText(program_);
}

void ScreenEngineHost::UniformityChanged() {
  program_.main.lblEffic.back = program_.record.Uniformity >= 90 ? kBrightGreen : kYellow;
  program_.main.lblEffic.visible = true;
}

std::string TotalAcresText(const Program& program) {
  return "Total Acres = " + Format(program.record.TotalAcres, "###0.0");
}

}  // namespace torvale
