#pragma once

#include <string>

#include "display/grid_layout.h"
#include "record/hole_sizes.h"
#include "screen/program.h"
#include "support/silent_host.h"

namespace torvale {

// A program with its grids laid out, a planned layflat design of elevations, and rows that a test adds one by one. All
// rows have furrows of 1100 feet, 6 feet of planted width, 15 inch pipe of 10 mil, a crown at 60 and a head of 2.5.
struct SmallLine {
  SmallLine() {
    record.DesignType = kPlanned;
    record.PipeKind = "L";
    main.txtDefault[4].Set("1.2");
    main.txtDefault[11].Set("R");
    main.txtDefault[12].Set("1.2");
    main.txtInfo[2].Set("400");
    main.txtInfo[3].Set("2.0");
    main.txtInfo[5].Set("E");
    GridSet(program);
  }

  // The next row: one hole of that size (inches) with that flow, where 100 GPM are required.
  int AddHole(float station, float size, float flow) {
    const int i = AddDry(station);
    record.SurveyHoleDia[i] = size;
    record.HoleDia[i] = size / 12;
    record.FurrowFlow[i] = flow;
    record.RequiredFlow[i] = 100;
    record.FurrowLength[i] = 1100;
    record.HolesPerFurrow[i] = 1;
    record.PlantedWidth[i] = 6;
    record.FurrowNumber[i] = static_cast<float>(++record.WateredFurrows);
    return i;
  }

  // The next row: supply line, no hole.
  int AddDry(float station) {
    const int i = ++record.HoleRows;
    record.Station[i] = station;
    record.Head[i] = 2.5;
    record.CrownElev[i] = 60;
    record.PipeDia[i] = 15;
    record.MilText[i] = "10";
    return i;
  }

  // The next row of the survey sheet.
  void AddSurvey(std::string_view station, std::string_view hole_size) {
    const int row = ++record.SurveyRows;
    main.Grid1.Set(row, 0, station);
    main.Grid1.Set(row, 1, "60");
    main.Grid1.Set(row, 5, hole_size);
  }

  void ShowTable(std::string_view name) { main.cmdDesignToggle.caption = name; }

  // A row of the result table, cells joined by "|".
  std::string Row(int row) const {
    std::string joined;
    for (int c = kResultStation; c <= kResultPlantedWidth; ++c) {
      if (c > 0) joined += "|";
      joined += program.main.Grid2.Text(row, c);
    }
    return joined;
  }

  SilentHost host;
  Program program{host};
  DesignRecord& record = program.record;
  MainScreen& main = program.main;
};

inline constexpr float kQuarterInch = 0.25F;  // row 6 of the hole size table
inline constexpr float kEighthInch = 0.125F;  // row 4

}  // namespace torvale
