#include "engine/end_head_quest.h"

#include <algorithm>

namespace torvale {
namespace {

// What is certain of a march, as a judgement. False where nothing is.
bool IsCertain(const EndHeadQuest& quest, double head, Judgement& judgement) {
  if (quest.MetAt(head) != nullptr) {
    judgement = Judgement::kMeets;
    return true;
  }
  switch (quest.brackets.Of(head)) {
    case Verdict::kNegative:
      judgement = Judgement::kNegative;
      return true;
    case Verdict::kTooLittle:
      judgement = Judgement::kTooLittle;
      return true;
    case Verdict::kTooMuch:
      judgement = Judgement::kTooMuch;
      return true;
    case Verdict::kUnknown:
      break;
  }
  return false;
}

}  // namespace

void WantedMarches::Add(double wanted) {
  if (count < kMost && std::find(head, head + count, wanted) == head + count) head[count++] = wanted;
}

const MarchedJob* EndHeadQuest::MetAt(double head) const {
  for (int i = 0; i < met_count; ++i) {
    if (met[i].marched.head == head) return &met[i];
  }
  return nullptr;
}

void EndHeadQuest::Take(const FlowBounds& bounds, const MarchedJob& job) {
  TakeMarch(bounds, job.marched, brackets);
  if (job.marched.lowest < 0) return;
  model.Take(job.marched, bounds.target);
  if (!job.met || MetAt(job.marched.head) != nullptr) return;
  met[std::min(met_count, kMostMet - 1)] = job;
  met_count = std::min(met_count + 1, kMostMet);
}

bool EndHeadQuest::Ask(double first_head, const FlowBounds& bounds, const HeadGuess& guess, WantedMarches& wanted,
                       Replay& replay) const {
  double lowest_low = HeadBrackets::kNone;
  double highest_low = -HeadBrackets::kNone;
  double lowest_high = HeadBrackets::kNone;
  double highest_negative = -HeadBrackets::kNone;
  replay = ReplayEndHead(first_head, [&](double head) {
    Judgement judgement;
    if (IsCertain(*this, head, judgement)) return judgement;
    judgement = guess.Of(head);
    if (judgement == Judgement::kNegative) highest_negative = std::max(highest_negative, head);
    if (judgement == Judgement::kTooMuch) lowest_high = std::min(lowest_high, head);
    if (judgement == Judgement::kTooLittle) {
      // Not known to be too little, or known to be no more than that: one march at the top, one at the bottom.
      if (head > brackets.low) highest_low = std::max(highest_low, head);
      if (head < brackets.safe) lowest_low = std::min(lowest_low, head);
    }
    return judgement;
  });
  wanted = {};
  if (!replay.converged) return false;
  const MarchedJob* const end = MetAt(replay.end_head);
  if (end == nullptr) wanted.Add(replay.end_head);
  // What the march at the end will tell by itself need not be marched now.
  const double flow = end != nullptr ? end->marched.flow : guess.FlowAt(replay.end_head);
  const double margin = end != nullptr ? 0 : guess.margin;
  if (highest_low > replay.end_head - CertainlyTooLittleFrom(bounds, flow) - margin) wanted.Add(highest_low);
  if (lowest_high < replay.end_head + CertainlyTooMuchFrom(bounds, flow) + margin) wanted.Add(lowest_high);
  if (lowest_low < replay.end_head) wanted.Add(lowest_low);
  if (highest_negative > guess.certified - 2 * kHeadSlack - margin) wanted.Add(highest_negative);
  if (wanted.count == 0) wanted.Add(replay.end_head);
  return true;
}

bool EndHeadQuest::Conclude(double first_head, Replay& replay) const {
  if (met_count == 0) return false;
  bool certain = true;
  replay = ReplayEndHead(first_head, [&](double head) {
    Judgement judgement;
    if (IsCertain(*this, head, judgement)) return judgement;
    certain = false;
    return Judgement::kMeets;
  });
  return certain && replay.converged;
}

}  // namespace torvale
