// An engine host that counts what it is told and can press Cancel at one exact yield.
#pragma once

#include <algorithm>

#include "engine/engine_host.h"
#include "record/design_record.h"

namespace torvale {

struct FakeEngineHost final : EngineHost {
  explicit FakeEngineHost(long idle_promised = 0) : idle(idle_promised) {}

  // Cancels the calculation on `record` at its `yield`-th yield.
  void CancelAt(long yield, DesignRecord& record) {
    cancel_at = yield;
    cancelled = &record;
  }

  long Yield(long due) override {
    ++calls;
    yields += due;
    if (cancelled == nullptr || yields > cancel_at) return idle;
    if (yields == cancel_at) {
      cancelled->CancelFlag = true;
      cancelled->DesignOK = "False";
      return idle;
    }
    return std::min(idle, cancel_at - yields - 1);
  }
  void TotalAcresChanged() override { ++acres_changes; }
  void UniformityChanged() override { ++uniformity_changes; }

  long idle = 0;    // yields promised to do nothing, at each call
  long yields = 0;  // yields counted so far
  long calls = 0;
  long cancel_at = 0;
  DesignRecord* cancelled = nullptr;
  int acres_changes = 0;
  int uniformity_changes = 0;
};

}  // namespace torvale
