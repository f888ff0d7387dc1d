#include "engine/aligned_floats.h"

#include <cstdint>

namespace torvale {
namespace {

constexpr std::size_t kLine = 16;  // floats of a cache line

}  // namespace

void AlignedFloats::Allocate(std::size_t count) {
  memory_.assign(count + kLine, 0);
  const auto address = reinterpret_cast<std::uintptr_t>(memory_.data());
  const std::size_t past = address / sizeof(float) % kLine;
  begin_ = memory_.data() + (past == 0 ? 0 : kLine - past);
}

}  // namespace torvale
