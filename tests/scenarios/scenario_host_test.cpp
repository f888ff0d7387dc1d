#include "scenarios/scenario_host.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "files/file_store.h"
#include "support/elsewhere.h"
#include "support/file_bytes.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// A file with a second name can't be replaced, only written in place, and nobody's desktop has no folder that its
// former content could be kept in: it stays.
TEST(ScenarioHost, KeepsNothingAnywhere) {
  const ElsewhereForAWhile elsewhere;
  ScenarioHost host;
  EXPECT_EQ(WriteQuietly(host, "x", "former").error, 0);
  fs::create_hard_link("x", "y");
  EXPECT_NE(WriteQuietly(host, "x", "new").error, 0);
  EXPECT_EQ(BytesOf("y"), "former");
  EXPECT_EQ(KeptFolder(host), "");
  EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 2);
}

}  // namespace
}  // namespace torvale
