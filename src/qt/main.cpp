#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include "base/paths.h"
#include "base/platform.h"
#include "qt/main_window.h"
#include "qt/own_icons.h"
#include "qt/program_folder.h"
#include "qt/qt_host.h"
#include "qt/scale.h"
#include "qt/splash_window.h"
#include "shell/start_up.h"

int main(int argc, char** argv) {
  using namespace torvale;
  QApplication application(argc, argv);
  QApplication::setApplicationName(ToQt(kProgramTitle));
  QApplication::setOrganizationName(ToQt(kProgramTitle));
  QApplication::setWindowIcon(OwnIcon("torvale"));
  // By this a desktop finds the icon and the menu entry of the window.
  QApplication::setDesktopFileName("torvale");
  QtHost host(FindProgramFolder(QApplication::applicationDirPath(),
                                QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)),
              QString::fromStdString(Utf8Of(UserDataFolder())));
  Program program(host);
  StartProgram(program);
  MainWindow window(program);
  host.Attach(
      &window, [&] { window.Sync(); }, [&](const std::string& body) { window.ExplainMessage(body); });
  SplashWindow splash(program, [&] {
    window.Open();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1) window.OpenDesign(QFileInfo(arguments[1]).absoluteFilePath());
  });
  splash.Open();
  return QApplication::exec();
}
