#include "engine/plan_task.h"

#include <algorithm>
#include <cstdint>

#include "base/arithmetic.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

std::vector<Inches> SizesInOrder(std::vector<Inches> sizes) {
  std::erase_if(sizes, [](Inches size) { return !(size > 0); });
  std::sort(sizes.begin(), sizes.end());
  sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
  return sizes;
}

PlanFurrow FurrowOf(const Design& record, int row) {
  PlanFurrow furrow;
  furrow.row = row;
  furrow.holes = record.HolesPerFurrow[row];
  if (record.FurrowLength[row] <= 0) return furrow;
  furrow.ratio = record.FlowRatio[row];
  furrow.normal_length = StoreInt16(Divide(record.FurrowLength[row], furrow.ratio));
  return furrow;
}

}  // namespace

PlanTask PlanTaskOf(const Design& record, bool elevations, const PlanLimits& limits) {
  PlanTask task;
  PrepareLine(record, elevations, task.line);
  task.sizes = SizesInOrder(limits.sizes);
  task.stretches = limits.stretches;
  task.least_head = limits.least_head;
  task.highest_head = limits.highest_head;
  task.first_head = limits.first_head;
  task.target = record.TargetGPM;
  task.average = record.AverageFurrowFlow;
  float length = 0;
  for (int row = 1; row <= record.HoleRows; ++row) {
    if (!(record.HoleDia[row] > 0) || record.HolesPerFurrow[row] <= 0) continue;
    task.furrows.push_back(FurrowOf(record, row));
    if (record.FurrowLength[row] > 0) length = Store32(Wide(length) + record.FurrowLength[row]);
  }
  task.quarter = QuarterOf(record.LowQuarter, length);
  return task;
}

void LayPlan(const PlanTask& task, const HolePlan& plan, RowArray<Inches>& hole_dia) {
  hole_dia.Clear();
  for (std::size_t i = 0; i < plan.size(); ++i) hole_dia[task.furrows[i].row] = task.sizes[plan[i]];
}

std::optional<HolePlan> LaidPlan(const PlanTask& task, const RowArray<Inches>& hole_dia) {
  HolePlan plan;
  for (const PlanFurrow& furrow : task.furrows) {
    const auto size = std::find(task.sizes.begin(), task.sizes.end(), hole_dia[furrow.row]);
    if (size == task.sizes.end()) return std::nullopt;
    plan.push_back(static_cast<std::uint16_t>(size - task.sizes.begin()));
  }
  return plan;
}

}  // namespace torvale
