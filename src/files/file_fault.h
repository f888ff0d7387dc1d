// How a file operation fails.
#pragma once

#include "base/run_time_fault.h"

namespace torvale {

// The operating system's error number, or one of those below.
struct FileFault {
  int number;
};

inline constexpr int kOutOfBounds = 9;  // a count or index beyond its list, a number beyond its field
inline constexpr int kWrongKind = 13;   // a field that is not of the kind that is read
inline constexpr int kPastTheEnd = 62;  // no field left

// Runs `work` and gives back the number of the error that ended it, 0 for none. A run-time fault counts as a value out
// of bounds.
template <typename Work>
int ErrorOf(const Work& work) {
  try {
    work();
    return 0;
  } catch (const FileFault& fault) {
    return fault.number;
  } catch (const RunTimeFault&) {
    return kOutOfBounds;
  }
}

}  // namespace torvale
