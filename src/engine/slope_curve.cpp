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

struct RoughLine {
  std::vector<WideRow> row;
  std::vector<double> distance;  // feet of pipe from the far end up to each row; element 0 as that of row 1
  double mean = 0;               // of the distances of the holes, by their area, in parts of the line
};

RoughLine Roughen(const WideLine& line) {
  RoughLine rough;
  rough.row = RoughRows(line.row, line.rows, kRoughRows);
  rough.distance.assign(rough.row.size(), 0);
  double area = 0;
  double moment = 0;
  for (std::size_t i = rough.row.size() - 1; i >= 1; --i) {
    area += rough.row[i].opening;
    moment += rough.row[i].opening * rough.distance[i];
    rough.distance[i - 1] = rough.distance[i] + (i > 1 ? rough.row[i].length : 0);
  }
  const double length = rough.distance[0];
  if (area > 0 && length > 0) rough.mean = moment / (area * length);
  return rough;
}

// Lays a straight crown in place `slot` of `slots`, with a rise of so many feet to row 1.
void LayCrown(const RoughLine& rough, double rise, int slot, int slots, float* crowns) {
  for (std::size_t i = 0; i < rough.row.size(); ++i) {
    const double height = rise * rough.distance[i] / rough.distance[0];
    crowns[i * static_cast<std::size_t>(slots) + static_cast<std::size_t>(slot)] = static_cast<float>(height);
  }
}

struct RoughMarch {
  double head = 0;
  double square = 0;  // of the flow
  double lowest = 0;
};

using RoughMarches = RoughMarch[SlopeCurve::kCrowns][kHeads];

// Marches all heads, crown by crown.
void MarchAll(const WideForm& form, const WideLine& line, const RoughLine& rough, const float* crowns,
              RoughMarches& marches) {
  WideLine wide = line;
  wide.row = rough.row.data();
  wide.rows = static_cast<int>(rough.row.size()) - 1;
  wide.elevations = true;
  AlignedFloats flows;
  flows.Allocate(rough.row.size() * static_cast<std::size_t>(form.jobs));
  constexpr int kAll = SlopeCurve::kCrowns * kHeads;
  WideJobs jobs;
  for (int first = 0; first < kAll; first += form.jobs) {
    const int count = std::min(form.jobs, kAll - first);
    for (int job = 0; job < form.jobs; ++job) {
      const int at = first + std::min(job, count - 1);
      jobs.slot[job] = at / kHeads;
      jobs.head[job] = marches[at / kHeads][at % kHeads].head;
    }
    form.march(wide, crowns, jobs, count, flows.data());
    for (int job = 0; job < count; ++job) {
      RoughMarch& march = marches[(first + job) / kHeads][(first + job) % kHeads];
      const double flow = jobs.flow[job];
      march.square = flow * flow;
      march.lowest = jobs.lowest[job];
    }
  }
}

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
  const RoughLine rough = Roughen(line);
  if (!(rough.mean > 0) || most_rise == 0) return curve;
  AlignedFloats crowns;
  crowns.Allocate(rough.row.size() * static_cast<std::size_t>(form.slots));
  RoughMarches marches;
  for (int c = 0; c < SlopeCurve::kCrowns; ++c) {
    const double rise = most_rise * c / (SlopeCurve::kCrowns - 1);
    LayCrown(rough, rise, c, form.slots, crowns.data());
    curve.mean_rise[c] = rise * rough.mean;
    const double spread = 0.05 * level_head + 0.2 * std::fabs(curve.mean_rise[c]);
    for (int h = 0; h < kHeads; ++h) {
      marches[c][h].head = std::max(0.0, level_head + curve.mean_rise[c] + spread * (2 * h - kHeads + 1));
    }
  }
  MarchAll(form, line, rough, crowns.data(), marches);
  const double wanted = static_cast<double>(target) * static_cast<double>(target);
  curve.known = true;
  for (int c = 0; c < SlopeCurve::kCrowns; ++c) {
    if (!TakeCrown(marches[c], wanted, curve.root[c], curve.drop[c])) curve.known = false;
  }
  return curve;
}

}  // namespace torvale
