// One march over a line: heads, flows and areas row by row, from the far end to the head.
#pragma once

#include "engine/line.h"

namespace torvale {

// Where the march writes: `head` and `flow` and `area` reach from element 0 to `Line::rows`.
struct Profile {
  double* head;  // feet; the element of the far end is the march's start
  float* flow;   // gallons per minute out of the row
  float* area;   // square feet
};

// The place of a march between two stretches of rows.
struct MarchPlace {
  int row = 0;     // the next row to work
  float flow = 0;  // gallons per minute in the pipe below that row
};

// Works rows from `place.row` upstream, at most `count` of them and none below row 2, and stops after a row that leaves
// a negative head at the next one upstream. At each row: the flow out of its holes
//     q = A sqrt(64.4 h) 448.8 Cd                     (orifice, gallons per minute)
// joins the pipe, and the head upstream is
//     h' = h - rise + L (Q^1.852 / d^4.866 F / 100)   (Hazen-Williams, feet per 100 feet)
// The flow is rounded to 32 bits at each row as the record stores it, the head stays in 64 bits. Needs a head of 0 or
// more at `place.row`. An overflow or a zero pipe diameter is a RunTimeFault with the rows before it written.
void MarchRows(const Line& line, const Profile& profile, MarchPlace& place, int count);

// One row of the march in its two steps, for the rows at which a caller must look in between.
void TakeOrifice(const Line& line, const Profile& profile, MarchPlace& place);
void CarryHead(const Line& line, const Profile& profile, const MarchPlace& place);

}  // namespace torvale
