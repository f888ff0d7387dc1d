// The tool bar as the window draws it, and the pictures of the program.
#include "shell/tool_bar.h"

#include <QToolBar>
#include <QToolButton>

#include "gui/window_test.h"
#include "qt/own_icons.h"
#include "qt/to_qt.h"
#include "screen/plain_caption.h"
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
    EXPECT_EQ(Button(key).accessibleName().toStdString(), PlainCaption(button->caption));
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

// The dots of an icon that are drawn, of 64 times 64.
int DotsOf(std::string_view name, const QColor& text) {
  QImage image(64, 64, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  PaintPicture(painter, image.rect(), name, text);
  painter.end();
  int dots = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) dots += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
  }
  return dots;
}

TEST(OwnIconsTest, EveryPictureThatIsNamedIsThere) {
  for (const ControlFacts* button : ToolButtons()) {
    EXPECT_GT(DotsOf(button->tool.icon, Qt::black), 200) << button->tool.icon;
  }
  int pictures = 0;
  for (const ControlFacts& part : SplashScreen::Rows()) {
    if (part.picture.empty()) continue;
    ++pictures;
    // The two that are nearly three times as wide as high have 1,500 of the 4,096 dots at most.
    EXPECT_GT(DotsOf(part.picture, Qt::black), 500) << part.picture;
  }
  EXPECT_EQ(pictures, 3);
  EXPECT_EQ(DotsOf("no such picture", Qt::black), 0);
}

// The sheet of "New" is 18 of 24 units high and stands in the middle of a room that is twice as wide as high. Its lines
// take the colour of the text.
TEST(OwnIconsTest, APictureStandsInTheMiddleOfItsRoom) {
  QImage image(200, 100, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintPicture(painter, image.rect(), "new", Qt::blue);
  painter.end();
  const auto drawn = [&](int x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixelColor(x, y) == QColor(Qt::blue)) return true;
    }
    return false;
  };
  for (int x : {10, 40, 60, 140, 160, 190}) EXPECT_FALSE(drawn(x)) << x;
  EXPECT_TRUE(drawn(50 + 6 * 100 / 24)) << "the left edge stands at 6 of 24 units";
}

}  // namespace
}  // namespace torvale
