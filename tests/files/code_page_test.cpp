#include "files/code_page.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

TEST(CodePage, EveryByteComesBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes) << byte;
  }
}

TEST(CodePage, TheLowerHalfIsItself) {
  for (int byte = 0; byte < 128; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(FromCodePage(bytes), bytes) << byte;
  }
}

// The page's own characters stand at 80 to 9F; from A0 on it has the characters of the same number.
TEST(CodePage, TheUpperHalf) {
  EXPECT_EQ(FromCodePage("\x80"), "\u20AC");
  EXPECT_EQ(FromCodePage("\x85"), "\u2026");
  EXPECT_EQ(FromCodePage("\x8A"), "\u0160");
  EXPECT_EQ(FromCodePage("\x92"), "\u2019");
  EXPECT_EQ(FromCodePage("\x94"), "\u201D");
  EXPECT_EQ(FromCodePage("\x99"), "\u2122");
  EXPECT_EQ(FromCodePage("\x9F"), "\u0178");
  EXPECT_EQ(FromCodePage("\xA0"), "\u00A0");
  EXPECT_EQ(FromCodePage("\xE9"), "\u00E9");
  EXPECT_EQ(FromCodePage("\xFF"), "\u00FF");
}

TEST(CodePage, FiveBytesStandForNoCharacterOfTheirOwn) {
  EXPECT_EQ(FromCodePage("\x81"), "\xC2\x81");
  EXPECT_EQ(FromCodePage("\x8D"), "\xC2\x8D");
  EXPECT_EQ(FromCodePage("\x8F"), "\xC2\x8F");
  EXPECT_EQ(FromCodePage("\x90"), "\xC2\x90");
  EXPECT_EQ(FromCodePage("\x9D"), "\xC2\x9D");
}

// A letter, a letter of three bytes, one of four; and U+0080, whose byte the page gives to the euro.
TEST(CodePage, WhatThePageLacksIsAQuestionMark) {
  EXPECT_EQ(ToCodePage("a\u0142b\u4E2Dc\U0001F33Ed\xC2\x80"), "a?b?c?d?");
}

TEST(CodePage, EachByteThatIsNoUtf8IsAQuestionMark) {
  EXPECT_EQ(ToCodePage("a\xFF"
                       "b"),
            "a?b");
  EXPECT_EQ(ToCodePage("\xC3"), "?");       // cut off
  EXPECT_EQ(ToCodePage("\xE2\x80"), "??");  // cut off after two of three
  EXPECT_EQ(ToCodePage("\x80x"), "?x");     // a byte that only continues
  EXPECT_EQ(ToCodePage("\xC3x"), "?x");     // not continued
  EXPECT_EQ(ToCodePage("\xC1\x81"), "??");  // "A" in two bytes
}

// A character in more bytes than it needs, half of a pair, and numbers past the last character are none.
TEST(CodePage, BytesThatOnlyLookLikeUtf8AreQuestionMarks) {
  EXPECT_EQ(ToCodePage("\xE0\x81\x81"), "???");       // "A" in three bytes
  EXPECT_EQ(ToCodePage("\xE0\x83\xA9"), "???");       // e acute in three bytes
  EXPECT_EQ(ToCodePage("\xF0\x80\x81\x81"), "????");  // "A" in four
  EXPECT_EQ(ToCodePage("\xED\xA0\x80"), "???");       // half of a surrogate pair
  EXPECT_EQ(ToCodePage("\xF4\x90\x80\x80"), "????");  // past U+10FFFF
  EXPECT_EQ(ToCodePage("\xF8\x80\x80\xC3\xA9"), "???\xE9");
}

TEST(CodePage, ALongTextComesBack) {
  std::string bytes;
  for (int i = 0; i < 10000; ++i) bytes.push_back(static_cast<char>(i * 7));
  EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes);
}

}  // namespace
}  // namespace torvale
