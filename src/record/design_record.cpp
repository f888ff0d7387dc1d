#include "record/design_record.h"

#include "record/hole_size_table.h"

namespace torvale {

DesignRecord::DesignRecord() {
  FillHoleSizes(*this);
  GridClipboard.Resize(kClipboardRows, kClipboardColumns);
}

void FillHoleSizes(DesignRecord& record) {
  for (int row = 0; row <= kHoleSizes; ++row) {
    record.HoleSizeName[row] = ListedSizeName(row);
    record.HoleSizeValue[row] = ListedSizeValue(row);
  }
}

void ClearRowArrays(DesignRecord& record) {
  const auto clear = [](auto&... arrays) { (arrays.Clear(), ...); };
  clear(record.ReservedRowValue2, record.LimitedHoleDia, record.ComputerHoleDia, record.HoleSizeIdeal,
        record.SelectedHoleValue, record.SelectedHoleName, record.NormFurrowFlow, record.Station, record.CrownElev,
        record.DesignElev, record.HoleSpacing, record.ReservedRowValue, record.Head, record.ElevByFoot, record.HoleDia,
        record.SurveyHoleDia, record.FurrowFlow, record.HolesPerFurrow, record.HoleArea, record.NormFurrowLength,
        record.FurrowLength, record.PipeArea, record.RequiredFlow, record.PipeDia, record.MilText, record.FurrowNumber);
}

}  // namespace torvale
