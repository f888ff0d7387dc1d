// Looks ahead in the search on the far-end head of one line: which marches it would make in vain.
#pragma once

#include <vector>

#include "engine/end_head_quest.h"
#include "engine/march.h"
#include "engine/wide_march.h"

namespace torvale {

class EndHeadForesight {
 public:
  // Marches the line in lanes until the outcome of the search from `first_head` is certain: first a rough line, which
  // tells where the end must be, then the marches there that decide. False where nothing can be told, or not soon.
  bool Look(const Line& line, float target, double first_head, VectorLanes lanes);

  // What is certain of a march: kUnknown for the one that ends the search too.
  Verdict Of(double head) const { return quest_.MetAt(head) == nullptr ? quest_.brackets.Of(head) : Verdict::kUnknown; }
  // What the march from `head` hands on from row 1 to element 0; nullptr where it wasn't made here.
  const double* Beyond(double head) const;
  // The march from `head` where it meets the target and its rows were kept, as those of the end as a rule are. Writes
  // the rows and gives back their flow.
  bool TakeRows(double head, const Profile& profile, float& flow) const;

 private:
  FlowModel LookRoughly(double most_head);
  bool Decide(double first_head, SlopeGuess& guess);
  WantedMarches Wanted(double first_head, const HeadGuess& guess, const Replay& replay, const WantedMarches& surest);
  void March(const WantedMarches& marches);
  WideProfile Rows() { return {head_.data(), flow_.data()}; }

  const Line* line_ = nullptr;
  FlowBounds bounds_;
  WideForm form_;
  std::vector<WideRow> rows_;
  WideLine wide_;
  WideJobs jobs_;
  EndHeadQuest quest_;
  std::vector<std::pair<double, double>> beyond_;
  // The rows of the first job that was marched last.
  std::vector<double> head_;
  std::vector<float> flow_;
};

// Whether `EndHeadForesight` and the fast slope search may work for a target on a line: with the small head that
// follows a negative one, the first row alone must deliver too little.
bool FirstRowFallsShort(const Line& line, float target);

// The binary exponent from which on the wide forms are to be quick, for lines that deliver `target`.
int LowestExponentFor(float target);

}  // namespace torvale
