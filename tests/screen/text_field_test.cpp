#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "screen/controls.h"

namespace torvale {
namespace {

constexpr const char* kAccents = "\xC3\xA9\xC3\xA8\xC3\xAA";  // three characters of two bytes

struct TextFieldSelection : ::testing::Test {
  void ExpectSelection(int start, int length) {
    EXPECT_EQ(field.selection().start, start);
    EXPECT_EQ(field.selection().length, length);
  }
  TextField field;
};

TEST_F(TextFieldSelection, IsCountedInCharacters) {
  field.Set(std::string("a") + kAccents + "z");
  field.Select(2, 2);
  EXPECT_EQ(field.SelectedText(), "\xC3\xA8\xC3\xAA");
  field.SelectAll();
  ExpectSelection(0, 5);
  EXPECT_EQ(field.SelectedText(), field.text());
}

TEST_F(TextFieldSelection, IsHeldInsideTheText) {
  field.Set("850");
  field.Select(2, 9);
  ExpectSelection(2, 1);
  field.Select(-1, 2);
  ExpectSelection(0, 2);
  field.Select(9, 1);
  ExpectSelection(3, 0);
  field.Select(1, -1);
  ExpectSelection(1, 0);
}

TEST_F(TextFieldSelection, ANewTextHasNoneAndTheCaretStays) {
  field.Set("1234");
  field.Select(2, 2);
  field.Set("987654");
  ExpectSelection(2, 0);
  field.Set("9");
  ExpectSelection(1, 0);
}

TEST_F(TextFieldSelection, IsReplacedAndTheCaretStandsBehind) {
  int changes = 0;
  field.Set("North field");
  field.on_change = [&] { ++changes; };
  field.Select(0, 5);
  field.ReplaceSelected("The south");
  EXPECT_EQ(field.text(), "The south field");
  ExpectSelection(9, 0);
  EXPECT_EQ(changes, 1);
  field.ReplaceSelected("ern");  // nothing is selected: the text goes in at the caret
  EXPECT_EQ(field.text(), "The southern field");
  field.Select(0, 4);
  field.ReplaceSelected("");
  EXPECT_EQ(field.text(), "southern field");
  ExpectSelection(0, 0);
}

TEST_F(TextFieldSelection, ReplacingNothingByNothingChangesNothing) {
  int changes = 0;
  field.Set("850");
  field.on_change = [&] { ++changes; };
  field.Select(1, 0);
  field.ReplaceSelected("");
  EXPECT_EQ(field.text(), "850");
  EXPECT_EQ(changes, 0);
}

// 10 characters fit; 2 of the 8 are replaced, so 4 of the new ones do.
TEST_F(TextFieldSelection, WhatTheFieldStillTakesIsPutIn) {
  field.Set("12345678");
  field.max_length = 10;
  field.Select(3, 2);
  field.ReplaceSelected("abcdef");
  EXPECT_EQ(field.text(), "123abcd678");
  ExpectSelection(7, 0);
  field.ReplaceSelected("x");
  EXPECT_EQ(field.text(), "123abcd678");
}

TEST_F(TextFieldSelection, TheRoomIsCountedInCharacters) {
  field.max_length = 4;
  field.ReplaceSelected(std::string(kAccents) + kAccents);
  EXPECT_EQ(field.text(), std::string(kAccents) + "\xC3\xA9");
}

TEST_F(TextFieldSelection, ATextThatIsTooLongAlreadyOnlyLosesItsSelection) {
  field.Set("12345678");
  field.max_length = 4;
  field.Select(0, 2);
  field.ReplaceSelected("ab");
  EXPECT_EQ(field.text(), "345678");
}

TEST_F(TextFieldSelection, AFieldWithoutALimitTakesNoBook) {
  field.ReplaceSelected(std::string(1'000'000, 'x'));
  EXPECT_EQ(field.text().size(), 32767U);
}

// The handler may change the text again: a survey kind is made a capital letter.
TEST_F(TextFieldSelection, TheCaretStandsBehindWhatTheHandlerMadeOfIt) {
  field.on_change = [&] { field.Set("E"); };
  field.ReplaceSelected("e");
  EXPECT_EQ(field.text(), "E");
  ExpectSelection(1, 0);
}

}  // namespace
}  // namespace torvale
