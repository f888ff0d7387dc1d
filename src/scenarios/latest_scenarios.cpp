#include "scenarios/latest_scenarios.h"

#include <utility>

namespace torvale {

LatestScenarios::LatestScenarios(std::function<void()> on_result)
    : on_result_(std::move(on_result)), thread_([this](const std::stop_token& end) { Work(end); }) {}

LatestScenarios::~LatestScenarios() {
  {
    const std::lock_guard lock(mutex_);
    stop_.request_stop();
  }
  thread_.request_stop();
  thread_.join();
}

std::uint64_t LatestScenarios::Ask(ScenarioInput input, std::vector<const DesignKind*> designs) {
  std::uint64_t number = 0;
  {
    const std::lock_guard lock(mutex_);
    stop_.request_stop();
    stop_ = std::stop_source();
    number = answer_.number + 1;
    answer_ = {number, designs.empty(), {}};
    next_ = Question{number, std::move(input), std::move(designs), stop_.get_token()};
  }
  asked_.notify_one();
  return number;
}

LatestScenarios::Answer LatestScenarios::Look() {
  const std::lock_guard lock(mutex_);
  return answer_;
}

void LatestScenarios::Work(const std::stop_token& end) {
  QuietProgram quiet;
  while (!end.stop_requested()) {
    std::optional<Question> question;
    {
      std::unique_lock lock(mutex_);
      asked_.wait(lock, end, [this] { return next_.has_value(); });
      question = std::exchange(next_, std::nullopt);
    }
    if (question) WorkOut(quiet, *question);
  }
}

void LatestScenarios::WorkOut(QuietProgram& quiet, const Question& question) {
  for (std::size_t i = 0; i < question.designs.size(); ++i) {
    const bool last = i + 1 == question.designs.size();
    if (!Keep(question, quiet.Run(question.input, *question.designs[i], {question.stop, {}}), last)) return;
    if (on_result_) on_result_();
  }
}

// False where a newer question was asked meanwhile.
bool LatestScenarios::Keep(const Question& question, ScenarioResult result, bool complete) {
  const std::lock_guard lock(mutex_);
  if (question.number != answer_.number || question.stop.stop_requested()) return false;
  answer_.results.push_back(std::move(result));
  answer_.complete = complete;
  return true;
}

}  // namespace torvale
