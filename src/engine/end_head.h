// The search on the far-end head: its plain form, which makes every march, and the fast one.
#pragma once

#include <functional>

#include "base/platform_processor.h"
#include "engine/end_head_step.h"
#include "engine/march.h"

namespace torvale {

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
  int empty_row = 0;  // where the last whole march ran into a negative head; 0 where it ran into none
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
// is stopped included, is the plain form's to the bit, whatever the lanes that it looks ahead in.
enum class EndHeadForm { kPlain, kFast };
void SolveEndHead(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadForm form,
                  EndHeadSearch& search, VectorLanes lanes = WidestLanes());

}  // namespace torvale
