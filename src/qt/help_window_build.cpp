// The part of the guide's window that is done once: widgets and keys.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

#include "qt/help_window.h"
#include "qt/scale.h"

namespace torvale {
namespace {

constexpr int kSideWidth = 270;  // pixels at 100 percent
constexpr int kMargin = 10;
constexpr int kItemSpacing = 3;

}  // namespace

QWidget* HelpWindow::MakeBar() {
  auto* bar = new QWidget(this);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, Qt::ArrowType arrow, const char* tip, int steps) {
    auto* made = new QToolButton(bar);
    made->setObjectName(name);
    made->setArrowType(arrow);
    made->setAutoRaise(true);
    made->setToolTip(tip);
    made->setAccessibleName(tip);
    connect(made, &QToolButton::clicked, this, [this, steps] { Step(steps); });
    row->addWidget(made);
    return made;
  };
  back_ = button("cmdHelpBack", Qt::LeftArrow, "Back (Alt+Left)", -1);
  forward_ = button("cmdHelpForward", Qt::RightArrow, "Forward (Alt+Right)", 1);
  search_ = new QLineEdit(bar);
  search_->setObjectName("txtHelpSearch");
  search_->setAccessibleName("Search the guide");
  search_->setPlaceholderText("Search the guide (Ctrl+F)");
  search_->setToolTip("Pages that hold all of the words. Enter goes to the first, F3 to the next place on the page.");
  search_->setClearButtonEnabled(true);
  row->addWidget(search_, 1);
  connect(search_, &QLineEdit::textChanged, this, [this] { Search(); });
  return bar;
}

// The contents, or what a search found.
QWidget* HelpWindow::MakeSide() {
  side_ = new QStackedWidget(this);
  contents_ = new QTreeWidget(side_);
  contents_->setObjectName("treeHelpContents");
  contents_->setAccessibleName("Contents");
  contents_->header()->hide();
  found_ = new QListWidget(side_);
  found_->setObjectName("listHelpFound");
  found_->setAccessibleName("Pages found");
  found_->setWordWrap(true);
  found_->setAlternatingRowColors(true);
  found_->setSpacing(kItemSpacing);
  side_->addWidget(contents_);
  side_->addWidget(found_);
  return side_;
}

QWidget* HelpWindow::MakePage() {
  page_ = new QTextBrowser(this);
  page_->setObjectName("txtHelpPage");
  page_->setAccessibleName("Page");
  // The guide never leaves itself: what a link names outside it is not opened.
  page_->setOpenLinks(false);
  page_->document()->setDocumentMargin(kMargin);
  page_->viewport()->installEventFilter(this);
  return page_;
}

void HelpWindow::Build() {
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(MakeBar());
  auto* halves = new QSplitter(this);
  rows->addWidget(halves, 1);
  halves->addWidget(MakeSide());
  halves->addWidget(MakePage());
  halves->setSizes({kSideWidth, kOpeningSize.width() - kSideWidth});
  halves->setStretchFactor(1, 1);
  search_->installEventFilter(this);
  ConnectPlaces();
}

void HelpWindow::ConnectPlaces() {
  const auto go = [this](const QVariant& place) {
    if (place.isValid()) GoTo(place.toString());
  };
  const auto go_to_item = [go](QTreeWidgetItem* item) { go(item->data(0, Qt::UserRole)); };
  connect(contents_, &QTreeWidget::itemClicked, this, go_to_item);
  connect(contents_, &QTreeWidget::itemActivated, this, go_to_item);
  connect(found_, &QListWidget::currentItemChanged, this, [go](QListWidgetItem* item) {
    if (item != nullptr) go(item->data(Qt::UserRole));
  });
  connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (link.path().isEmpty() && link.host().isEmpty()) GoTo(link.fragment());
  });
}

void HelpWindow::MakeShortcuts() {
  const auto key = [this](const QKeySequence& sequence, auto work) {
    connect(new QShortcut(sequence, this), &QShortcut::activated, this, work);
  };
  const auto search = [this] {
    search_->setFocus();
    search_->selectAll();
  };
  key(QKeySequence("Ctrl+F"), search);
  key(QKeySequence("Escape"), [this] { Close(); });
  key(QKeySequence("Ctrl+W"), [this] { Close(); });
  key(QKeySequence("Alt+Left"), [this] { Step(-1); });
  key(QKeySequence("Alt+Right"), [this] { Step(1); });
  key(QKeySequence("F1"), [this] { GoTo("contents"); });
  key(QKeySequence("F3"), [this] { FindNext({}); });
  key(QKeySequence("Shift+F3"), [this] { FindNext(QTextDocument::FindBackward); });
  key(QKeySequence("Ctrl++"), [this] { SetLetters(letters_ + 1); });
  key(QKeySequence("Ctrl+="), [this] { SetLetters(letters_ + 1); });
  key(QKeySequence("Ctrl+-"), [this] { SetLetters(letters_ - 1); });
  key(QKeySequence("Ctrl+0"), [this] { SetLetters(Scale(program_.main.zoom).Zoomed(kLetters)); });
  for (QWidget* where : std::initializer_list<QWidget*>{contents_, found_, page_}) {
    auto* slash = new QShortcut(QKeySequence("/"), where);
    slash->setContext(Qt::WidgetShortcut);
    connect(slash, &QShortcut::activated, this, search);
  }
}

}  // namespace torvale
