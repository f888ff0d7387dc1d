// Takes the pictures of the guide: replays a script in the real window and grabs it where the script says so.
//
//   torvale_pictures DATA_FOLDER OUT_FOLDER SCRIPT...
//
// A script's comment "#picture NAME WHAT [LEFT TOP WIDTH HEIGHT]" takes the picture OUT_FOLDER/NAME.png; WHAT is
// `window`, `soils`, `versions`, the name of a menu (dropped down) or of a widget, the numbers cut a part out of it, in
// pixels. "#report NAME KIND" writes
// the report `summary`, `complete` or `hole_summary` to OUT_FOLDER/NAME.pdf.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <fstream>
#include <iostream>
#include <sstream>

#include "qt/main_window.h"
#include "qt/qt_host.h"
#include "reports/design_reports.h"
#include "reports/hole_summary_report.h"
#include "script/runner.h"
#include "script/statements.h"

namespace torvale {
namespace {

constexpr int kUsage = 2;
constexpr QSize kWindow(1046, 700);

class Photographer {
 public:
  Photographer(Session& session, MainWindow& window, QString folder)
      : session_(session), window_(window), folder_(std::move(folder)) {}

  // False where the order can't be carried out.
  bool Obey(const std::string& order) {
    std::istringstream words(order);
    std::string verb;
    std::string name;
    std::string what;
    words >> verb >> name >> what;
    const QString path = folder_ + "/" + QString::fromStdString(name);
    if (verb == "#report") return WriteReport(what, path + ".pdf");
    QWidget* widget = WidgetOf(what);
    if (verb != "#picture" || widget == nullptr) return false;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    const bool part = static_cast<bool>(words >> left >> top >> width >> height);
    return widget->grab(part ? QRect(left, top, width, height) : widget->rect()).save(path + ".png");
  }

 private:
  // The widget, drawn as things stand.
  QWidget* WidgetOf(const std::string& what) {
    window_.resize(kWindow);
    window_.Sync();
    QTest::qWait(100);
    if (what == "window") return &window_;
    if (what == "soils") return window_.findChild<QWidget*>("Grd_Soils_FurrowFlow")->window();
    if (what == "versions") return window_.findChild<QWidget*>("Grd_EarlierVersions")->window();
    if (QAction* entry = window_.findChild<QAction*>(QString::fromStdString(what)); entry != nullptr && entry->menu()) {
      entry->menu()->popup({0, 0});
      return entry->menu();
    }
    return window_.findChild<QWidget*>(QString::fromStdString(what));
  }

  bool WriteReport(const std::string& kind, const QString& path) {
    QtHost host("");
    Program& program = session_.program;
    if (kind == "summary") return host.WritePdf(SummaryReport(program), path.toStdString()).error == 0;
    if (kind == "complete") return host.WritePdf(CompleteReport(program), path.toStdString()).error == 0;
    if (kind == "hole_summary") return host.WritePdf(HoleSummaryReport(program), path.toStdString()).error == 0;
    return false;
  }

  Session& session_;
  MainWindow& window_;
  QString folder_;
};

// Replays the script; false, with a word on standard error, where it can't be.
bool Replay(const std::string& data_folder, const QString& out_folder, const std::string& path) {
  std::ifstream file(path);
  std::ostringstream transcript;
  Session session(transcript, data_folder);
  MainWindow window(session.program);
  window.Open();
  Photographer photographer(session, window, out_folder);
  ScriptLines lines(file);
  for (std::string line; lines.Next(line);) {
    if (line.starts_with("#picture ") || line.starts_with("#report ")) {
      if (photographer.Obey(line)) continue;
      std::cerr << path << ": line " << lines.number() << ": " << line << '\n';
      return false;
    }
    RunStatement(session, line, lines);
  }
  return lines.number() > 0;
}

}  // namespace
}  // namespace torvale

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 4) {
    std::cerr << "usage: torvale_pictures DATA_FOLDER OUT_FOLDER SCRIPT...\n";
    return torvale::kUsage;
  }
  for (const QString& script : arguments.mid(3)) {
    if (!torvale::Replay(arguments[1].toStdString(), arguments[2], script.toStdString())) return 1;
  }
  return 0;
}
