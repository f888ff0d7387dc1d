// The designs of one set of inputs side by side, on the desk beside the screens.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "scenarios/latest_scenarios.h"
#include "screen/program.h"

namespace torvale {

// A row of the comparison: a kind of design by the name that it has there.
struct ComparisonRow {
  const DesignKind* kind;
  std::string_view name;
};
// In the order in which they are worked out.
const std::vector<ComparisonRow>& ComparisonRows();

// Puts a result into the row of its kind. That of the best holes is held against the two hole selections, whose rows
// are to be of the same question.
void TakeResult(DeskScreen& desk, const ScenarioResult& result);

// Keeps the desk's comparison true to what stands on the screen. Nothing is worked out while the comparison is closed.
// All functions are for the thread of the program.
class LiveComparison {
 public:
  // `on_result` is called on another thread when there is something to take.
  explicit LiveComparison(Program& program, std::function<void()> on_result = {});

  // An event has ended: asks anew where the inputs are others than those asked about. Costs a comparison of two numbers
  // where they are not, and else a copy of the inputs.
  void Follow();
  // Writes what is known by now to the desk. True where something was.
  bool Take();
  // Follow and Take at once, on this thread: for desktops that wait for nothing.
  void Settle();

 private:
  bool Due();

  Program& program_;
  std::function<void()> on_result_;
  std::unique_ptr<LatestScenarios> latest_;  // begun with the first question
  std::unique_ptr<QuietProgram> quiet_;      // of Settle, the same
  std::size_t taken_ = 0;                    // results of the newest question
};

}  // namespace torvale
