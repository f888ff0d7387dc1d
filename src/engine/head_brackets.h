// What is certain of a march without making it. The flow out of a line grows with its far-end head, weakly, and in the
// computer's arithmetic too: every operation of a row, the rounded ones included, is monotone in the head and in the
// flow. So a few marches tell of all heads beyond them, and some closed bounds tell more.
//
//        negative          safe                low            met?          high
//   -------|-----------------|------------------|---------------------------|--------> far-end head
//    goes negative     never goes negative,     unknown: the march            too much flow
//                      too little flow          must be made
#pragma once

#include <limits>

#include "engine/line.h"

namespace torvale {

// What a march from one far-end head gave.
struct MarchedHead {
  double head = 0;
  float flow = 0;      // gallons per minute at the head of the line
  double lowest = 0;   // feet, of all rows; below 0 where the march went negative
  double highest = 0;  // feet
};

enum class Verdict { kUnknown, kNegative, kTooLittle, kTooMuch };

// Certain verdicts on far-end heads of one line with one crown.
struct HeadBrackets {
  static constexpr double kNone = std::numeric_limits<double>::infinity();
  double negative = -kNone;  // from here down a march goes negative
  double safe = kNone;       // from here up none does
  double low = -kNone;       // from here down there is too little flow, or a negative head
  double high = kNone;       // from here up there is too much flow, and no negative head

  Verdict Of(double head) const {
    if (head < 0 || head <= negative) return Verdict::kNegative;
    if (head >= high) return Verdict::kTooMuch;
    return head <= low && head >= safe ? Verdict::kTooLittle : Verdict::kUnknown;
  }
};

// What the bounds need to know of a line. One for a whole slope search: the crown has no part in it.
struct FlowBounds {
  float target = 0;
  // W^2, where W is the sum of A sqrt(64.4) 448.8 Cd over the holes: what the square of the flow gains at the least
  // with each foot of head.
  double gain = 0;
  // 1 and what all roundings of a flow to 32 bits can add up to, in parts of it: half a unit for the flow out of each
  // row and half a unit for each sum, 2^-24 each; twice that is taken.
  double rounding = 1;
  // A planted error in the bounds, for the tests that must see it: 1 is none.
  double planted = 1;
};

FlowBounds BoundsOf(const Line& line, float target);

// Feet by which heads of two marches may come nearer to each other, or further apart, through rounding to 64 bits:
// three operations for each of 5,284 rows on numbers below 2^15, half a unit of 2^-38 each, are below 1e-7.
inline constexpr double kHeadSlack = 1e-6;
inline constexpr double kBoundedFeet = 1e4;  // heads, rises and falls up to which that holds

// Takes a march that was made.
//
// Proof of what follows from it: at P + d every row has at least the head it has at P and d more, since friction is
// no less. The flow is a sum of c sqrt(h) over the rows. The vectors (c sqrt(h), c sqrt(d)) add up to one of the length
// sqrt(A^2 + W^2 d), which is no longer than the sum of their lengths, c sqrt(h + d) each, the flow at P + d. Hence
//     flow(P + d)^2 >= A^2 + W^2 d,  and downwards  flow(P - d)^2 <= A^2 - W^2 d  as long as no head is negative;
// and at P - d some head is negative where d is more than the lowest head at P.
void TakeMarch(const FlowBounds& bounds, const MarchedHead& marched, HeadBrackets& brackets);

// Feet above (or below) a march of flow `flow` from which there is certainly too much (too little) flow, by the first
// two of these bounds.
double CertainlyTooMuchFrom(const FlowBounds& bounds, double flow);
double CertainlyTooLittleFrom(const FlowBounds& bounds, double flow);

// Takes the crown alone. Proof: friction is never below 0, so the head of a row is at least that of the far end less
// the rise in between; from the largest rise up no head is negative.
void TakeRise(double largest_rise, HeadBrackets& brackets);

// Whether the certain verdicts hold for a line, and no march on it from up to `kBoundedFeet` overflows: no hole gives
// water back, no span is negative, pipe and roughness are above 0, the crown differs by less than `kBoundedFeet`
// (`largest_rise` from any row to any other).
bool IsMonotone(const Line& line, double largest_rise);

}  // namespace torvale
