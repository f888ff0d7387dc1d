// The steps of the search on the far-end head, replayed on the head alone: what each march would deliver comes from a
// judge, which may know it for certain or guess.
#pragma once

#include "engine/end_head_step.h"

namespace torvale {

// What a judge says of a march.
enum class Judgement { kNegative, kTooLittle, kMeets, kTooMuch };

struct Replay {
  bool converged = false;  // false where the plain search would come near its limit of tries
  double end_head = 0;     // of the march that meets the target
  double before = 0;       // of the march before it, where there was one
  int tries = 0;
  int marches = 0;
  int fail_row = 0;  // 1 where any march was counted before
  EndHeadStep last_step;
};

// Replays the search from `first_head`. `judge(head)` is asked for each march in turn; a far-end head below 0 is
// negative by itself and not asked about. The flow of the first row under `kHeadAfterNegative` must be too little.
template <typename Judge>
Replay ReplayEndHead(double first_head, Judge&& judge) {
  constexpr int kNearLimit = kTryLimit - 5;
  Replay replay;
  double head = first_head;
  while (replay.tries < kNearLimit) {
    ++replay.marches;
    const Judgement judgement = head < 0 ? Judgement::kNegative : judge(head);
    if (judgement == Judgement::kMeets) {
      replay.converged = true;
      replay.end_head = head;
      return replay;
    }
    // A head that goes negative on the way is counted there and again at row 1; one that begins so, at row 1 alone.
    replay.tries += judgement == Judgement::kNegative && head >= 0 ? 2 : 1;
    replay.fail_row = 1;
    replay.before = head;
    CorrectEndHead(head, replay.last_step,
                   judgement == Judgement::kTooMuch ? Delivery::kTooMuch : Delivery::kTooLittle);
  }
  return replay;
}

}  // namespace torvale
