// From the coarse survey to one row for each punched hole or survey gap. The four procedures run in this order, and
// `FlowRatio` after them and before any march. They read the sheet and `SurveyRows`, write the record and show nothing.
// A station that does not rise, a count too large for its field or an index past a row array is a RunTimeFault.
#pragma once

#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

// Lays the stations out: watered reaches hole by hole at the spacing of the survey row being walked, unwatered survey
// rows as one row each. Writes `Station` (hundredths of a foot, rounded up) and, for the time being, `HolesPerFurrow`.
void CalCrownDist(Design& record, const TextGrid& sheet);

// Counts the stations into `HoleRows`. Row 1 may stand at station 0 and does not end the list.
void CalStations(Design& record);

// Gives each row its hole data: `HoleDia`, `SurveyHoleDia`, `HoleSpacing`, `PlantedWidth`, `HolesPerFurrow`, and
// counts `WateredFurrows`. A first survey row that is no watered furrow loses its length, spacing, hole, count and
// width cells on the sheet.
void CalHoleStation(Design& record, TextGrid& sheet);

// Gives each row its pipe, crown and furrow length, the latter two interpolated to the whole foot: `PipeDia`,
// `PipeArea`, `MilText`, `CrownElev`, `FurrowLength`, `ElevByFoot`, `FurrowLengthByFoot`.
void CalCrownElev(Design& record, const TextGrid& sheet);

// Share of the flow that each furrow's length asks for: `FlowRatio` and `RequiredFlow` of the rows with a length.
// No watered furrow is a RunTimeFault (kDivisionByZero).
void FlowRatio(Design& record);

}  // namespace torvale
