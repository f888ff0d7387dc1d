// The distribution uniformity of a march, and the sort that it goes by.
#pragma once

#include <cstdint>

#include "base/arithmetic.h"
#include "engine/engine_host.h"
#include "record/design_record.h"

namespace torvale {

// Sorts places `low` to `high` of two parallel lists ascending by key. Not stable: equal keys are swapped with each
// other, and the order of followers that this procedure yields is part of the results. Needs low + high to fit 16 bits.
void QSort(std::int16_t low, std::int16_t high, RowArray<float>& keys, RowArray<std::int16_t>& followers);

// The same on plain lists, whose elements `low` to `high` there must be.
void QSort(std::int16_t low, std::int16_t high, float* keys, std::int16_t* followers);

// The places, from the lowest flow up, of the furrows that make up the low quarter of a length: the first place at
// which the lengths of furrows with a flow reach `quarter`. 0 where `places` of them don't.
int LowQuarterPlaces(const float* flows, const std::int16_t* lengths, int places, float quarter);

// Feet of furrow length that make the low quarter: a share of them all, in 32 bits.
inline float QuarterOf(float share, float length) {
  return Narrow(Wide(share) * Wide(length));
}

// Distribution uniformity of a sum of the `places` lowest flows, in percent to one decimal and at most 100. No place
// and an average of 0 are RunTimeFaults (kDivisionByZero).
float UniformityOf(double low_sum, int places, float average);
// The same of the low quarter of flows in ascending order, with their lengths. A quarter that they don't reach is a
// RunTimeFault (kDivisionByZero).
float UniformityOfSorted(const float* flows, const std::int16_t* lengths, int places, float quarter, float average);

// The furrows with a length and a flow: their flow and length over `FlowRatio`, in lists from element 1 on.
struct FurrowLists {
  float* flow;
  std::int16_t* length;
  float* number;  // of the row among them, in an element for each row; nullptr where nobody asks
};
struct FurrowSums {
  std::int16_t furrows = 0;
  float length = 0;  // feet, unnormalised
};

// Fills the lists from the rows 1 to `rows` of a finished march. A ratio of 0 and a length beyond 16 bits are
// RunTimeFaults, with `sums` as far as it had got.
void ListFurrows(int rows, const float* flow, const std::int16_t* length, const float* ratio, const FurrowLists& lists,
                 FurrowSums& sums);

// The sort of every finished march: `NormFurrowFlow` with `NormFurrowLength`, places 1 to `WateredFurrows`.
void SortFurrows(Design& record);

// Distribution uniformity of the low quarter: the mean of the lowest normalised flows that make up `LowQuarter` of the
// furrow length, over `AverageFurrowFlow`, in percent to one decimal and at most 100. Needs the furrows sorted. The
// denominator is the target mean, not the mean of the actual flows; the furrow that crosses the quarter counts whole.
// A quarter that is never reached is a RunTimeFault (kDivisionByZero), with `Uniformity` as it was.
void DistributionEffic(Design& record, EngineHost& host);

}  // namespace torvale
