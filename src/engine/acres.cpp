#include "engine/acres.h"

#include "base/arithmetic.h"

namespace torvale {

bool AcreCalc(Design& record) {
  record.TotalAcres = 0;
  try {
    double sum = 0;
    for (int i = 1; i <= record.HoleRows - 1; ++i) {
      sum += record.FurrowLength[i] * Wide(record.PlantedWidth[i]) / kSquareFeetPerAcre;
    }
    record.TotalAcres = Store32(sum);
    return true;
  } catch (const RunTimeFault&) {
    return false;
  }
}

}  // namespace torvale
