#pragma once

#include <vector>

#include "screen/program.h"

namespace torvale {

// The chart of the desk: head, flow and hole size of the design that is shown.

// The outermost event ends: the lines are those of the results on the screen, none where no results are, and the row
// of the results that the user is at is lit.
void ShowDeskChart(Program& program);

// The element of a list of stations that lies nearest to one, or -1 of none.
int NearestStation(const std::vector<double>& stations, double station);

}  // namespace torvale
