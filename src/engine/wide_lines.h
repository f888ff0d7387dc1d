// What the marches side by side work on, and the forms that they come in: see wide_march.h.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/platform_processor.h"

namespace torvale {

inline constexpr int kMostJobs = 32;   // marches of one block
inline constexpr int kMostSlots = 16;  // crowns of one block

// A row of the line as the wide marches read it.
struct WideRow {
  double opening = 0;    // square feet, 0 for a row without holes
  double length = 0;     // feet
  double dia_power = 1;  // inches to the power 4.866
  double rise = 0;       // feet to the row upstream, where the jobs share one crown
};

// The line: rows 1 to `rows`, element 0 unused.
struct WideLine {
  const WideRow* row = nullptr;
  int rows = 0;
  double friction_factor = 0;
  double discharge_coef = 0;
  bool elevations = false;
  // The binary exponents of pipe flow that are quickest: this one and fifteen above it.
  int lowest_exponent = 0;
};

// The rows of one march, elements 1 to `rows` of each: feet, and gallons per minute out of the row.
struct WideProfile {
  double* head = nullptr;
  float* flow = nullptr;
};

// The marches of one block. Jobs beyond the wanted ones are repetitions.
struct WideJobs {
  alignas(64) double head[kMostJobs] = {};    // in: far-end head, 0 or more
  alignas(64) int slot[kMostJobs] = {};       // in: the crown
  alignas(64) float flow[kMostJobs] = {};     // out: flow at the head of the line, gallons per minute
  alignas(64) double lowest[kMostJobs] = {};  // out: the lowest head of rows 1 to the far end
  alignas(64) double highest[kMostJobs] = {};
  // out: the head that row 1 hands on to element 0
  alignas(64) double beyond[kMostJobs] = {};
};

// The sum of the lowest of a list of quotients, and whether it may be taken for that of the sorted list.
struct LowestSum {
  double value = 0;
  bool positive = false;  // every quotient is above 0 and finite
  bool exact = false;     // no addition of any of them rounds, in whatever order
};

// Where the flow of a job out of a row stands: vector after vector, and the lanes of one side by side for each row from
// 0 on, so that the flows of one job lie near each other.
inline std::ptrdiff_t FlowPlace(int width, int rows, int job, int row) {
  return (static_cast<std::ptrdiff_t>(job / width) * (rows + 1) + row) * width + job % width;
}

// A form of the marches: its number of lanes, and how many jobs and crowns go into a block.
struct WideForm {
  VectorLanes lanes = VectorLanes::kOne;
  int width = 0;
  int jobs = 0;
  int slots = 0;
  int one_crown_jobs = 0;
  // Marches the first `count` jobs, which the lanes may round up. `crowns` has `slots` floats for each row from 0 on,
  // in the units of the survey. `flows` takes `jobs` floats for each row from 0 on, at `FlowPlace`: what flows out of
  // the rows with holes. `lowest` below 0 tells that the march went negative; what else comes out of such a job means
  // nothing. No fault is told: the line must be one that `IsMonotone` (head_brackets.h) vouches for.
  void (*march)(const WideLine& line, const float* crowns, WideJobs& jobs, int count, float* flows) = nullptr;
  // The same on the crown of `WideRow::rise`, all `one_crown_jobs` of them. The first one's rows come out in `rows`.
  void (*march_one_crown)(const WideLine& line, WideJobs& jobs, const WideProfile& rows) = nullptr;
  // The quotients flows[at[i]] / ratio[i], rounded to 32 bits, as their bits in `key`, and the sum of the `places`
  // lowest of them, where it is exact: floats from the smallest unit of the lowest up to the sum of all then fit the 53
  // bits of a double.
  void (*lowest_sum)(const float* flows, const int* at, const double* ratio, int count, int places, std::int32_t* key,
                     LowestSum& sum) = nullptr;
};

// flow^1.852 for flows that the wide forms have no table in registers for; 0 for what is no flow.
void FlowPowersOutside(const float* flow, double* power, int count);

}  // namespace torvale
