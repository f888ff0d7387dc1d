// Which fault a piece of code raises.
#pragma once

#include <optional>

#include "base/run_time_fault.h"

namespace torvale {

// The fault that `action` throws, nothing when it returns.
template <typename Action>
std::optional<Fault> FaultOf(Action action) {
  try {
    action();
  } catch (const RunTimeFault& fault) {
    return fault.kind;
  }
  return std::nullopt;
}

}  // namespace torvale
