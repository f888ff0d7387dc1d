// Best Holes by the keyboard alone: its menu entry, its panel, the result with its bound and its curve.
#include <QListWidget>
#include <QScrollArea>

#include "gui/window_test.h"

namespace torvale {
namespace {

class BestHolesWindowTest : public WindowTest {
 protected:
  // 51 furrows, six feet apart.
  void OpenPanel() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Key(Sheet(), Qt::Key_F8, 1, Qt::ControlModifier);
  }
  // Sizes that follow one another in the list, from that one on.
  void AddSizes(const char* first, int count) {
    auto& list = Find<QListWidget>("listAllHoles");
    const auto lines = list.findItems(first, Qt::MatchExactly);
    ASSERT_EQ(lines.size(), 1) << first;
    Key(list, Qt::Key_Home);
    Key(list, Qt::Key_Down, list.row(lines.front()));
    Key(list, Qt::Key_Down, count - 1, Qt::ShiftModifier);
    TabTo("cmdADDtoSelected");
    Key(*QApplication::focusWidget(), Qt::Key_Space);
  }
  void TabTo(const char* name) {
    for (int steps = 0; steps < 20 && main().focus != name; ++steps) Key(*QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(main().focus, name);
  }
  QRect Place(const char* name) { return Find<QWidget>(name).geometry(); }
};

TEST_F(BestHolesWindowTest, FromThePanelToTheCurveByKeyboard) {
  OpenPanel();
  ASSERT_TRUE(Find<QWidget>("frameHoleSelection").isVisible());
  EXPECT_TRUE(Find<QListWidget>("listAllHoles").hasFocus());
  EXPECT_FALSE(Find<QPushButton>("cmdExitHoleSelect").isVisible());
  AddSizes("3/4", 3);
  EXPECT_EQ(Find<QListWidget>("listHolesSelected").count(), 3);
  TabTo("txtBest(0)");
  Type(*QApplication::focusWidget(), "2");  // the focus selects the text, which typing replaces
  EXPECT_EQ(main().txtBest[0].text(), "2");
  TabTo("cmdFindBestHoles");
  Key(*QApplication::focusWidget(), Qt::Key_Space);

  EXPECT_FALSE(Find<QWidget>("frameHoleSelection").isVisible());
  EXPECT_TRUE(Results().isVisible());
  EXPECT_TRUE(Results().hasFocus());
  EXPECT_EQ(window_->windowTitle(), "TORVALE   Best Holes Design");
  EXPECT_EQ(Find<QLabel>("lblEffic").text().toStdString(), main().lblEffic.caption);
  const auto& bound = Find<QLabel>("lblBestHoles");
  EXPECT_TRUE(bound.isVisible());
  EXPECT_TRUE(bound.text().endsWith("No other plan is better.")) << bound.text().toStdString();
  EXPECT_TRUE(Find<QWidget>("frameBestCurve").isVisible());
  EXPECT_TRUE(Find<QLabel>("lblCurve(1)").text().startsWith("Uniformity\n"));
  EXPECT_TRUE(Find<QAction>("mnuBestHoles").isChecked());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);

  // Back to the survey: nothing of it stays on the screen.
  Key(Results(), Qt::Key_F4);
  EXPECT_FALSE(bound.isVisible());
  EXPECT_FALSE(Find<QWidget>("frameBestCurve").isVisible());
}

TEST_F(BestHolesWindowTest, ALimitThatIsNoneIsToldAndTheFocusStandsAtIt) {
  OpenPanel();
  AddSizes("3/4", 1);
  TabTo("txtBest(0)");
  Type(*QApplication::focusWidget(), "0");
  TabTo("cmdFindBestHoles");
  AnswerNextBox(QMessageBox::Ok);
  Key(*QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_FALSE(box_text_.empty());
  EXPECT_TRUE(Find<QWidget>("frameHoleSelection").isVisible());
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  EXPECT_EQ(main().focus, "txtBest(0)");
  EXPECT_EQ(window_->focusWidget()->objectName().toStdString(), "txtBest(0)");
}

// Of many stretches the summary scrolls above the curve; in a longer window both go down to its foot.
TEST_F(BestHolesWindowTest, TheCurveCoversNoLineOfALongSummary) {
  std::string lines = " Stations \n";
  for (int i = 0; i < 40; ++i) lines += std::to_string(i) + "\r";
  main().lblSumStation.caption = lines;
  main().frameShowLimitedHoles.visible = true;
  window_->Sync();
  const int alone = Place("frameShowLimitedHoles").bottom();
  main().frameBestCurve.visible = true;
  window_->Sync();
  EXPECT_LT(Place("frameShowLimitedHoles").bottom(), Place("frameBestCurve").top() + 1);
  EXPECT_GE(Place("frameShowLimitedHoles").bottom() + 5, Place("frameBestCurve").top());
  EXPECT_GT(Find<QLabel>("lblSumStation").height(), Place("frameShowLimitedHoles").height());
  window_->resize(window_->width(), window_->height() + 300);
  QApplication::processEvents();
  EXPECT_GT(Place("frameBestCurve").bottom(), alone + 100);
  EXPECT_LT(Place("frameShowLimitedHoles").bottom(), Place("frameBestCurve").top() + 1);
  main().frameBestCurve.visible = false;
  window_->Sync();
  EXPECT_GT(Place("frameShowLimitedHoles").bottom(), alone + 100);
}

}  // namespace
}  // namespace torvale
