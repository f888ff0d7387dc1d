#include "shell/about.h"

#include <gtest/gtest.h>

#include "base/version.h"
#include "shell/commands.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using AboutTest = StartedProgramTest;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\r') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

TEST_F(AboutTest, OneMessageTellsVersionOriginAndDisclaimer) {
  EXPECT_EQ(Click(program, "mnuHelpAbout"), Reach::kUsable);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "");  // the program's name
  EXPECT_EQ(host.messages[0].body.find('\n'), std::string::npos);
  const std::vector<std::string> lines = Lines(host.messages[0].body);
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[0], "Version " + ProgramVersion());
  EXPECT_EQ(lines[1], "Revised January 2012");
  EXPECT_EQ(lines[2], "By the TORVALE developers");
  EXPECT_EQ(lines[3], "New versions come from where you got this one, with their source");
  EXPECT_EQ(lines[4], "Although TORVALE program has been tested by its developers, NO warranty,");
  EXPECT_EQ(lines[5], "&expressed or implied, is made as to the accuracy and functionality of");
  EXPECT_EQ(lines[6], "the program and related program material nor shall the fact of distribution");
  EXPECT_EQ(lines[7], "constitute any such warranty, and NO responsibility is assumed by the developers");
  EXPECT_EQ(lines[8], "in connection therewith.");
}

}  // namespace
}  // namespace torvale
