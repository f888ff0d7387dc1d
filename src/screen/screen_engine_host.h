// The engine's view of the program: its turns for the user, and the labels that follow its figures.
#pragma once

#include <string>

#include "engine/engine_host.h"
#include "screen/program.h"

namespace torvale {

class ScreenEngineHost : public EngineHost {
 public:
  explicit ScreenEngineHost(Program& program) : program_(program) {}

  long Yield(long due) override;
  void TotalAcresChanged() override;
  void UniformityChanged() override;

 private:
  Program& program_;
};

// Caption "Total Acres = " with `TotalAcres`, which most read-outs begin with.
std::string TotalAcresText(const Program& program);

}  // namespace torvale
