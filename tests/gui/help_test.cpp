// The window of the guide, and F1 from every window of the program.
#include "shell/help.h"

#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>

#include "gui/window_test.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

class HelpTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    QFile::copy(QString(kSourceFolder) + "/data/TORVALEHELP.hlp", data_.filePath("TORVALEHELP.hlp"));
    QDir(data_.path()).mkdir("help");
    for (const QFileInfo& picture : QDir(QString(kSourceFolder) + "/data/help").entryInfoList(QDir::Files)) {
      QFile::copy(picture.filePath(), data_.filePath("help/" + picture.fileName()));
    }
  }

  static QWidget* Guide() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "frmHelp") return window;
    }
    return nullptr;
  }
  template <typename Widget>
  static Widget& In(const char* name) {
    auto* widget = Guide()->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return *widget;
  }
  static QTextBrowser& Page() { return In<QTextBrowser>("txtHelpPage"); }
  // The first line of the page: its title.
  static std::string Title() { return Page().document()->firstBlock().text().toStdString(); }
  void OpenContents() {
    Choose("mnuHelpContents");
    ASSERT_TRUE(Guide()->isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(Guide()));
  }
  // F1 on a widget; what the program was asked for.
  std::string Asked(QWidget& on) {
    on.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == on.window(); }));
    on.setFocus();
    Key(on, Qt::Key_F1);
    EXPECT_TRUE(Guide()->isVisible());
    return program_->help.place;
  }
};

TEST_F(HelpTest, ShowsContentsAndPage) {
  EXPECT_FALSE(Guide()->isVisible());
  OpenContents();
  EXPECT_EQ(Title(), "Contents");
  const auto& tree = In<QTreeWidget>("treeHelpContents");
  EXPECT_EQ(tree.topLevelItem(0)->text(0), "Getting started");
  int pages = 0;
  for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it != nullptr; ++it) {
    if ((*it)->childCount() > 0) continue;
    ++pages;
    emit In<QTreeWidget>("treeHelpContents").itemClicked(*it, 0);
    EXPECT_EQ(Title(), (*it)->text(0).toStdString());
  }
  EXPECT_EQ(pages, static_cast<int>(program_->help.pages.size()));
}

TEST_F(HelpTest, F1OpensThePageOfTheField) {
  EXPECT_EQ(Asked(Info(2)), "field-gpm");
  EXPECT_EQ(Title(), "The six fields");
  EXPECT_GT(Page().verticalScrollBar()->value(), 0) << "the page stands at its top";
  EXPECT_EQ(Asked(Sheet()), "col-station");
  EXPECT_EQ(Asked(Find<QPushButton>("cmdInterpolate")), "survey");
}

TEST_F(HelpTest, F1WorksInPanelsAndOtherWindows) {
  Choose("mnuPreference");
  EXPECT_EQ(Asked(Find<QLineEdit>("txtDefault(3)")), "preferences");
  Press("btnDefaultExit");
  Choose("mnuSoils_and_Furrow");
  EXPECT_EQ(Asked(Find<QTableView>("Grd_Soils_FurrowFlow")), "soils");
  Choose("MnuExit");
  main().frameHoleSelection.visible = true;
  window_->Sync();
  EXPECT_EQ(Asked(Find<QListWidget>("listAllHoles")), "hole-selection");
  main().frameHoleSelection.visible = false;
  TypeFields("North Forty", "400", "2");
  TypeLevelLine("300", "6", "++++++++++");
  Choose("mnuDesignField");
  EXPECT_EQ(Asked(Results()), "results");
  Choose("mnuProfile");
  EXPECT_EQ(Asked(Find<QPushButton>("btnBack")), "profile");
  EXPECT_EQ(Title(), "Crown profile");
}

TEST_F(HelpTest, F1OnAnOpenMenuTellsOfItsEntry) {
  auto* menu = Find<QAction>("mnuTypeOfPipe").menu();
  menu->popup(QPoint(50, 50));
  menu->setActiveAction(&Find<QAction>("mnuRigidPipe"));
  Key(*menu, Qt::Key_F1);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(program_->help.place, "pipe");
  EXPECT_EQ(Title(), "Type of pipe");
}

TEST_F(HelpTest, LinksAndHistory) {
  OpenContents();
  auto& back = In<QToolButton>("cmdHelpBack");
  auto& forward = In<QToolButton>("cmdHelpForward");
  EXPECT_FALSE(back.isEnabled());
  emit Page().anchorClicked(QUrl("#soils"));
  EXPECT_EQ(Title(), "Soils and recommended furrow flow");
  emit Page().anchorClicked(QUrl("#keys"));
  EXPECT_EQ(Title(), "All keys");
  Key(Page(), Qt::Key_Left, 1, Qt::AltModifier);
  EXPECT_EQ(Title(), "Soils and recommended furrow flow");
  EXPECT_TRUE(forward.isEnabled());
  back.click();
  EXPECT_EQ(Title(), "Contents");
  EXPECT_FALSE(back.isEnabled());
  Key(Page(), Qt::Key_Right, 1, Qt::AltModifier);
  EXPECT_EQ(Title(), "Soils and recommended furrow flow");
  // What was ahead is forgotten when the reader turns elsewhere.
  emit Page().anchorClicked(QUrl("#files"));
  EXPECT_FALSE(forward.isEnabled());
}

TEST_F(HelpTest, ALinkToElsewhereGoesNowhere) {
  OpenContents();
  for (const char* link : {"elsewhere.html", "scheme://host/#soils", "file:///soils", "#no-such-page", ""}) {
    emit Page().anchorClicked(QUrl(link));
    EXPECT_EQ(Title(), "Contents") << link;
  }
}

TEST_F(HelpTest, SearchListsPagesAndEnterOpensTheFirst) {
  OpenContents();
  auto& search = In<QLineEdit>("txtHelpSearch");
  auto& found = In<QListWidget>("listHelpFound");
  Key(Page(), Qt::Key_F, 1, Qt::ControlModifier);
  EXPECT_TRUE(search.hasFocus());
  Type(search, "crown profile");
  EXPECT_TRUE(found.isVisible());
  EXPECT_FALSE(In<QTreeWidget>("treeHelpContents").isVisible());
  ASSERT_GT(found.count(), 1);
  EXPECT_TRUE(found.item(0)->text().startsWith("Crown profile\n")) << found.item(0)->text().toStdString();
  Key(search, Qt::Key_Return);
  EXPECT_EQ(Title(), "Crown profile");
  EXPECT_EQ(Page().textCursor().selectedText().toLower(), "crown profile");
  const int first = Page().textCursor().position();
  Key(Page(), Qt::Key_F3);
  EXPECT_NE(Page().textCursor().position(), first);
  search.clear();
  EXPECT_TRUE(In<QTreeWidget>("treeHelpContents").isVisible());
  Type(search, "xyzzy");
  ASSERT_EQ(found.count(), 1);
  EXPECT_EQ(found.item(0)->text(), "No page holds all of these words.");
  Key(search, Qt::Key_Return);
  EXPECT_EQ(Title(), "Crown profile");
}

TEST_F(HelpTest, ASlashLeadsToTheSearchAndDownToWhatItFound) {
  OpenContents();
  Page().setFocus();
  Key(Page(), Qt::Key_Slash);
  auto& search = In<QLineEdit>("txtHelpSearch");
  EXPECT_TRUE(search.hasFocus());
  EXPECT_EQ(search.text(), "");
  Type(search, "mil/");
  EXPECT_EQ(search.text(), "mil/");
  search.setText("mil");
  Key(search, Qt::Key_Down);
  EXPECT_TRUE(In<QListWidget>("listHelpFound").hasFocus());
}

TEST_F(HelpTest, PicturesAreShown) {
  OpenContents();
  emit Page().anchorClicked(QUrl("#screen"));
  const QVariant picture = Page().loadResource(QTextDocument::ImageResource, QUrl("help/screen.png"));
  const bool loaded = !picture.value<QImage>().isNull() || !QImage::fromData(picture.toByteArray()).isNull();
  EXPECT_TRUE(loaded);
}

TEST_F(HelpTest, LettersGrowAndShrink) {
  OpenContents();
  const int size = Page().font().pixelSize();
  Key(Page(), Qt::Key_Plus, 2, Qt::ControlModifier);
  EXPECT_EQ(Page().font().pixelSize(), size + 2);
  Key(Page(), Qt::Key_Minus, 1, Qt::ControlModifier);
  EXPECT_EQ(Page().font().pixelSize(), size + 1);
  Key(Page(), Qt::Key_0, 1, Qt::ControlModifier);
  EXPECT_EQ(Page().font().pixelSize(), size);
  QWheelEvent wheel(QPointF(50, 50), Page().viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                    Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Page().viewport(), &wheel);
  EXPECT_EQ(Page().font().pixelSize(), size + 1);
}

TEST_F(HelpTest, EscapeClosesItAndItsSizeIsRemembered) {
  OpenContents();
  Guide()->resize(720, 540);
  Key(Page(), Qt::Key_Escape);
  EXPECT_FALSE(Guide()->isVisible());
  EXPECT_FALSE(program_->help.frmHelp.visible);
  EXPECT_FALSE(main().closed);
  End();
  Start();
  OpenContents();
  EXPECT_EQ(Guide()->size(), QSize(720, 540));
  window_->close();
  EXPECT_FALSE(Guide()->isVisible());
}

TEST_F(HelpTest, FollowsADarkPalette) {
  OpenContents();
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  dark.setColor(QPalette::AlternateBase, QColor(50, 50, 50));
  dark.setColor(QPalette::Link, QColor(120, 180, 255));
  QApplication::setPalette(dark);
  QApplication::processEvents();
  const QImage page = Page().viewport()->grab().toImage();
  EXPECT_EQ(page.pixelColor(page.width() - 3, 3), QColor(30, 30, 30));
  EXPECT_TRUE(Page().toHtml().contains("#78b4ff")) << "links keep the old colour";
  QApplication::setPalette(before);
}

TEST_F(HelpTest, AMissingFileIsTold) {
  QFile::remove(data_.filePath("TORVALEHELP.hlp"));
  AnswerNextBox(QMessageBox::Ok);
  Choose("mnuHelpContents");
  EXPECT_EQ(box_text_, "The help File is missing.");
  EXPECT_FALSE(Guide()->isVisible());
}

}  // namespace
}  // namespace torvale
