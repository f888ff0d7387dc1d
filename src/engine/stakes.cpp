#include "engine/stakes.h"

#include <algorithm>
#include <cmath>

#include "engine/survey.h"

namespace torvale {
namespace {

constexpr double kSameStation = 0.005;  // feet: nearer stakes are one
constexpr double kCubicFeetInCubicYard = 27;

// A crown as points along the line, by station.
struct CrownPoint {
  double station;
  double height;
};
using CrownLine = std::vector<CrownPoint>;

CrownLine SurveyedCrown(const Design& record, const TextGrid& sheet) {
  const SurveyReader survey(sheet, record.SurveyRows);
  CrownLine line;
  for (int i = 1; i <= record.SurveyRows; ++i) {
    line.push_back({survey.Val(i, kStationColumn), survey.Val(i, kCrownColumn)});
  }
  return line;
}

CrownLine DesignedCrown(const Design& record) {
  CrownLine line;
  for (int i = 1; i <= record.HoleRows; ++i) {
    line.push_back({record.Station[i], record.DesignElev[i]});
  }
  return line;
}

// The height of a crown at a station; nothing outside it.
std::optional<double> HeightAt(const CrownLine& line, double station) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (std::fabs(line[i].station - station) < kSameStation) return line[i].height;
    if (i == 0 || line[i].station < station || line[i - 1].station > station) continue;
    const double share = (station - line[i - 1].station) / (line[i].station - line[i - 1].station);
    return line[i - 1].height + share * (line[i].height - line[i - 1].height);
  }
  return std::nullopt;
}

std::optional<double> LevelFrom(const CrownLine& designed) {
  std::size_t first = designed.size() - 1;
  while (first > 0 && designed[first - 1].height == designed.back().height) --first;
  return first + 1 < designed.size() ? std::optional(designed[first].station) : std::nullopt;
}

std::vector<double> StakeStations(const CrownLine& surveyed, const CrownLine& designed, double interval,
                                  const std::optional<double>& level_from) {
  std::vector<double> stations;
  for (const CrownPoint& point : surveyed) stations.push_back(point.station);
  stations.push_back(designed.front().station);
  stations.push_back(designed.back().station);
  if (level_from) stations.push_back(*level_from);
  const double last = std::max(surveyed.back().station, designed.back().station);
  for (int i = 0; i * interval < last; ++i) stations.push_back(i * interval);
  std::sort(stations.begin(), stations.end());
  const auto same = [](double one, double other) { return other - one < kSameStation; };
  stations.erase(std::unique(stations.begin(), stations.end(), same), stations.end());
  return stations;
}

// What lies between two stakes.
void TakeSpan(const Stake& before, Stake& stake, bool elevations, double width) {
  if (!before.designed || !stake.designed) return;
  const double length = stake.station - before.station;
  const double drop = elevations ? *before.designed - *stake.designed : *stake.designed - *before.designed;
  stake.fall = drop / length * 100;
  const Earth earth = EarthBetween(before.fill, stake.fill, length, width);
  stake.fill_earth = earth.fill;
  stake.cut_earth = earth.cut;
}

double CubicYards(double area, double area_beyond, double length) {
  return (area + area_beyond) / 2 * length / kCubicFeetInCubicYard;
}

}  // namespace

Earth EarthBetween(double fill_before, double fill, double length, double width) {
  const double before = fill_before * width;
  const double here = fill * width;
  Earth earth;
  if (before >= 0 && here >= 0) {
    earth.fill = CubicYards(before, here, length);
  } else if (before <= 0 && here <= 0) {
    earth.cut = CubicYards(-before, -here, length);
  } else {
    const double to_nothing = length * std::fabs(before) / (std::fabs(before) + std::fabs(here));
    const double first = CubicYards(std::fabs(before), 0, to_nothing);
    const double second = CubicYards(0, std::fabs(here), length - to_nothing);
    earth.fill = before > 0 ? first : second;
    earth.cut = before > 0 ? second : first;
  }
  return earth;
}

Stakes LayStakes(const Design& record, const TextGrid& sheet, bool elevations, double interval, double width) {
  Stakes all;
  const CrownLine surveyed = SurveyedCrown(record, sheet);
  const CrownLine designed = DesignedCrown(record);
  if (!IsSlopeDesign(record) || designed.size() < 2 || surveyed.size() < 2) return all;
  all.level_from = LevelFrom(designed);
  for (const double station : StakeStations(surveyed, designed, interval, all.level_from)) {
    const std::optional<double> existing = HeightAt(surveyed, station);
    if (!existing) continue;
    Stake stake{station, *existing, HeightAt(designed, station), 0, {}, 0, 0};
    if (stake.designed) stake.fill = elevations ? *stake.designed - *existing : *existing - *stake.designed;
    if (!all.stakes.empty()) TakeSpan(all.stakes.back(), stake, elevations, width);
    all.fill_earth += stake.fill_earth;
    all.cut_earth += stake.cut_earth;
    all.stakes.push_back(stake);
  }
  return all;
}

}  // namespace torvale
