// Helpers that work in rounds: none is missed, none begins early, and all end.
#include "engine/crew_rounds.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace torvale {
namespace {

constexpr int kHelpers = 3;

// What each helper does in a round is told to the leader by the end of that round, for it is read without a lock.
TEST(CrewRounds, EveryHelperWorksOnceInEveryRound) {
  CrewRounds rounds;
  std::array<int, kHelpers> worked = {};
  std::vector<std::thread> helpers;
  for (int& count : worked) {
    helpers.emplace_back([&rounds, &count] {
      for (int seen = 0; rounds.Await(seen);) {
        ++count;
        rounds.Done();
      }
    });
  }
  int wrong = 0;
  for (int round = 1; round <= 1000; ++round) {
    rounds.Begin(kHelpers);
    rounds.AwaitEnd();
    if (worked != std::array<int, kHelpers>{round, round, round}) ++wrong;
    // Now and then long enough for all to have fallen asleep.
    if (round % 100 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  rounds.End();
  for (std::thread& helper : helpers) helper.join();
  EXPECT_EQ(wrong, 0);
}

// A thread may come into being after the first round began, or after the last one.
TEST(CrewRounds, ALateHelperTakesTheRoundThatHasBegun) {
  CrewRounds rounds;
  rounds.Begin(1);
  int worked = 0;
  std::thread helper([&rounds, &worked] {
    for (int seen = 0; rounds.Await(seen);) {
      ++worked;
      rounds.Done();
    }
  });
  rounds.AwaitEnd();
  rounds.End();
  helper.join();
  EXPECT_EQ(worked, 1);

  std::thread later([&rounds, &worked] {
    int seen = 0;
    if (rounds.Await(seen)) ++worked;
  });
  later.join();
  EXPECT_EQ(worked, 1);
}

// A share that no helper has taken on in time is the leader's; none is worked twice, and none is left.
TEST(CrewRounds, TheLeaderTakesOnTheSharesOfLateHelpers) {
  CrewRounds rounds;
  std::array<std::atomic<int>, kHelpers> worked = {};
  std::vector<std::thread> helpers;
  for (int share = 1; share < kHelpers; ++share) {
    helpers.emplace_back([&rounds, &worked, share] {
      for (int seen = 0; rounds.Await(seen);) {
        // Late now and then.
        if (seen % 7 == share) std::this_thread::sleep_for(std::chrono::microseconds(200));
        if (!rounds.TakeOn(share, seen)) continue;
        ++worked[static_cast<std::size_t>(share)];
        rounds.Done();
      }
    });
  }
  int wrong = 0;
  for (int round = 1; round <= 1000; ++round) {
    const int begun = rounds.Begin(kHelpers);
    for (int share = 0; share < kHelpers; ++share) {
      if (!rounds.TakeOn(share, begun)) continue;
      ++worked[static_cast<std::size_t>(share)];
      rounds.Done();
    }
    rounds.AwaitEnd();
    for (const std::atomic<int>& times : worked) wrong += times == round ? 0 : 1;
  }
  rounds.End();
  for (std::thread& helper : helpers) helper.join();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace torvale
