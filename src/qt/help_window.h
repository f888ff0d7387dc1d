#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QWidget>
#include <vector>

#include "qt/scale.h"
#include "qt/window_run.h"
#include "screen/program.h"

namespace torvale {

// The guide in a window of its own: contents or what a search found on the left, the page on the right. It shows the
// pages and the place of `Program::help`; which page the reader has turned to since is its own affair.
class HelpWindow final : public QWidget {
 public:
  // What closes the window is worked on inside `run`, which brings all windows up to date afterwards.
  // The window opens over the middle of `beside`.
  HelpWindow(Program& program, WindowRun run, const QWidget& beside);

  // Applies what changed in the structure since the last call.
  void Sync();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Visit {
    QString place;
    int scrolled = 0;  // where the page stood when the reader left it
  };

  static constexpr QSize kOpeningSize{980, 680};    // pixels at 100 percent
  static constexpr int kLetters = kTextPixels + 2;  // of the page, the same

  // Building
  void Build();
  QWidget* MakeBar();
  QWidget* MakeSide();
  QWidget* MakePage();
  void ConnectPlaces();
  void MakeShortcuts();

  void Close();
  void Resize();

  void FillContents();
  void GoTo(const QString& place);
  void Step(int steps);
  void ShowVisit();
  void MarkInContents(const std::string& id);
  void Search();
  void FindNext(QTextDocument::FindFlags flags);
  void SetLetters(int pixels);

  Program& program_;
  WindowRun run_;
  const QWidget& beside_;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  QLineEdit* search_ = nullptr;
  QStackedWidget* side_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QListWidget* found_ = nullptr;
  QTextBrowser* page_ = nullptr;
  std::vector<Visit> visits_;
  std::size_t at_ = 0;
  std::string shown_page_;
  std::uint64_t drawn_revision_ = 0;
  std::uint64_t drawn_times_ = 0;
  int drawn_zoom_ = 0;
  int letters_ = 0;  // pixels
};

}  // namespace torvale
