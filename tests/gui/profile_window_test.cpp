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
  QWidget& Profile() { return *Chart().window(); }
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

TEST_F(ProfileWindowTest, TheWheelZoomsAndADoubleClickShowsAllAgain) {
  const QCPRange stations = Chart().xAxis->range();
  const QCPRange values = Chart().yAxis->range();
  const QPointF middle = Chart().axisRect()->rect().center();
  const auto turn = [&](int eighths) {
    QWheelEvent wheel(middle, Chart().mapToGlobal(middle), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Chart(), &wheel);
  };
  turn(240);
  EXPECT_LT(Chart().xAxis->range().size(), stations.size());
  EXPECT_LT(Chart().yAxis->range().size(), values.size());
  QTest::mouseDClick(&Chart(), Qt::LeftButton, {}, middle.toPoint());
  EXPECT_EQ(Chart().xAxis->range(), stations);
  EXPECT_EQ(Chart().yAxis->range(), values);
  turn(-240);
  EXPECT_EQ(Chart().xAxis->range(), stations) << "there is nothing beyond the line";
}

TEST_F(ProfileWindowTest, OpensOverTheMiddleOfTheMainWindow) {
  Profile().resize(320, 240);
  Press("btnBack");
  window_->setGeometry(60, 80, 640, 480);
  Choose("mnuProfile");
  const QPoint off = Profile().geometry().center() - window_->geometry().center();
  EXPECT_LE(off.manhattanLength(), 2);
}

// A labelled station stands clear of its neighbours and of the chart's edge: with three rows, and on the longest line
// with a station surveyed every 8 or 9 feet.
class ProfileLabelsTest : public ProfileWindowTest {
 protected:
  void ExpectClearLabels() {
    const QVector<double> ticks = Chart().xAxis->tickVector();
    const QVector<QString> labels = Chart().xAxis->tickVectorLabels();
    const QFontMetrics letters(Chart().xAxis->tickLabelFont());
    ASSERT_GE(ticks.size(), 2);
    double end = 0;
    for (qsizetype i = 0; i < ticks.size(); ++i) {
      const double half = letters.horizontalAdvance(labels[i]) / 2.0;
      const double middle = Chart().xAxis->coordToPixel(ticks[i]);
      EXPECT_GT(middle - half, end) << labels[i].toStdString();
      end = middle + half + letters.horizontalAdvance(' ');
    }
    EXPECT_LE(end, Chart().width()) << "the last label is cut off";
  }
  void Survey(int rows, double length) {
    Press("btnBack");
    Grid& sheet = main().Grid1;
    for (int row = 1; row <= rows; ++row) {
      const std::string station = std::to_string(static_cast<int>(length * (row - 1) / (rows - 1)));
      const std::string cells[] = {station, "10", "600", "0.5", "36", "1/8", "1", "10", "0.5"};
      for (int column = 0; column < 9; ++column) sheet.Set(row, column, cells[column]);
    }
    main().txtInfo[2].Set("1500");
    Choose("mnuDesignField");
    Choose("mnuProfile");
  }
};

TEST_F(ProfileLabelsTest, AreClearOfEachOtherAtEveryZoom) {
  for (const char* zoom : {"mnuZoomTo(0)", "mnuZoomTo(1)", "mnuZoomTo(3)", "mnuZoomTo(5)"}) {
    Press("btnBack");
    Choose(zoom);
    Choose("mnuProfile");
    ExpectClearLabels();
  }
}

TEST_F(ProfileLabelsTest, AreClearOfEachOtherOnTheLongestLine) {
  Survey(319, 2640);
  ASSERT_GE(record().HoleRows, 5280);
  ASSERT_GT(program_->profile.chart.rows, 300);
  ExpectClearLabels();
  EXPECT_GT(Chart().xAxis->tickVector().size(), 5);
  Press("btnBack");
  Choose("mnuZoomTo(5)");
  Choose("mnuProfile");
  ExpectClearLabels();
  EXPECT_EQ(Chart().xAxis->tickVectorLabels().back(), "2640");
  // In a narrow window half of the last label stands to the right of the axis.
  Profile().resize(Profile().minimumSizeHint().width(), 500);
  QApplication::processEvents();
  ExpectClearLabels();
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
