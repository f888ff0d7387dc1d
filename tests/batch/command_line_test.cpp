#include "batch/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "base/version.h"
#include "batch/field_table.h"
#include "batch/temporary_folder.h"

namespace torvale {
namespace {

using ::testing::HasSubstr;

struct Ran {
  int status;
  std::string out;
  std::string errors;
};

Ran RunAs(std::vector<std::string> arguments, bool terminal = false) {
  arguments.insert(arguments.begin(), "torvale_batch");
  std::vector<const char*> argv;
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  std::ostringstream out;
  std::ostringstream errors;
  const BatchEnd end = RunCommandLine(
      static_cast<int>(argv.size()), argv.data(), terminal, [] { return true; }, out, errors);
  return {end.status, out.str(), errors.str()};
}

TEST(CommandLine, TellsItsVersionAndItsUse) {
  const Ran version = RunAs({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "torvale_batch " + ProgramVersion() + "\n");
  const Ran help = RunAs({"--help"});
  EXPECT_EQ(help.status, 0);
  for (const std::string_view word : {"--out", "--write", "--threads", "--limit", "--shard", "--data", "--fresh",
                                      "--progress", "merge", "Exit status"}) {
    EXPECT_THAT(help.out, HasSubstr(std::string(word)));
  }
  for (const FieldColumnHelp& column : FieldColumns()) EXPECT_THAT(help.out, HasSubstr(std::string(column.name)));
}

TEST(CommandLine, RefusesWhatItDoesNotUnderstand) {
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"fields.csv"},
      {"fields.csv", "--out", "o", "--shard", "5/4"},
      {"fields.csv", "--out", "o", "--shard", "0/4"},
      {"fields.csv", "--out", "o", "--shard", "1/4x"},
      {"fields.csv", "--out", "o", "--shard", "one"},
      {"fields.csv", "--out", "o", "--write", "papers"},
      {"fields.csv", "--out", "o", "--threads", "0"},
      {"fields.csv", "--out", "o", "--limit", "-1"},
      {"fields.csv", "--out", "o", "--data", "no such folder"},
      {"fields.csv", "--out", "o", "--colour"},
      {"fields.csv", "--out", "o", "again"},
      {"merge"},
      {"merge", "joined.csv"},
  };
  for (const std::vector<std::string>& arguments : wrong) {
    const Ran ran = RunAs(arguments);
    EXPECT_EQ(ran.status, kBatchNotUnderstood) << ::testing::PrintToString(arguments);
    EXPECT_FALSE(ran.errors.empty());
  }
}

TEST(CommandLine, RunsATableAndJoinsItsParts) {
  const TestFolder folder;
  folder.Write("s.csv", "0,100,600,20,10,1/2,1,7,20\n60,100,600,20,10,1/2,1,7,20\n");
  folder.Write("fields.csv",
               "gpm,target head,survey kind,survey,designs\n30,4,E,s.csv,planned\n31,4,E,s.csv,existing\n");
  const auto path = [&](std::string_view name) { return Utf8Of(folder / name); };
  EXPECT_EQ(RunAs({path("fields.csv"), "--out", path("all"), "--write", "designs,reports"}).status, kBatchDone);
  EXPECT_TRUE(std::filesystem::exists(folder / "all/00001/planned.PFD"));
  EXPECT_TRUE(std::filesystem::exists(folder / "all/00001/planned summary.pdf"));
  EXPECT_FALSE(std::filesystem::exists(folder / "all/00001/planned table.csv"));
  for (const std::string part : {"1", "2"}) {
    EXPECT_EQ(RunAs({path("fields.csv"), "-o", path("parts"), "--shard", part + "/2", "-j", "1"}).status, kBatchDone);
  }
  const Ran merged =
      RunAs({"merge", path("joined.csv"), path("parts/results-1-of-2.csv"), path("parts/results-2-of-2.csv")});
  EXPECT_EQ(merged.status, kBatchDone) << merged.errors;
  EXPECT_EQ(folder.Read("joined.csv"), folder.Read("all/results.csv"));
}

TEST(CommandLine, DrawsABarOnATerminalAlone) {
  const TestFolder folder;
  folder.Write("fields.csv", "survey\nnone.csv\n");
  const std::string table = Utf8Of(folder / "fields.csv");
  const std::string out = Utf8Of(folder / "out");
  EXPECT_THAT(RunAs({table, "--out", out}, true).errors, HasSubstr("[########################] 1 of 1 field"));
  EXPECT_EQ(RunAs({table, "--out", out}, false).errors.find('['), std::string::npos);
  EXPECT_EQ(RunAs({table, "--out", out, "--progress", "none"}, true).errors, "");
}

}  // namespace
}  // namespace torvale
