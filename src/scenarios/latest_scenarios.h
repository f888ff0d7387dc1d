// Designs worked out beside the one on the screen, on a thread of their own.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

#include "scenarios/scenario.h"

namespace torvale {

// Works out what was asked for last, on a thread of its own: a newer question cancels an older one through the yields
// of its calculation, and nothing of the older one is heard of again. All functions are for one thread, the asking one.
class LatestScenarios {
 public:
  // `on_result` is called on that thread whenever there is more to look at.
  explicit LatestScenarios(std::function<void()> on_result = {});
  // Cancels what is being worked out and waits for the thread, which takes as long as the stretch between two yields.
  ~LatestScenarios();
  LatestScenarios(const LatestScenarios&) = delete;
  LatestScenarios& operator=(const LatestScenarios&) = delete;

  // The designs are worked out in the order given, each by its kind. Gives back the number of the question, from 1.
  std::uint64_t Ask(ScenarioInput input, std::vector<const DesignKind*> designs);

  // What is known of the newest question: the results so far, in their order.
  struct Answer {
    std::uint64_t number = 0;  // 0 before anything was asked
    bool complete = true;
    std::vector<ScenarioResult> results;
  };
  Answer Look();

 private:
  struct Question {
    std::uint64_t number;
    ScenarioInput input;
    std::vector<const DesignKind*> designs;
    std::stop_token stop;
  };
  void Work(const std::stop_token& end);
  void WorkOut(QuietProgram& quiet, const Question& question);
  bool Keep(const Question& question, ScenarioResult result, bool complete);

  std::function<void()> on_result_;
  std::mutex mutex_;  // over all that follows but the thread
  std::condition_variable_any asked_;
  std::optional<Question> next_;
  std::stop_source stop_;  // of the newest question
  Answer answer_;
  std::jthread thread_;
};

}  // namespace torvale
