// Every complaint of the script runner is one that a script can come to.
#include "script/words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "script/runner.h"
#include "support/complaints.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;

constexpr std::string_view kWrong[] = {
    "leap",
    "click",
    "click cmdCancel twice",
    "click \"cmdCancel\"",
    "click nothing",
    "type txtInfo(0) North",
    "type txtInfo(0) \"North",
    "type txtInfo(0) \"\\q\"",
    "type txtInfo(99) \"North\"",
    "cell Grid9 1 0 \"5\"",
    "cell Grid1 one 0 \"5\"",
    "cell Grid1 999 0 \"5\"",
    "fill Grid1 1 0\n5",
    "key Grid1 Hyper",
    "key cmdCancel Enter",
    "choose listNone 1",
    "choose listAllHoles 999",
    "focus nothing",
    "answer Maybe",
    "copies 0",
    "on yield 0 click cmdCancel",
    "wait -1",
    "show nothing",
    "show Uniformity[1]",
    "show Head[99999]",
};

TEST(ScriptWords, AreAllSaid) {
  std::vector<std::string> said;
  for (const std::string_view wrong : kWrong) {
    std::istringstream script{std::string(wrong)};
    std::ostringstream transcript;
    std::ostringstream errors;
    EXPECT_EQ(RunScript(script, transcript, errors), kScriptNotUnderstood) << wrong;
    said.push_back(errors.str());
  }
  // These are of the command line: tests/batch/programs.py comes to them.
  EXPECT_THAT(Unsaid(ComplaintRows("script/words.h"), said), ElementsAre("kDataWithoutFolder", "kNoFile", "kNoFolder"));
}

}  // namespace
}  // namespace torvale
