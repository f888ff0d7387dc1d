// The tool bar as the window draws it.
#include "shell/tool_bar.h"

#include <QToolBar>
#include <QToolButton>

#include "gui/window_test.h"
#include "qt/vector_picture.h"
#include "shell/commands.h"

namespace torvale {
namespace {

class ToolBarTest : public WindowTest {
 protected:
  QToolButton& Button(std::string_view key) { return Find<QToolButton>(ToolButtonName(key).c_str()); }

  void SetUp() override {
    palette_ = QApplication::palette();
    WindowTest::SetUp();
  }
  void TearDown() override {
    QApplication::setPalette(palette_);
    WindowTest::TearDown();
  }

  QPalette palette_;
};

// Mean lightness of the dots of an icon that are drawn, 0 to 255.
double Lightness(const QImage& icon) {
  double sum = 0;
  double weight = 0;
  for (int y = 0; y < icon.height(); ++y) {
    for (int x = 0; x < icon.width(); ++x) {
      const QColor dot = icon.pixelColor(x, y);
      sum += static_cast<double>(dot.alphaF()) * dot.lightness();
      weight += static_cast<double>(dot.alphaF());
    }
  }
  EXPECT_GT(weight, 20) << "nothing is drawn";
  return sum / weight;
}

TEST_F(ToolBarTest, ShowsTheButtonsThatDoSomething) {
  for (const ControlFacts* button : ToolButtons()) {
    const std::string_view key = button->tool.key;
    const QString name = QString::fromStdString(ToolButtonName(key));
    const bool works = HasToolCommand(*button);
    EXPECT_EQ(window_->findChild<QToolButton*>(name) != nullptr, works) << key;
    if (!works) continue;
    EXPECT_TRUE(Button(key).isVisible()) << key;
    EXPECT_EQ(Button(key).accessibleName().toStdString(), SpokenNameOf(*button));
    EXPECT_TRUE(Button(key).toolTip().contains(ToQt(ToolTipOf(*button)))) << key;
  }
  EXPECT_TRUE(Button("Save").toolTip().contains("(Ctrl+S)")) << Button("Save").toolTip().toStdString();
}

TEST_F(ToolBarTest, AButtonLeavesTheKeyboardWhereItIs) {
  Info(4).setFocus();
  QTest::mouseClick(&Button("PrintSummary"), Qt::LeftButton);
  EXPECT_EQ(QApplication::focusWidget(), &Info(4));
  EXPECT_EQ(Find<QLabel>("sbStatusBar").text(), "There are no results to print: run a design first.");
  Type(Info(4), "West");
  EXPECT_EQ(main().txtInfo[4].text(), "West");
}

TEST_F(ToolBarTest, NewClearsTheFields) {
  Info(0).setFocus();
  Type(Info(0), "North Forty");
  QTest::mouseClick(&Button("New"), Qt::LeftButton);
  EXPECT_EQ(Info(0).text(), "");
}

TEST_F(ToolBarTest, IsPaleWhileItsMenuIsLocked) {
  main().mnuFile.enabled = false;
  window_->Sync();
  EXPECT_FALSE(Button("Save").isEnabled());
  EXPECT_FALSE(Button("PrintSummary").isEnabled());
  main().mnuFile.enabled = true;
  window_->Sync();
  EXPECT_TRUE(Button("Save").isEnabled());
}

TEST_F(ToolBarTest, IconsFollowTheTextColourOfThePalette) {
  const QIcon icon = Button("Save").icon();
  QPalette palette = palette_;
  palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::black);
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(160, 160, 160));
  QApplication::setPalette(palette);
  EXPECT_LT(Lightness(icon.pixmap(24).toImage()), 20);
  EXPECT_NEAR(Lightness(icon.pixmap(24, QIcon::Disabled).toImage()), 160, 10);
  palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::white);
  QApplication::setPalette(palette);
  EXPECT_GT(Lightness(icon.pixmap(24).toImage()), 235);
}

TEST_F(ToolBarTest, GrowsWithTheZoom) {
  const int small = Button("Save").iconSize().width();
  Choose("mnuZoomTo(5)");  // 200 percent
  EXPECT_EQ(Button("Save").iconSize().width(), 2 * small);
}

// The bar makes the window higher, so that a window of the usual size still shows all of the screen.
TEST_F(ToolBarTest, TheUsualWindowShowsAllOfTheScreen) {
  main().frameShowLimitedHoles.visible = true;  // reaches farthest to the right and down
  window_->Sync();
  const auto& canvas = Find<QWidget>("canvas");
  const QSize room = canvas.parentWidget()->size();
  EXPECT_GE(room.width(), canvas.width());
  EXPECT_GE(room.height(), canvas.height());
}

TEST(VectorPictureTest, ReadsEveryPictureOfTheProgram) {
  for (const ControlFacts* button : ToolButtons()) {
    EXPECT_GE(OwnPicture(button->tool.icon).shapes.size(), 2U) << button->tool.icon;
  }
  const VectorPicture icon = OwnPicture("torvale");
  EXPECT_EQ(icon.view, QRectF(0, 0, 64, 64));
  EXPECT_GE(icon.shapes.size(), 10U);
}

TEST(VectorPictureTest, DrawsShapesWhereTheyStand) {
  const auto picture = ReadPicture(
      "<svg viewBox='0 0 10 10' fill='none'><title>t</title><rect x='0' y='0' width='5' height='10' fill='#ff0000'/>"
      "<path d='M6 1H9V4H6Z' fill='currentColor'/><circle cx='7.5' cy='8' r='1.5' stroke='#0000ff'/></svg>");
  ASSERT_TRUE(picture);
  ASSERT_EQ(picture->shapes.size(), 3U);
  QImage image(100, 100, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintPicture(painter, image.rect(), *picture, Qt::green);
  painter.end();
  EXPECT_EQ(image.pixelColor(25, 50), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(75, 25), QColor(Qt::green));
  EXPECT_EQ(image.pixelColor(75, 80), QColor(Qt::white)) << "the circle is not filled";
  EXPECT_EQ(image.pixelColor(90, 80), QColor(Qt::blue)) << "its line is one unit wide";
  EXPECT_EQ(image.pixelColor(55, 50), QColor(Qt::white));
}

TEST(VectorPictureTest, RefusesWhatItCannotDraw) {
  for (const char* text :
       {"", "text", "<html/>", "<svg/>", "<svg viewBox='0 0 1'/>", "<svg viewBox='0 0 1 1'><text/></svg>",
        "<svg viewBox='0 0 1 1'><path d='M0 0 A1 1'/></svg>", "<svg viewBox='0 0 1 1'><path d='M0'/></svg>",
        "<svg viewBox='0 0 1 1'><circle cx='a' cy='0' r='1'/></svg>",
        "<svg viewBox='0 0 1 1'><rect x='0' y='0' width='1' height='1' fill='url(#a)'/></svg>",
        "<svg viewBox='0 0 1 1'><path d='M0 0'/>"}) {
    EXPECT_FALSE(ReadPicture(text)) << text;
  }
}

}  // namespace
}  // namespace torvale
