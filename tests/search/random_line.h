// A program with a random line on its sheet.
#pragma once

#include <random>

#include "search_program.h"

namespace torvale {

class RandomLineTest : public SearchTest {
 protected:
  // A line with a bend in its crown, some of it supply line, on a random field.
  void RandomLine(unsigned seed) {
    std::mt19937 random(seed);
    const auto whole = [&](int low, int high) {
      return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    const int spacing = whole(5, 40);
    const int spans = whole(1, 3);
    std::vector<SurveyRow> rows;
    int station = 0;
    int crown = 10000;  // hundredths of a foot
    for (int row = 0; row <= spans; ++row) {
      const std::string level = std::to_string(crown / 100) + "." + std::to_string(100 + crown % 100).substr(1);
      const bool supply = row == 0 && whole(0, 3) == 0;
      rows.push_back(supply ? SupplyRow("0", level)
                            : WateredRow(std::to_string(station), level, std::to_string(whole(300, 1300)),
                                         std::to_string(spacing)));
      station += spacing * whole(2, 12);
      crown += whole(-60, 40);
    }
    TypeInfo(std::to_string(whole(20, 300)), std::to_string(whole(1, 30)) + ".5", whole(0, 1) == 0 ? "E" : "R");
    if (whole(0, 1) == 0) main.txtInfo[3].Set("1." + std::to_string(whole(0, 9)));
    FillSheet(rows);
  }
};

}  // namespace torvale
