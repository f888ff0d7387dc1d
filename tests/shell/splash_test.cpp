#include "shell/splash.h"

#include <gtest/gtest.h>

#include "base/version.h"
#include "shell/commands.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using SplashTest = StartedProgramTest;

TEST_F(SplashTest, StandsOnceTheProgramHasStarted) {
  EXPECT_TRUE(program.splash.Form.visible);
  EXPECT_EQ(program.main.Grid1.Text(1, 1), "10.00");  // the main screen is ready behind it
}

TEST_F(SplashTest, TellsWhatTheProgramIsFor) {
  EXPECT_EQ(program.splash.lblProductDescription.caption,
            " This program was developed to improve Distribution Uniformity in Layflat pipe.\r\n"
            "  Distribution Uniformity can be improved using TORVALE two ways.\r\n"
            "   1. Selecting correct hole diameters for head pressure.\r\n"
            "   2. Designing correct slope where layflat pipe is installed to offset head pressure.");
  EXPECT_EQ(program.splash.lblVersion.caption, "Version " + ProgramVersion() + "   Jan 2012");
  EXPECT_NE(program.splash.lblWarning.caption.find("with no warranty"), std::string::npos);
}

TEST_F(SplashTest, TheHoleSizesAreFilledAnew) {
  program.record.HoleSizeName[1] = "spoilt";
  frmSplash_Load(program);
  EXPECT_EQ(program.record.HoleSizeName[1], "1/32");
}

TEST_F(SplashTest, TheRecentFilesAreRead) {
  host.WriteFile("RecentTORVALEFileName.Dat", "north.PFD\r\n\r\n\r\n\r\n");
  frmSplash_Load(program);
  EXPECT_EQ(program.main.mnuFileList[0].caption, "north.PFD");
  EXPECT_TRUE(program.main.mnuFileList[0].visible);
}

TEST_F(SplashTest, AClickOnAnythingOnItClosesIt) {
  const char* const parts[] = {"frmSplash",      "frmSplash.Frame1", "Image1",      "Image2",
                               "imgLogo",        "Label1",           "Label2",      "Label3",
                               "lblCompany",     "lblHolePuch",      "lblPlatform", "lblProductDescription",
                               "lblProductName", "lblVersion",       "lblWarning"};
  EXPECT_EQ(ControlsOf(program.splash).size(), std::size(parts));
  for (const char* part : parts) {
    program.splash.Form.visible = true;
    EXPECT_EQ(Click(program, part), Reach::kUsable) << part;
    EXPECT_FALSE(program.splash.Form.visible) << part;
    EXPECT_EQ(Click(program, part), Reach::kHidden) << part;
  }
}

}  // namespace
}  // namespace torvale
