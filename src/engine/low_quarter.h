// The mean of the lowest quarter without the sort, where the sort can make no difference.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/slope_field.h"
#include "engine/wide_lines.h"

namespace torvale {

struct LowQuarter {
  double sum = 0;  // of the normalised flows
  int places = 0;
  bool usable = false;  // false where the plain form must tell
};

// The furrows of a field, as every trial finds them as long as each gives some flow.
struct FurrowPlan {
  std::vector<int> row;              // rows with a length and an opening
  std::vector<double> ratio;         // their `FlowRatio`
  std::vector<std::int16_t> length;  // normalised, as the march lists it
  bool equal_lengths = false;
  float quarter = 0;  // feet
  int places = 0;     // of the quarter, where the lengths are equal
};

// False where a furrow can't be listed, or the quarter is never reached: then the plain form must work the trials.
bool PlanFurrows(const SlopeField& field, FurrowPlan& plan);

// Memory of `LowQuarterOf`: an element for each furrow and one.
struct LowQuarterWork {
  std::vector<int> at;  // of the furrows' flows in a list with `stride` elements to a row
  std::vector<std::int32_t> key;
  std::vector<float> flow;
  std::vector<std::int16_t> length;

  LowQuarterWork(const FurrowPlan& plan, int stride);
};

// The low quarter of one march, whose flow out of row r is flows[r * stride]. Where all lengths are equal and every
// furrow has some flow, the number of places doesn't depend on the order, and the furrows below the one at that place
// are found by counting; where no addition rounds, their sum is that of the sort to the bit. Elsewhere the sort is done
// as it stands, ties and all.
LowQuarter LowQuarterOf(const FurrowPlan& plan, const WideForm& form, const float* flows, LowQuarterWork& work);

}  // namespace torvale
