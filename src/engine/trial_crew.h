// The memory and the threads of a fast slope search: blocks of crowns and marches, one for each thread.
#pragma once

#include <memory>
#include <thread>
#include <vector>

#include "engine/aligned_floats.h"
#include "engine/crew_rounds.h"
#include "engine/end_head_quest.h"
#include "engine/low_quarter.h"
#include "engine/slope_curve.h"
#include "engine/slope_trials.h"
#include "engine/wide_march.h"

namespace torvale {

// What laying a crown tells of it. Rises are from the far end upstream.
struct LaidCrown {
  double rise = 0;       // feet to row 1
  double mean_rise = 0;  // feet to the holes, by their area
  bool same_as_before = false;
};

// One thread's share: crowns side by side, and the marches on them.
struct TrialBlock {
  AlignedFloats crowns;  // [row][slot]
  AlignedFloats flows;   // [row][job]
  WideJobs jobs;
  std::unique_ptr<LowQuarterWork> quarter;
  int count = 0;  // jobs
  MarchedJob results[kMostJobs];
  bool taken[kMostSlots] = {};
  bool fresh[kMostSlots] = {};
  float slope[kMostSlots] = {};
  int order[kMostSlots] = {};  // of the fresh crowns, by the search
  LaidCrown laid[kMostSlots];
};

class TrialCrew {
 public:
  TrialCrew() = default;
  TrialCrew(const TrialCrew&) = delete;
  TrialCrew& operator=(const TrialCrew&) = delete;
  ~TrialCrew();

  // Gets all memory and threads that the search will need, of about as many trials. `field` and its `plan` must outlive
  // the crew.
  void Prepare(const SlopeField& field, const FurrowPlan& plan, const SlopeSearchManner& manner, double trials);

  // A guess of how the search goes along the slopes, to a rise of `most_rise` feet.
  SlopeCurve LookAhead(float target, double level_head, double most_rise) const {
    return LookAlongSlopes(form_, line_, target, level_head, most_rise);
  }

  int blocks() const { return static_cast<int>(blocks_.size()); }
  int slots() const { return blocks() * form_.slots; }

  // New crowns: places for them, in the order of the trials, then all laid at once.
  struct Place {
    int block = 0;
    int slot = -1;  // none free
  };
  void BeginCrowns();
  Place TakeSlot(float slope);
  void FreeSlot(int block, int slot);
  void LayCrowns();
  const LaidCrown& CrownOf(int block, int slot) const { return Of(block).laid[slot]; }

  // Marches of a round.
  void BeginJobs();
  int RoomIn(int block) const { return form_.jobs - Of(block).count; }
  void AddJob(int block, int trial, int slot, double head);
  void March(float target);
  int JobsIn(int block) const { return Of(block).count; }
  const MarchedJob& Result(int block, int job) const { return Of(block).results[job]; }

 private:
  TrialBlock& Of(int block) { return *blocks_[static_cast<std::size_t>(block)]; }
  const TrialBlock& Of(int block) const { return *blocks_[static_cast<std::size_t>(block)]; }
  void LayBlock(TrialBlock& block);
  void MarchBlock(TrialBlock& block);
  void Work(int block);

  const SlopeField* field_ = nullptr;
  WideForm form_;
  const FurrowPlan* plan_ = nullptr;
  std::vector<WideRow> rows_;
  std::vector<float> weight_;  // of a row's holes among all
  WideLine line_;
  float target_ = 0;
  std::vector<std::unique_ptr<TrialBlock>> blocks_;
  std::vector<Place> fresh_;       // in the order of the trials
  std::vector<float> last_crown_;  // the crown of the last trial
  bool has_last_ = false;

  CrewRounds rounds_;
  std::vector<std::thread> threads_;
};

}  // namespace torvale
