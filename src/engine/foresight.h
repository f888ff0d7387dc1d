// Looks ahead in the search on the far-end head of one line: which marches it would make in vain.
#pragma once

#include <vector>

#include "engine/end_head_quest.h"
#include "engine/wide_march.h"

namespace torvale {

class EndHeadForesight {
 public:
  // Marches the line in lanes until the outcome of the search from `first_head` is certain. `first` is the march from
  // there, which has been made. False where nothing can be told, or not soon.
  bool Look(const Line& line, float target, double first_head, const MarchedHead& first);

  // What is certain of a march: kUnknown for the one that ends the search too.
  Verdict Of(double head) const { return quest_.MetAt(head) == nullptr ? quest_.brackets.Of(head) : Verdict::kUnknown; }
  // What the march from `head` hands on from row 1 to element 0; nullptr where it wasn't made here.
  const double* Beyond(double head) const;

 private:
  void March(const double* heads, int count);

  const Line* line_ = nullptr;
  FlowBounds bounds_;
  WideForm form_;
  std::vector<WideRow> rows_;
  WideLine wide_;
  WideJobs jobs_;
  EndHeadQuest quest_;
  std::vector<std::pair<double, double>> beyond_;
};

// Whether `EndHeadForesight` and the fast slope search may work for a target on a line: with the small head that
// follows a negative one, the first row alone must deliver too little.
bool FirstRowFallsShort(const Line& line, float target);

// The binary exponent from which on the wide forms are to be quick, for lines that deliver `target`.
int LowestExponentFor(float target);

}  // namespace torvale
