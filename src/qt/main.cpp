// torvale: the program with its windows.
#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <iostream>
#include <string>
#include <string_view>

#include "base/paths.h"
#include "base/platform.h"
#include "base/version.h"
#include "qt/main_window.h"
#include "qt/native_look.h"
#include "qt/own_icons.h"
#include "qt/program_folder.h"
#include "qt/qt_host.h"
#include "qt/splash_window.h"
#include "qt/to_qt.h"
#include "shell/start_up.h"

namespace {

constexpr std::string_view kUsage =
    "usage: torvale [FILE]\n"
    "Opens the window, with the design FILE where one is named.\n"
    "  --help       print this and exit\n"
    "  --version    print the version and exit\n";

// What an option asks to be printed in the place of a window; no text where none does.
std::string Printed(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (argv[i] == std::string_view("--help")) return std::string(kUsage);
    if (argv[i] == std::string_view("--version")) return "torvale " + torvale::ProgramVersion() + "\n";
  }
  return "";
}

}  // namespace

int main(int argc, char** argv) {
  using namespace torvale;
  // Ahead of the toolkit, which wants a display.
  if (const std::string printed = Printed(argc, argv); !printed.empty()) {
    std::cout << printed << std::flush;
    return 0;
  }
  AskForDesktopColours();
  QApplication application(argc, argv);
  UseDesktopLook();
  QApplication::setApplicationName(ToQt(kProgramTitle));
  QApplication::setOrganizationName(ToQt(kProgramTitle));
  QApplication::setWindowIcon(OwnIcon("torvale"));
  // By this a desktop finds the icon and the menu entry of the window.
  QApplication::setDesktopFileName("torvale");
  const QString executable_folder = QApplication::applicationDirPath();
  // The rights don't tell all: a disk may only be read, a system may guard a folder of the user's against programs.
  const bool may_write = QTemporaryFile(executable_folder + "/torvale-XXXXXX").open();
  QtHost host(FindProgramFolder(executable_folder, may_write,
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
