#include "engine/trial_crew.h"

#include <algorithm>
#include <cmath>
#include <system_error>

#include "base/arithmetic.h"
#include "engine/end_head.h"
#include "engine/foresight.h"

namespace torvale {
namespace {

// Below this many rows a round is over before a second thread has woken.
constexpr int kRowsForThreads = 1500;
constexpr int kMostThreads = CrewRounds::kMostShares;

// A thread gains where it has crowns enough for a block of its own; a round of few marches takes as long as a full one.
int ThreadsFor(int rows, double blocks_of_crowns) {
  if (rows < kRowsForThreads) return 1;
  return static_cast<int>(std::min<double>(ProcessorThreads(), blocks_of_crowns));
}

}  // namespace

void TrialCrew::Prepare(const SlopeField& field, const FurrowPlan& plan, const SlopeSearchManner& manner,
                        double trials) {
  field_ = &field;
  plan_ = &plan;
  form_ = FormOf(manner.lanes);
  const Line& line = field.line;
  const auto size = static_cast<std::size_t>(line.rows) + 1;
  rows_.assign(size, {});
  weight_.assign(size, 0);
  double area = 0;
  for (const float opening : line.opening) area += opening;
  for (std::size_t i = 1; i < size; ++i) {
    rows_[i] = {line.opening[i], line.length[i], line.dia_power[i], 0};
    weight_[i] = static_cast<float>(line.opening[i] / area);
  }
  line_ = {rows_.data(),        line.rows,        line.friction_factor,
           line.discharge_coef, field.elevations, LowestExponentFor(field.target)};
  const int threads =
      std::clamp(manner.threads == 0 ? ThreadsFor(line.rows, trials / form_.slots) : manner.threads, 1, kMostThreads);
  last_crown_.assign(size, 0);
  for (int block = 0; block < threads; ++block) {
    blocks_.push_back(std::make_unique<TrialBlock>());
    TrialBlock& made = *blocks_.back();
    made.crowns.Allocate(size * static_cast<std::size_t>(form_.slots));
    made.flows.Allocate(size * static_cast<std::size_t>(form_.jobs));
    made.quarter = std::make_unique<LowQuarterWork>(plan, form_.width);
    std::fill_n(made.crowns.data(), form_.slots, field.crown_beyond);
    std::fill_n(made.crowns.data() + form_.slots, form_.slots, field.first_crown);
  }
  fresh_.reserve(static_cast<std::size_t>(slots()));
  try {
    for (int block = 1; block < threads; ++block) threads_.emplace_back([this, block] { Work(block); });
  } catch (const std::system_error&) {
    // Too few threads to be had: the first one works the other blocks too.
  }
}

TrialCrew::~TrialCrew() {
  rounds_.End();
  for (std::thread& thread : threads_) thread.join();
}

void TrialCrew::Work(int block) {
  for (int seen = 0; rounds_.Await(seen);) {
    if (!rounds_.TakeOn(block, seen)) continue;
    MarchBlock(Of(block));
    rounds_.Done();
  }
}

void TrialCrew::BeginCrowns() {
  fresh_.clear();
}

TrialCrew::Place TrialCrew::TakeSlot(float slope) {
  int best = -1;
  int most = 0;
  for (int block = 0; block < blocks(); ++block) {
    const bool* taken = Of(block).taken;
    const int free = static_cast<int>(std::count(taken, taken + form_.slots, false));
    if (free > most) {
      most = free;
      best = block;
    }
  }
  if (best < 0) return {};
  TrialBlock& block = Of(best);
  const auto slot = static_cast<int>(std::find(block.taken, block.taken + form_.slots, false) - block.taken);
  block.taken[slot] = true;
  block.fresh[slot] = true;
  // A rod reading grows as the ground falls.
  block.slope[slot] = field_->grows_downward ? slope : -slope;
  fresh_.push_back({best, slot});
  return fresh_.back();
}

void TrialCrew::FreeSlot(int block, int slot) {
  Of(block).taken[slot] = false;
}

// The steps of `LayCrownAt` for all crowns of a block; those that stand there come out as they are. In 32 bits
// throughout: product and sum of two floats are rounded the same whether they pass through 64 bits or not.
void TrialCrew::LayBlock(TrialBlock& block) {
  const int rows = field_->line.rows;
  const int slots = form_.slots;
  alignas(64) float crown[kMostSlots];
  alignas(64) float slope[kMostSlots];
  alignas(64) float mean[kMostSlots];
  for (int s = 0; s < kMostSlots; ++s) {
    crown[s] = field_->first_crown;
    mean[s] = 0;
    slope[s] = block.slope[s];
  }
  const auto lay = [&](auto width) {
    for (int row = 2; row <= rows; ++row) {
      float* const at = block.crowns.data() + static_cast<std::ptrdiff_t>(row) * slots;
      const float span = field_->span[static_cast<std::size_t>(row)];
      const float weight = weight_[static_cast<std::size_t>(row)];
      for (int s = 0; s < width; ++s) {
        crown[s] = crown[s] + slope[s] * span;
        mean[s] += weight * (crown[s] - field_->first_crown);
        at[s] = crown[s];
      }
    }
  };
  if (slots == 16) {
    lay(std::integral_constant<int, 16>());
  } else if (slots == 8) {
    lay(std::integral_constant<int, 8>());
  } else {
    lay(std::integral_constant<int, 4>());
  }
  for (int s = 0; s < slots; ++s) {
    if (!block.fresh[s]) continue;
    const double fall = Wide(crown[s]) - Wide(field_->first_crown);
    const double sign = field_->elevations ? 1 : -1;
    block.laid[s] = {sign * -fall, sign * (mean[s] - fall), false};
  }
}

void TrialCrew::LayCrowns() {
  for (auto& block : blocks_) {
    if (std::find(block->fresh, block->fresh + form_.slots, true) != block->fresh + form_.slots) LayBlock(*block);
  }
  const int rows = field_->line.rows;
  const int slots = form_.slots;
  const auto crown_of = [&](Place place) { return Of(place.block).crowns.data() + place.slot; };
  for (std::size_t k = 0; k < fresh_.size(); ++k) {
    TrialBlock& block = Of(fresh_[k].block);
    block.fresh[fresh_[k].slot] = false;
    const float* const crown = crown_of(fresh_[k]);
    const float* before = last_crown_.data();
    int stride = 1;
    if (k > 0) {
      before = crown_of(fresh_[k - 1]);
      stride = slots;
    } else if (!has_last_) {
      continue;
    }
    int row = 2;
    while (row <= rows &&
           crown[static_cast<std::ptrdiff_t>(row) * slots] == before[static_cast<std::ptrdiff_t>(row) * stride]) {
      ++row;
    }
    block.laid[fresh_[k].slot].same_as_before = row > rows;
  }
  if (fresh_.empty()) return;
  const float* const last = crown_of(fresh_.back());
  for (int row = 1; row <= rows; ++row) {
    last_crown_[static_cast<std::size_t>(row)] = last[static_cast<std::ptrdiff_t>(row) * slots];
  }
  has_last_ = true;
}

void TrialCrew::BeginJobs() {
  for (auto& block : blocks_) block->count = 0;
}

void TrialCrew::AddJob(int block, int trial, int slot, double head) {
  TrialBlock& b = Of(block);
  b.jobs.head[b.count] = head;
  b.jobs.slot[b.count] = slot;
  b.results[b.count].trial = trial;
  ++b.count;
}

void TrialCrew::MarchBlock(TrialBlock& block) {
  if (block.count == 0) return;
  for (int job = block.count; job < form_.jobs; ++job) {
    block.jobs.head[job] = block.jobs.head[0];
    block.jobs.slot[job] = block.jobs.slot[0];
  }
  form_.march(line_, block.crowns.data(), block.jobs, block.count, block.flows.data());
  for (int job = 0; job < block.count; ++job) {
    const WideJobs& jobs = block.jobs;
    MarchedJob& result = block.results[job];
    result.marched = {jobs.head[job], jobs.flow[job], jobs.lowest[job], jobs.highest[job]};
    result.met = jobs.lowest[job] >= 0 && MeetsTarget(jobs.flow[job], target_);
    if (result.met) {
      result.quarter =
          LowQuarterOf(*plan_, form_, block.flows.data() + FlowPlace(form_.width, line_.rows, job, 0), *block.quarter);
    }
  }
}

void TrialCrew::March(float target) {
  target_ = target;
  const int round = rounds_.Begin(blocks());
  for (int block = 0; block < blocks(); ++block) {
    if (!rounds_.TakeOn(block, round)) continue;
    MarchBlock(Of(block));
    rounds_.Done();
  }
  rounds_.AwaitEnd();
}

}  // namespace torvale
