#include "engine/crew_rounds.h"

#include <thread>

namespace torvale {
namespace {

// Rounds are short: mostly the other side is ready before a thread would have fallen asleep.
constexpr int kLooks = 16;

}  // namespace

// What `ready` asks about changes before the lock is taken once and `told` is notified, or under the lock.
template <typename Ready>
void CrewRounds::WaitUntil(std::condition_variable& told, const Ready& ready) {
  for (int look = 0; look < kLooks; ++look) {
    if (ready()) return;
    std::this_thread::yield();
  }
  std::unique_lock lock(mutex_);
  told.wait(lock, ready);
}

int CrewRounds::Begin(int shares) {
  busy_ = shares;
  int round = 0;
  {
    const std::lock_guard lock(mutex_);
    round = ++round_;
  }
  begun_.notify_all();
  return round;
}

bool CrewRounds::TakeOn(int share, int round) {
  int before = round - 1;
  return taken_on_[share].compare_exchange_strong(before, round);
}

void CrewRounds::AwaitEnd() {
  WaitUntil(ended_, [this] { return busy_ == 0; });
}

void CrewRounds::End() {
  ends_ = true;
  Begin(0);
}

bool CrewRounds::Await(int& seen) {
  WaitUntil(begun_, [this, seen] { return round_ != seen; });
  seen = round_;
  return !ends_;
}

void CrewRounds::Done() {
  if (--busy_ != 0) return;
  // The leader has looked before this lock and sleeps, or looks after it.
  { const std::lock_guard lock(mutex_); }
  ended_.notify_one();
}

}  // namespace torvale
