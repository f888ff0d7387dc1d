// The hydraulics of one line as arrays: what a march needs to know of a design.
#pragma once

#include <vector>

#include "record/design_record.h"

namespace torvale {

// The hydraulics of one line, prepared once and marched many times. Element 0 is unused; elements 1 to `rows` belong
// to the rows, 1 at the head of the line. A plain value: copies may be marched on any thread.
struct Line {
  int rows = 0;
  std::vector<float> opening;          // square feet of all holes of the row, 0 where the row has none
  std::vector<unsigned char> watered;  // 1 where the row has holes
  std::vector<double> length;          // feet of the span that ends at the row, to hundredths
  std::vector<double> dia_power;       // pipe diameter (inches) to the power 4.866
  std::vector<double> rise;            // feet that the crown rises from the row to the next one upstream
  double friction_factor = 0;          // 0.2083 (100 / C)^1.852, friction in feet per 100 feet
  double discharge_coef = 0;
};

// The line of the record: the holes of its design type, and `DesignElev` as the crown for the two slope designs, else
// `CrownElev`. `elevations` is false where the survey gives rod readings. A power that can't be formed, for a diameter
// or a roughness of 0, becomes no number, which stops a march at the row that needs it. An opening beyond 32 bits is a
// RunTimeFault (kOverflow). The vectors keep their memory where they are large enough.
void PrepareLine(const Design& record, bool elevations, Line& line);

// Lays another crown on a prepared line: `crown` has an element for each row and one, which counts as upstream of row
// 1, ahead of them.
void LayOnLine(const float* crown, bool elevations, Line& line);

}  // namespace torvale
