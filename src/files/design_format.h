// A design as text: the survey as typed, the result table as shown and every row array of the record, so that it opens
// again without being calculated again. One format for all design types; docs/file_format.md lists its fields.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The design as it stands, UTF-8.
std::string WriteDesign(Program& program);

// What reading found beside the record and the grids.
struct DesignExtras {
  double version = 0;  // leading number of the version text
  int soil = -1;       // chosen line of the list of soils
  int sizes = 0;       // chosen hole sizes
};

// Reads such a text into the record, the fields and the grids, field by field, so that what was read stays where a
// later field fails. `soil_chosen` runs as soon as the soil is known. Throws FileFault.
DesignExtras ReadDesign(Program& program, std::string text,
                        const std::function<void(const DesignExtras&)>& soil_chosen);

// What the beginning of a design file tells of it. What can't be read stays as it is here.
struct DesignHead {
  std::string name;
  std::int16_t type = kNoDesign;
  float uniformity = 0;  // percent; 0 for a survey
};
DesignHead ReadDesignHead(std::string text);

// The number that a version text begins with: "8.2.20" counts as 8.2.
double VersionNumber(std::string_view version);

}  // namespace torvale
