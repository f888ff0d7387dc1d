// Random fields for slope searches: lines of every length, level and sloping, in rods and elevations, with gaps, few
// and many pipes, furrows of equal and of unequal lengths.
#pragma once

#include <algorithm>
#include <cmath>
#include <random>

#include "base/arithmetic.h"
#include "engine/hydraulics.h"
#include "engine/slope_trials.h"

namespace torvale {

class RandomSlopeField {
 public:
  explicit RandomSlopeField(unsigned seed) : engine_(seed) {}

  int Whole(int low, int high) { return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1)); }
  double Real(double low, double high) { return low + (high - low) * static_cast<double>(engine_()) / 4294967295.0; }
  bool OneIn(int n) { return Whole(1, n) == 1; }

  // A record of a slope design up to its prepass. `per_furrow` gallons per minute at about a foot of head keeps the
  // search within some hundreds of trials.
  void Fill(DesignRecord& r, int most_rows) {
    r.DesignType = OneIn(2) ? kConstantSlope : kDualSlope;
    const int rows = OneIn(30) ? Whole(0, 3) : Whole(2, most_rows);
    r.HoleRows = static_cast<std::int16_t>(rows);
    r.LowQuarter = OneIn(20) ? static_cast<float>(Real(0, 1)) : 0.25F;
    r.HazenWilliamsC = static_cast<float>(OneIn(60) ? 0 : Whole(90, 150));
    r.DischargeCoef = static_cast<float>(OneIn(100) ? -0.65 : Real(0.5, 0.8));
    const double spacing = OneIn(4) ? Real(1, 5) : Real(5, 60);
    const double level = OneIn(3) ? Real(500, 4000) : Real(1, 120);
    const int first_length = Whole(200, 1320);
    const int last_length = OneIn(3) ? first_length : Whole(200, 1320);
    const bool ragged = OneIn(4);
    const bool gaps = OneIn(3);
    const int size = Whole(1, 16);
    // A thin pipe makes the flow so sensitive to the far-end head that some searches on it never end.
    const float dia = static_cast<float>(OneIn(6) ? Whole(1, 5) : Whole(6, 22));
    double station = OneIn(2) ? 0 : Real(0, 100);
    double lengths = 0;
    int furrows = 0;
    for (int row = 1; row <= rows; ++row) {
      if (row > 1) station += OneIn(400) ? 0 : ragged ? Real(1, 2 * spacing) : spacing;
      r.Station[row] = static_cast<float>(Int(station * 100 + 0.9) / 100);
      const bool watered = !(gaps && OneIn(6));
      r.HoleDia[row] = watered ? static_cast<float>(size / 32.0 / 12) : 0;
      r.SurveyHoleDia[row] = static_cast<float>(size / 32.0);
      r.HolesPerFurrow[row] = static_cast<std::int16_t>(watered ? (OneIn(10) ? Whole(0, 3) : 1) : 0);
      const int length = first_length + (last_length - first_length) * (row - 1) / std::max(1, rows - 1);
      r.FurrowLength[row] =
          static_cast<std::int16_t>(watered && !OneIn(50) ? (ragged && OneIn(5) ? Whole(200, 1320) : length) : 0);
      r.PlantedWidth[row] = 30;
      r.PipeDia[row] = row > 1 && OneIn(60) ? static_cast<float>(Whole(6, 22)) : row > 1 ? r.PipeDia[row - 1] : dia;
      if (OneIn(20000)) r.PipeDia[row] = 0;
      r.CrownElev[row] = static_cast<float>(level + Real(-0.5, 0.5));
      if (r.FurrowLength[row] > 0) {
        lengths += r.FurrowLength[row];
        ++furrows;
      }
    }
    const double mean = furrows > 0 ? lengths / furrows : 1;
    double area = 0;
    for (int row = 1; row <= rows; ++row) {
      r.FlowRatio[row] = static_cast<float>(r.FurrowLength[row] / mean);
      // Ratios that aren't the lengths' own give furrows of unequal length in the sort.
      if (ragged && OneIn(3)) r.FlowRatio[row] = static_cast<float>(Real(0.5, 1.5));
      area += AreaByFeet(static_cast<double>(r.HoleDia[row]), r.HolesPerFurrow[row]);
    }
    const double head = OneIn(4) ? Real(0.05, 0.3) : Real(0.2, 3);
    r.TargetGPM = static_cast<float>(OrificeFlow(area, head, 0.65));
    if (OneIn(300)) r.TargetGPM = 0;
    r.WateredFurrows = static_cast<std::int16_t>(furrows);
    r.AverageFurrowFlow = furrows > 0 ? static_cast<float>(static_cast<double>(r.TargetGPM) / furrows) : 0;
    for (int row = 1; row <= rows; ++row) r.DesignElev[row] = r.CrownElev[1];
    r.DesignElev[0] = OneIn(5) ? 0 : r.CrownElev[1];
  }

  // Now and then so far below that the search comes to its limit of tries, at once or as the crown falls.
  double FirstHead() {
    if (OneIn(12)) return Real(-99, -90);
    return NearHead();
  }
  double NearHead() { return OneIn(20) ? Real(-1, 12) : Whole(1, 12) * 0.5; }
  const char* SurveyKind() {
    static const char* const kKinds[] = {"E", "R", "E", "R", "e"};
    return kKinds[Whole(0, 4)];
  }

 private:
  std::mt19937 engine_;
};

// The march over the level crown that a slope search begins with.
inline LevelMarch LevelOf(const SlopeField& field) {
  PlainTrialWork work;
  PreparePlainTrial(field, work);
  SlopeTrial trial;
  if (!TryPlainly(field, 0, work, trial)) return {};
  return {trial.lowest_head, trial.end_head, trial.search.flow};
}

}  // namespace torvale
