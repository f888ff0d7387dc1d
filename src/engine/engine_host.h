// What the engine asks of the program around it. The engine runs with no screen at all behind this interface.
#pragma once

namespace torvale {

class EngineHost {
 public:
  virtual ~EngineHost() = default;

  // The event yield of a long calculation: counts `due` yields and lets pending user events run at the last of them,
  // which may set `CancelFlag` and `DesignOK` of the record and nothing else the engine reads. Gives back how many of
  // the coming yields would do nothing, so that the march can pass over that many rows and report them in one call.
  virtual long Yield(long due) = 0;

  // `TotalAcres` was worked out anew.
  virtual void TotalAcresChanged() = 0;
  // `Uniformity` was worked out anew.
  virtual void UniformityChanged() = 0;
};

}  // namespace torvale
