// One search on the far-end head that is decided by few marches: which of them to make next, and whether they suffice.
#pragma once

#include "engine/end_head_replay.h"
#include "engine/head_brackets.h"
#include "engine/low_quarter.h"
#include "engine/slope_guess.h"

namespace torvale {

// A march that was made.
struct MarchedJob {
  int trial = 0;
  MarchedHead marched;
  bool met = false;    // the target
  LowQuarter quarter;  // where it was met, in a slope search
};

// The marches that are asked for at once, the first one nearest to the end.
struct WantedMarches {
  static constexpr int kMost = 16;
  double head[kMost] = {};
  int count = 0;

  void Add(double wanted);
};

// What is known of a search.
struct EndHeadQuest {
  static constexpr int kMostMet = 4;

  HeadBrackets brackets;
  FlowModel model;
  // Marches that meet the target: any of them may be the one that the search ends at.
  int met_count = 0;
  MarchedJob met[kMostMet];

  void Take(const FlowBounds& bounds, const MarchedJob& job);
  // The march at that head that met the target, or nullptr.
  const MarchedJob* MetAt(double head) const;
  // Replays the search on what is certain, and on `guess` where nothing is; false where that doesn't converge. `wanted`
  // takes the marches that would make it certain; `replay` what the search comes to if the guesses are right.
  bool Ask(double first_head, const FlowBounds& bounds, const HeadGuess& guess, WantedMarches& wanted,
           Replay& replay) const;
  // Replays the search on what is certain alone; false where something is not.
  bool Conclude(double first_head, Replay& replay) const;
};

}  // namespace torvale
