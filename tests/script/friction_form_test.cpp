// What two percent of friction mean to a design.
#include <gtest/gtest.h>

#include <sstream>

#include "script/runner.h"
#include "support/elsewhere.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

// The level sample with its roughness coefficient replaced.
DesignRecord LevelField(const std::string& c) {
  std::string script = BytesOf(std::string(kSourceFolder) + "/data/samples/level_field_by_rods.script");
  const std::string typed = "type txtDefault(3) \"150\"";
  const std::size_t at = script.find(typed);
  EXPECT_NE(at, std::string::npos);
  script.replace(at, typed.size(), "type txtDefault(3) \"" + c + "\"");
  const ElsewhereForAWhile elsewhere;
  std::ostringstream transcript;
  Session session(transcript);
  std::istringstream lines(script);
  ReplayScript(session, lines);
  EXPECT_EQ(session.program.record.DesignOK, "True");
  return session.program.record;
}

// A C of 151.6 in place of 150 takes 1 - (150 / 151.6)^1.852 = 1.95 percent off all friction, as the basic form of
// Hazen and Williams does in this pipe. Friction over the line is some six tenths of a foot, so that the heads at its
// ends move by about a hundredth of a foot between them, flows by a quarter of a percent, the uniformity by a tenth.
TEST(FrictionForm, HardlyMovesADesign) {
  const DesignRecord program = LevelField("150");
  const DesignRecord basic = LevelField("151.6");
  const double drop = static_cast<double>(program.MaxHead) - static_cast<double>(program.MinHead);
  const double basic_drop = static_cast<double>(basic.MaxHead) - static_cast<double>(basic.MinHead);
  EXPECT_NEAR(basic_drop / drop, 1 - 0.0195, 0.003);
  EXPECT_NEAR(static_cast<double>(basic.Uniformity), static_cast<double>(program.Uniformity), 0.1 + 1e-4);
  for (int row = 1; row <= program.HoleRows; ++row) {
    EXPECT_NEAR(basic.Head[row], program.Head[row], 0.01);
    const double flow = static_cast<double>(program.FurrowFlow[row]);
    EXPECT_NEAR(static_cast<double>(basic.FurrowFlow[row]), flow, flow * 0.0025);
  }
}

}  // namespace
}  // namespace torvale
