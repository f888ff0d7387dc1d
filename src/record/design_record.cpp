#include "record/design_record.h"

namespace torvale {

void ClearRowArrays(Design& record) {
  const auto clear = [](auto&... arrays) { (arrays.Clear(), ...); };
  clear(record.ReservedRowValue2, record.LimitedHoleDia, record.ComputerHoleDia, record.HoleSizeIdeal,
        record.SelectedHoleValue, record.SelectedHoleName, record.NormFurrowFlow, record.Station, record.CrownElev,
        record.DesignElev, record.HoleSpacing, record.ReservedRowValue, record.Head, record.ElevByFoot, record.HoleDia,
        record.SurveyHoleDia, record.FurrowFlow, record.HolesPerFurrow, record.HoleArea, record.NormFurrowLength,
        record.FurrowLength, record.PipeArea, record.RequiredFlow, record.PipeDia, record.MilText, record.FurrowNumber);
}

}  // namespace torvale
