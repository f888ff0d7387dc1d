#include <gtest/gtest.h>

#include "shell/events.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using FieldEventsTest = StartedProgramTest;

TEST_F(FieldEventsTest, TypedTextRunsTheChangeHandling) {
  TypeText(program, "txtInfo(2)", "850");
  EXPECT_EQ(program.record.TargetGPM, 850.0F);
  TypeText(program, "txtInfo(5)", "e");
  EXPECT_EQ(Info(5), "E");
}

TEST_F(FieldEventsTest, TypedTextIsCutToTheLongest) {
  TypeText(program, "txtInfo(2)", "12345678901");
  EXPECT_EQ(Info(2), "1234567890");
  TypeText(program, "txtInfo(5)", "er");
  EXPECT_EQ(Info(5), "E");
}

TEST_F(FieldEventsTest, TheLongestTextIsCountedInCharacters) {
  std::string accents;
  for (int i = 0; i < 13; ++i) accents += "\xC3\xA9";
  TypeText(program, "txtInfo(1)", accents);
  EXPECT_EQ(Info(1), accents.substr(0, 24));  // 12 characters of 2 bytes
}

TEST(FirstChangeTest, BeforeTheFirstChangeNoLimitIsKnown) {
  FakeHost host;
  Program program(host);
  TypeText(program, "txtInfo(2)", "12345678901");
  EXPECT_EQ(program.main.txtInfo[2].text(), "12345678901");
}

TEST_F(FieldEventsTest, ADoubleQuoteBecomesAClosingQuotationMark) {
  TypeText(program, "txtInfo(0)", "The \"long\" field");
  EXPECT_EQ(Info(0), "The \xE2\x80\x9Dlong\xE2\x80\x9D field");
}

TEST_F(FieldEventsTest, FieldsThatAreDisabledHiddenOrUnknownTakeNoText) {
  program.main.txtInfo[4].control.enabled = false;
  TypeText(program, "txtInfo(4)", "x");
  EXPECT_EQ(Info(4), "");
  TypeText(program, "txtDefault(3)", "100");  // its frame is hidden
  EXPECT_EQ(program.main.txtDefault[3].text(), "140");
  TypeText(program, "txtInfo(6)", "x");
  TypeText(program, "lblEffic", "x");
  EXPECT_EQ(program.main.lblEffic.caption, "");
}

TEST_F(FieldEventsTest, PreferencesThatAreShownTakeText) {
  program.main.Frame1.visible = true;
  TypeText(program, "txtDefault(3)", "100");
  EXPECT_EQ(program.record.HazenWilliamsC, 100.0F);
  TypeText(program, "txtDefault(9)", "r");
  EXPECT_EQ(program.main.txtDefault[9].text(), "R");
}

TEST_F(FieldEventsTest, KeysMoveBetweenTheFields) {
  FocusGained(program, "txtInfo(0)");
  EXPECT_TRUE(FieldKey(program, "txtInfo(0)", {Key::kEnter, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(1)");
  EXPECT_TRUE(FieldKey(program, "txtInfo(1)", {Key::kDown, ""}));
  EXPECT_TRUE(FieldKey(program, "txtInfo(2)", {Key::kDown, ""}));
  EXPECT_TRUE(FieldKey(program, "txtInfo(3)", {Key::kUp, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(2)");
  EXPECT_FALSE(FieldKey(program, "txtInfo(5)", {Key::kEnter, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(2)");
}

TEST_F(FieldEventsTest, KeysWithACharacterGiveTheShortHeadingsAndOthersDoNot) {
  for (const Key key : {Key::kDelete, Key::kHome, Key::kEnd, Key::kLeft, Key::kRight, Key::kPageDown}) {
    EXPECT_FALSE(FieldKey(program, "txtInfo(0)", {key, ""}));
  }
  EXPECT_EQ(sheet().Text(0, 1), "Elevations (feet)");  // as the layout wrote it
  for (const KeyStroke& stroke : {KeyStroke{Key::kCharacter, "a"}, KeyStroke{Key::kBackspace, ""}}) {
    sheet().Set(0, 1, "");
    EXPECT_FALSE(FieldKey(program, "txtInfo(0)", stroke));
    EXPECT_EQ(sheet().Text(0, 1), "Elevations");
  }
}

TEST_F(FieldEventsTest, FieldsThatTheUserCannotReachTakeNoKeys) {
  FocusGained(program, "txtInfo(0)");
  program.main.txtInfo[0].control.enabled = false;
  EXPECT_FALSE(FieldKey(program, "txtInfo(0)", {Key::kDown, ""}));
  EXPECT_FALSE(FieldKey(program, "txtInfo(7)", {Key::kDown, ""}));
  EXPECT_EQ(program.main.focus, "txtInfo(0)");
}

}  // namespace
}  // namespace torvale
