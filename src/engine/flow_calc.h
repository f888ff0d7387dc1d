// The calculation of one line: a search on the far-end head until the flow out of all holes meets the target.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/end_head.h"
#include "engine/engine_host.h"
#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

// The typed texts that the hydraulics read beside the record.
struct TypedTexts {
  const TextGrid& sheet;           // the survey
  const std::string& target_head;  // feet; where the search on the far-end head begins
  const std::string& survey_kind;  // exactly "E": elevations; anything else: rod readings, larger is lower ground
};

// The mark that `FlowCalc` leaves in its counter of tries.
inline constexpr int kTriesAfterFault = 100;

// What a calculation was up against that gave up after its tries.
struct GiveUpCause {
  double head = 0;                      // the target, feet
  double capacity = 0;                  // gallons per minute that the holes would let out under that head
  double wanted = 0;                    // gallons per minute that are pumped
  std::optional<double> empty_station;  // where the line has no head left; nothing where it has
};

// How a `FlowCalc` ended.
struct FlowEnd {
  enum class Way { kDone, kCancelled, kTryLimit, kFault };
  Way way = Way::kDone;
  int tries = 0;              // marches that ended at the head of the line or in a negative head
  int fail_row = 0;           // kTryLimit: the row at which the last try ended; 0 where none did
  GiveUpCause cause;          // kTryLimit
  bool acres_failed = false;  // see AcreCalc
};

// Finds the far-end head at which the flow out of all holes meets `TargetGPM` within 0.0005 of it. The line is marched
// from the far end to its head, row by row; the far-end head then moves by 0.5, 0.1, 0.01, 0.001 or 0.0001 feet, the
// step getting finer at each crossing of the target, and the line is marched again.
//
// Needs the rows prepared by the procedures of stations.h; `DesignElev` for design types 2 and 3; `SeedEndHead` and the
// chosen hole sizes for types 4 and 6. Writes `Head`, `FurrowFlow`, `HoleArea`, `AccumGPM`, `FurrowNumber`,
// `NormFurrowFlow`, `NormFurrowLength`, `WateredFurrows`, `TotalFurrowLength`, `TotalAcres` and the extremes of head
// and flow.
//
//   converged          flags as they were, `FlowCalcStatus` "Ok"
//   cancelled          `CancelFlag` was set during a yield: nothing more is done
//   try limit          `CancelFlag`, `DesignOK` "False", `tries` = kTryLimit, the march left as it stands
//   run-time fault     `CancelFlag`, `MissingData` -1, `tries` = kTriesAfterFault
FlowEnd FlowCalc(Design& record, const TypedTexts& texts, EngineHost& host);

}  // namespace torvale
