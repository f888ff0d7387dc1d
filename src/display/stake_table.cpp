#include "display/stake_table.h"

#include <cmath>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"

namespace torvale {
namespace {

// Feet to hundredths, as levels are read.
std::string LevelText(double feet) {
  return Format(feet, "###0.00");
}

std::string CubicYards(double earth) {
  return Format(earth, "####0.0");
}

std::string StationOf(double station) {
  return Format(station, "####0.##").ends_with('.') ? Format(station, "####0") : Format(station, "####0.##");
}

// What is nothing to hundredths of a foot is neither cut nor fill.
std::string WorkText(const Stake& stake) {
  if (!stake.designed) return "";
  const std::string feet = LevelText(std::fabs(stake.fill));
  if (feet == "0.00") return "0";
  return (stake.fill > 0 ? "Fill " : "Cut ") + feet;
}

std::string CrownText(const Stake& stake) {
  if (!stake.fall) return "";
  const std::string fall = Format(std::fabs(*stake.fall), "##0.000");
  if (fall == "0.000") return "level";
  return (*stake.fall > 0 ? "falls " : "rises ") + fall;
}

}  // namespace

StakeRow StakeHeadings(bool elevations) {
  const std::string reading = elevations ? "Elevation" : "Rod Reading";
  return {"Station (feet)",
          "Existing " + reading + " (feet)",
          "Designed " + reading + " (feet)",
          "Cut or Fill (feet)",
          "Designed Crown (feet in 100 feet)",
          "Fill From the Stake Before (cubic yards)",
          "Cut From the Stake Before (cubic yards)"};
}

StakeRow StakeTexts(const Stake& stake, bool with_earth) {
  const bool earth = with_earth && stake.fall.has_value();
  return {StationOf(stake.station),
          LevelText(stake.existing),
          stake.designed ? LevelText(*stake.designed) : "",
          WorkText(stake),
          CrownText(stake),
          earth ? CubicYards(stake.fill_earth) : "",
          earth ? CubicYards(stake.cut_earth) : ""};
}

std::vector<std::string> StakeSentences(const Stakes& stakes, double width) {
  std::vector<std::string> sentences;
  if (width > 0) {
    sentences.push_back("Fill " + CubicYards(stakes.fill_earth) + " cubic yards, cut " + CubicYards(stakes.cut_earth) +
                        " cubic yards, for a crown " + GeneralText(width) + " feet wide with upright sides.");
  } else {
    sentences.emplace_back("Enter the width of the crown to see how much earth it takes.");
  }
  if (stakes.level_from) {
    sentences.push_back("The designed crown is level from station " + StationOf(*stakes.level_from) + " to its end.");
  }
  return sentences;
}

}  // namespace torvale
