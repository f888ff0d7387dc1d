#include "engine/wide_march.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "base/power.h"
#include "engine/wide_forms.h"
#include "engine/wide_march_body.h"

namespace torvale {
namespace {

// One lane: what a processor without wide registers runs. The marches in flight hide each other's waiting all the same.
struct One {
  using D = double;
  using F = float;
  using Slots = int;
  struct Tables {
    const WideInterval* interval;
  };
  static constexpr int kWidth = 1;
  static constexpr int kSlots = 4;
  static constexpr int kOneCrownVectors = 4;
  static void Leave() {}
  static D All(double x) { return x; }
  static D Load(const double* p) { return *p; }
  static void Store(double* p, D x) { *p = x; }
  static void StoreF(float* p, F x) { *p = x; }
  static D First(D x) { return x; }
  static F FirstF(F x) { return x; }
  static F NoF() { return 0; }
  static D Mul(D a, D b) { return a * b; }
  static D Add(D a, D b) { return a + b; }
  static D Sub(D a, D b) { return a - b; }
  static D Div(D a, D b) { return a / b; }
  static D Root(D a) { return std::sqrt(a); }
  static F Narrow(D a) { return static_cast<float>(a); }
  static F AddF(F a, F b) { return a + b; }
  static D Min(D a, D b) { return a < b ? a : b; }
  static D Max(D a, D b) { return a > b ? a : b; }
  static D AtLeastZero(D a) { return a < 0 ? 0 : a; }
  static Slots LoadSlots(const int* p) { return *p; }
  static D Pick(const float* row, Slots slot) { return static_cast<double>(row[slot]); }
  static Tables MakeTables(const WideInterval* interval, int /*lowest_exponent*/) { return {interval}; }
  static bool LookUp(const Tables& tables, F flow, PowerParts<One>& parts) {
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(static_cast<double>(flow));
    const std::uint64_t nearest = (bits + (std::uint64_t{1} << 43)) >> 44;
    const std::uint64_t row = (nearest >> 8) - static_cast<std::uint64_t>(1023 + kLowestFlowExponent);
    if (row >= kFlowScaleCount) return false;
    const WideInterval& interval = tables.interval[nearest % kPowerIntervals];
    const double m = std::bit_cast<double>(bits - ((nearest >> 8) << 52) + (std::uint64_t{1023} << 52));
    parts = {
        interval.reciprocal, interval.high, interval.low, interval.sum, kFlowScales[row].high, kFlowScales[row].low, m};
    return true;
  }
};

}  // namespace

WideForm FormOf(VectorLanes lanes) {
  switch (lanes) {
    case VectorLanes::kEight:
      return EightLanes();
    case VectorLanes::kFour:
      return FourLanes();
    case VectorLanes::kOne:
      break;
  }
  return MakeForm<One>(VectorLanes::kOne);
}

}  // namespace torvale
