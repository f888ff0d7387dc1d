// The window of the crown profile as plain data: its controls and its chart.
#pragma once

#include <span>
#include <string>

#include "record/text_grid.h"
#include "screen/control_facts.h"
#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// A line chart as plain data.
struct LineChart {
  std::string title;
  std::string value_title;
  int value_title_size = 0;  // points
  bool value_title_visible = false;
  bool legend_visible = false;
  bool automatic_scale = true;  // of the value axis; otherwise it runs from `minimum` to `maximum`
  float minimum = 0;
  float maximum = 0;
  int major_divisions = 0;  // parts of the value axis ...
  int minor_divisions = 0;  // ... and of each of those
  int rows = 0;             // rows of `Points`, the headings included, that hold something
  int series = 0;           // lines
  // Row 0 holds the names of the series, column 0 the labels of the points, a number in its general form.
  TextGrid Points;
};

// The crown along the line, existing and designed, in a window of its own.
struct CrownProfileScreen {
  CrownProfileScreen();
  static std::span<const ControlRow<CrownProfileScreen>> Rows();

  Control CrownProfile;  // the window itself: its caption is the title
  Control lblProfileName, lblProfileHiHead, lblDistUnif, lblFillHeight, lblSlope;
  Control btnPrintProfile, btnExportPicture, btnBack;
  LineChart chart;
};

}  // namespace torvale
