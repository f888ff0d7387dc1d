// What the window takes from the desktop: keys, pace of events, sizes.
#include <gtest/gtest.h>

#include "qt/keys.h"
#include "qt/scale.h"
#include "qt/yield_pacer.h"

namespace torvale {
namespace {

std::optional<KeyStroke> Stroke(int key, Qt::KeyboardModifiers modifiers, const QString& text, std::string& character) {
  return StrokeOf(QKeyEvent(QEvent::KeyPress, key, modifiers, text), character);
}

TEST(Keys, NamesAndCharacters) {
  std::string character;
  EXPECT_EQ(Stroke(Qt::Key_Return, Qt::NoModifier, "\r", character)->key, Key::kEnter);
  EXPECT_EQ(Stroke(Qt::Key_Enter, Qt::KeypadModifier, "\r", character)->key, Key::kEnter);
  EXPECT_EQ(Stroke(Qt::Key_Home, Qt::ControlModifier, "", character)->key, Key::kCtrlHome);
  EXPECT_EQ(Stroke(Qt::Key_C, Qt::ControlModifier, "\x03", character)->key, Key::kCopy);
  EXPECT_TRUE(Stroke(Qt::Key_Down, Qt::ShiftModifier, "", character)->shift);
  const auto typed = Stroke(Qt::Key_Adiaeresis, Qt::NoModifier, QString::fromUtf8("ä"), character);
  ASSERT_TRUE(typed.has_value());
  EXPECT_EQ(typed->key, Key::kCharacter);
  EXPECT_EQ(typed->character, "ä");
}

TEST(Keys, OthersAreLeftToTheWindow) {
  std::string character;
  EXPECT_FALSE(Stroke(Qt::Key_F5, Qt::NoModifier, "", character).has_value());
  EXPECT_FALSE(Stroke(Qt::Key_S, Qt::ControlModifier, "\x13", character).has_value());
  EXPECT_FALSE(Stroke(Qt::Key_Shift, Qt::ShiftModifier, "", character).has_value());
}

// A slice of 1000 yields that took 20 ms held twice too many for 10 ms; changes are held to a factor of four.
TEST(YieldPacer, NextSliceTakesTenMilliseconds) {
  EXPECT_EQ(NextSlice(1000, 20), 500);
  EXPECT_EQ(NextSlice(1000, 5), 2000);
  EXPECT_EQ(NextSlice(1000, 0.001), 4000);
  EXPECT_EQ(NextSlice(1000, 60000), 250);
  EXPECT_EQ(NextSlice(1, 60000), 1);
}

TEST(YieldPacer, TellsHowManyYieldsDoNothing) {
  YieldPacer pacer;
  const long idle = pacer.Idle();
  ASSERT_GT(idle, 0);
  // Passing over as many as it said and making the next one is the time for events.
  EXPECT_FALSE(pacer.Count(idle));
  EXPECT_EQ(pacer.Idle(), 0);
  EXPECT_TRUE(pacer.Count(1));
  pacer.Restart();
  EXPECT_GT(pacer.Idle(), 0);
}

TEST(Scale, NeighboursMeetAtEveryZoom) {
  for (const int zoom : {75, 100, 125, 150, 175, 200, 250}) {
    const Scale scale(zoom);
    const QRect left = scale.Rect({100, 0, 333, 200});
    const QRect right = scale.Rect({433, 0, 250, 200});
    EXPECT_EQ(left.right() + 1, right.left()) << zoom;
  }
  EXPECT_EQ(Scale(100).Pixels(1500), 100);
  EXPECT_EQ(Scale(200).Pixels(1500), 200);
  EXPECT_EQ(Scale(200).Twips(200), 1500);
}

}  // namespace
}  // namespace torvale
