// A whole field, typed: what a design needs and no more.
#pragma once

#include "shell/events.h"
#include "support/level_line.h"

namespace torvale {

inline void TypeLevelField(Program& program) {
  TypeText(program, "txtInfo(2)", "30");
  TypeText(program, "txtInfo(3)", "2");
  TypeText(program, "txtInfo(5)", "E");
  FillLevelLine(program.main.Grid1);
}

}  // namespace torvale
