// The one application object that all tests of the window share.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryFile>

// An office display: the platform without a display would take one that is smaller than the window.
constexpr char kScreen[] = R"({
  "windowFrameMargins": false,
  "screens": [{"name": "test", "x": 0, "y": 0, "width": 1920, "height": 1200,
               "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]
})";

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QTemporaryFile screen;
  if (!screen.open()) return 1;
  screen.write(kScreen);
  screen.close();
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.isEmpty() || platform == "offscreen") {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  }
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
