#include "qt/help_window.h"

#include <QCloseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "qt/fitted_text.h"
#include "qt/scale.h"
#include "qt/to_qt.h"
#include "shell/help.h"
#include "shell/help_pages.h"
#include "shell/help_search.h"

namespace torvale {
namespace {

constexpr int kSmallestLetters = 8;  // pixels
constexpr int kLargestLetters = 48;
constexpr std::string_view kWidthKey = "HelpWidth";
constexpr std::string_view kHeightKey = "HelpHeight";

// What a page looks like beyond what its tags say, in the colours of the desktop.
QString StyleOf(const QPalette& palette) {
  const QString shade = palette.color(QPalette::AlternateBase).name();
  const QString link = palette.color(QPalette::Link).name();
  return "a { color: " + link + "; } th { background-color: " + shade +
         "; padding: 4px; text-align: left; } td { padding: 4px; } pre, code { background-color: " + shade + "; }";
}

// A length that was saved, where it is one.
int Saved(Program& program, std::string_view key, int otherwise) {
  const double saved = Val(program.host.Setting(key).value_or(""));
  constexpr int kLeast = 300;
  constexpr int kMost = 10000;
  return saved >= kLeast && saved <= kMost ? static_cast<int>(saved) : otherwise;
}

}  // namespace

HelpWindow::HelpWindow(Program& program, WindowRun run, const QWidget& beside)
    // No child of the main window: that one's panels must not hold the guide back.
    : QWidget(nullptr, Qt::Window), program_(program), run_(std::move(run)), beside_(beside) {
  setObjectName("frmHelp");
  setAttribute(Qt::WA_QuitOnClose, false);
  Build();
  MakeShortcuts();
}

void HelpWindow::Close() {
  program_.host.SaveSetting(kWidthKey, GeneralText(width()));
  program_.host.SaveSetting(kHeightKey, GeneralText(height()));
  run_([this] { CloseHelp(program_); });
}

void HelpWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Close();
}

void HelpWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && !shown_page_.empty()) {
    shown_page_.clear();
    if (!visits_.empty()) visits_[at_].scrolled = page_->verticalScrollBar()->value();
    ShowVisit();
  }
  QWidget::changeEvent(event);
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && watched != search_) {
    const auto& wheel = static_cast<QWheelEvent&>(*event);
    if (wheel.modifiers().testFlag(Qt::ControlModifier)) {
      if (wheel.angleDelta().y() != 0) SetLetters(letters_ + (wheel.angleDelta().y() > 0 ? 1 : -1));
      return true;
    }
  }
  if (event->type() == QEvent::KeyPress && watched == search_) {
    const int key = static_cast<QKeyEvent&>(*event).key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) FindNext({});
    // Down leads from the words to what they found.
    if (key == Qt::Key_Down) side_->currentWidget()->setFocus();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
  }
  return QWidget::eventFilter(watched, event);
}

void HelpWindow::FillContents() {
  contents_->clear();
  QTreeWidgetItem* group = nullptr;
  for (const HelpPage& page : program_.help.pages) {
    if (group == nullptr || group->text(0) != ToQt(page.group)) {
      group = new QTreeWidgetItem(contents_, {ToQt(page.group)});
      group->setExpanded(true);
    }
    auto* item = new QTreeWidgetItem(group, {ToQt(page.title)});
    item->setData(0, Qt::UserRole, ToQt(page.id));
    item->setToolTip(0, ToQt(page.title));
  }
}

void HelpWindow::GoTo(const QString& place) {
  if (PageAt(program_.help.pages, place.toStdString()) == nullptr) return;
  if (!visits_.empty()) {
    if (visits_[at_].place == place && !shown_page_.empty()) return page_->scrollToAnchor(place);
    visits_[at_].scrolled = page_->verticalScrollBar()->value();
    visits_.resize(at_ + 1);
  }
  visits_.push_back({place});
  at_ = visits_.size() - 1;
  ShowVisit();
  page_->verticalScrollBar()->setValue(0);
  page_->scrollToAnchor(place);
}

void HelpWindow::Step(int steps) {
  const auto to = static_cast<std::ptrdiff_t>(at_) + steps;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(visits_.size())) return;
  visits_[at_].scrolled = page_->verticalScrollBar()->value();
  at_ = static_cast<std::size_t>(to);
  ShowVisit();
}

// Draws the page of the visit unless it stands there already, as far down as it was left.
void HelpWindow::ShowVisit() {
  if (visits_.empty()) return;
  const HelpPage* page = PageAt(program_.help.pages, visits_[at_].place.toStdString());
  if (page == nullptr) return;
  if (shown_page_ != page->id) {
    page_->setSearchPaths({ToQt(program_.help.folder)});
    page_->document()->setDefaultStyleSheet(StyleOf(palette()));
    page_->setHtml(ToQt(page->html));
    shown_page_ = page->id;
    MarkInContents(page->id);
  }
  page_->verticalScrollBar()->setValue(visits_[at_].scrolled);
  back_->setEnabled(at_ > 0);
  forward_->setEnabled(at_ + 1 < visits_.size());
}

void HelpWindow::MarkInContents(const std::string& id) {
  for (QTreeWidgetItemIterator it(contents_); *it != nullptr; ++it) {
    if ((*it)->data(0, Qt::UserRole).toString().toStdString() != id) continue;
    contents_->setCurrentItem(*it);
    return;
  }
}

void HelpWindow::Search() {
  const QSignalBlocker quiet(found_);
  found_->clear();
  const QString words = search_->text().trimmed();
  side_->setCurrentWidget(words.isEmpty() ? static_cast<QWidget*>(contents_) : found_);
  if (words.isEmpty()) return;
  for (const HelpHit& hit : SearchHelp(program_.help.pages, words.toStdString())) {
    auto* item = new QListWidgetItem(ToQt(hit.page->title) + '\n' + ToQt(hit.excerpt), found_);
    item->setData(Qt::UserRole, ToQt(hit.page->id));
  }
  if (found_->count() > 0) return;
  auto* none = new QListWidgetItem("No page holds all of these words.", found_);
  none->setFlags(Qt::NoItemFlags);
}

// The next place of the words on the page; on the way from the search to the first page that it found.
void HelpWindow::FindNext(QTextDocument::FindFlags flags) {
  const QString words = search_->text().trimmed();
  if (words.isEmpty()) return search_->setFocus();
  if (search_->hasFocus() && found_->currentRow() < 0 && found_->item(0)->flags() != Qt::NoItemFlags) {
    found_->setCurrentRow(0);
  }
  if (page_->find(words, flags)) return;
  // Where the words do not stand side by side, the first of them is looked for; at the end it goes round.
  const QString word = words.section(' ', 0, 0);
  if (page_->find(word, flags)) return;
  const bool backward = flags.testFlag(QTextDocument::FindBackward);
  page_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  if (!page_->find(words, flags)) page_->find(word, flags);
}

void HelpWindow::SetLetters(int pixels) {
  letters_ = std::clamp(pixels, kSmallestLetters, kLargestLetters);
  SetTextSize(*page_, letters_);
  page_->document()->setDefaultFont(page_->font());
}

void HelpWindow::Resize() {
  const Scale scale(program_.main.zoom);
  drawn_zoom_ = program_.main.zoom;
  SetTextSize(*this, scale.Zoomed(kTextPixels));
  SetLetters(scale.Zoomed(kLetters));
  const QSize wanted(Saved(program_, kWidthKey, scale.Zoomed(kOpeningSize.width())),
                     Saved(program_, kHeightKey, scale.Zoomed(kOpeningSize.height())));
  const QRect room = beside_.screen()->availableGeometry();
  resize(wanted.boundedTo(room.size()));
  const QPoint corner = beside_.geometry().center() - rect().center();
  move(std::clamp(corner.x(), room.left(), room.right() + 1 - width()),
       std::clamp(corner.y(), room.top(), room.bottom() + 1 - height()));
}

void HelpWindow::Sync() {
  const HelpScreen& help = program_.help;
  const bool shown = help.frmHelp.visible && !program_.main.closed;
  if (shown) {
    setWindowTitle(ToQt(help.frmHelp.caption));
    if (drawn_zoom_ != program_.main.zoom) Resize();
    if (drawn_revision_ != help.revision) {
      drawn_revision_ = help.revision;
      shown_page_.clear();
      visits_.clear();
      FillContents();
      Search();
    }
  }
  if (shown != isVisible()) setVisible(shown);
  if (!shown || drawn_times_ == help.times_asked) return;
  drawn_times_ = help.times_asked;
  GoTo(ToQt(help.place));
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  page_->setFocus();
}

}  // namespace torvale
