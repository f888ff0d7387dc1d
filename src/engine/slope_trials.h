// The search for the crown slope of best uniformity: pure, over a line and its furrows. It knows no record, no screen
// and no message, and may run on any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/arithmetic.h"
#include "base/platform_processor.h"
#include "engine/end_head.h"
#include "engine/slope_field.h"

namespace torvale {

inline constexpr double kSlopeStep = 0.00001;  // feet per foot
inline constexpr float kLeastHead = 0.1F;      // feet; a 32-bit constant

// Falling crowns carry water toward the far end, rising ones raise the head near the first row.
enum class CrownDirection { kFalling, kRising };

// One trial: a search on the far-end head over one crown, and its uniformity.
struct SlopeTrial {
  float slope = 0;  // feet per foot
  float uniformity = 0;
  float lowest_head = 0;  // as `MinHead` and `MaxHead` take them
  float highest_head = 0;
  double end_head = 0;
  EndHeadSearch search;  // `outcome`, `tries` and the rest, as the plain search counts them
};

// Told of each trial in order; false stops the search after it.
using SlopeTrialFn = std::function<bool(const SlopeTrial&)>;

struct SlopeSearchEnd {
  // Spent: the lowest head has fallen to a tenth of a foot. Stopped: by the caller. Gave up: the trial at `slope` did
  // not converge or ran into a fault; it is not told of.
  enum class Way { kSpent, kStopped, kGaveUp };
  Way way = Way::kSpent;
  float slope = 0;  // of the trial that gave up
};

// The plain form: trial after trial, every march made. `lowest_head` is what the level crown has left. Falling, the
// level crown is the first trial; rising, the first is a step up. A line of one row has no span to lay: one trial.
SlopeSearchEnd SearchSlopesPlainly(const SlopeField& field, CrownDirection direction, float lowest_head,
                                   const SlopeTrialFn& tell);

// How a fast search goes about it. The results don't depend on any of it.
struct SlopeSearchManner {
  VectorLanes lanes = WidestLanes();
  int threads = 0;           // 0: as many as the processor runs at once, four at most
  double planted_error = 1;  // of the bounds, for the tests that must see it; 1 is none
};

// What the caller knows of the level crown's march: where the search begins to guess. Nothing else depends on it.
struct LevelMarch {
  float lowest_head = 0;
  double end_head = 0;
  float flow = 0;
};

// The same results as the plain form, to the bit, and faster: see docs/performance.md.
SlopeSearchEnd SearchSlopes(const SlopeField& field, CrownDirection direction, const LevelMarch& level,
                            const SlopeSearchManner& manner, const SlopeTrialFn& tell);

// One trial in the plain form, with the memory it works in.
struct PlainTrialWork {
  Line line;
  std::vector<double> head;
  std::vector<float> flow, area, crown, furrow_flow;
  std::vector<std::int16_t> furrow_length;
};
void PreparePlainTrial(const SlopeField& field, PlainTrialWork& work);
// False where it gave up, for whatever reason.
bool TryPlainly(const SlopeField& field, float slope, PlainTrialWork& work, SlopeTrial& trial);

// The slope of the next trial.
inline float NextSlope(float slope, CrownDirection direction) {
  return Narrow(slope + (direction == CrownDirection::kFalling ? kSlopeStep : -kSlopeStep));
}

}  // namespace torvale
