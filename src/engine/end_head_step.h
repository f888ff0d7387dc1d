// The steps of the search on the far-end head: what is known of a march, and where the head goes then.
#pragma once

namespace torvale {

// The last correction of the far-end head: the size of the step by stage (0.5, 0.1, 0.01, 0.001 and 0.0001 feet) and
// its direction. None at first.
struct EndHeadStep {
  enum Direction : signed char { kNone, kLowered, kRaised };
  int stage = 0;  // 0 to 4
  Direction direction = kNone;

  bool operator==(const EndHeadStep&) const = default;
};

inline constexpr int kTryLimit = 200;

// What a march delivered, against the target.
enum class Delivery { kTooLittle, kExactly, kTooMuch };

inline Delivery Compare(float flow, float target) {
  if (flow > target) return Delivery::kTooMuch;
  return flow < target ? Delivery::kTooLittle : Delivery::kExactly;
}

// One correction of the far-end head, after the step `last`, which takes the new one. A crossing of the target goes to
// the next finer stage at once. Exactly the target leaves both as they are.
void CorrectEndHead(double& end_head, EndHeadStep& last, Delivery delivery);

// Whether a flow meets the target: within 0.0005 of it, both sides rounded to 32 bits. On either side of the target it
// is monotone: a flow further away never meets it where a nearer one doesn't.
bool MeetsTarget(float flow, float target);

// The head with which the first row is tried where a march has run into a negative head.
inline constexpr double kHeadAfterNegative = 2.0;

}  // namespace torvale
