// How far a run is, told as it goes.
#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace torvale {

// How far a run is: on a terminal a bar that is drawn over itself, with the rate and the time left; otherwise plain
// lines, at the beginning often and then more seldom.
class Progress {
 public:
  enum class Kind { kNone, kLines, kBar };
  Progress(std::ostream& out, Kind kind, std::size_t total)
      : out_(out), kind_(kind), total_(total), begun_(Clock::now()), shown_(begun_) {}

  // So many fields are finished, so many of them with something refused. Draws where it is time to.
  void Tell(std::size_t finished, std::size_t refused);
  // Draws once more, and leaves the line.
  void End(std::size_t finished, std::size_t refused);

 private:
  using Clock = std::chrono::steady_clock;
  void Draw(std::size_t finished, std::size_t refused, Clock::time_point now);

  std::ostream& out_;
  Kind kind_;
  std::size_t total_;
  Clock::time_point begun_;
  Clock::time_point shown_;
  std::chrono::milliseconds pause_{1000};  // between two lines
  std::size_t width_ = 0;                  // of the bar's line as it stands
};

// "312 of 1000 fields, 104 a second, 0:07 left, 3 refused". The time left is not told before anything is finished.
std::string ProgressText(std::size_t finished, std::size_t refused, std::size_t total, double seconds);

}  // namespace torvale
