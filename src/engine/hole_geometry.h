// Geometry of round gates that slide open: a partly open gate is a segment of a circle. Inches, square inches and
// radians; pi is 4 arctan 1 here, while the hydraulics use 3.14. Each procedure gives its result through its last
// argument. A division by zero, the root of a negative number and an overflow are RunTimeFaults.
#pragma once

namespace torvale {

// Area of the segment of central angle `theta`: (theta - sin theta) r^2 / 2.
void SegmentArea(double radius, double theta, double& area);

// Area of the segment of height `height`; 0 for a radius of 0.
void SegmentAreaD(double radius, double height, double& area);

// Opening of a round gate of diameter `diameter` that gives `wanted_area` within half a percent, by the secant method.
// 0 for a wanted area or a diameter of 0. The angle that the opening is taken from is the last one tried and not the
// first, so that a first angle that meets the tolerance at once gives 0. A wanted area that the iteration never meets
// is a RunTimeFault after 10,000 steps (kOverflow).
void GateMove(double wanted_area, double diameter, double& opening);

}  // namespace torvale
