// What the crew needs to build the crown of a slope design: how much to cut or fill at stakes along the line.
#pragma once

#include <optional>
#include <vector>

#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

struct Stake {
  double station = 0;              // feet
  double existing = 0;             // the crown as surveyed, in the survey's units (rod reading or elevation), feet
  std::optional<double> designed;  // the same of the designed crown; nothing past the last row of the line
  double fill = 0;                 // feet by which the designed crown lies above the existing one; below 0 it is cut
  std::optional<double> fall;      // of the designed crown from the stake before, feet in 100 feet; uphill below 0
  double fill_earth = 0;           // cubic yards from the stake before up to this one
  double cut_earth = 0;
};

struct Stakes {
  std::vector<Stake> stakes;  // by station
  double fill_earth = 0;      // cubic yards in all
  double cut_earth = 0;
  std::optional<double> level_from;  // station from which the designed crown is level to its end
};

// A stake at every survey station, at every multiple of `interval` feet, at both ends of the line and where its level
// part begins. Between survey rows the existing crown is a straight line, between rows of the line the designed one.
//
// Earth is that of a crown `width` feet wide with upright sides, between two stakes by the average end area: the mean
// of the two cross sections times the distance (the method of road building, as in NRCS, National Engineering Handbook,
// part 650, chapter 1, Surveying). Where fill turns to cut between two stakes each part ends at nothing where the two
// crowns meet.
//
// `interval` is above 0. A design that lays no crown of its own, or a line of fewer than two rows, has no stakes.
Stakes LayStakes(const Design& record, const TextGrid& sheet, bool elevations, double interval, double width);

// Cubic yards of fill and cut over `length` feet between two stakes whose fills are given.
struct Earth {
  double fill = 0;
  double cut = 0;
};
Earth EarthBetween(double fill_before, double fill, double length, double width);

}  // namespace torvale
