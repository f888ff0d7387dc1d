// A short survey that every kind of design accepts.
#pragma once

#include "screen/controls.h"

namespace torvale {

// A level line of 100 feet: 15 inch pipe of 7 mil, a hole of 5/8 inch each 20 feet, furrows of 1320 feet. At 30 GPM and
// a target head of 2 feet, in elevations, it is a design.
inline void FillLevelLine(Grid& sheet) {
  for (int row = 1; row <= 2; ++row) {
    int column = 0;
    for (const char* text : {row == 1 ? "0" : "100", "10", "1320", "20", "15", "5/8", "1", "7", "20"}) {
      sheet.Set(row, column++, text);
    }
  }
}

}  // namespace torvale
