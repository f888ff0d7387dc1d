// Made-up lines to choose hole sizes for.
#pragma once

#include <algorithm>
#include <cmath>

#include "base/power.h"
#include "engine/best_holes.h"
#include "engine/hydraulics.h"
#include "properties/random.h"

namespace torvale {

// The furrows of these lengths, feet, one at each row, and the quarter of them that waters least.
inline void AddFurrows(PlanTask& task, const std::vector<double>& lengths) {
  double total = 0;
  for (const double length : lengths) total += length;
  const auto furrows = static_cast<double>(lengths.size());
  for (const double length : lengths) {
    PlanFurrow furrow;
    furrow.row = static_cast<int>(task.furrows.size()) + 1;
    furrow.ratio = static_cast<double>(static_cast<float>(length / (total / furrows)));
    furrow.normal_length = static_cast<int>(std::nearbyint(length / furrow.ratio));
    task.furrows.push_back(furrow);
  }
  task.quarter = static_cast<float>(0.25 * total);
}

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
  std::vector<double> lengths;
  for (int i = 0; i < furrows; ++i) lengths.push_back(random.Whole(800, 1200));
  AddFurrows(task, lengths);
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

// A line as planners lay it out: furrows three to seven feet apart whose lengths change evenly along the line, a pipe
// wide enough for the flow, a crown that falls or rises a little and has humps, and some neighbouring sizes around the
// one of the average flow.
inline PlanTask RandomField(Random& random, int furrows, int sizes, int stretches) {
  PlanTask task;
  Line& line = task.line;
  line.rows = furrows;
  const auto size = static_cast<std::size_t>(furrows) + 1;
  const double spacing = random.Real(3.3, 6.7);
  const double gpm = std::round(furrows * random.Real(4, 11));
  const double speed = random.Real(2, 4.5);  // feet per second
  double inches = 8;
  for (const double wider : {10, 12, 15, 18, 22}) {
    if (gpm / 448.8 / (0.785 * inches * inches / 144) > speed) inches = wider;
  }
  line.length.assign(size, spacing);
  line.dia_power.assign(size, Power(inches, kDiameterExponent));
  line.friction_factor = FrictionFactor(random.Whole(130, 150));
  line.discharge_coef = 0.65;
  const double slope = random.Real(-0.2, 0.1) / 100;
  const double hump = random.Real(0, 0.15);
  const double wave = random.Real(300, 900);
  const auto crown = [&](int row) { return slope * spacing * row + hump * std::sin(spacing * row / wave * 6.28); };
  line.rise.assign(size, 0);
  for (int row = 2; row <= furrows; ++row) line.rise[static_cast<std::size_t>(row)] = crown(row - 1) - crown(row);
  task.target = static_cast<float>(gpm);
  task.average = AverageFlow(task.target, furrows);
  const double first = random.Real(600, 1320);
  const double last = first * random.Real(0.7, 1.3);
  std::vector<double> lengths;
  for (int i = 0; i < furrows; ++i) lengths.push_back(std::floor(first + (last - first) * i / furrows));
  AddFurrows(task, lengths);
  task.least_head = 0.5;
  task.highest_head = random.Real(2.5, 4);
  task.first_head = 2;
  task.stretches = stretches;
  const double area = static_cast<double>(task.average) / OrificeFlow(1, random.Real(0.9, 1.6), line.discharge_coef);
  const int middle = std::max(1 + sizes / 2, static_cast<int>(std::round(std::sqrt(area * 144 * 4 / 3.14) * 16)));
  for (int i = 0; i < sizes; ++i) task.sizes.push_back(static_cast<float>((middle - sizes / 2 + i) / 16.0));
  return task;
}

}  // namespace torvale
