#include "engine/uniformity.h"

#include <utility>

namespace torvale {

void QSort(std::int16_t low, std::int16_t high, RowArray<float>& keys, RowArray<std::int16_t>& followers) {
  if (StoreInt16(low + high) < 0 || low < 0 || high > kLastRow) throw RunTimeFault{Fault::kSubscript};
  QSort(low, high, keys.data(), followers.data());
}

void QSort(std::int16_t low, std::int16_t high, float* keys, std::int16_t* followers) {
  int i = low;
  int j = high;
  const float pivot = keys[StoreInt16(low + high) / 2];
  while (i <= j) {
    while (keys[i] < pivot && i < high) ++i;
    while (pivot < keys[j] && j > low) --j;
    if (i > j) break;
    std::swap(keys[i], keys[j]);
    std::swap(followers[i], followers[j]);
    ++i;
    --j;
  }
  if (low < j) QSort(low, static_cast<std::int16_t>(j), keys, followers);
  if (i < high) QSort(static_cast<std::int16_t>(i), high, keys, followers);
}

int LowQuarterPlaces(const float* flows, const std::int16_t* lengths, int places, float quarter) {
  double length = 0;
  for (int i = 1; i <= places; ++i) {
    if (flows[i] > 0) length += lengths[i];
    if (length >= quarter) return i;
  }
  return 0;
}

float UniformityOf(double low_sum, int places, float average) {
  const double mean = Divide(low_sum, places);
  const float percent = Store32(100 * Divide(mean, average));
  // The product is rounded to 32 bits first, so that 89.95 comes to 90.0.
  const float tenths = Store32(Wide(percent) * 10);
  const float uniformity = Store32(Int(tenths + 0.5) / 10);
  return uniformity >= 100 ? 100 : uniformity;
}

float UniformityOfSorted(const float* flows, const std::int16_t* lengths, int places, float quarter, float average) {
  const int low_places = LowQuarterPlaces(flows, lengths, places, quarter);
  double low = 0;
  for (int i = 1; i <= low_places; ++i) low += flows[i];
  return UniformityOf(low, low_places, average);
}

void ListFurrows(int rows, const float* flow, const std::int16_t* length, const float* ratio, const FurrowLists& lists,
                 FurrowSums& sums) {
  sums = {};
  for (int i = 1; i <= rows; ++i) {
    if (length[i] <= 0 || !(flow[i] > 0)) continue;
    const auto furrow = static_cast<std::int16_t>(sums.furrows + 1);
    if (lists.number != nullptr) lists.number[i] = static_cast<float>(furrow);
    sums.furrows = furrow;
    const double share = ratio[i];
    lists.flow[furrow] = Store32(Divide(flow[i], share));
    lists.length[furrow] = StoreInt16(Divide(length[i], share));
    sums.length = Store32(Wide(sums.length) + length[i]);
  }
}

void SortFurrows(Design& record) {
  QSort(1, record.WateredFurrows, record.NormFurrowFlow, record.NormFurrowLength);
}

void DistributionEffic(Design& record, EngineHost& host) {
  record.Uniformity =
      UniformityOfSorted(record.NormFurrowFlow.data(), record.NormFurrowLength.data(), record.HoleRows,
                         QuarterOf(record.LowQuarter, record.TotalFurrowLength), record.AverageFurrowFlow);
  host.UniformityChanged();
}

}  // namespace torvale
