#include "shell/help.h"

#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/help_pages.h"
#include "shell/started_program.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

constexpr std::string_view kSmallGuide =
    "<section id=\"contents\" data-group=\"g\"><h1>Contents</h1></section>"
    "<section id=\"fields\" data-group=\"g\"><h1>Fields</h1><p id=\"field-gpm\">GPM</p></section>";

struct HelpTest : StartedProgramTest {
  std::string_view PlaceAt(std::string_view control) { return HelpPlaceFor(program, control); }
};

TEST_F(HelpTest, AMissingFileIsTold) {
  EXPECT_EQ(Click(program, "mnuHelpContents"), Reach::kUsable);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "The help File is missing.");
  EXPECT_FALSE(program.help.frmHelp.visible);
}

TEST_F(HelpTest, ADamagedFileIsTold) {
  host.WriteFile("TORVALEHELP.hlp", "not a guide");
  Click(program, "mnuHelpContents");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "The help File is damaged: it holds no pages.");
  EXPECT_FALSE(program.help.frmHelp.visible);
}

TEST_F(HelpTest, OpensAtItsContents) {
  host.WriteFile("TORVALEHELP.hlp", kSmallGuide);
  Click(program, "mnuHelpContents");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(program.help.frmHelp.visible);
  EXPECT_EQ(program.help.pages.size(), 2U);
  EXPECT_EQ(program.help.place, "contents");
  EXPECT_EQ(program.help.folder, host.ProgramFolder());
  CloseHelp(program);
  EXPECT_FALSE(program.help.frmHelp.visible);
}

TEST_F(HelpTest, OpensAtTheFieldThatHasTheFocus) {
  host.WriteFile("TORVALEHELP.hlp", kSmallGuide);
  FocusGained(program, "txtInfo(2)");
  Click(program, "mnuHelpScreen");
  EXPECT_EQ(program.help.place, "field-gpm");
  EXPECT_EQ(program.help.times_asked, 1U);
  Click(program, "mnuHelpScreen");
  EXPECT_EQ(program.help.times_asked, 2U);  // the window comes forward again
  EXPECT_EQ(program.help.revision, 1U);     // with the pages that it has
}

TEST_F(HelpTest, TheSheetTellsOfTheColumnOfTheCursor) {
  const char* const places[] = {"col-station", "col-reading", "col-length", "col-spacing", "col-diameter",
                                "col-hole",    "col-holes",   "col-mil",    "col-planted"};
  for (int column = 0; column < 9; ++column) {
    sheet().SetCurrent(3, column);
    EXPECT_EQ(PlaceAt("Grid1"), places[column]);
  }
}

TEST_F(HelpTest, ControlsHaveTheirPages) {
  EXPECT_EQ(PlaceAt("txtInfo(0)"), "field-name");
  EXPECT_EQ(PlaceAt("txtInfo(5)"), "field-rod");
  EXPECT_EQ(PlaceAt("listSoils"), "soils");
  EXPECT_EQ(PlaceAt("cmdInterpolate"), "survey");
  EXPECT_EQ(PlaceAt("Grd_Soils_FurrowFlow"), "soils");
  EXPECT_EQ(PlaceAt("CrownProfile"), "profile");
  EXPECT_EQ(PlaceAt(""), "first-design");
  program.main.Grid2.control.visible = true;
  EXPECT_EQ(PlaceAt("Grid1"), "results");
  EXPECT_EQ(PlaceAt("Grid2"), "results");
  EXPECT_EQ(PlaceAt(""), "results");
}

TEST_F(HelpTest, AnOpenPanelGoesBeforeWhatItCovers) {
  program.main.frameHoleSelection.visible = true;
  EXPECT_EQ(PlaceAt("Grid1"), "hole-selection");
  EXPECT_EQ(PlaceAt("txtInfo(0)"), "hole-selection");
  EXPECT_EQ(PlaceAt("mnuFileOpen"), "files");
  EXPECT_EQ(PlaceAt("Grd_Soils_FurrowFlow"), "soils");
  program.main.Frame1.visible = true;
  EXPECT_EQ(PlaceAt("txtDefault(3)"), "preferences");
  EXPECT_EQ(PlaceAt("listAllHoles"), "hole-selection");
  EXPECT_EQ(PlaceAt("txtInfo(0)"), "preferences");
}

TEST_F(HelpTest, MenuEntriesHaveTheirPages) {
  EXPECT_EQ(PlaceAt("mnuFileNew"), "files");
  EXPECT_EQ(PlaceAt("mnuPrintSummary"), "printing");
  EXPECT_EQ(PlaceAt("mnuPrtHoleSummary"), "printing");
  EXPECT_EQ(PlaceAt("mnuPreview(1)"), "printing");
  EXPECT_EQ(PlaceAt("mnuPreference"), "preferences");
  EXPECT_EQ(PlaceAt("mnuProfile"), "profile");
  EXPECT_EQ(PlaceAt("mnuDesignDualSlope"), "design-types");
  EXPECT_EQ(PlaceAt("mnuRigidPipe"), "pipe");
  EXPECT_EQ(PlaceAt("mnuZoomTo(2)"), "keys");
  for (const NamedControl& named : ControlsOf(program.main)) {
    if (named.kind != ControlKind::kMenu || named.name == "mnuFileBar3") continue;
    EXPECT_NE(PlaceAt(named.name), "first-design") << named.name << " has no page";
  }
}

TEST_F(HelpTest, EveryControlWithTheFocusHasAPage) {
  for (const NamedControl& named : ControlsOf(program.main)) {
    const bool takes_focus = named.kind == ControlKind::kButton || named.kind == ControlKind::kField ||
                             named.kind == ControlKind::kGrid || named.kind == ControlKind::kList;
    if (!takes_focus || named.name == "listSortSelectedHoles") continue;  // that list is never shown
    EXPECT_NE(PlaceAt(named.name), "first-design") << named.name << " has no page";
  }
}

// The guide that comes with the program.
TEST(HelpFileTest, HasEveryPlaceThatTheProgramOpens) {
  const std::vector<HelpPage> pages = ReadHelpPages(BytesOf(std::string(kSourceFolder) + "/data/TORVALEHELP.hlp"));
  EXPECT_EQ(pages.front().id, "contents");
  for (const std::string_view place : HelpPlaces()) {
    EXPECT_NE(PageAt(pages, place), nullptr) << "no page or anchor " << place;
  }
}

}  // namespace
}  // namespace torvale
