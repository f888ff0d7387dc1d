// A program with its grids at their size and its fields connected, for the tests of the input screen.
#pragma once

#include <string>
#include <string_view>

#include "display/grid_layout.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "input/sheet.h"
#include "support/fake_host.h"

namespace torvale {

struct InputProgram {
  InputProgram() {
    GridSet(program);
    ConnectInfoFields(program);
    program.record.StationInterval = 100;
  }

  Grid& sheet() { return program.main.Grid1; }
  const std::string& Text(int row, int column) { return sheet().Text(row, column); }
  void At(int row, int column) { sheet().SetCurrent(row, column); }
  void Key(std::string_view character) { Grid1_KeyPress(program, character); }
  void Keys(std::string_view characters) {
    for (std::size_t i = 0; i < characters.size(); ++i) Key(characters.substr(i, 1));
  }
  // Where the cursor stands, "row,column".
  std::string Cursor() { return CellName(sheet().row, sheet().column); }
  static std::string CellName(int row, int column) {
    std::string name = std::to_string(row);
    name += ',';
    return name += std::to_string(column);
  }
  TextField& Info(std::size_t index) { return program.main.txtInfo[index]; }

  FakeHost host;
  Program program{host};
};

}  // namespace torvale
