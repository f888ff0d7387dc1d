#include "base/platform_processor.h"

#include <thread>

namespace torvale {

VectorLanes WidestLanes() {
#if defined(__x86_64__) && defined(__GNUC__)
  if (__builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512dq") != 0 &&
      __builtin_cpu_supports("avx512vl") != 0) {
    return VectorLanes::kEight;
  }
  if (__builtin_cpu_supports("avx2") != 0) return VectorLanes::kFour;
#endif
  return VectorLanes::kOne;
}

int ProcessorThreads() {
  const unsigned threads = std::thread::hardware_concurrency();
  return threads == 0 ? 1 : static_cast<int>(threads);
}

}  // namespace torvale
