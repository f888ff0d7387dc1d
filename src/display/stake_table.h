#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/stakes.h"

namespace torvale {

// The stakes as texts: what the window, the report and the table for a spreadsheet say alike.

enum StakeColumn : int {
  kStakeStation,
  kStakeExisting,
  kStakeDesigned,
  kStakeWork,   // "Fill .42", "Cut .03", "0"
  kStakeCrown,  // of the designed crown from the stake before: "falls .10", "level"
  kStakeFillEarth,
  kStakeCutEarth,
  kStakeColumns
};

using StakeRow = std::array<std::string, kStakeColumns>;

// The headings, with the survey's word for its readings. Each names its unit.
StakeRow StakeHeadings(bool elevations);

// Without a width there is no earth.
StakeRow StakeTexts(const Stake& stake, bool with_earth);

// The earth in all, where there is a width, and where the crown is level; a sentence each.
std::vector<std::string> StakeSentences(const Stakes& stakes, double width);

}  // namespace torvale
