#include "engine/line.h"

#include "engine/hydraulics.h"
#include "record/kinds.h"

namespace torvale {
namespace {

// Square feet of all holes of a row, by the hole that the design type gives it.
float Opening(const Design& record, int row) {
  const double holes = record.HolesPerFurrow[row];
  if (!IsHoleSelection(record)) return Store32(AreaByFeet(record.HoleDia[row], holes));
  return Store32(AreaByInches(ChosenHoleDia(record)[row], holes));
}

}  // namespace

void PrepareLine(const Design& record, bool elevations, Line& line) {
  line.rows = record.HoleRows;
  const auto size = static_cast<std::size_t>(line.rows) + 1;
  line.opening.assign(size, 0);
  line.watered.assign(size, 0);
  line.length.assign(size, 0);
  line.dia_power.assign(size, 0);
  line.rise.assign(size, 0);
  line.discharge_coef = record.DischargeCoef;
  line.friction_factor = FrictionFactorOrNone(record.HazenWilliamsC);
  for (int row = 1; row <= line.rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    line.watered[i] = record.HoleDia[row] > 0;
    if (line.watered[i] != 0) line.opening[i] = Opening(record, row);
    line.length[i] = SpanLength(record.Station[row], record.Station[row - 1]);
    const float diameter = record.PipeDia[row];
    line.dia_power[i] =
        row > 1 && diameter == record.PipeDia[row - 1] ? line.dia_power[i - 1] : DiameterPowerOrNone(diameter);
  }
  LayOnLine(CrownOfDesign(record).data(), elevations, line);
}

void LayOnLine(const float* crown, bool elevations, Line& line) {
  for (int row = 1; row <= line.rows; ++row) {
    line.rise[static_cast<std::size_t>(row)] = CrownRise(crown[row], crown[row - 1], elevations);
  }
}

}  // namespace torvale
