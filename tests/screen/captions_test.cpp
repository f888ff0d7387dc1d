// The words of the preferences and of the File menu, letter for letter: slips of the pen in them are kept.
#include <gtest/gtest.h>

#include "screen/program.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct CaptionsTest : ::testing::Test {
  const Control& Of(std::string_view name) {
    const Control* control = FindControl(program, name);
    if (control == nullptr) throw std::runtime_error("no control " + std::string(name));
    return *control;
  }
  FakeHost host;
  Program program{host};
};

struct Preference {
  const char* label;
  const char* caption;
  const char* label_tip;
  const char* field_tip;  // of txtDefault at the same place; nullptr where the field says something of its own
};

constexpr Preference kPreferences[] = {
    {"lblDefDistance", "Distance Between Stations (feet):",
     "Enter the distance between entries of the crown survey. (e.g. 100ft between survey readings)",
     "Enter the distance between entries of the crown survey. (e.g. 100ft between survey readings)"},
    {"lblHoleSize", "Change Hole Size (Press + or -):", "Use the plus or minus key to change hole sizes",
     "Use the plus or minus key to change hole sizes"},
    {"lblDefault(2)", "Orifice Coeficient:", "Usually 0.65 for layflat pipe.", "Usually 0.65 for layflat pipe."},
    {"lblDefault(3)", "Hazen William C:", "Layflat 140, Smooth Steel commonly used 100, etc.",
     "Layflat 140, Smooth Steel commonly used 100, etc."},
    {"lblDefault(4)", "Warning for Max. Elevation Difference between Crown and Field (feet):",
     "This number represents the desired difference between the highest crown elevation above the field elevation.",
     "Enter the maximum difference you want in crown elevations."},
    {"lblDefault(5)", " Pipe Diameter (inches):", "", nullptr},
    {"lblDefault(6)", "Distance between watered furrows (feet):", "", nullptr},
    {"lblDefault(7)", "Number of Holes Per Furrow:", "", nullptr},
    {"lblDefault(8)", "Mil (Pipe Wall Thickness) :", "Fior layflat pipe usually 6,7,9, 10, 12",
     "Fior layflat pipe usually 6,7,9, 10, 12"},
    {"lblDefault(9)", "Elevations or Rod Readings (R or E):", "", nullptr},
    {"lblDefault(10)", "Target Head (feet):", "Used for an estimated highest head",
     "This will be diplayed as Target Head when program is started."},
    {"lblDefault(11)", "Hole Type Rectangle or Circular (R or C):", "Used for calculating hole area in gated pipe",
     "Used for calculating hole area in gated pipe"},
    {"lblDefault(12)",
     "Diameter or Height of gated hole (inches):", "Used for calculating hole area in gated pipe same as above",
     "Used for calculating hole area in gated pipe same as above"},
    {"lblDefault(13)", "HighestTarget head for calculating Limited Holes Selection (ft.):",
     "This is an starting head and will be reduced by the increments entered below.  The program will not go below "
     "0.5' of head during the incrementation. ",
     "This is an starting head and will be reduced by the increments entered below.  The program will not go below "
     "0.5' of head during the incrementation. "},
    {"lblDefault(14)", "Increments in head change for Limited Hole Selection:",
     "Use to determine what amount you desire to use when the computer changes head pressure while calculating the "
     "best holes you have selected.",
     "This valuse is used when reducing the as the Limited Hole Selection is calculating."},
};

TEST_F(CaptionsTest, ThePreferencesSayWhatTheyAre) {
  EXPECT_EQ(Of("mnuPreference").caption, "P&reference");
  EXPECT_EQ(Of("Frame1").caption, "Defaults");
  EXPECT_EQ(Of("btnDefaultExit").caption, "&Exit");
  int index = 0;
  for (const Preference& preference : kPreferences) {
    const Control& label = Of(preference.label);
    const Control& field = Of("txtDefault(" + std::to_string(index) + ")");
    EXPECT_EQ(label.caption, preference.caption);
    EXPECT_EQ(label.tool_tip, preference.label_tip) << preference.caption;
    if (preference.field_tip != nullptr) {
      EXPECT_EQ(field.tool_tip, preference.field_tip) << preference.caption;
    }
    EXPECT_NEAR(field.place.top, label.place.top, 60) << "beside each other: " << preference.caption;
    EXPECT_GT(field.place.left, label.place.left) << preference.caption;
    ++index;
  }
  EXPECT_NEAR(Of("txtDefault(15)").place.top, Of("lblOpenFilter").place.top, 60);
}

TEST_F(CaptionsTest, TheFileMenuSaysWhatItDoes) {
  const std::pair<const char*, const char*> captions[] = {
      {"mnuFile", "&File"},     {"mnuFileNew", "&New"},           {"mnuFileOpen", "&Open..."},
      {"mnuFileSave", "&Save"}, {"mnuFileSaveAs", "Save &As..."}, {"mnuFileExit", "E&xit"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(Of(name).caption, caption) << name;
  // Each entry that does something says so in its tip; those that open another menu need not.
  for (const NamedControl& named : ControlsOf(program.main)) {
    if (named.parent != "mnuFile" || named.control->caption == "-") continue;
    if (named.name == "mnuPrintPreview" || named.name == "mnuExport") continue;
    EXPECT_NE(named.control->tool_tip, "") << named.name;
  }
}

}  // namespace
}  // namespace torvale
