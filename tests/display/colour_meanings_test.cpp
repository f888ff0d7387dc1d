#include "display/colour_meanings.h"

#include <gtest/gtest.h>

#include <string>

#include "display/design_display.h"
#include "display/result_tables.h"
#include "display/small_line.h"
#include "screen/screen_engine_host.h"

namespace torvale {
namespace {

// What the colour of the first flow ratio says where 100 GPM are needed.
std::string RatioMeaning(float flow) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, flow);
  line.AddSurvey("0", "1/4");
  CompleteDesignTable(line.program);
  const auto colour = line.main.Grid2.Back(1, kResultFlowRatio);
  EXPECT_TRUE(colour.has_value());
  return std::string(MeaningOfCellColour("Grid2", kResultFlowRatio, colour.value_or(kBlack)));
}

TEST(ColourMeanings, OfTheFlowRatio) {
  for (const float flow : {95.0F, 100.0F, 105.0F}) EXPECT_TRUE(RatioMeaning(flow).starts_with("Green")) << flow;
  for (const float flow : {90.0F, 94.0F, 106.0F, 110.0F}) {
    EXPECT_TRUE(RatioMeaning(flow).starts_with("Pale yellow")) << flow;
  }
  for (const float flow : {50.0F, 89.0F, 111.0F}) EXPECT_TRUE(RatioMeaning(flow).starts_with("Red")) << flow;
  // The summary's own colour of its first row.
  EXPECT_FALSE(MeaningOfCellColour("Grid2", kResultFlowRatio, kYellow).empty());
  EXPECT_EQ(MeaningOfCellColour("Grid2", kResultFlowRatio, kWhite), "");
  EXPECT_EQ(MeaningOfCellColour("Grid2", kResultHead, kRed), "");
  EXPECT_EQ(MeaningOfCellColour("Grid1", kResultFlowRatio, kRed), "");
}

std::string MeaningOf(std::string_view name, const Control& control) {
  EXPECT_TRUE(control.back.has_value()) << name;
  return std::string(MeaningOfColour(name, control.back.value_or(kBlack)));
}

TEST(ColourMeanings, OfTheLabels) {
  SmallLine line;
  line.AddHole(0, kQuarterInch, 100);
  line.AddSurvey("0", "1/4");
  line.record.DesignType = kConstantSlope;
  line.record.DesignElev[1] = 9;
  ScreenEngineHost engine(line.program);
  const auto show = [&](float highest, float lowest, float uniformity) {
    line.record.MaxHead = highest;
    line.record.MinHead = lowest;
    line.record.Uniformity = uniformity;
    engine.UniformityChanged();
    DisplayDesign(line.program);
  };
  const auto& labels = line.main.frmDisplayLbl;
  show(1.9F, 0.5F, 90);  // the target head is 2.0
  EXPECT_EQ(MeaningOf("frmDisplayLbl(1)", labels[1]), "Green: the highest head is below the target head.");
  EXPECT_EQ(MeaningOf("frmDisplayLbl(5)", labels[5]), "Green: the lowest head is half a foot or more.");
  EXPECT_EQ(MeaningOf("lblEffic", line.main.lblEffic), "Green: the uniformity is 90 percent or more.");
  EXPECT_EQ(MeaningOf("lblActiveInactive", line.main.lblActiveInactive), "Green: a finished design is on the screen.");
  // 9 feet from the first row to the last, which has none; the limit is 1.2.
  line.AddDry(10);
  show(2, 0.4F, 89.9F);
  EXPECT_EQ(MeaningOf("frmDisplayLbl(1)", labels[1]), "Yellow: the highest head reaches or exceeds the target head.");
  EXPECT_EQ(MeaningOf("frmDisplayLbl(5)", labels[5]), "Yellow: the lowest head is below half a foot.");
  EXPECT_EQ(MeaningOf("frmDisplayLbl(15)", labels[15]), "Yellow: the difference exceeds the limit in the preferences.");
  EXPECT_EQ(MeaningOf("lblEffic", line.main.lblEffic), "Yellow: the uniformity is below 90 percent.");
  EXPECT_EQ(MeaningOfColour("lblActiveInactive", kPaleYellow), "Yellow: no finished design is on the screen.");
  EXPECT_EQ(MeaningOfColour("lblEffic", kLightGrey), "");
}

}  // namespace
}  // namespace torvale
