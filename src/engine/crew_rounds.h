// Rounds of work that a leading thread shares with helpers: each round begins for all of them at once and ends with the
// last one. Only for one leader; the helpers are as many in every round.
//
// Locks and conditions alone, since a wait on an atomic number sleeps through its change now and then in GCC 12's
// library for Windows: it looks at the number ahead of the lock under which it falls asleep.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace torvale {

class CrewRounds {
 public:
  // The leader: begins a round, and waits until each of the helpers has said `Done`.
  void Begin(int helpers);
  void AwaitEnd();
  // No more rounds. Not within one.
  void End();

  // A helper: waits for the round after `seen`, which becomes its number; the first one comes after 0. False where
  // there will be none.
  bool Await(int& seen);
  void Done();

 private:
  template <typename Ready>
  void WaitUntil(std::condition_variable& told, const Ready& ready);

  std::mutex mutex_;
  std::condition_variable begun_;
  std::condition_variable ended_;
  std::atomic<int> round_{0};
  std::atomic<int> busy_{0};
  std::atomic<bool> ends_{false};
};

}  // namespace torvale
