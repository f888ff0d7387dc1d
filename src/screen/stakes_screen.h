#pragma once

#include <span>

#include "screen/control_facts.h"
#include "screen/controls.h"

namespace torvale {

// The stakes of a slope design in a window of its own.
struct StakesScreen {
  StakesScreen();
  static std::span<const ControlRow<StakesScreen>> Rows();

  Control frmStakes;  // the window itself: its caption is the title
  Control lblStakeInterval, lblCrownWidth;
  TextField txtStakeInterval;  // feet from stake to stake
  TextField txtCrownWidth;     // of the crown that is built, feet
  Grid Grd_Stakes;
  Control lblEarth;  // the earth in all, and where the crown is level
  Control btnPrintStakes, btnPreviewStakes, btnPdfStakes, btnCsvStakes, btnCloseStakes;
};

}  // namespace torvale
