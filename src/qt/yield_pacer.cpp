#include "qt/yield_pacer.h"

#include <algorithm>

namespace torvale {
namespace {

constexpr double kSliceMilliseconds = 10;
constexpr long kLongestSlice = 10'000'000;

}  // namespace

long NextSlice(long slice, double milliseconds) {
  const double factor = milliseconds > 0 ? std::clamp(kSliceMilliseconds / milliseconds, 0.25, 4.0) : 4.0;
  return std::clamp(static_cast<long>(static_cast<double>(slice) * factor), 1L, kLongestSlice);
}

bool YieldPacer::Count(long due) {
  counted_ += due;
  if (counted_ < slice_) return false;
  const std::chrono::duration<double, std::milli> taken = Clock::now() - start_;
  slice_ = NextSlice(counted_, taken.count());
  return true;
}

void YieldPacer::Restart() {
  counted_ = 0;
  start_ = Clock::now();
}

}  // namespace torvale
