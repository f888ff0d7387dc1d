#include "engine/low_quarter.h"

#include <algorithm>
#include <bit>
#include <cfloat>

#include "base/arithmetic.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

LowQuarter Sorted(const FurrowPlan& plan, int count, LowQuarterWork& work) {
  for (std::size_t i = 0; i < plan.row.size(); ++i) {
    work.flow[i + 1] = std::bit_cast<float>(work.key[i]);
    work.length[i + 1] = plan.length[i];
  }
  QSort(1, static_cast<std::int16_t>(count), work.flow.data(), work.length.data());
  const int places = LowQuarterPlaces(work.flow.data(), work.length.data(), count, plan.quarter);
  double sum = 0;
  for (int i = 1; i <= places; ++i) sum += work.flow[static_cast<std::size_t>(i)];
  return {sum, places, places > 0};
}

}  // namespace

bool PlanFurrows(const SlopeField& field, FurrowPlan& plan) {
  plan = {};
  const int rows = field.line.rows;
  FurrowSums sums;
  std::vector<float> flow(static_cast<std::size_t>(rows) + 2);
  std::vector<float> listed(flow.size());
  std::vector<std::int16_t> length(flow.size());
  for (int row = 1; row <= rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    if (field.furrow_length[i] <= 0 || !(field.line.opening[i] > 0)) continue;
    const double ratio = field.flow_ratio[i];
    // No furrow's flow is above the target by more than the tolerance when a trial has converged.
    if (!(ratio > 0) || !(Wide(field.target) * 2 / ratio < FLT_MAX)) return false;
    flow[i] = 1;
    plan.row.push_back(row);
    plan.ratio.push_back(ratio);
  }
  if (plan.row.empty()) return false;
  try {
    ListFurrows(rows, flow.data(), field.furrow_length.data(), field.flow_ratio.data(),
                {listed.data(), length.data(), nullptr}, sums);
  } catch (const RunTimeFault&) {
    return false;
  }
  plan.length.assign(length.begin() + 1, length.begin() + 1 + sums.furrows);
  plan.equal_lengths = std::all_of(plan.length.begin(), plan.length.end(),
                                   [&](std::int16_t each) { return each == plan.length.front() && each > 0; });
  plan.quarter = QuarterOf(field.low_quarter, sums.length);
  std::fill(listed.begin(), listed.end(), 1.0F);
  plan.places = LowQuarterPlaces(listed.data(), length.data(), sums.furrows, plan.quarter);
  return plan.places > 0;
}

LowQuarterWork::LowQuarterWork(const FurrowPlan& plan, int stride)
    : key(plan.row.size() + 1), flow(plan.row.size() + 1), length(plan.row.size() + 1) {
  for (const int row : plan.row) at.push_back(row * stride);
}

LowQuarter LowQuarterOf(const FurrowPlan& plan, const WideForm& form, const float* flows, LowQuarterWork& work) {
  const int count = static_cast<int>(plan.row.size());
  LowestSum sum;
  form.lowest_sum(flows, work.at.data(), plan.ratio.data(), count, plan.equal_lengths ? plan.places : 0,
                  work.key.data(), sum);
  // A furrow without any flow is not listed at all.
  if (!sum.positive) return {};
  if (plan.equal_lengths && sum.exact) return {sum.value, plan.places, true};
  return Sorted(plan, count, work);
}

}  // namespace torvale
