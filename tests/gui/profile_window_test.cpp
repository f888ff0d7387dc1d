// The crown profile: a window with a chart over the main one.
#include <qcustomplot.h>

#include "gui/window_test.h"

namespace torvale {
namespace {

class ProfileWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Key(Sheet(), Qt::Key_F5);
    ASSERT_TRUE(Results().isVisible());
    Choose("mnuProfile");
  }
  QCustomPlot& Chart() { return Find<QCustomPlot>("CrownChart"); }
};

TEST_F(ProfileWindowTest, ShowsTheExistingCrownAtItsStations) {
  ASSERT_TRUE(Chart().isVisible());
  EXPECT_EQ(Chart().window()->windowTitle(), "Profile of Crown");
  ASSERT_EQ(Chart().graphCount(), 1);
  EXPECT_EQ(Chart().graph(0)->name(), "Existing Crown");
  const auto points = Chart().graph(0)->data();
  ASSERT_EQ(points->size(), 2);
  EXPECT_EQ(points->at(0)->key, 0);
  EXPECT_EQ(points->at(1)->key, 300);
  EXPECT_EQ(points->at(0)->value, 10);
  // Int(10 + 0.9) + 1 and Int(10 + 0.9) - 1.
  EXPECT_EQ(Chart().yAxis->range().upper, 11);
  EXPECT_EQ(Chart().yAxis->range().lower, 9);
  EXPECT_EQ(Chart().yAxis->label(), "Elevations (ft.)");
  EXPECT_TRUE(Find<QLabel>("lblProfileName").text().startsWith("North Forty"));
  EXPECT_FALSE(Find<QLabel>("lblFillHeight").isVisible());
  EXPECT_FALSE(Chart().accessibleName().isEmpty());
}

TEST_F(ProfileWindowTest, TheLinesDifferInDashAndMarker) {
  program_->record.DesignType = kDualSlope;
  Press("btnBack");
  Choose("mnuProfile");
  ASSERT_EQ(Chart().graphCount(), 2);
  EXPECT_EQ(Chart().graph(1)->name(), "Designed Crown");
  EXPECT_NE(Chart().graph(0)->pen().style(), Chart().graph(1)->pen().style());
  EXPECT_NE(Chart().graph(0)->scatterStyle().shape(), Chart().graph(1)->scatterStyle().shape());
}

TEST_F(ProfileWindowTest, KeysZoomAndADoubleClickShowsAllAgain) {
  const QCPRange all = Chart().xAxis->range();
  Key(Chart(), Qt::Key_Plus, 3);
  EXPECT_LT(Chart().xAxis->range().size(), all.size());
  QTest::mouseDClick(&Chart(), Qt::LeftButton, {}, Chart().rect().center());
  EXPECT_DOUBLE_EQ(Chart().xAxis->range().size(), all.size());
  Key(Chart(), Qt::Key_Minus, 3);
  EXPECT_DOUBLE_EQ(Chart().xAxis->range().size(), all.size()) << "there is nothing beyond the line";
}

TEST_F(ProfileWindowTest, BackAndTheCrossLeadToTheDesign) {
  Press("btnBack");
  EXPECT_FALSE(Chart().isVisible());
  EXPECT_TRUE(Results().isVisible());
  EXPECT_EQ(main().cmdDesignToggle.caption, "Complete Design");
  Choose("mnuProfile");
  EXPECT_TRUE(Chart().isVisible());
  Chart().window()->close();
  EXPECT_FALSE(Chart().isVisible());
  EXPECT_FALSE(program_->profile.CrownProfile.visible);
  EXPECT_FALSE(main().closed);
}

}  // namespace
}  // namespace torvale
