#include "batch/field_pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <set>
#include <thread>

namespace torvale {
namespace {

using std::chrono::milliseconds;

std::vector<std::size_t> UpTo(std::size_t count) {
  std::vector<std::size_t> indices(count);
  std::iota(indices.begin(), indices.end(), std::size_t{0});
  return indices;
}

FieldOutcome Outcome(const std::string& rows, FieldEnd end = FieldEnd::kDone) {
  FieldOutcome outcome;
  outcome.rows = rows;
  outcome.end = end;
  return outcome;
}

class PoolTest : public ::testing::Test {
 protected:
  // A pool of threads that work out `worker`.
  int Run(std::size_t count, const Worker& worker) {
    PoolHandlers handlers;
    handlers.make_worker = [&worker, this] {
      ++workers;
      return worker;
    };
    handlers.finished = [this](std::size_t index, const FieldOutcome& outcome) { finished[index] = outcome.rows; };
    handlers.tick = [this] { return go_on.load(); };
    handlers.hung = [](std::size_t) { return Outcome("hung", FieldEnd::kOutOfTime); };
    return WorkAll(UpTo(count), options, handlers);
  }

  PoolOptions options{4, milliseconds(60'000), milliseconds(60'000)};
  std::map<std::size_t, std::string> finished;
  std::atomic<int> workers = 0;
  std::atomic<bool> go_on = true;
};

TEST_F(PoolTest, WorksEveryThingOnce) {
  std::atomic<int> calls = 0;
  EXPECT_EQ(Run(1000,
                [&](std::size_t index, const Until&) {
                  ++calls;
                  return Outcome(std::to_string(index));
                }),
            0);
  EXPECT_EQ(calls, 1000);
  EXPECT_EQ(workers, 4);
  ASSERT_EQ(finished.size(), 1000U);
  for (const auto& [index, rows] : finished) EXPECT_EQ(rows, std::to_string(index));
}

TEST_F(PoolTest, HasNothingToDoWithoutThings) {
  EXPECT_EQ(Run(0, [](std::size_t, const Until&) { return Outcome(""); }), 0);
  EXPECT_TRUE(finished.empty());
}

TEST_F(PoolTest, TellsEachWhenItsTimeIsOver) {
  options.limit = milliseconds(20);
  Run(8, [](std::size_t, const Until& until) {
    while (!until.Over()) std::this_thread::sleep_for(milliseconds(1));
    return Outcome("late", FieldEnd::kOutOfTime);
  });
  EXPECT_EQ(finished.size(), 8U);
}

// Thing 1 never heeds anything. It is given up, another thread takes the place of its own, the rest is worked.
TEST_F(PoolTest, GivesUpWhatHangsAndGoesOn) {
  options = {1, milliseconds(10), milliseconds(50)};
  const auto release = std::make_shared<std::atomic<bool>>(false);
  EXPECT_EQ(Run(3,
                [release](std::size_t index, const Until&) {
                  while (index == 1 && !*release) std::this_thread::sleep_for(milliseconds(1));
                  return Outcome("done");
                }),
            1);
  EXPECT_EQ(finished, (std::map<std::size_t, std::string>{{0, "done"}, {1, "hung"}, {2, "done"}}));
  *release = true;
  std::this_thread::sleep_for(milliseconds(50));
}

TEST_F(PoolTest, StopsSoonAndDropsWhatWasAtWork) {
  std::atomic<int> begun = 0;
  Run(100'000, [&](std::size_t index, const Until& until) {
    if (++begun == 50) go_on = false;
    for (int i = 0; index >= 50 && i < 10'000 && !until.Over(); ++i) std::this_thread::sleep_for(milliseconds(1));
    return Outcome("done");
  });
  EXPECT_LT(finished.size(), 60U);
  EXPECT_LT(begun, 60);
}

}  // namespace
}  // namespace torvale
