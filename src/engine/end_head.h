// The search on the far-end head: its steps, and the plain form of it, which makes every march.
#pragma once

#include <functional>

#include "engine/march.h"

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

// What a pause of the search gives back: whether to stop, and how many of the coming pauses would do nothing.
struct Pause {
  bool stop = false;
  long idle = 0;
};
// Told of `due` pauses, the last of them now, with `flow` gallons per minute in the pipe.
using PauseFn = std::function<Pause(long due, float flow)>;

// How a search on the far-end head went.
struct EndHeadSearch {
  enum class Outcome { kNoRows, kConverged, kStopped, kTryLimit };
  Outcome outcome = Outcome::kNoRows;
  int tries = 0;     // marches that ended at the head of the line or in a negative head
  int marches = 0;   // begun, the last one included
  int fail_row = 0;  // where the last counted try ended
  float flow = 0;    // gallons per minute in the pipe at the row worked last
  EndHeadStep last_step;
};

// Finds the far-end head at which the line delivers `target`, from the head that stands in `profile` at the far end:
// marches, corrects the head, marches again, until the target is met or 200 tries are counted. Pure: knows the line and
// its target alone; head, flow and area of the rows come out in `profile`, with what a march that was cut short has
// written over the one before.
//
// Pauses come at nine rows of ten, on rows whose number is no multiple of ten, before the row is worked. The rows that
// the last answer called idle are passed over in one stretch, and every pause is reported in the end. No `pause` asks
// nobody. A RunTimeFault of a march passes through, with `search` as far as it had got.
//
// The plain form makes every march. The fast one foresees the outcomes of the search (foresight.h) once a pause has
// been called idle for a whole march, and counts the marches that nobody would see; whatever comes out, a search that
// is stopped included, is the plain form's to the bit.
enum class EndHeadForm { kPlain, kFast };
void SolveEndHead(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadForm form,
                  EndHeadSearch& search);

}  // namespace torvale
