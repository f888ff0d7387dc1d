#include "base/utf8.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

// "aé€😀z": characters of 1, 2, 3, 4 and 1 bytes.
constexpr std::string_view kMixed = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";

TEST(Utf8, CountsCharacters) {
  EXPECT_EQ(CharacterCount(""), 0);
  EXPECT_EQ(CharacterCount("850"), 3);
  EXPECT_EQ(CharacterCount(kMixed), 5);
}

TEST(Utf8, FindsWhereACharacterBegins) {
  const std::size_t expected[] = {0, 1, 3, 6, 10};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(CharacterOffset(kMixed, i), expected[i]) << i;
}

TEST(Utf8, PastTheLastCharacterIsTheEndOfTheText) {
  EXPECT_EQ(CharacterOffset(kMixed, 5), kMixed.size());
  EXPECT_EQ(CharacterOffset(kMixed, 99), kMixed.size());
  EXPECT_EQ(CharacterOffset("", 0), 0U);
}

// A text cut in the middle of a character begins with bytes that belong to none.
TEST(Utf8, StrayBytesAreNoCharacters) {
  EXPECT_EQ(CharacterCount("\x82\xACz"), 1);
  EXPECT_EQ(CharacterOffset("\x82\xACz", 0), 0U);
  EXPECT_EQ(CharacterOffset("\x82\xACz", 1), 3U);
}

}  // namespace
}  // namespace torvale
