#include "screen/spoken_names.h"

#include <gtest/gtest.h>

#include "screen/program.h"
#include "support/silent_host.h"

namespace torvale {
namespace {

struct SpokenNamesTest : ::testing::Test {
  std::string NameOf(std::string_view field) {
    const std::vector<NamedControl> all = ControlsOf(program.main);
    for (const NamedControl& named : all) {
      if (named.name == field) return SpokenNameOf(all, named);
    }
    return "no such field";
  }
  SilentHost host;
  Program program{host};
};

// Two labels stand ahead of the target head in its line, "GPM:" and its own; the nearer one is the field's.
TEST_F(SpokenNamesTest, AFieldIsCalledAsTheNearestLabelAheadOfIt) {
  EXPECT_EQ(NameOf("txtInfo(2)"), "GPM");
  EXPECT_EQ(NameOf("txtInfo(3)"), "Target Head (ft)");
  EXPECT_EQ(NameOf("txtDefault(5)"), "Pipe Diameter (inches)");
}

// A label in another frame or another line is none of it, one that overlaps it neither.
TEST_F(SpokenNamesTest, WithoutOneItIsCalledByItsTipOrItsOwnName) {
  program.main.lblGPM.place.top += 400;
  EXPECT_EQ(NameOf("txtInfo(2)"), program.main.txtInfo[2].control.tool_tip);
  program.main.txtInfo[2].control.tool_tip.clear();
  EXPECT_EQ(NameOf("txtInfo(2)"), "txtInfo(2)");
}

}  // namespace
}  // namespace torvale
