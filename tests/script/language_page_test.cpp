// docs/script_language.md does what it says.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "script/quoting.h"
#include "script/runner.h"
#include "script/statements.h"
#include "support/elsewhere.h"
#include "support/page.h"

namespace torvale {
namespace {

const std::string& Page() {
  static const std::string page = PageText("script_language.md");
  return page;
}

// The blocks are one script, replayed piece by piece: each block of a transcript is what the script block ahead of it
// has printed.
TEST(LanguagePage, ExamplesPrintWhatThePageShows) {
  const ElsewhereForAWhile elsewhere;
  std::ostringstream transcript;
  Session session(transcript);
  std::string script;
  int shown = 0;
  for (const PageBlock& block : BlocksOf(Page())) {
    if (block.kind == "script") {
      EXPECT_EQ(transcript.str(), "") << "the page shows no transcript of:\n" << script;
      script = block.text;
      std::istringstream lines(script);
      ASSERT_NO_THROW(ReplayScript(session, lines)) << script;
    } else {
      ASSERT_EQ(block.kind, "transcript");
      EXPECT_EQ(transcript.str(), block.text) << script;
      transcript.str("");
      ++shown;
    }
  }
  EXPECT_EQ(transcript.str(), "");
  EXPECT_GT(shown, 5);
}

TEST(LanguagePage, EveryStatementHasAnExample) {
  std::vector<std::string> used;
  for (const PageBlock& block : BlocksOf(Page())) {
    std::istringstream lines(block.kind == "script" ? block.text : "");
    for (std::string line; std::getline(lines, line);) used.push_back(line.substr(0, line.find(' ')));
  }
  ASSERT_FALSE(StatementWords().empty());
  for (const std::string_view word : StatementWords()) {
    EXPECT_NE(std::find(used.begin(), used.end(), word), used.end()) << word;
  }
}

TEST(LanguagePage, ErrorsAreToldAsThePageShows) {
  for (const auto& row : TableRows(Page(), {"statement", "standard error"})) {
    std::istringstream script(row[0]);
    std::ostringstream transcript;
    std::ostringstream errors;
    EXPECT_EQ(RunScript(script, transcript, errors), kScriptNotUnderstood) << row[0];
    EXPECT_EQ(errors.str(), row[1] + "\n");
  }
}

// Each kind of thing that the page names can be shown.
TEST(LanguagePage, ListedNamesAreUnderstood) {
  std::ostringstream transcript;
  Session session(transcript);
  for (const auto& row : TableRows(Page(), {"name", "prints"})) {
    const std::size_t open = row[0].find('`');
    const std::string name = open == std::string::npos ? row[0] : row[0].substr(open + 1, row[0].size() - open - 2);
    std::istringstream script("show " + name);
    EXPECT_NO_THROW(ReplayScript(session, script)) << name;
  }
}

}  // namespace
}  // namespace torvale
