// Made-up lines to choose hole sizes for.
#pragma once

#include <algorithm>
#include <cmath>

#include "base/power.h"
#include "engine/best_holes.h"
#include "engine/hydraulics.h"
#include "properties/random.h"

namespace torvale {

// A line with a hole at each row, furrows of about 1000 feet, and some neighbouring sizes around the one that would let
// the average flow out under 1.3 feet.
inline PlanTask RandomTask(Random& random, int furrows, int sizes, int stretches) {
  PlanTask task;
  Line& line = task.line;
  line.rows = furrows;
  const auto size = static_cast<std::size_t>(furrows) + 1;
  const double gpm = random.Real(60, 500);
  const double inches = std::round(std::pow(gpm, 0.38) * 0.72 * random.Real(0.95, 1.5));
  line.length.assign(size, random.Real(5, 60));
  line.dia_power.assign(size, Power(inches, kDiameterExponent));
  line.rise.assign(size, 0);
  for (std::size_t i = 2; i < size; ++i) line.rise[i] = random.Real(-0.03, 0.05);
  line.friction_factor = FrictionFactor(150);
  line.discharge_coef = 0.65;
  task.target = static_cast<float>(gpm);
  task.average = AverageFlow(task.target, furrows);
  double total = 0;
  std::vector<double> lengths;
  for (int i = 0; i < furrows; ++i) lengths.push_back(random.Whole(800, 1200));
  for (const double length : lengths) total += length;
  for (int i = 0; i < furrows; ++i) {
    const double length = lengths[static_cast<std::size_t>(i)];
    PlanFurrow furrow;
    furrow.row = i + 1;
    furrow.ratio = static_cast<double>(static_cast<float>(length / (total / furrows)));
    furrow.normal_length = static_cast<int>(std::nearbyint(length / furrow.ratio));
    task.furrows.push_back(furrow);
  }
  task.quarter = static_cast<float>(0.25 * total);
  task.least_head = 0.2;
  task.highest_head = random.Real(2, 6);
  task.first_head = 2;
  task.stretches = stretches;
  const double area = static_cast<double>(task.average) / OrificeFlow(1, 1.3, line.discharge_coef);
  const int middle = std::max(1 + sizes / 2, static_cast<int>(std::round(std::sqrt(area * 144 * 4 / 3.14) * 16)));
  for (int i = 0; i < sizes; ++i) task.sizes.push_back(static_cast<float>((middle - sizes / 2 + i) / 16.0));
  return task;
}

// Calls `look` with every plan, counting up furrow by furrow.
template <typename Look>
void EveryPlan(const PlanTask& task, const Look& look) {
  HolePlan plan(task.furrows.size(), 0);
  for (;;) {
    if (StretchesOf(plan) <= task.stretches) look(plan);
    std::size_t place = 0;
    while (place < plan.size() && ++plan[place] == task.sizes.size()) plan[place++] = 0;
    if (place == plan.size()) return;
  }
}

}  // namespace torvale
