#include "scenarios/latest_scenarios.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "scenarios/fields_by_hand.h"

namespace torvale {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

ScenarioInput SampleInput() {
  std::ostringstream transcript;
  Session session(transcript);
  std::istringstream script(InputPartOf(SampleScripts().at(0)));
  ReplayScript(session, script);
  return InputOf(session.program);
}

using Kinds = std::vector<const DesignKind*>;

// Waits until the newest question is answered. An answer that doesn't come is a failure, not a wait.
LatestScenarios::Answer Wait(LatestScenarios& scenarios) {
  const auto begun = steady_clock::now();
  for (;;) {
    LatestScenarios::Answer answer = scenarios.Look();
    if (answer.complete) return answer;
    if (steady_clock::now() - begun > seconds(60)) {
      ADD_FAILURE() << "no answer in a minute";
      return answer;
    }
    std::this_thread::sleep_for(milliseconds(1));
  }
}

TEST(LatestScenarios, AnswersInTheOrderAsked) {
  LatestScenarios scenarios;
  EXPECT_EQ(scenarios.Look().number, 0U);
  const ScenarioInput input = SampleInput();
  EXPECT_EQ(scenarios.Ask(input, {FindDesignKind(kExistingField), FindDesignKind(kConstantSlope)}), 1U);
  const LatestScenarios::Answer answer = Wait(scenarios);
  EXPECT_EQ(answer.number, 1U);
  ASSERT_EQ(answer.results.size(), 2U);
  QuietProgram quiet;
  EXPECT_EQ(answer.results[0], quiet.Run(input, kExistingField));
  EXPECT_EQ(answer.results[1], quiet.Run(input, kConstantSlope));
}

// Two hundred questions as fast as they can be asked: one answer comes, that of the last, and each question before it
// was given up and not worked through. Two hundred times six designs would take many times as long as one.
TEST(LatestScenarios, ANewerQuestionCancelsAnOlderOne) {
  LatestScenarios scenarios;
  ScenarioInput input = SampleInput();
  Kinds all;
  for (const DesignKind& kind : DesignKinds().first<5>()) all.push_back(&kind);
  for (int i = 1; i <= 200; ++i) {
    input.fields[3] = std::to_string(i % 2 + 2);
    EXPECT_EQ(scenarios.Ask(input, all), static_cast<std::uint64_t>(i));
    if (i % 20 == 0) std::this_thread::sleep_for(milliseconds(2));
  }
  const LatestScenarios::Answer answer = Wait(scenarios);
  EXPECT_EQ(answer.number, 200U);
  ASSERT_EQ(answer.results.size(), all.size());
  for (const ScenarioResult& result : answer.results) {
    EXPECT_EQ(result.outcome, ScenarioOutcome::kDone);
    EXPECT_EQ(result.target_head, "2");  // of the last question
  }
}

TEST(LatestScenarios, EndsWhileItWorks) {
  const auto begun = steady_clock::now();
  for (int i = 0; i < 20; ++i) {
    LatestScenarios scenarios;
    scenarios.Ask(SampleInput(), Kinds(1000, FindDesignKind(kConstantSlope)));
  }
  // Worked through, the thousands of searches would take minutes.
  EXPECT_LT(steady_clock::now() - begun, seconds(30));
}

}  // namespace
}  // namespace torvale
