#pragma once

#include <chrono>

namespace torvale {

// Decides at which of the many yields of a calculation events are let run: about every 10 ms. The number of yields to
// pass over follows the time that the last ones took.
class YieldPacer {
 public:
  // Counts `due` yields; true where it is time to let events run. `Restart` must follow once they have.
  bool Count(long due);
  // A new slice begins now.
  void Restart();
  // How many of the coming yields would do nothing.
  long Idle() const { return slice_ - counted_ - 1; }

 private:
  using Clock = std::chrono::steady_clock;
  long slice_ = 100;
  long counted_ = 0;
  Clock::time_point start_ = Clock::now();
};

// The number of yields in the next slice, when the last one of `slice` yields took `milliseconds`. It changes by a
// factor of four at most, so that one stall doesn't upset it.
long NextSlice(long slice, double milliseconds);

}  // namespace torvale
