#pragma once

#include <cstdint>

#include "engine/engine_host.h"
#include "record/design_record.h"

namespace torvale {

// Sorts places `low` to `high` of two parallel lists ascending by key. Not stable: equal keys are swapped with each
// other, and the order of followers that this procedure yields is part of the results. Needs low + high to fit 16 bits.
void QSort(std::int16_t low, std::int16_t high, RowArray<float>& keys, RowArray<std::int16_t>& followers);

// The sort of every finished march: `NormFurrowFlow` with `NormFurrowLength`, places 1 to `WateredFurrows`.
void SortFurrows(DesignRecord& record);

// Distribution uniformity of the low quarter: the mean of the lowest normalised flows that make up `LowQuarter` of the
// furrow length, over `AverageFurrowFlow`, in percent to one decimal and at most 100. Needs the furrows sorted. The
// denominator is the target mean, not the mean of the actual flows; the furrow that crosses the quarter counts whole.
// A quarter that is never reached is a RunTimeFault (kDivisionByZero), with `Uniformity` as it was.
void DistributionEffic(DesignRecord& record, EngineHost& host);

}  // namespace torvale
