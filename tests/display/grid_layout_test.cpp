#include "display/grid_layout.h"

#include <gtest/gtest.h>

#include <array>

#include "display/small_line.h"

namespace torvale {
namespace {

struct Expected {
  std::string_view heading;
  int width;
};

template <std::size_t Count>
void ExpectColumns(const Grid& grid, const std::array<Expected, Count>& expected) {
  ASSERT_EQ(grid.column_count(), static_cast<int>(Count));
  for (std::size_t c = 0; c < Count; ++c) {
    EXPECT_EQ(grid.Text(0, static_cast<int>(c)), expected[c].heading);
    EXPECT_EQ(grid.columns[c].width, expected[c].width) << expected[c].heading;
  }
}

TEST(GridSet, LaysOutTheSurvey) {
  SmallLine line;
  const Grid& sheet = line.main.Grid1;
  EXPECT_EQ(sheet.rows(), 320);
  EXPECT_EQ(sheet.control.place, (Place{120, 2200, 8490, 7100}));
  EXPECT_EQ(sheet.heading_height, 1060);
  EXPECT_EQ(sheet.fixed_back, (Colour{0, 128, 128}));
  EXPECT_EQ(sheet.fixed_fore, (Colour{255, 255, 255}));
  EXPECT_EQ(sheet.control.fore, (Colour{0, 0, 0}));
  ExpectColumns(sheet, std::array<Expected, 9>{{
                           {"Station (feet)", 700},
                           {"Elevations (feet)", 800},
                           {"Furrow Length (feet)", 800},
                           {"Distance Between Holes (feet)", 900},
                           {"Pipe Diameter (inches)", 750},
                           {"Hole Width (fractions)", 800},
                           {"No. of Holes at Each Watered Furrow", 1050},
                           {"Mil (7,10,etc.)", 800},
                           {"Planted Furrow Width Between Watered Furrows(5.0', 6.0', 6.3',etc.)", 1600},
                       }});
  for (int c = 0; c < 9; ++c) EXPECT_EQ(sheet.AlignOf(0, c), Align::kCentreBottom) << c;
  EXPECT_EQ(sheet.AlignOf(1, 8), Align::kCentreBottom);
  EXPECT_EQ(sheet.AlignOf(1, 7), Align::kGeneral);
  EXPECT_EQ(sheet.row, 1);
  EXPECT_EQ(sheet.column, 0);
}

TEST(GridSet, LaysOutTheResultsOutOfSight) {
  SmallLine line;
  line.main.Grid2.control.visible = true;
  line.main.Grid2.SetCurrent(9, 9);
  GridSet(line.program);
  const Grid& results = line.main.Grid2;
  EXPECT_FALSE(results.control.visible);
  EXPECT_EQ(results.rows(), 5284);
  EXPECT_EQ(results.control.place, (Place{120, 2200, 10720, 7100}));
  EXPECT_EQ(results.heading_height, 1060);
  EXPECT_EQ(results.fixed_back, (Colour{0, 128, 128}));
  EXPECT_EQ(results.fixed_fore, (Colour{255, 255, 255}));
  EXPECT_EQ(results.control.fore, (Colour{0, 0, 0}));
  ExpectColumns(results, std::array<Expected, 13>{{
                             {"Station (Feet)", 700},
                             {"Hole Dia. (Inches)", 850},
                             {"Hole Number", 700},
                             {"Furrow Flow (GPM)", 700},
                             {"Head (feet)", 700},
                             {"Flow Ratio", 600},
                             {"Furrow Length (feet)", 700},
                             {"Elevation (feet)", 800},
                             {"Number of Holes per Furrow", 800},
                             {"Mil", 400},
                             {"Pipe Diameter", 700},
                             {"Planted Width Between Watered Furrows", 1000},
                             {"", 1820},
                         }});
  for (int c = 0; c <= 11; ++c) EXPECT_EQ(results.AlignOf(0, c), Align::kCentreBottom) << c;
  for (int c = 0; c <= 10; ++c) EXPECT_EQ(results.AlignOf(7, c), Align::kCentreBottom) << c;
  EXPECT_EQ(results.AlignOf(7, 11), Align::kGeneral);
  EXPECT_EQ(results.AlignOf(0, 12), Align::kGeneral);
  EXPECT_EQ(results.row, 1);
  EXPECT_EQ(results.column, 0);
}

TEST(GridSet, LaysOutTheAppliedWaterAndItsNeighbours) {
  SmallLine line;
  line.main.frameShowLimitedHoles.place.left = 9350;
  line.main.cmdReCalc.place = {};
  line.main.cmdDesignToggle.place = {};
  GridSet(line.program);
  const Grid& applied = line.main.GridInchesApplied;
  EXPECT_EQ(applied.rows(), 6);  // headings and five depths
  EXPECT_EQ(applied.control.place, (Place{11000, 480, 2850, 1575}));
  ExpectColumns(applied, std::array<Expected, 3>{{{"Gross Applied (in.)", 1500}, {"Hours", 600}, {"Days", 600}}});
  for (int c = 0; c < 3; ++c) {
    EXPECT_EQ(applied.AlignOf(0, c), Align::kCentreCentre);
    EXPECT_EQ(applied.AlignOf(3, c), Align::kCentreCentre);
  }
  EXPECT_EQ(line.main.frameShowLimitedHoles.place, (Place{10900, 2200, 4455, 7130}));
  EXPECT_EQ(line.main.cmdDesignToggle.place, (Place{9250, 2620, 1100, 580}));
  EXPECT_EQ(line.main.cmdReCalc.place, (Place{9250, 2295, 1100, 315}));
}

// Whatever became of the grids, they are as they were laid out first; their texts below the headings stay.
TEST(GridSet, PlacesEverythingAnew) {
  SmallLine line;
  MainScreen& main = line.main;
  const MainScreen first = main;
  for (Grid* grid : {&main.Grid1, &main.Grid2, &main.GridInchesApplied}) {
    grid->control.place = {};
    grid->heading_height = 0;
    grid->fixed_back.reset();
    grid->fixed_fore.reset();
    grid->control.fore.reset();
    for (int c = 0; c < grid->column_count(); ++c) {
      grid->columns[static_cast<std::size_t>(c)] = {};
      grid->Set(0, c, "x");
      grid->SetAlign(0, c, Align::kGeneral);
      grid->SetAlign(1, c, Align::kGeneral);
    }
    grid->Resize(3, 2);
  }
  main.cmdReCalc.place = main.cmdDesignToggle.place = main.frameShowLimitedHoles.place = {};
  main.mnuLayflatPipe.ticked = false;
  main.mnuRigidPipe.ticked = true;
  GridSet(line.program);
  const std::pair<const Grid*, const Grid*> grids[] = {
      {&main.Grid1, &first.Grid1}, {&main.Grid2, &first.Grid2}, {&main.GridInchesApplied, &first.GridInchesApplied}};
  for (const auto& [now, then] : grids) {
    EXPECT_EQ(now->rows(), then->rows());
    ASSERT_EQ(now->column_count(), then->column_count());
    EXPECT_EQ(now->control.place, then->control.place);
    if (now == &main.GridInchesApplied) continue;  // its colours and heights are the desktop's
    EXPECT_EQ(now->heading_height, then->heading_height);
    EXPECT_EQ(now->fixed_back, then->fixed_back);
    EXPECT_EQ(now->fixed_fore, then->fixed_fore);
    EXPECT_EQ(now->control.fore, then->control.fore);
  }
  for (const auto& [now, then] : grids) {
    for (int c = 0; c < now->column_count(); ++c) {
      const auto at = static_cast<std::size_t>(c);
      EXPECT_EQ(now->columns[at].width, then->columns[at].width) << c;
      EXPECT_EQ(now->columns[at].align, then->columns[at].align) << c;
      EXPECT_EQ(now->Text(0, c), then->Text(0, c)) << c;
      EXPECT_EQ(now->AlignOf(0, c), then->AlignOf(0, c)) << c;
    }
  }
  EXPECT_EQ(main.Grid1.AlignOf(1, 8), Align::kCentreBottom);
  EXPECT_EQ(main.cmdReCalc.place, first.cmdReCalc.place);
  EXPECT_EQ(main.cmdDesignToggle.place, first.cmdDesignToggle.place);
  EXPECT_EQ(main.frameShowLimitedHoles.place, first.frameShowLimitedHoles.place);
  EXPECT_TRUE(main.mnuLayflatPipe.ticked);
  EXPECT_FALSE(main.mnuRigidPipe.ticked);
}

// One grid asks for "R" and the other for "E", so that any other letter, a small one too, gives the two wordings below.
TEST(GridSet, NamesTheCrownByTheSurveyLetter) {
  struct Case {
    std::string_view letter, survey, results;
  };
  for (const Case& c :
       {Case{"R", "Rod Reading (feet)", "Rod Reading (feet)"}, Case{"E", "Elevations (feet)", "Elevation (feet)"},
        Case{"", "Elevations (feet)", "Rod Reading (feet)"}, Case{"r", "Elevations (feet)", "Rod Reading (feet)"},
        Case{"e", "Elevations (feet)", "Rod Reading (feet)"}}) {
    SmallLine line;
    line.main.txtInfo[5].Set(c.letter);
    GridSet(line.program);
    EXPECT_EQ(line.main.Grid1.Text(0, 1), c.survey) << c.letter;
    EXPECT_EQ(line.main.Grid2.Text(0, 7), c.results) << c.letter;
  }
}

TEST(GridSet, NamesHolesAndGatesByPipeAndShape) {
  struct Case {
    std::string_view pipe, shape, survey, results;
  };
  for (const Case& c : {Case{"L", "C", "Hole Diameter (fractions)", "Hole Dia. (Inches)"},
                        Case{"L", "R", "Hole Width (fractions)", "Hole Dia. (Inches)"},
                        Case{"R", "C", "Hole Diameter (fractions)", "Circular Gate Opening (Inches)"},
                        Case{"R", "R", "Hole Width (fractions)", "Rectangle Gate Opening (Inches)"},
                        Case{"R", "c", "Hole Width (fractions)", "Rectangle Gate Opening (Inches)"},
                        Case{"", "", "Hole Width (fractions)", "Rectangle Gate Opening (Inches)"}}) {
    SmallLine line;
    line.record.PipeKind = c.pipe;
    line.main.txtDefault[11].Set(c.shape);
    GridSet(line.program);
    EXPECT_EQ(line.main.Grid1.Text(0, 5), c.survey) << c.pipe << c.shape;
    EXPECT_EQ(line.main.Grid2.Text(0, 1), c.results) << c.pipe << c.shape;
    // The gate shape has no say in the ticks.
    EXPECT_EQ(line.main.mnuLayflatPipe.ticked, c.pipe == "L");
    EXPECT_EQ(line.main.mnuRigidPipe.ticked, c.pipe != "L");
  }
}

TEST(GridSet, StartsTheSurveyAtStationZeroAndKeepsTheRest) {
  SmallLine line;
  line.main.Grid1.Set(1, 0, "25");
  line.main.Grid1.Set(1, 1, "60.10");
  line.main.Grid1.Set(319, 8, "6.0");
  line.main.Grid2.Set(4, 4, "2.50");
  GridSet(line.program);
  EXPECT_EQ(line.main.Grid1.Text(1, 0), "0");
  EXPECT_EQ(line.main.Grid1.Text(1, 1), "60.10");
  EXPECT_EQ(line.main.Grid1.Text(319, 8), "6.0");
  EXPECT_EQ(line.main.Grid2.Text(4, 4), "2.50");
}

TEST(GridSet, OffersTheFirstHoleSizeOnlyBeforeAnyDesign) {
  SmallLine line;
  line.main.txtDefault[1].Set("1/4");
  GridSet(line.program);
  EXPECT_EQ(line.main.Grid1.Text(1, 5), "");  // a design is loaded

  line.record.DesignType = kNoDesign;
  GridSet(line.program);
  EXPECT_EQ(line.main.Grid1.Text(1, 5), "1/4");

  line.main.txtDefault[1].Set("1/2");
  GridSet(line.program);
  EXPECT_EQ(line.main.Grid1.Text(1, 5), "1/4");  // no longer empty
}

}  // namespace
}  // namespace torvale
