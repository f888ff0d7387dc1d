// Lists of fixed bounds, such as a value for each row of the design.
#pragma once

#include <algorithm>
#include <vector>

#include "base/run_time_fault.h"

namespace torvale {

// Highest index of a row array. The design limit is station 5280; the spare elements serve the look-ahead of the loops.
inline constexpr int kLastRow = 5284;

// A list of fixed bounds, 0 to `Last`, whose every access is tested: an index outside is a RunTimeFault (kSubscript).
// Elements lie side by side in memory, and `data()` gives inner loops that have tested their bounds a plain pointer.
template <typename T, int Last>
class BoundedArray {
 public:
  BoundedArray() : elements_(static_cast<std::size_t>(Last) + 1) {}

  T& operator[](int index) { return elements_[Tested(index)]; }
  const T& operator[](int index) const { return elements_[Tested(index)]; }

  T* data() { return elements_.data(); }
  const T* data() const { return elements_.data(); }
  static constexpr int last() { return Last; }

  // Sets every element to zero or to empty text; the bounds stay.
  void Clear() { std::fill(elements_.begin(), elements_.end(), T{}); }

  bool operator==(const BoundedArray&) const = default;

 private:
  static std::size_t Tested(int index) {
    if (index < 0 || index > Last) throw RunTimeFault{Fault::kSubscript};
    return static_cast<std::size_t>(index);
  }

  std::vector<T> elements_;
};

// One element for each row of the design: index 0 is never a real row, rows begin at 1.
template <typename T>
using RowArray = BoundedArray<T, kLastRow>;

}  // namespace torvale
