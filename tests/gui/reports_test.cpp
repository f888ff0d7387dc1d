// Reports as the window's host writes them: pages with ink where the layout wants it.
#include <QRegularExpression>

#include "gui/pdf_pages.h"
#include "gui/window_test.h"
#include "reports/design_reports.h"
#include "reports/hole_summary_report.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

class ReportsTest : public WindowTest {
 protected:
  void SetUp() override {
    if (!CanRenderPdf()) GTEST_SKIP() << "pdftoppm is not installed";
    WindowTest::SetUp();
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Choose("mnuDesignField");
    ASSERT_TRUE(Results().isVisible());
  }

  // Writes the document and gives its pages as pictures.
  std::vector<QImage> Pages(const Document& document) {
    const QString pdf = data_.filePath("report.pdf");
    EXPECT_EQ(host_->WritePdf(document, pdf.toStdString()).error, 0);
    return PagesOf(pdf);
  }

  // Dark dots within the rectangle, in inches of the document.
  static int Ink(const QImage& page, double x1, double y1, double x2, double y2) {
    constexpr double kMargin = 0.25;  // the document's 8 inches in the middle of 8.5
    const QPoint from(qRound((x1 + kMargin) * kDotsPerInch), qRound(y1 * kDotsPerInch));
    const QPoint to(qRound((x2 + kMargin) * kDotsPerInch) - 1, qRound(y2 * kDotsPerInch) - 1);
    return DarkDots(page, QRect(from, to));
  }
};

TEST_F(ReportsTest, TheCompleteDesignTakesTwoPages) {
  // 51 holes; 35 rows stand on the first page.
  const std::vector<QImage> pages = Pages(CompleteReport(*program_));
  ASSERT_EQ(pages.size(), 2U);
  for (const QImage& page : pages) {
    EXPECT_EQ(page.size(), QSize(850, 1100));
    EXPECT_GT(Ink(page, 2, 0.2, 6, 1.0), 200) << "the title";
    EXPECT_GT(Ink(page, 6.5, 0.2, 7.5, 0.4), 20) << "the page's number";
    EXPECT_EQ(Ink(page, 0, 0, 8, 0.15), 0) << "the margin above";
    EXPECT_EQ(Ink(page, 0, 10.7, 8, 11), 0) << "the margin below";
    EXPECT_EQ(Ink(page, -0.25, 0, 0, 11), 0) << "the margin on the left";
    EXPECT_EQ(Ink(page, 8, 0, 8.25, 11), 0) << "the margin on the right";
  }
  EXPECT_GT(Ink(pages[0], 0.4, 4.9, 0.8, 10.5), 300) << "stations";
  EXPECT_GT(Ink(pages[1], 0.4, 2.7, 0.8, 5.0), 100) << "stations";
  // 16 rows on the second page: 2.615 and 16 lines of 0.165 inch end at 5.255.
  EXPECT_EQ(Ink(pages[1], 0, 5.35, 8, 10.5), 0) << "below the table";
}

TEST_F(ReportsTest, TheSummaryAndTheHoleSummaryTakeOnePage) {
  const std::vector<QImage> summary = Pages(SummaryReport(*program_));
  ASSERT_EQ(summary.size(), 1U);
  EXPECT_GT(Ink(summary[0], 0.4, 4.87, 0.8, 5.2), 20) << "stations";
  const std::vector<QImage> holes = Pages(HoleSummaryReport(*program_));
  ASSERT_EQ(holes.size(), 1U);
  EXPECT_GT(Ink(holes[0], 0.5, 2.5, 2.4, 2.7), 20) << "the run's stations";
  EXPECT_GT(Ink(holes[0], 4, 4.5, 7, 6), 100) << "figures beside the applied water";
}

// Of a line of 301 holes, 35 stand on the first page and 48 on each of five more; 26 are left for the last.
TEST_F(ReportsTest, EveryPageHasItsRows) {
  main().Grid1.Set(1, 3, "1");
  main().Grid1.Set(2, 3, "1");
  main().txtInfo[2].Set("2000");
  Choose("mnuDesignField");
  ASSERT_EQ(record().HoleRows, 301);
  const std::vector<QImage> pages = Pages(CompleteReport(*program_));
  ASSERT_EQ(pages.size(), 7U);
  for (std::size_t page = 0; page < pages.size(); ++page) {
    const int rows = page == 0 ? 35 : page == 6 ? 26 : 48;
    const double top = page == 0 ? 4.85 : 2.615;
    for (int row = 0; row < rows; ++row) {
      const double y = top + row * 0.165;
      EXPECT_GT(Ink(pages[page], 0.42, y + 0.02, 0.85, y + 0.14), 3) << "page " << page + 1 << " row " << row + 1;
    }
    EXPECT_EQ(Ink(pages[page], 0.42, top + rows * 0.165 + 0.02, 0.85, 10.8), 0) << "page " << page + 1;
  }
}

// The rule at 4.57 begins at 2.2 and would run into the word at 4.55, which stands from 2.1 on: it ends below the word.
TEST_F(ReportsTest, ARuleKeepsOutOfAWord) {
  main().txtInfo[5].Set("R");
  const QImage page = Pages(CompleteReport(*program_)).at(1);
  EXPECT_GT(Ink(page, 4.55, 2.12, 5.2, 2.22), 50) << "the word";
  EXPECT_EQ(Ink(page, 4.54, 2.235, 4.6, 2.25), 0) << "below the word";
  EXPECT_GT(Ink(page, 4.54, 2.265, 4.6, 2.29), 1) << "the rule";
}

// A saved design of each type: its own words in the title, no page blank, nothing beside the paper's middle 8 inches.
TEST_F(ReportsTest, EachTypeOfDesignComesOutOnPaper) {
  for (const char* type : {"PFD", "CSD", "DSD", "CSH", "XFD", "LHD"}) {
    const QString name = QString("ditch_corner.") + type;
    ASSERT_TRUE(QFile::copy(QString(kSourceFolder) + "/data/samples/" + name, data_.filePath(name)));
    window_->OpenDesign(data_.filePath(name));
    ASSERT_EQ(record().HoleRows, 54) << type;
    // 54 rows: 35 and 19.
    const std::pair<Document, std::size_t> reports[] = {
        {SummaryReport(*program_), 1}, {CompleteReport(*program_), 2}, {HoleSummaryReport(*program_), 1}};
    for (const auto& [document, count] : reports) {
      const std::vector<QImage> pages = Pages(document);
      ASSERT_EQ(pages.size(), count) << type << document.title;
      for (const QImage& page : pages) {
        EXPECT_GT(Ink(page, 2, 0.8, 6, 1.0), 100) << "the design line of " << type;
        EXPECT_GT(Ink(page, 0.1, 2.0, 7.9, 10.7), 500) << type << document.title;
        EXPECT_EQ(Ink(page, -0.25, 0, 0.08, 11) + Ink(page, 7.93, 0, 8.25, 11), 0) << type << document.title;
      }
    }
  }
}

// The letters of a page go into the file all at once; a reader still finds the words and can copy them. The name has
// letters of which some come from another typeface than the rest of the page.
TEST_F(ReportsTest, TheWordsOfAPageCanBeCopied) {
  main().txtInfo[0].Set("Поле 7, North Forty");
  const QString pdf = data_.filePath("report.pdf");
  ASSERT_EQ(host_->WritePdf(CompleteReport(*program_), pdf.toStdString()).error, 0);
  QProcess reader;
  reader.start("pdftotext", {"-layout", pdf, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QString text = reader.readAllStandardOutput();
  EXPECT_EQ(text.count("Поле 7, North Forty"), 2) << text.toStdString();  // pages
  // Rows 1 and 51 stand 6 feet apart from station 0 on: 300 is the last.
  EXPECT_TRUE(text.contains(QRegularExpression("\\n +0 .*\\n +6 .*\\n +12 "))) << text.toStdString();
  EXPECT_TRUE(text.contains(QRegularExpression("\\n +294 .*\\n +300 "))) << text.toStdString();
}

// A name as long as the field takes ends ahead of the date that stands beside it.
TEST_F(ReportsTest, LongTextsKeepToTheirRoom) {
  main().txtInfo[0].Set(std::string(60, 'W'));
  program_->record.DisplayFileName = "/" + std::string(400, 'M') + ".PFD";
  const std::vector<QImage> pages = Pages(SummaryReport(*program_));
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_GT(Ink(pages[0], 0.5, 1.4, 3.9, 1.6), 100);
  EXPECT_EQ(Ink(pages[0], 3.92, 1.4, 4.0, 1.57), 0);
  EXPECT_EQ(Ink(pages[0], 7.92, 1.1, 8.25, 1.3), 0);
}

TEST_F(ReportsTest, AFileThatCannotBeWrittenIsRefused) {
  const std::string path = data_.filePath("no folder/report.pdf").toStdString();
  EXPECT_EQ(host_->WritePdf(SummaryReport(*program_), path).error, ENOENT);
}

// The offscreen platform has no printer: the command says so and shows no dialog.
TEST_F(ReportsTest, NothingAsksForAPrinterWhereNoneIsInstalled) {
  if (host_->HasPrinter()) GTEST_SKIP() << "a printer is installed";
  AnswerNextBox(QMessageBox::Ok);
  Find<QAction>("mnuPrintSummary").setEnabled(true);
  Choose("mnuPrintSummary");
  EXPECT_TRUE(QString::fromStdString(box_text_).startsWith("No printer is installed on this computer.")) << box_text_;
  EXPECT_TRUE(QString::fromStdString(box_text_).endsWith(" print Error")) << box_text_;
}

}  // namespace
}  // namespace torvale
