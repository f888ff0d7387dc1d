#include "engine/aligned_floats.h"

#include <cstdint>

namespace torvale {
namespace {

constexpr std::size_t kLine = 16;  // floats of a cache line

}  // namespace

void AlignedFloats::Allocate(std::size_t count) {
  memory_.reset(new float[count + kLine]);
  const auto address = reinterpret_cast<std::uintptr_t>(memory_.get());
  const std::size_t past = address / sizeof(float) % kLine;
  begin_ = memory_.get() + (past == 0 ? 0 : kLine - past);
}

}  // namespace torvale
