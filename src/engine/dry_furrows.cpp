#include "engine/dry_furrows.h"

namespace torvale {

DryFurrows FindDryFurrows(const Design& record) {
  DryFurrows dry;
  for (int row = 1; row <= record.HoleRows; ++row) {
    const bool watered = record.SurveyHoleDia[row] > 0 && record.FurrowLength[row] > 0;
    if (!watered || record.FurrowFlow[row] > 0) continue;
    if (++dry.count == 1) dry.first = row;
  }
  return dry;
}

}  // namespace torvale
