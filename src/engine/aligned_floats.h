#pragma once

#include <cstddef>
#include <memory>

namespace torvale {

// Floats that begin on a whole cache line and hold nothing yet.
class AlignedFloats {
 public:
  void Allocate(std::size_t count);
  float* data() { return begin_; }
  const float* data() const { return begin_; }

 private:
  std::unique_ptr<float[]> memory_;
  float* begin_ = nullptr;
};

}  // namespace torvale
