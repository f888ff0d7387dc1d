// A started program and a user at its keyboard.
#pragma once

#include <gtest/gtest.h>

#include "shell/events.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {

struct StartedProgramTest : ::testing::Test {
  StartedProgramTest() { StartProgram(program); }
  Grid& sheet() { return program.main.Grid1; }
  Grid& results() { return program.main.Grid2; }
  void Press(Key key, bool shift = false) { GridKey(program, "Grid1", {key, "", shift}); }
  void Press(std::string_view character) { GridKey(program, "Grid1", {Key::kCharacter, character}); }
  void ExpectAt(const Grid& grid, int row, int column) {
    EXPECT_EQ(grid.row, row);
    EXPECT_EQ(grid.column, column);
  }
  const std::string& Info(std::size_t index) { return program.main.txtInfo[index].text(); }
  FakeHost host;
  Program program{host};
};

}  // namespace torvale
