#include "screen/spoken.h"

#include <gtest/gtest.h>

#include "screen/message_box.h"
#include "screen/status_line.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

constexpr Sentence<0> kPlain{"All is well."};
constexpr Sentence<2> kTwoGaps{"From {} to {}."};
constexpr Message<1> kTitled{"{} is wrong", "A Title"};
constexpr Question<1> kAsked{"Is {} right?"};

TEST(Spoken, ValuesGoIntoTheGapsInTurn) {
  EXPECT_EQ(kTwoGaps("1", std::string("2")), "From 1 to 2.");
  EXPECT_EQ(kTwoGaps("", ""), "From  to .");
  EXPECT_EQ(kTitled("x").title(), "A Title");
}

// What is put in is a text of the user's, and may look like a gap.
TEST(Spoken, AGapInAValueIsNone) {
  EXPECT_EQ(kTwoGaps("{}", "b{}"), "From {} to b{}.");
}

TEST(Spoken, NothingIsSpokenAtFirst) {
  EXPECT_TRUE(SpokenSentence().empty());
  const SpokenSentence plain = kPlain;
  EXPECT_EQ(plain, "All is well.");
}

TEST(Spoken, BoxesHaveTheirTitles) {
  FakeHost desktop;
  Program program(desktop);
  Tell(program, kTitled("it"));
  EXPECT_EQ(desktop.messages, (std::vector<Shown>{{"it is wrong", "A Title"}}));
  desktop.answers = {true, false};
  EXPECT_TRUE(Ask(program, kAsked("it")));
  EXPECT_FALSE(Ask(program, kAsked("this")));
  EXPECT_EQ(desktop.questions, (std::vector<Shown>{{"Is it right?", ""}, {"Is this right?", ""}}));
}

// A second sentence follows with a blank, or with a full stop where the first has none.
TEST(Spoken, SentencesFollowOneAnother) {
  FakeHost desktop;
  Program program(desktop);
  Say(program, kTwoGaps("1", "2"));
  SayToo(program, kPlain);
  EXPECT_EQ(News(program), "From 1 to 2. All is well.");
  program.main.sbStatusBar.caption = "3 rows";
  SayToo(program, kPlain);
  EXPECT_EQ(News(program), "3 rows. All is well.");
  ForgetNews(program);
  SayToo(program, kPlain);
  EXPECT_EQ(News(program), "All is well.");
}

}  // namespace
}  // namespace torvale
