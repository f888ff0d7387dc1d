// The stakes, the pink and the grey cells, and the picture for a phone, with real keys in real windows.
#include <QFileDialog>
#include <QImage>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QTableView>

#include "gui/pdf_pages.h"
#include "qt/document_painter.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "window_test.h"

namespace torvale {
namespace {

struct StakesWindowTest : WindowTest {
  QWidget& Window() { return *Find<QTableView>("Grd_Stakes").window(); }
  QString Cell(const char* grid, int row, int column) {
    return Find<QTableView>(grid).model()->index(row - 1, column).data().toString();
  }
  QString TipOf(int row, int column) {
    return Sheet().model()->index(row - 1, column).data(Qt::ToolTipRole).toString();
  }
  void Fill(int row, std::initializer_list<const char*> cells) {
    int column = 0;
    for (const char* cell : cells) main().Grid1.Set(row, column++, cell);
  }
  // A crown that dips, graded to one slope.
  void Design() {
    TypeText(*program_, "txtInfo(2)", "6.6");
    TypeText(*program_, "txtInfo(3)", "2");
    TypeText(*program_, "txtInfo(5)", "E");
    Fill(1, {"0", "100.00", "1000", "10", "15", "3/8", "1", "10", "10"});
    Fill(2, {"50", "99.90", "1000", "10", "15", "3/8", "1", "10", "10"});
    Fill(3, {"100", "99.97", "1100", "10", "15", "3/8", "1", "10", "10"});
    Choose("mnuDesignConstSlope");
    ASSERT_TRUE(main().Grid2.control.visible);
  }
  void Open() {
    Guarded(*program_, [this] { MenuOpened(*program_, "mnuView"); });
    window_->Sync();
    Choose("mnuStakes");
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &Window(); }));
  }
  // Chooses the path in the file dialog that is about to open over the stakes.
  void SaveNextTo(const QString& path) {
    QTimer::singleShot(0, qApp, [this, path] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->parentWidget(), &Window());
      dialog->selectFile(path);
      static_cast<QDialog*>(dialog)->accept();
    });
  }
  static QString TextOfFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }
  // A picture for the eye, where a folder is named for it.
  static void Picture(QWidget& widget, const QString& name) {
    const QString folder = qEnvironmentVariable("TORVALE_PICTURES");
    if (!folder.isEmpty()) widget.grab().save(folder + "/" + name);
  }
};

TEST_F(StakesWindowTest, TheTableFollowsTheKeys) {
  Design();
  Open();
  auto& interval = Find<QLineEdit>("txtStakeInterval");
  EXPECT_TRUE(interval.hasFocus());
  EXPECT_EQ(interval.text(), "100");
  EXPECT_EQ(Cell("Grd_Stakes", 3, 0), "100");
  interval.selectAll();
  Type(interval, "25");
  EXPECT_EQ(Cell("Grd_Stakes", 2, 0), "25");
  EXPECT_EQ(Cell("Grd_Stakes", 2, 5), "");
  Key(interval, Qt::Key_Tab);
  auto& width = Find<QLineEdit>("txtCrownWidth");
  ASSERT_TRUE(width.hasFocus());
  Type(width, "6");
  EXPECT_NE(Cell("Grd_Stakes", 2, 5), "");
  EXPECT_TRUE(Find<QLabel>("lblEarth").text().contains("crown 6 feet wide"));
  // A caret in the middle stays there.
  interval.setFocus();
  Key(interval, Qt::Key_End);
  Type(interval, "0");
  EXPECT_EQ(interval.text(), "250");
  Key(interval, Qt::Key_Left, 2);
  Type(interval, "1");
  EXPECT_EQ(interval.text(), "2150");
  EXPECT_EQ(interval.cursorPosition(), 2);
}

TEST_F(StakesWindowTest, TabLeadsRoundTheWindowAndEscOutOfIt) {
  Design();
  Open();
  auto& table = Find<QTableView>("Grd_Stakes");
  Key(Find<QLineEdit>("txtStakeInterval"), Qt::Key_Tab);
  Key(Find<QLineEdit>("txtCrownWidth"), Qt::Key_Tab);
  EXPECT_TRUE(table.hasFocus());
  Key(table, Qt::Key_Down);
  EXPECT_EQ(program_->stakes.Grd_Stakes.row, 2);
  Key(table, Qt::Key_Tab);
  EXPECT_TRUE(Find<QPushButton>("btnPrintStakes").hasFocus());
  Key(Find<QPushButton>("btnPrintStakes"), Qt::Key_Tab, 1, Qt::ShiftModifier);
  EXPECT_TRUE(table.hasFocus());
  Key(table, Qt::Key_Escape);
  EXPECT_FALSE(Window().isVisible());
  EXPECT_EQ(main().focus, "Grid2");
}

// By its button, with the mouse and by key.
TEST_F(StakesWindowTest, TheTableIsExported) {
  Design();
  Open();
  TypeText(*program_, "txtCrownWidth", "6");
  window_->Sync();
  const QString path = data_.filePath("stakes.csv");
  SaveNextTo(path);
  Press("btnCsvStakes");
  const QStringList lines = TextOfFile(path).split("\r\n");
  const Grid& table = program_->stakes.Grd_Stakes;
  ASSERT_EQ(lines.size(), table.rows() + 1) << "each line ends";
  for (int row = 0; row < table.rows(); ++row) {
    QStringList cells;
    for (int c = 0; c < table.column_count(); ++c) cells.append(QString::fromStdString(table.Text(row, c)));
    EXPECT_EQ(lines[row], cells.join(','));
  }
  EXPECT_NE(main().sbStatusBar.caption.find("stakes.csv"), std::string::npos) << main().sbStatusBar.caption;
  const QString by_key = data_.filePath("by-key.csv");
  SaveNextTo(by_key);
  Find<QPushButton>("btnCsvStakes").setFocus();
  Key(Find<QPushButton>("btnCsvStakes"), Qt::Key_Space);
  EXPECT_EQ(TextOfFile(by_key), TextOfFile(path));
}

TEST_F(StakesWindowTest, TheReportIsExported) {
  if (!CanRenderPdf()) GTEST_SKIP() << "pdftoppm is not installed";
  Design();
  Open();
  TypeText(*program_, "txtStakeInterval", "25");
  TypeText(*program_, "txtCrownWidth", "6");
  window_->Sync();
  const QString path = data_.filePath("stakes.pdf");
  SaveNextTo(path);
  Press("btnPdfStakes");
  const std::vector<QImage> pages = PagesOf(path);
  ASSERT_EQ(pages.size(), 1U);
  const auto ink = [&](double left, double top, double right, double foot) {
    constexpr double kMargin = 0.25;  // the document's 8 inches in the middle of 8.5
    const auto dots = [](double inches) { return qRound(inches * kDotsPerInch); };
    return DarkDots(pages[0],
                    QRect(QPoint(dots(left + kMargin), dots(top)), QPoint(dots(right + kMargin), dots(foot))));
  };
  EXPECT_GT(ink(2, 0.2, 6, 1), 200) << "the title";
  // Names in two lines from 1.2 inches on, .5 for them, .53 for the headings: five rows of .195 begin at 2.23.
  for (const double left : {0.5, 1.25, 2.25, 3.25, 4.25, 5.45, 6.5}) {
    EXPECT_GT(ink(left + 0.04, 1.72, left + 0.7, 2.2), 30) << "heading at " << left;
    EXPECT_GT(ink(left + 0.04, 2.45, left + 0.7, 2.6), 10) << "second stake at " << left;
  }
  EXPECT_EQ(ink(0, 5, 8, 10.5), 0) << "below the table and its sentences";
  const QString folder = qEnvironmentVariable("TORVALE_PICTURES");
  if (!folder.isEmpty()) pages[0].save(folder + "/stakes-report.png");
}

TEST_F(StakesWindowTest, TheReportIsPreviewed) {
  Design();
  Open();
  bool seen = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    seen = dialog->findChild<QPrintPreviewWidget*>()->pageCount() == 1 && dialog->windowTitle() == "Stakes";
    dialog->reject();
  });
  Press("btnPreviewStakes");
  EXPECT_TRUE(seen);
}

TEST_F(StakesWindowTest, PicturesAtTwoSizes) {
  Design();
  Open();
  TypeText(*program_, "txtStakeInterval", "25");
  TypeText(*program_, "txtCrownWidth", "6");
  window_->Sync();
  Picture(Window(), "stakes.png");
  torvale::Click(*program_, "mnuZoomTo(5)");
  window_->Sync();
  Picture(Window(), "stakes-200.png");
  // Nothing is cut off: every control stands inside the window.
  for (const char* name : {"Grd_Stakes", "lblEarth", "btnPrintStakes", "btnCloseStakes"}) {
    EXPECT_TRUE(Window().rect().contains(Find<QWidget>(name).geometry())) << name;
  }
}

TEST_F(StakesWindowTest, PinkAndGreyCellsSayWhatTheyAre) {
  Design();
  Choose("mnuWindowInfo");
  Fill(2, {"100", "", "", "", "", "3/8", "", "", ""});
  Fill(3, {"200", "99.90", "1100", "", "", "3/8", "", "", ""});
  Fill(4, {"300", "99.9O", "85O", "", "", "3/8", "", "", ""});
  Press("cmdInterpolate");
  window_->Sync();
  EXPECT_TRUE(TipOf(2, 1).contains("the program filled this in")) << TipOf(2, 1).toStdString();
  EXPECT_TRUE(TipOf(4, 2).contains("is read as 85")) << TipOf(4, 2).toStdString();
  EXPECT_TRUE(TipOf(3, 1).isEmpty());
  Picture(*window_, "pink-and-grey.png");
  // The first letter of grey text is not that of black.
  Choose("mnuClearFilled");
  EXPECT_EQ(Cell("Grid1", 2, 1), "");
  EXPECT_EQ(Cell("Grid1", 3, 1), "99.90");
}

TEST_F(StakesWindowTest, ThePictureForAPhoneIsAsLongAsWhatStandsOnIt) {
  Document document;
  document.operations.emplace_back(PrintedText{0.3, 0.3, 30, "7/8 in", false, 4});
  const QImage small = PictureOf(document);
  EXPECT_EQ(small.width(), 1088);  // 8.5 inches of 128 dots
  // .3 + 1.125 x 30 / 72 + .3 inches are 1.06875, 136.8 dots.
  EXPECT_EQ(small.height(), 137);
  document.operations.emplace_back(PrintedBox{0, 20, 8, 21, 6});
  EXPECT_EQ(PictureOf(document).height(), qRound(21.3 * 128));
  // Black letters on white. They begin .3 inches down, dot 38, and stand 53 dots high: some of dot 65 is in them.
  EXPECT_EQ(small.pixelColor(5, 5), QColor(Qt::white));
  bool ink = false;
  for (int x = 0; x < small.width(); ++x) ink = ink || small.pixelColor(x, 65).lightness() < 60;
  EXPECT_TRUE(ink);
}

TEST_F(StakesWindowTest, ThePictureIsWrittenToAFile) {
  Design();
  const QString path = data_.filePath("crew.png");
  Document document;
  document.operations.emplace_back(PrintedText{0.3, 0.3, 30, "7/8 in", false, 4});
  EXPECT_EQ(host_->WritePicture(document, path.toStdString()).error, 0);
  EXPECT_EQ(QImage(path).width(), 1088);
  EXPECT_EQ(host_->WritePicture(document, data_.filePath("no/crew.png").toStdString()).error, ENOENT);
}

}  // namespace
}  // namespace torvale
