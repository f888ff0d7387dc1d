// How the far-end head that meets the target goes with the slope of the crown, seen on a rough line. A guess, on which
// nothing but the work depends.
#pragma once

#include "engine/wide_lines.h"

namespace torvale {

// A curve through four crowns of a line, by their mean rise: feet from the far end up to the holes, by their area.
struct SlopeCurve {
  static constexpr int kCrowns = 4;

  // At a mean rise: the far-end head that meets the target, and how much lower the lowest head is. As long as nothing
  // is known the head follows the rise, and the rest is left to those who correct the curve.
  double RootAt(double at) const;
  double DropAt(double at) const;

  bool known = false;
  double mean_rise[kCrowns] = {};
  double root[kCrowns] = {};
  double drop[kCrowns] = {};
};

// The curve of a line with its crown laid straight, from level to a rise of `most_rise` feet from the far end to row 1,
// which may be below 0. `level_head` meets the target on the level crown. Not known where the rough line goes dry.
SlopeCurve LookAlongSlopes(const WideForm& form, const WideLine& line, float target, double level_head,
                           double most_rise);

}  // namespace torvale
