#include "engine/uniformity.h"

#include <utility>

#include "base/arithmetic.h"

namespace torvale {

void QSort(std::int16_t low, std::int16_t high, RowArray<float>& keys, RowArray<std::int16_t>& followers) {
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

void SortFurrows(DesignRecord& record) {
  QSort(1, record.WateredFurrows, record.NormFurrowFlow, record.NormFurrowLength);
}

void DistributionEffic(DesignRecord& record, EngineHost& host) {
  const float quarter = Narrow(static_cast<double>(record.LowQuarter) * static_cast<double>(record.TotalFurrowLength));
  double length = 0;
  int place = 0;
  for (int i = 1; i <= record.HoleRows && place == 0; ++i) {
    if (record.NormFurrowFlow[i] > 0) length += record.NormFurrowLength[i];
    if (length >= static_cast<double>(quarter)) place = i;
  }
  double low = 0;
  for (int i = 1; i <= place; ++i) low += static_cast<double>(record.NormFurrowFlow[i]);
  const double mean = Divide(low, place);
  record.Uniformity = Store32(100 * Divide(mean, static_cast<double>(record.AverageFurrowFlow)));
  // The product is rounded to 32 bits first, so that 89.95 comes to 90.0.
  const float tenths = Store32(static_cast<double>(record.Uniformity) * 10);
  record.Uniformity = Store32(Int(static_cast<double>(tenths) + 0.5) / 10);
  if (record.Uniformity >= 100) record.Uniformity = 100;
  host.UniformityChanged();
}

}  // namespace torvale
