// Repeatable random choices.
#pragma once

#include <random>
#include <span>
#include <string>
#include <string_view>

#include "support/long_runs.h"

namespace torvale {

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}

  int Whole(int low, int high) { return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1)); }
  double Real(double low, double high) { return low + (high - low) * static_cast<double>(engine_()) / 4294967295.0; }
  bool OneIn(int n) { return Whole(1, n) == 1; }
  template <std::size_t kCount>
  std::string_view Of(const std::string_view (&choices)[kCount]) {
    return choices[static_cast<std::size_t>(Whole(0, static_cast<int>(kCount) - 1))];
  }

 private:
  std::mt19937 engine_;
};

// How many rounds a property is run: `count`, and many times that in the long runs.
inline unsigned Rounds(unsigned count) {
  return LongRun(count, count * 8, count * 40);
}

}  // namespace torvale
