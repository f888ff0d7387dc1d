// Rounds of work that a leading thread shares with helpers: each round begins for all of them at once and ends with the
// last share. Only for one leader.
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
  static constexpr int kMostShares = 4;

  // The leader: begins a round of so many shares and gives back its number, and waits until `Done` was said as often.
  int Begin(int shares);
  void AwaitEnd();
  // No more rounds. Not within one.
  void End();

  // A helper: waits for the round after `seen`, which becomes its number; the first one comes after 0. False where
  // there will be none.
  bool Await(int& seen);

  // For shares that the leader works itself where a helper comes too late, since others keep the processor busy:
  // whether the caller is the first to take on that share (from 0) of the round. Whoever is works it and says `Done`.
  // All shares of every round must be taken on so, by the leader if by nobody else, or none of any.
  bool TakeOn(int share, int round);
  void Done();

 private:
  template <typename Ready>
  void WaitUntil(std::condition_variable& told, const Ready& ready);

  std::mutex mutex_;
  std::condition_variable begun_;
  std::condition_variable ended_;
  std::atomic<int> round_{0};
  std::atomic<int> busy_{0};
  std::atomic<int> taken_on_[kMostShares] = {};  // the last round in which somebody did
  std::atomic<bool> ends_{false};
};

}  // namespace torvale
