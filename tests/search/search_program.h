// A program with a short line on its sheet, on a desktop that keeps what it is told.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/numbers.h"
#include "display/grid_layout.h"
#include "engine/survey.h"
#include "search/design_commands.h"
#include "support/fake_host.h"
#include "support/usual_preferences.h"

namespace torvale {

// Station, crown, furrow length, spacing, pipe diameter, hole size, number of holes, mil, planted width.
using SurveyRow = std::vector<std::string>;

inline SurveyRow WateredRow(const std::string& station, const std::string& crown, const std::string& length = "1000",
                            const std::string& spacing = "10") {
  return {station, crown, length, spacing, "15", "3/8", "1", "10", "10"};
}

// A row of supply line: no furrow, no hole.
inline SurveyRow SupplyRow(const std::string& station, const std::string& crown) {
  return {station, crown, "", "", "15", "", "", "10", ""};
}

class SearchTest : public testing::Test {
 protected:
  SearchTest() : main(program.main), record(program.record) {
    GridSet(program);
    record.LowQuarter = 0.25F;
    record.DischargeCoef = 0.65F;
    record.HazenWilliamsC = 140;
    for (std::size_t i = 0; i < kUsualPreferences.size(); ++i) main.txtDefault[i].Set(kUsualPreferences.at(i));
  }

  void TypeInfo(const std::string& gpm, const std::string& target_head, const std::string& kind) {
    main.txtInfo[2].Set(gpm);
    main.txtInfo[3].Set(target_head);
    main.txtInfo[5].Set(kind);
    record.TargetGPM = static_cast<float>(Val(gpm));
  }

  void FillSheet(const std::vector<SurveyRow>& rows) {
    for (std::size_t r = 0; r < rows.size(); ++r) {
      for (std::size_t c = 0; c < rows[r].size(); ++c) {
        main.Grid1.Set(static_cast<int>(r) + 1, static_cast<int>(c), rows[r][c]);
      }
    }
  }

  // Eleven furrows ten feet apart on a level crown. At 6.4 GPM each of the eleven 3/8 inch holes gives 0.582, which it
  // does at a head of 0.105 feet; friction adds less than a thousandth of a foot.
  void LevelLine(const std::string& gpm = "6.4", const std::string& kind = "E") {
    TypeInfo(gpm, "2", kind);
    FillSheet({WateredRow("0", "100"), WateredRow("100", "100")});
  }

  // Two rows: a supply line of ten feet and one 3/8 inch hole at its end.
  void OneHole(const std::string& gpm, const std::string& kind = "E") {
    TypeInfo(gpm, "2", kind);
    FillSheet({SupplyRow("0", "100"), WateredRow("10", "100")});
  }

  // Runs `look` at every call of the event yield from now on.
  void WatchYields(const std::function<void()>& look) {
    host.event_at = host.yields + 1;
    host.event = [this, look] {
      look();
      WatchYields(look);
    };
  }

  // The user presses Cancel at that yield from now on.
  void CancelAt(long yield) {
    host.event_at = host.yields + yield;
    host.event = [this] { cmdCancel_Click(program); };
  }

  const std::string& Status() const { return program.main.sbStatusBar.caption; }

  // Names of the ticked design entries.
  std::vector<std::string> Ticked() {
    std::vector<std::string> ticked;
    for (const NamedControl& control : ControlsOf(main)) {
      if (control.kind == ControlKind::kMenu && control.parent == "mnuDesign" && control.control->ticked) {
        ticked.emplace_back(control.name);
      }
    }
    return ticked;
  }

  FakeHost host;
  Program program{host};
  MainScreen& main;
  DesignRecord& record;
};

}  // namespace torvale
