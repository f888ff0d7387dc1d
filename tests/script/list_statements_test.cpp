#include <gtest/gtest.h>

#include <sstream>

#include "script/runner.h"

namespace torvale {
namespace {

struct Result {
  int status;
  std::string transcript;
  std::string errors;
};

// Runs statements with the panel of hole sizes open.
Result Replayed(const std::string& statements) {
  std::istringstream script("type txtInfo(2) \"20\"\ntype txtInfo(3) \"2\"\nclick mnuManHoleSelection\n" + statements);
  std::ostringstream transcript;
  std::ostringstream errors;
  const int status = RunScript(script, transcript, errors);
  return {status, transcript.str(), errors.str()};
}

TEST(ListStatements, ChooseByTextAndByIndex) {
  const Result result = Replayed(
      "choose listAllHoles \"1/4\" 7\n"
      "click cmdADDtoSelected\n"
      "choose listHolesSelected 1\n"
      "show listHolesSelected\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.transcript,
            "listHolesSelected = \"\" visible enabled\n"
            "listHolesSelected[0] = \"1/4\"\n"
            "listHolesSelected[1] = \"3/8\" selected\n");
}

TEST(ListStatements, DoubleClicksAddAndRemove) {
  const Result result = Replayed(
      "doubleclick listAllHoles \"1/4\"\n"
      "doubleclick listAllHoles \"2-/8\"\n"
      "doubleclick listAllHoles 9\n"
      "doubleclick listHolesSelected \"1/4\"\n"
      "show listHolesSelected\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.transcript,
            "listHolesSelected = \"\" visible enabled\n"
            "listHolesSelected[0] = \"2-/8\"\n"
            "listHolesSelected[1] = \"1/2\"\n");
}

TEST(ListStatements, AHiddenListRefuses) {
  std::istringstream script("choose listAllHoles 3\ndoubleclick listAllHoles \"1/4\"\n");
  std::ostringstream transcript;
  std::ostringstream errors;
  EXPECT_EQ(RunScript(script, transcript, errors), kScriptDone);
  EXPECT_EQ(transcript.str(), "refused: listAllHoles is hidden\nrefused: listAllHoles is hidden\n");
}

TEST(ListStatements, WhatIsNotThereStopsTheScript) {
  for (const char* statement : {"choose listAllHoles", "choose listAllHoles \"5/4\"", "choose listAllHoles 50",
                                "choose listAllHoles -1", "choose Grid1 1", "doubleclick listAllHoles",
                                "doubleclick listAllHoles 1 2", "doubleclick listHolesSelected 0"}) {
    const Result result = Replayed(std::string(statement) + "\n");
    EXPECT_NE(result.status, kScriptDone) << statement;
    EXPECT_NE(result.errors.find("4"), std::string::npos) << result.errors;
  }
}

}  // namespace
}  // namespace torvale
