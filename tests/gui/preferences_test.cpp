// The panel of preferences in the window.
#include "gui/window_test.h"

namespace torvale {
namespace {

class PreferencesTest : public WindowTest {
 protected:
  QLineEdit& Preference(int index) { return Find<QLineEdit>(("txtDefault(" + std::to_string(index) + ")").c_str()); }
};

TEST_F(PreferencesTest, KeysLeadThroughThePanelAndExitKeepsIt) {
  Choose("mnuPreference");
  ASSERT_TRUE(Find<QWidget>("Frame1").isVisible());
  Preference(3).setFocus();
  EXPECT_EQ(main().focus, "txtDefault(3)");
  Preference(3).selectAll();
  Type(Preference(3), "150");
  EXPECT_EQ(record().HazenWilliamsC, 150.0F);
  Key(Preference(3), Qt::Key_Return);
  EXPECT_TRUE(Preference(4).hasFocus());
  EXPECT_EQ(Preference(12).accessibleName(), "Diameter or Height of gated hole (inches)");
  Press("btnDefaultExit");
  EXPECT_FALSE(Find<QWidget>("Frame1").isVisible());
  EXPECT_TRUE(QFile::exists(data_.filePath("Default50.TVL")));
}

// A letter that stands for nothing is put right when the field is left, by mouse or key.
TEST_F(PreferencesTest, LeavingAFieldPutsItRight) {
  Choose("mnuPreference");
  Preference(9).setFocus();
  Preference(9).selectAll();
  Type(Preference(9), "x");
  EXPECT_EQ(Preference(9).text(), "X");
  Preference(10).setFocus();
  EXPECT_TRUE(Preference(10).hasFocus());
  EXPECT_EQ(Preference(9).text(), "E");
  Preference(11).setFocus();
  Preference(11).selectAll();
  Type(Preference(11), "x");
  Key(Preference(11), Qt::Key_Down);
  EXPECT_TRUE(Preference(12).hasFocus());
  EXPECT_EQ(Preference(11).text(), "R");
}

// Going to an information field abandons the panel.
TEST_F(PreferencesTest, AnInformationFieldHidesThePanel) {
  Choose("mnuPreference");
  Preference(3).setFocus();
  Info(2).setFocus();
  EXPECT_TRUE(Info(2).hasFocus());
  EXPECT_FALSE(Find<QWidget>("Frame1").isVisible());
}

TEST_F(PreferencesTest, ThePanelIsMovedByItsBackground) {
  Choose("mnuPreference");
  QWidget& inside = *Preference(0).parentWidget();
  const Place before = main().Frame1.place;
  QTest::mousePress(&inside, Qt::LeftButton, {}, {4, 4});
  QTest::mouseRelease(&inside, Qt::LeftButton, {}, {4 - 100, 4 - 20});
  // 100 pixels are 1500 twips, 20 are 300, each to the pixel.
  EXPECT_NEAR(main().Frame1.place.left, before.left - 1500, 15);
  EXPECT_NEAR(main().Frame1.place.top, before.top - 300, 15);
}

// The panel goes with the pointer. Let go outside of the window it goes back to where it was.
TEST_F(PreferencesTest, APanelLetGoOutsideOfTheWindowGoesBack) {
  Choose("mnuPreference");
  QWidget& frame = Find<QWidget>("Frame1");
  QWidget& inside = *Preference(0).parentWidget();
  const QRect before = frame.geometry();
  QTest::mousePress(&inside, Qt::LeftButton, {}, {4, 4});
  QTest::mouseMove(&inside, {4 - 60, 4 - 20});
  EXPECT_EQ(frame.pos(), before.topLeft() + QPoint(-60, -20)) << "seen on the way";
  const QPoint outside = inside.mapFromGlobal(window_->mapToGlobal(QPoint(-400, -300)));
  QTest::mouseMove(&inside, outside);
  QTest::mouseRelease(&inside, Qt::LeftButton, {}, outside);
  EXPECT_EQ(frame.geometry(), before);
}

}  // namespace
}  // namespace torvale
