// Lines of the march for tests, built row by row in the record.
#pragma once

#include <cmath>
#include <string>

#include "engine/fake_engine_host.h"
#include "engine/flow_calc.h"
#include "engine/sheet.h"

namespace torvale {

// A level line of one hole of 0.1 ft diameter every 100 ft on 10 inch pipe, planned design, C 140, Cd 0.65.
struct TestLine {
  explicit TestLine(int rows, double first_station = 0) {
    record.DesignType = kPlanned;
    record.DesignOK = "True";
    record.SurveyRows = 1;
    record.HoleRows = static_cast<std::int16_t>(rows);
    record.WateredFurrows = record.HoleRows;
    record.TargetGPM = 100;
    record.HazenWilliamsC = 140;
    record.DischargeCoef = 0.65F;
    for (int row = 1; row <= rows; ++row) {
      record.Station[row] = static_cast<float>(first_station + (row - 1) * 100);
      record.HoleDia[row] = 0.1F;
      record.HolesPerFurrow[row] = 1;
      record.PipeDia[row] = 10;
      record.CrownElev[row] = 100;
      record.FurrowLength[row] = 600;
      record.FlowRatio[row] = 1;
      record.PlantedWidth[row] = 60;
    }
  }
  int Run() {
    end = FlowCalc(record, {sheet, target_head, survey_kind}, host);
    return end.tries;
  }

  DesignRecord record;
  TextGrid sheet = Sheet({{"0", "", "", "", "8"}});
  std::string target_head = "1.0";
  std::string survey_kind = "E";
  FakeEngineHost host;
  FlowEnd end;
};

// Flow in gallons per minute out of `count` holes of diameter `feet` under `head` feet with Cd 0.65: the orifice
// formula Cd A sqrt(2 g h), 2 g = 64.4, 448.8 gallons per minute in a cubic foot per second, pi as 3.14.
inline double Orifice(double feet, double head, int count = 1) {
  return 0.65 * feet * feet * 3.14 / 4 * count * std::sqrt(64.4 * head) * 448.8;
}

// Friction of `length` feet of pipe of `inches` diameter and C 140 at `gpm`: Hazen-Williams, feet.
inline double Friction(double gpm, double inches, double length) {
  return 0.2083 * std::pow(100.0 / 140, 1.852) * std::pow(gpm, 1.852) / std::pow(inches, 4.866) * length / 100;
}

}  // namespace torvale
