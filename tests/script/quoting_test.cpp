#include "script/quoting.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

using List = std::vector<Token>;

TEST(Tokens, PartsWordsAndTexts) {
  EXPECT_EQ(Tokens("type txtInfo(2) \"850\""), (List{{"type", false}, {"txtInfo(2)", false}, {"850", true}}));
  EXPECT_EQ(Tokens("  \t "), List{});
  EXPECT_EQ(Tokens("show\r"), (List{{"show", false}}));
}

TEST(Tokens, ACommentBeginsOutsideQuotesAlone) {
  EXPECT_EQ(Tokens("# all of it"), List{});
  EXPECT_EQ(Tokens("type a \"No. #1\" # the rest"), (List{{"type", false}, {"a", false}, {"No. #1", true}}));
}

TEST(Tokens, AnEmptyTextIsOne) {
  EXPECT_EQ(Tokens("type a \"\""), (List{{"type", false}, {"a", false}, {"", true}}));
}

TEST(Tokens, ResolvesEscapes) {
  EXPECT_EQ(Tokens(R"("a\"b\\c\n\r\t")"), (List{{"a\"b\\c\n\r\t", true}}));
}

TEST(Tokens, RefusesWhatItCannotRead) {
  EXPECT_THROW(Tokens("type a \"open"), ScriptError);
  EXPECT_THROW(Tokens(R"(type a "\x")"), ScriptError);
  EXPECT_THROW(Tokens("\"ends in a backslash\\"), ScriptError);
}

TEST(Quoted, ReadsBackToTheSameText) {
  const std::string text = "a \"b\" \\ \n\r\t # c";
  EXPECT_EQ(Quoted(text), R"("a \"b\" \\ \n\r\t # c")");
  EXPECT_EQ(Tokens(Quoted(text)), (List{{text, true}}));
}

TEST(WholeNumber, TakesTheWholeWord) {
  EXPECT_EQ(WholeNumber("319"), 319);
  EXPECT_EQ(WholeNumber("-5"), -5);
  for (const char* word : {"", "12a", "1.5", "9999999999"}) EXPECT_THROW(WholeNumber(word), ScriptError) << word;
}

}  // namespace
}  // namespace torvale
