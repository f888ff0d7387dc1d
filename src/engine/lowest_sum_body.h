// The sum of the lowest keys of a list, without sorting it: loops that a compiler turns into wide ones, included by the
// file of each instruction set with its own flags. As in wide_march_body.h, nothing here is seen from elsewhere.
#pragma once

#include "engine/wide_lines.h"

namespace torvale {
namespace {

// Positive floats are ordered as their bits are, read as a whole number.
inline int CountUpTo(const std::int32_t* key, int count, std::int32_t limit) {
  int up_to = 0;
  for (int i = 0; i < count; ++i) up_to += key[i] <= limit ? 1 : 0;
  return up_to;
}

// A bound that parts the keys at a place of their order: all up to `bound` belong to the lowest, and `beyond` of them
// are one and the same key too many.
struct Cut {
  std::int32_t bound = 0;
  int beyond = 0;
};

// Cuts after `place` keys (from 1); all lie between `least` and `most`. Guesses by the share of the range, then halves
// it, in turn, until a bound falls between the keys at that place and the next, or on a key that stands at both.
inline Cut CutAfter(const std::int32_t* key, int count, int place, std::int32_t least, std::int32_t most) {
  int below = 0;      // keys less than `least`
  int up_to = count;  // keys up to `most`
  for (bool halve = false; least < most && up_to != place; halve = !halve) {
    const std::int32_t range = most - least;
    std::int32_t step = range / 2;
    if (!halve) {
      const double share = (place - below - 0.5) / (up_to - below);
      const auto guess = static_cast<std::int32_t>(share * range);
      step = guess < range ? guess : range - 1;
    }
    const std::int32_t middle = least + step;
    const int counted = CountUpTo(key, count, middle);
    if (counted >= place) {
      most = middle;
      up_to = counted;
    } else {
      least = middle + 1;
      below = counted;
    }
  }
  return {most, up_to - place};
}

inline void LowestSumOf(const float* flows, const int* at, const double* ratio, int count, int places,
                        std::int32_t* key, LowestSum& sum) {
  for (int i = 0; i < count; ++i) {
    key[i] = __builtin_bit_cast(std::int32_t, static_cast<float>(static_cast<double>(flows[at[i]]) / ratio[i]));
  }
  std::int32_t low = 0x7fffffff;
  std::int32_t high = -1;
  for (int i = 0; i < count; ++i) {
    low = key[i] < low ? key[i] : low;
    high = key[i] > high ? key[i] : high;
  }
  constexpr std::int32_t kInfinite = 0x7f800000;
  sum.positive = low > 0 && high < kInfinite;
  sum.exact = false;
  if (!sum.positive) return;
  const auto value = [](std::int32_t bits) { return static_cast<double>(__builtin_bit_cast(float, bits)); };
  sum.exact = count * value(high) < value(low) * 0x1p29;
  if (!sum.exact || places == 0) return;
  const Cut cut = CutAfter(key, count, places, low, high);
  constexpr int kParts = 8;
  double part[kParts] = {};
  int i = 0;
  for (; i + kParts <= count; i += kParts) {
    for (int k = 0; k < kParts; ++k) {
      const double each = static_cast<double>(__builtin_bit_cast(float, key[i + k]));
      part[k] += key[i + k] <= cut.bound ? each : 0.0;
    }
  }
  double total = 0;
  for (; i < count; ++i) total += key[i] <= cut.bound ? value(key[i]) : 0.0;
  for (const double of_part : part) total += of_part;
  sum.value = cut.beyond == 0 ? total : total - cut.beyond * value(cut.bound);
}

}  // namespace
}  // namespace torvale
