#include "engine/slope_curve.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/aligned_floats.h"
#include "engine/rough_line.h"

namespace torvale {
namespace {

constexpr int kRoughRows = 48;
constexpr int kHeads = 4;  // marched on each crown

// The polynomial through four points.
double Through(const double* x, const double* y, double at) {
  double sum = 0;
  for (int i = 0; i < SlopeCurve::kCrowns; ++i) {
    double term = y[i];
    for (int k = 0; k < SlopeCurve::kCrowns; ++k) {
      if (k != i) term *= (at - x[k]) / (x[i] - x[k]);
    }
    sum += term;
  }
  return sum;
}

// Feet of pipe from the far end up to each row.
std::vector<double> Distances(const std::vector<WideRow>& row) {
  std::vector<double> distance(row.size(), 0);
  for (std::size_t i = row.size() - 1; i > 1; --i) distance[i - 1] = distance[i] + row[i].length;
  return distance;
}

struct RoughMarch {
  double head = 0;
  double square = 0;  // of the flow
  double lowest = 0;
};

// Takes root and drop of a crown from marches on it, by ascending heads: the square of the flow is nearly a straight
// line of the head, and the two that tell most are those on both sides of the target.
bool TakeCrown(const RoughMarch* marches, double wanted, double& root, double& drop) {
  int i = 0;
  while (i + 2 < kHeads && marches[i + 1].square < wanted) ++i;
  const RoughMarch& a = marches[i];
  const RoughMarch& b = marches[i + 1];
  if (a.lowest < 0 || !(b.square > a.square)) return false;
  const double share = (wanted - a.square) / (b.square - a.square);
  root = a.head + share * (b.head - a.head);
  drop = root - (a.lowest + share * (b.lowest - a.lowest));
  return true;
}

}  // namespace

double SlopeCurve::RootAt(double at) const {
  return known ? Through(mean_rise, root, at) : at;
}

double SlopeCurve::DropAt(double at) const {
  return known ? Through(mean_rise, drop, at) : 0;
}

SlopeCurve LookAlongSlopes(const WideForm& form, const WideLine& line, float target, double level_head,
                           double most_rise) {
  SlopeCurve curve;
  const std::vector<WideRow> row = RoughRows(line.row, line.rows, kRoughRows);
  const std::vector<double> distance = Distances(row);
  double area = 0;
  double mean = 0;
  for (std::size_t i = 1; i < row.size(); ++i) {
    area += row[i].opening;
    mean += row[i].opening * distance[i];
  }
  const double length = distance[1];
  if (!(area > 0 && mean > 0 && length > 0) || most_rise == 0) return curve;
  mean /= area * length;

  WideLine rough = line;
  rough.row = row.data();
  rough.rows = static_cast<int>(row.size()) - 1;
  rough.elevations = true;
  AlignedFloats crowns;
  AlignedFloats flows;
  crowns.Allocate(row.size() * static_cast<std::size_t>(form.slots));
  flows.Allocate(row.size() * static_cast<std::size_t>(form.jobs));
  RoughMarch marches[SlopeCurve::kCrowns][kHeads];
  for (int c = 0; c < SlopeCurve::kCrowns; ++c) {
    const double rise = most_rise * c / (SlopeCurve::kCrowns - 1);
    curve.mean_rise[c] = rise * mean;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const double height = rise * distance[std::max<std::size_t>(i, 1)] / length;
      crowns.data()[i * static_cast<std::size_t>(form.slots) + static_cast<std::size_t>(c)] = static_cast<float>(height);
    }
    for (int h = 0; h < kHeads; ++h) {
      const double spread = 0.05 * level_head + 0.2 * std::fabs(curve.mean_rise[c]);
      marches[c][h].head = std::max(0.0, level_head + curve.mean_rise[c] + spread * (2 * h - kHeads + 1));
    }
  }
  constexpr int kAll = SlopeCurve::kCrowns * kHeads;
  WideJobs jobs;
  for (int first = 0; first < kAll; first += form.jobs) {
    const int count = std::min(form.jobs, kAll - first);
    for (int job = 0; job < form.jobs; ++job) {
      const int at = first + std::min(job, count - 1);
      jobs.slot[job] = at / kHeads;
      jobs.head[job] = marches[at / kHeads][at % kHeads].head;
    }
    form.march(rough, crowns.data(), jobs, count, flows.data());
    for (int job = 0; job < count; ++job) {
      RoughMarch& march = marches[(first + job) / kHeads][(first + job) % kHeads];
      const double flow = jobs.flow[job];
      march.square = flow * flow;
      march.lowest = jobs.lowest[job];
    }
  }
  const double wanted = static_cast<double>(target) * static_cast<double>(target);
  curve.known = true;
  for (int c = 0; c < SlopeCurve::kCrowns; ++c) {
    if (!TakeCrown(marches[c], wanted, curve.root[c], curve.drop[c])) curve.known = false;
  }
  return curve;
}

}  // namespace torvale
