#include "screen/program.h"

#include <gtest/gtest.h>

#include "engine/survey.h"
#include "screen/screen_engine_host.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { program.main.Grid1.Resize(kSurveyGridRows, kSurveyColumns); }

  FakeHost desktop;
  Program program{desktop};
  ScreenEngineHost host{program};
};

TEST_F(ProgramTest, ControlsAreFoundByName) {
  EXPECT_EQ(FindControl(program, "lblEffic"), &program.main.lblEffic);
  EXPECT_EQ(FindControl(program, "txtInfo(3)"), &program.main.txtInfo[3].control);
  EXPECT_EQ(FindField(program, "txtInfo(3)"), &program.main.txtInfo[3]);
  EXPECT_EQ(FindGrid(program, "Grid2"), &program.main.Grid2);
  EXPECT_EQ(FindField(program, "lblEffic"), nullptr);  // a label is no field
  EXPECT_EQ(FindGrid(program, "txtInfo(3)"), nullptr);
  for (const char* const unknown : {"", "lblNone", "txtInfo(6)", "txtInfo"}) {
    EXPECT_EQ(FindControl(program, unknown), nullptr) << unknown;
  }
}

// A control is within reach while it, its frame and its menu are shown and enabled. Hidden goes before disabled.
TEST_F(ProgramTest, ReachCountsTheFramesToo) {
  EXPECT_EQ(ReachOf(program, "mnuDesignField"), Reach::kUsable);
  EXPECT_EQ(ReachOf(program, "lblNone"), Reach::kUnknown);
  EXPECT_EQ(ReachOf(program, "cmdCancel"), Reach::kHidden);
  program.main.mnuDesignField.enabled = false;
  EXPECT_EQ(ReachOf(program, "mnuDesignField"), Reach::kDisabled);
  program.main.mnuDesignField.enabled = true;
  program.main.mnuDesign.enabled = false;
  EXPECT_EQ(ReachOf(program, "mnuDesignField"), Reach::kDisabled);
  program.main.mnuDesign.visible = false;
  EXPECT_EQ(ReachOf(program, "mnuDesignField"), Reach::kHidden);
  EXPECT_EQ(ReachOf(program, "txtDefault(0)"), Reach::kHidden);  // its panel is away
  program.main.Frame1.visible = true;
  EXPECT_EQ(ReachOf(program, "txtDefault(0)"), Reach::kUsable);
}

TEST_F(ProgramTest, EngineYieldsThroughTheDesktop) {
  host.Yield(3);
  host.Yield(2);
  EXPECT_EQ(desktop.yields, 5);
}

TEST_F(ProgramTest, AcresAreShownToTenths) {
  program.record.TotalAcres = 12.25F;  // a half away from zero
  host.TotalAcresChanged();
  EXPECT_EQ(program.main.lblAcresTotal.caption, "Total Acres = 12.3");
  program.record.TotalAcres = 0;
  EXPECT_EQ(TotalAcresText(program), "Total Acres = 0.0");
}

// Green from 90 percent up, else yellow. The text is the display's.
TEST_F(ProgramTest, UniformityColoursItsLabel) {
  const std::string caption = program.main.lblEffic.caption;
  for (const auto& [uniformity, colour] :
       {std::pair{89.9F, kYellow}, std::pair{90.0F, kBrightGreen}, std::pair{100.0F, kBrightGreen}}) {
    program.main.lblEffic.visible = false;
    program.record.Uniformity = uniformity;
    host.UniformityChanged();
    EXPECT_EQ(program.main.lblEffic.back, colour) << uniformity;
    EXPECT_TRUE(program.main.lblEffic.visible);
    EXPECT_EQ(program.main.lblEffic.caption, caption);
  }
}

}  // namespace
}  // namespace torvale
