#include "files/fields.h"

#include <gtest/gtest.h>

#include "files/file_fault.h"

namespace torvale {
namespace {

template <typename Work>
int NumberOf(const Work& work) {
  return ErrorOf([&] { work(); });
}

// Reading

TEST(FieldReader, ACommaAndEveryLineEndPartFields) {
  FieldReader in("a,b\r\nc\rd\ne");
  for (const char* expected : {"a", "b", "c", "d", "e"}) EXPECT_EQ(in.Text(), expected);
  EXPECT_TRUE(in.AtEnd());
}

// CR LF is one end, LF CR are two with an empty field between.
TEST(FieldReader, LineEndsTheWrongWayRoundLeaveAnEmptyField) {
  FieldReader in("a\n\rb\r\n");
  EXPECT_EQ(in.Text(), "a");
  EXPECT_EQ(in.Text(), "");
  EXPECT_EQ(in.Text(), "b");
  EXPECT_TRUE(in.AtEnd());
}

TEST(FieldReader, AQuotedTextKeepsCommasAndLineEnds) {
  FieldReader in("\"a, b\r\nc\",\"\",d\"e\r\n");
  EXPECT_EQ(in.Text(), "a, b\r\nc");
  EXPECT_EQ(in.Text(), "");
  EXPECT_EQ(in.Text(), "d\"e");  // a quote inside an unquoted text is a character
}

// The quote ends the field's text; what stands up to the next end is dropped.
TEST(FieldReader, WhatFollowsTheClosingQuoteIsDropped) {
  FieldReader in("\"6\" pipe\",\"next\"\r\n");
  EXPECT_EQ(in.Text(), "6");
  EXPECT_EQ(in.Text(), "next");
}

TEST(FieldReader, AnUnclosedQuoteRunsToTheEnd) {
  FieldReader in("\"a,b\r\n7");
  EXPECT_EQ(in.Text(), "a,b\r\n7");
  EXPECT_EQ(NumberOf([&] { in.Text(); }), kPastTheEnd);
}

TEST(FieldReader, ALoneQuoteAtTheEndIsAnEmptyText) {
  FieldReader in("\"");
  EXPECT_EQ(in.Text(), "");
  EXPECT_TRUE(in.AtEnd());
}

TEST(FieldReader, PastTheEndIsError62) {
  for (const char* text : {"", "a\r\n", "a,"}) {
    FieldReader in(text);
    if (*text != '\0') {
      EXPECT_EQ(in.Text(), "a");
    }
    EXPECT_EQ(NumberOf([&] { in.Text(); }), 62) << text;
    EXPECT_EQ(NumberOf([&] { in.Integer(); }), 62) << text;
    EXPECT_EQ(NumberOf([&] { in.Number32(); }), 62) << text;
    EXPECT_EQ(NumberOf([&] { in.Number64(); }), 62) << text;
    EXPECT_EQ(NumberOf([&] { in.Free(); }), 62) << text;
  }
}

TEST(FieldReader, AnEmptyNumberIsZeroAndAnEmptyFreeValueUnset) {
  FieldReader in(",,,, \r\n,");
  EXPECT_EQ(in.Integer(), 0);
  EXPECT_EQ(in.Number32(), 0.0F);
  EXPECT_EQ(in.Number64(), 0.0);
  EXPECT_EQ(in.Free(), std::nullopt);
  EXPECT_EQ(in.Free(), std::nullopt);  // a blank alone is no number either
  EXPECT_EQ(in.Free(), std::nullopt);
  EXPECT_TRUE(in.AtEnd());
}

TEST(FieldReader, IntegersRoundHalfToEven) {
  FieldReader in("0.5,1.5,2.5,-0.5,-1.5,32767.4,-32768");
  for (const int expected : {0, 2, 2, 0, -2, 32767, -32768}) EXPECT_EQ(in.Integer(), expected);
}

TEST(FieldReader, NumbersTakeEveryDecimalForm) {
  FieldReader in(".65,0.65,5.,-1.5,+2,1.5E+09,1e-05,1D2, 7 ");
  for (const float expected : {0.65F, 0.65F, 5.0F, -1.5F, 2.0F, 1.5E9F, 1E-5F, 100.0F, 7.0F}) {
    EXPECT_EQ(in.Number32(), expected);
  }
}

TEST(FieldReader, A64BitNumberKeepsItsDigits) {
  EXPECT_EQ(FieldReader("2.73412345678901").Number64(), 2.73412345678901);
  EXPECT_EQ(FieldReader("2.73412345678901").Number32(), 2.734123468F);
}

// A quoted number is no number either.
TEST(FieldReader, AFieldOfTheWrongKindIsError13) {
  for (const char* text : {"x", "12abc", "\"12\"", "3/4", "1 2x", "--1", "NaN", "inf", ".", "E5", "0x10"}) {
    EXPECT_EQ(NumberOf([&] { FieldReader(text).Integer(); }), 13) << text;
    EXPECT_EQ(NumberOf([&] { FieldReader(text).Number32(); }), 13) << text;
    EXPECT_EQ(NumberOf([&] { FieldReader(text).Number64(); }), 13) << text;
    EXPECT_EQ(NumberOf([&] { FieldReader(text).Free(); }), 13) << text;
  }
  EXPECT_EQ(NumberOf([] { FieldReader(std::string("1\0", 2)).Number32(); }), 13);
}

// 32767.5 goes to the even 32768, which 16 bits do not hold; 32 bits end near 3.4E+38, 64 bits near 1.8E+308.
TEST(FieldReader, ANumberBeyondItsFieldIsError9) {
  EXPECT_EQ(NumberOf([] { FieldReader("32767.5").Integer(); }), 9);
  EXPECT_EQ(NumberOf([] { FieldReader("-32769").Integer(); }), 9);
  EXPECT_EQ(NumberOf([] { FieldReader("1E39").Number32(); }), 9);
  EXPECT_EQ(NumberOf([] { FieldReader("-1E39").Number32(); }), 9);
  EXPECT_EQ(NumberOf([] { FieldReader("1E309").Number64(); }), 9);
  EXPECT_EQ(NumberOf([] { FieldReader("1E309").Free(); }), 9);
}

// A field that fails is passed all the same.
TEST(FieldReader, TheFieldAfterAFailureIsTheNextOne) {
  FieldReader in("x,5");
  EXPECT_EQ(NumberOf([&] { in.Integer(); }), 13);
  EXPECT_EQ(in.Integer(), 5);
}

// Writing

TEST(FieldWriter, PutsCommasBetweenFieldsAndCrLfBehindRecords) {
  FieldWriter out;
  out.Text("a").Integer(-1).EndRecord();
  out.EndRecord();
  out.Text("").EndRecord();
  EXPECT_EQ(out.text(), "\"a\",-1\r\n\r\n\"\"\r\n");
}

// Nothing can be escaped, so a quote that would end the text becomes the closing mark that looks like it.
TEST(FieldWriter, AQuoteBecomesAClosingMarkAndAllElseStays) {
  FieldWriter out;
  out.Text("6\" pipe, new\r\n").EndRecord();
  EXPECT_EQ(out.text(), "\"6\u201D pipe, new\r\n\"\r\n");
}

TEST(FieldReader, BlanksAndLineEndsAreNothing) {
  EXPECT_TRUE(FieldReader("").OnlyBlanksLeft());
  EXPECT_TRUE(FieldReader(" \r\n\t\n").OnlyBlanksLeft());
  EXPECT_FALSE(FieldReader("\r\n,").OnlyBlanksLeft());
}

TEST(FieldWriter, NumbersAreInTheGeneralForm) {
  FieldWriter out;
  out.Number32(1320).Number32(-1.5F).Number32(0.65F).Number32(1.5E9F).Number32(0).Number32(-0.0F).EndRecord();
  out.Number64(2.73412345678901).Number64(1E-5).EndRecord();
  EXPECT_EQ(out.text(), "1320,-1.5,.65,1.5E+09,0,0\r\n2.73412345678901,1E-05\r\n");
}

TEST(FieldWriter, AnUnsetFreeValueIsNothing) {
  FieldWriter out;
  out.Free(std::nullopt).Text("x").EndRecord();
  out.Free(12).Free(std::nullopt).Free(0).EndRecord();
  for (int i = 0; i < 5; ++i) out.Free(std::nullopt);
  out.EndRecord();
  EXPECT_EQ(out.text(), ",\"x\"\r\n12,,0\r\n,,,,\r\n");
}

}  // namespace
}  // namespace torvale
