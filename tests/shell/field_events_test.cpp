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

TEST_F(FieldEventsTest, TypingUnseenReachesAHiddenPreference) {
  TypeUnseen(program, "txtDefault(3)", "100");
  EXPECT_EQ(program.main.txtDefault[3].text(), "100");
  TypeUnseen(program, "txtDefault(15)", "*.\"x");
  EXPECT_EQ(program.main.txtDefault[15].text(), "*.\u201Dx");
}

TEST_F(FieldEventsTest, ANumberThatIsNotReadAsTypedIsToldAtOnceAndTakenBackWhenMended) {
  FocusGained(program, "txtInfo(2)");
  TypeText(program, "txtInfo(2)", "1,200");
  EXPECT_EQ(program.main.sbStatusBar.caption,
            "\u201C1,200\u201D is read as 1. Write digits and, for decimals, one point: no commas, no letters.");
  EXPECT_EQ(program.main.txtInfo[2].control.mark, program.main.sbStatusBar.caption);
  TypeText(program, "txtInfo(2)", "1200");
  EXPECT_EQ(program.main.sbStatusBar.caption, "Pumped flow, gallons per minute");
}

TEST_F(FieldEventsTest, APastedNumberIsToldToo) {
  FocusGained(program, "txtInfo(3)");
  host.clipboard = "1,5";
  FieldKey(program, "txtInfo(3)", {Key::kPaste, ""});
  EXPECT_EQ(program.main.sbStatusBar.caption, program.main.txtInfo[3].control.mark);
  EXPECT_NE(program.main.txtInfo[3].control.mark, "");
}

// Each further letter would fault again at the same number.
TEST_F(FieldEventsTest, AnOverflowingCoefficientIsToldInABoxOnce) {
  program.main.Frame1.visible = true;
  for (const char* text : {"1E3", "1E39", "1E390", "1E39"}) TypeText(program, "txtDefault(2)", text);
  TypeText(program, "txtDefault(5)", "12");
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(program.record.DischargeCoef, 1000.0F);
  EXPECT_EQ(program.main.txtDefault[2].control.mark,
            "\u201C1E39\u201D is too large a number. The number before it stays in force.");
  // Its fault does not keep the other coefficient from following.
  TypeText(program, "txtDefault(3)", "120");
  EXPECT_EQ(program.record.HazenWilliamsC, 120.0F);
  TypeText(program, "txtDefault(2)", ".6");
  EXPECT_EQ(program.record.DischargeCoef, .6F);
  EXPECT_EQ(program.main.txtDefault[2].control.mark, "");
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
  EXPECT_FALSE(FieldKey(program, "txtInfo(5)", {Key::kEnter, ""}));  // the last stays
  EXPECT_EQ(program.main.focus, "txtInfo(5)");                       // and has the focus, since it took the key
}

TEST_F(FieldEventsTest, ACharacterTakesThePlaceOfWhatIsSelected) {
  FocusGained(program, "txtInfo(0)");
  TypeText(program, "txtInfo(0)", "North");
  SelectText(program, "txtInfo(0)", {1, 3});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kCharacter, "x"});
  EXPECT_EQ(Info(0), "Nxh");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kCharacter, "y"});  // the caret stands behind the x
  EXPECT_EQ(Info(0), "Nxyh");
  FieldKeyTyped(program, "txtInfo(0)", {Key::kBackspace, ""});
  EXPECT_EQ(Info(0), "Nxh");
  SelectText(program, "txtInfo(0)", {0, 0});
  FieldKeyTyped(program, "txtInfo(0)", {Key::kBackspace, ""});  // nothing stands ahead of the caret
  EXPECT_EQ(Info(0), "Nxh");
  FieldKeyTyped(program, "txtDefault(3)", {Key::kCharacter, "1"});  // its panel is away
  EXPECT_EQ(program.main.txtDefault[3].text(), "140");
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
