// The splash screen as a window, and the About box.
#include "shell/splash.h"

#include <QElapsedTimer>

#include "gui/window_test.h"
#include "qt/splash_window.h"

namespace torvale {
namespace {

class SplashTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    window_->hide();
    splash_ = std::make_unique<SplashWindow>(*program_, [this] {
      ++closed_;
      window_->Open();
    });
    splash_->Open();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(splash_.get()));
  }
  void TearDown() override {
    splash_.reset();
    WindowTest::TearDown();
  }
  void ExpectClosed() {
    EXPECT_EQ(closed_, 1);
    EXPECT_FALSE(splash_->isVisible());
    EXPECT_FALSE(program_->splash.Form.visible);
    EXPECT_TRUE(window_->isVisible());
  }

  std::unique_ptr<SplashWindow> splash_;
  int closed_ = 0;
};

TEST_F(SplashTest, ShowsEveryTextWhole) {
  EXPECT_FALSE(window_->isVisible());
  int seen = 0;
  for (const auto* label : splash_->findChildren<QLabel*>()) {
    EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    EXPECT_GE(label->height(), label->sizeHint().height()) << label->text().toStdString();
    EXPECT_TRUE(splash_->rect().contains(label->geometry())) << label->text().toStdString();
    ++seen;
  }
  // All but the window, its frame and the three pictures.
  EXPECT_EQ(seen, 10);
}

TEST_F(SplashTest, ClosesAfterTwoSeconds) {
  QElapsedTimer time;
  time.start();
  QTest::qWait(kSplashMilliseconds / 2);
  EXPECT_TRUE(splash_->isVisible());
  EXPECT_EQ(closed_, 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return closed_ > 0; }, 5000));
  EXPECT_GE(time.elapsed(), kSplashMilliseconds - 120);
  ExpectClosed();
}

TEST_F(SplashTest, AClickOnItClosesItAtOnce) {
  QTest::mouseClick(splash_.get(), Qt::LeftButton, {}, QPoint(5, 5));
  ExpectClosed();
  // The two seconds are over without a second closing.
  QTest::qWait(kSplashMilliseconds + 200);
  ExpectClosed();
}

TEST_F(SplashTest, AClickOnATextClosesIt) {
  auto* label = splash_->findChild<QLabel*>("lblProductDescription");
  ASSERT_NE(label, nullptr);
  QTest::mouseClick(label, Qt::LeftButton);
  ExpectClosed();
}

TEST_F(SplashTest, AnyKeyClosesIt) {
  QTest::keyClick(splash_.get(), Qt::Key_Space);
  ExpectClosed();
}

TEST_F(SplashTest, ClosingTheWindowGoesOnToo) {
  splash_->close();
  ExpectClosed();
}

TEST_F(SplashTest, DrawsItsPictures) {
  const QImage image = splash_->grab().toImage();
  const Scale scale(100);
  for (const Control* picture : {&program_->splash.imgLogo, &program_->splash.Image1, &program_->splash.Image2}) {
    const QRect room = scale.Rect(picture->place);
    const QColor back = image.pixelColor(2, 2);
    int drawn = 0;
    for (int y = room.top(); y < room.bottom(); ++y) {
      for (int x = room.left(); x < room.right(); ++x) drawn += image.pixelColor(x, y) != back ? 1 : 0;
    }
    EXPECT_GT(drawn, room.width() * room.height() / 5);
  }
}

class AboutBoxTest : public WindowTest {};

TEST_F(AboutBoxTest, ShowsItsLinesOneBelowTheOther) {
  int lines_shown = 0;
  QTimer::singleShot(0, qApp, [&lines_shown] {
    const auto* label = QApplication::activeModalWidget()->findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(label, nullptr);
    lines_shown = label->height() / label->fontMetrics().lineSpacing();
  });
  AnswerNextBox(QMessageBox::Ok);
  Choose("mnuHelpAbout");
  EXPECT_EQ(lines_shown, 9) << "a line is broken";
  const QStringList lines = QString::fromStdString(box_text_).split('\n');
  ASSERT_EQ(lines.size(), 9);
  EXPECT_EQ(lines[1], "Revised January 2012");
  EXPECT_EQ(lines[5], "&expressed or implied, is made as to the accuracy and functionality of");
  EXPECT_FALSE(QString::fromStdString(box_text_).contains('\r'));
  EXPECT_EQ(box_title_, "TORVALE");
}

}  // namespace
}  // namespace torvale
