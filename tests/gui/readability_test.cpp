// What stands on the screen can be read: on a light and on a dark desktop, small and large.
#include <QHeaderView>
#include <QImage>
#include <QMenuBar>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <map>

#include "display/grid_layout.h"
#include "gui/window_test.h"

namespace torvale {
namespace {

// Contrast of two colours from 1 to 21, by the relative luminance of the Web Content Accessibility Guidelines 2.
double Luminance(QRgb colour) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb one, QRgb other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The contrast of what is drawn in that part of a picture: of the colour that covers most of it and the one that stands
// out most. Letters are drawn with soft edges, so a single pixel in full colour is enough.
double InkContrast(const QImage& picture, const QRect& part) {
  std::map<QRgb, int> colours;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) ++colours[picture.pixel(x, y)];
  }
  const auto most = [](const auto& a, const auto& b) { return a.second < b.second; };
  const QRgb ground = std::max_element(colours.begin(), colours.end(), most)->first;
  double contrast = 1;
  for (const auto& [colour, count] : colours) contrast = std::max(contrast, Contrast(colour, ground));
  return contrast;
}

QPalette DarkPalette() {
  QPalette dark;
  const QColor text(222, 222, 222);
  const QColor window(45, 45, 48);
  const QColor base(30, 30, 30);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText}) {
    dark.setColor(role, text);
  }
  dark.setColor(QPalette::Window, window);
  dark.setColor(QPalette::Button, window);
  dark.setColor(QPalette::Base, base);
  dark.setColor(QPalette::ToolTipBase, base);
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
  dark.setColor(QPalette::Highlight, QColor(60, 120, 200));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::PlaceholderText, QColor(222, 222, 222, 160));
  return dark;
}

struct Look {
  const char* name;
  bool dark;
  int zoom;
};

// The contrast that the guidelines ask of letters. Small letters are soft all through and come out at a tenth less than
// their colour has.
constexpr double kReadable = 4.5;
constexpr double kSoftEdges = 0.9;

class ReadabilityTest : public WindowTest, public testing::WithParamInterface<Look> {
 protected:
  void SetUp() override {
    before_ = QApplication::palette();
    if (GetParam().dark) QApplication::setPalette(DarkPalette());
    WindowTest::SetUp();
    if (GetParam().zoom == 200) Choose("mnuZoomTo(5)");
    ASSERT_EQ(main().zoom, GetParam().zoom);
  }
  void TearDown() override {
    WindowTest::TearDown();
    QApplication::setPalette(before_);
  }

  static double LeastContrast() {
    return GetParam().zoom < 200 && qApp->devicePixelRatio() < 2 ? kReadable * kSoftEdges : kReadable;
  }

  // With TORVALE_PICTURES naming a folder the pictures are left there for a look.
  QImage Picture(QWidget& widget, const char* name) {
    const QImage picture = widget.grab().toImage();
    const QString folder = qEnvironmentVariable("TORVALE_PICTURES");
    if (!folder.isEmpty()) picture.save(folder + "/" + GetParam().name + Times() + "_" + name + ".png");
    return picture;
  }
  static QString Times() { return QString("x%1").arg(qApp->devicePixelRatio()); }

  // The contrast of a part of a widget, in the widget's own pixels, without `margin` pixels of frame.
  static double ContrastOf(QWidget& widget, QRect part, int margin) {
    const QImage picture = widget.grab().toImage();
    part = part.adjusted(margin, margin, -margin, -margin).intersected(widget.rect());
    const double ratio = picture.devicePixelRatio();
    return InkContrast(
        picture, QRectF(part.x() * ratio, part.y() * ratio, part.width() * ratio, part.height() * ratio).toRect());
  }

  // Every label, field and button with a text that can be seen and worked in.
  int ExpectReadableWidgets(QWidget& window) {
    int read = 0;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || !widget->isEnabled()) continue;
      QString text;
      if (auto* label = qobject_cast<QLabel*>(widget)) text = label->text();
      if (auto* field = qobject_cast<QLineEdit*>(widget)) text = field->text();
      if (auto* button = qobject_cast<QAbstractButton*>(widget)) text = button->text();
      if (text.trimmed().isEmpty()) continue;
      ++read;
      const int margin = qobject_cast<QAbstractButton*>(widget) != nullptr ? 6 : 3;
      EXPECT_GE(ContrastOf(*widget, widget->rect(), margin), LeastContrast())
          << widget->objectName().toStdString() << ": " << text.toStdString();
    }
    return read;
  }

  // The headings and the cells in view.
  int ExpectReadableCells(GridView& grid) {
    int read = 0;
    const auto expect = [&](QWidget& on, const QRect& place, const QString& text) {
      if (text.trimmed().isEmpty() || !on.rect().contains(place)) return;
      ++read;
      EXPECT_GE(ContrastOf(on, place, 3), LeastContrast())
          << grid.objectName().toStdString() << ": " << text.toStdString();
    };
    const QAbstractItemModel& model = *grid.model();
    for (int column = 0; column < model.columnCount(); ++column) {
      QHeaderView& heading = *grid.horizontalHeader();
      expect(*heading.viewport(),
             QRect(heading.sectionViewportPosition(column), 0, heading.sectionSize(column), heading.height()),
             model.headerData(column, Qt::Horizontal).toString());
      for (int row = 0; row < std::min(model.rowCount(), 30); ++row) {
        const QModelIndex cell = model.index(row, column);
        expect(*grid.viewport(), grid.visualRect(cell), cell.data().toString());
      }
    }
    return read;
  }

  void Design() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("150", "6", "++++++++++");
    Key(Sheet(), Qt::Key_F5);
    ASSERT_TRUE(Results().isVisible());
  }

 private:
  QPalette before_;
};

TEST_P(ReadabilityTest, InputScreen) {
  TypeFields("North Forty", "400", "2");
  TypeLevelLine("150", "6", "++++++++++");
  Picture(*window_, "input");
  EXPECT_GT(ExpectReadableWidgets(*window_), 10);
  EXPECT_GT(ExpectReadableCells(Sheet()), 15);
  // The grey of the labels goes with the desktop.
  EXPECT_EQ(Find<QLabel>("lblName").palette().color(QPalette::Window).lightness() < 128, GetParam().dark);
}

TEST_P(ReadabilityTest, Results) {
  Design();
  // Each colour that a flow ratio can have, selected and not.
  const Colour colours[] = {kStrongGreen, kPaleYellow, kYellow, kRed, kWhite};
  for (int i = 0; i < 10; ++i) main().Grid2.SetBack(i + 1, kResultFlowRatio, colours[i % 5]);
  main().Grid2.SetCurrent(6, 0);
  main().Grid2.SetSelection(10, 11);
  window_->Sync();
  Picture(*window_, "results");
  EXPECT_GT(ExpectReadableWidgets(*window_), 25);
  EXPECT_GT(ExpectReadableCells(Results()), 100);
  EXPECT_GT(ExpectReadableCells(static_cast<GridView&>(Find<QTableView>("GridInchesApplied"))), 10);
}

// The Summary empties its column of ratios to white, down to the last row that any table can have. On a dark desktop
// what lies past the table is as dark there as beside it.
TEST_P(ReadabilityTest, PastTheTableTheRatiosHaveNoColour) {
  Design();
  Press("cmdDesignToggle");
  ASSERT_EQ(main().cmdDesignToggle.caption, "Summary");
  const int past = 15;
  ASSERT_EQ(main().Grid2.Text(past, 0), "");
  main().Grid2.SetBack(past, kResultFlowRatio, kWhite);
  window_->Sync();
  const QImage picture = Results().viewport()->grab().toImage();
  const auto ground = [&](int column) {
    return picture.pixel((QPointF(PointOf(Results(), past, column)) * picture.devicePixelRatio()).toPoint());
  };
  EXPECT_EQ(ground(kResultFlowRatio), ground(kResultHead));
  EXPECT_EQ(qGray(ground(kResultFlowRatio)) < 128, GetParam().dark);
}

// The labels in the colours that warn.
TEST_P(ReadabilityTest, Warnings) {
  Design();
  for (Control* label : {&main().frmDisplayLbl[1], &main().frmDisplayLbl[5], &main().frmDisplayLbl[15],
                         &main().lblEffic, &main().lblActiveInactive}) {
    label->visible = true;
    label->caption = "8.88";
    label->back = label == &main().lblActiveInactive ? kPaleYellow : kYellow;
  }
  window_->Sync();
  EXPECT_GT(ExpectReadableWidgets(*window_), 25);
}

TEST_P(ReadabilityTest, Panels) {
  Choose("mnuPreference");
  Picture(*window_, "preferences");
  EXPECT_GT(ExpectReadableWidgets(Find<QWidget>("Frame1")), 20);
  Press("btnDefaultExit");
  TypeFields("North Forty", "400", "2");
  Choose("mnuManHoleSelection");
  Picture(*window_, "holes");
  EXPECT_GT(ExpectReadableWidgets(Find<QWidget>("frameHoleSelection")), 5);
}

TEST_P(ReadabilityTest, ProfileAndSoils) {
  Choose("mnuSoils_and_Furrow");
  auto& soils = static_cast<GridView&>(Find<QTableView>("Grd_Soils_FurrowFlow"));
  Picture(*soils.window(), "soils");
  EXPECT_GT(ExpectReadableCells(soils), 10);
  Choose("MnuExit");
  Design();
  Choose("mnuProfile");
  auto& profile = Find<QWidget>("CrownProfile");
  Picture(profile, "profile");
  EXPECT_GT(ExpectReadableWidgets(profile), 3);
}

INSTANTIATE_TEST_SUITE_P(Looks, ReadabilityTest,
                         testing::Values(Look{"light100", false, 100}, Look{"dark100", true, 100},
                                         Look{"light200", false, 200}, Look{"dark200", true, 200}),
                         [](const auto& info) { return std::string(info.param.name); });

// A desktop that scales everything by two, in a program of its own, since the factor is read at start.
TEST(Readability, OnADesktopOfTwiceTheScale) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_SCALE_FACTOR", "2");
  environment.remove("GTEST_OUTPUT");
  program.setProcessEnvironment(environment);
  program.setProcessChannelMode(QProcess::MergedChannels);
  program.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=Looks/ReadabilityTest.*100:ScreenTest.EveryVisibleControlStandsInItsPlace"});
  ASSERT_TRUE(program.waitForFinished(120000));
  const std::string said = program.readAll().toStdString();
  EXPECT_EQ(program.exitCode(), 0) << said;
  EXPECT_NE(said.find("13 tests"), std::string::npos) << said;
}

}  // namespace
}  // namespace torvale
