#pragma once

namespace torvale {

// What a file operation fails with: the operating system's error number, or one of those below.
struct FileFault {
  int number;
};

inline constexpr int kOutOfBounds = 9;  // a count or index beyond its list, a number beyond its field
inline constexpr int kWrongKind = 13;   // a field that is not of the kind that is read
inline constexpr int kPastTheEnd = 62;  // no field left

}  // namespace torvale
