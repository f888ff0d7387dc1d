#pragma once

#include <cstddef>
#include <vector>

namespace torvale {

// Floats that begin on a whole cache line.
class AlignedFloats {
 public:
  void Allocate(std::size_t count);
  float* data() { return begin_; }
  const float* data() const { return begin_; }

 private:
  std::vector<float> memory_;
  float* begin_ = nullptr;
};

}  // namespace torvale
