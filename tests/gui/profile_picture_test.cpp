// The picture of the crown profile, and the boxes that its buttons bring up.
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "gui/pdf_pages.h"
#include "gui/window_test.h"

namespace torvale {
namespace {

class ProfilePictureTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Choose("mnuDesignField");
    Choose("mnuProfile");
    ASSERT_TRUE(Profile().isVisible());
  }
  QWidget& Profile() { return Find<QWidget>("CrownProfile"); }

  // Chooses the path in the file dialog that is about to open, which must stand over the profile.
  void SaveNextTo(const QString& path) {
    QTimer::singleShot(0, qApp, [this, path] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->parentWidget(), &Profile());
      dialog->selectFile(path);
      static_cast<QDialog*>(dialog)->accept();
    });
  }

  // The title above the middle, the crown in its own colour across the middle, white in the corner.
  static void ExpectProfile(const QImage& picture) {
    ASSERT_FALSE(picture.isNull());
    EXPECT_GT(picture.width(), picture.height()) << "landscape";
    EXPECT_GT(DarkDots(picture, QRect(0, 0, picture.width(), picture.height() / 5)), 300) << "names and title";
    EXPECT_EQ(QColor(picture.pixel(2, 2)), QColor(Qt::white));
    int columns_with_line = 0;
    for (int x = 0; x < picture.width(); ++x) {
      bool line = false;
      for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        const QColor dot(picture.pixel(x, y));
        line = line || (dot.red() > dot.green() + 20 && dot.green() > dot.blue() + 20);
      }
      columns_with_line += line ? 1 : 0;
    }
    EXPECT_GT(columns_with_line, picture.width() / 2) << "the brown line of the existing crown";
  }
};

TEST_F(ProfilePictureTest, IsExportedAsPng) {
  const QString path = data_.filePath("crown.png");
  SaveNextTo(path);
  Press("btnExportPicture");
  ExpectProfile(QImage(path));
}

TEST_F(ProfilePictureTest, IsExportedAsADocumentOfOnePage) {
  if (!CanRenderPdf()) GTEST_SKIP() << "pdftoppm is not installed";
  const QString path = data_.filePath("crown.pdf");
  SaveNextTo(path);
  Press("btnExportPicture");
  const std::vector<QImage> pages = PagesOf(path);
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages[0].size(), QSize(1100, 850));
  ExpectProfile(pages[0]);
  // The margin of half an inch.
  EXPECT_EQ(DarkDots(pages[0], QRect(0, 0, 1100, 45)), 0);
  EXPECT_EQ(DarkDots(pages[0], QRect(1055, 0, 45, 850)), 0);
}

// The printer that the dialog speaks of prints into a file here.
TEST_F(ProfilePictureTest, IsPrintedInLandscapeAndThePaperIsUprightAgainAfterwards) {
  if (!CanRenderPdf()) GTEST_SKIP() << "pdftoppm is not installed";
  const QString path = data_.filePath("printed.pdf");
  QPrinter* printer = nullptr;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    printer = dialog->printer();
    dialog->reject();
  });
  EXPECT_EQ(host_->PrinterDialog(), std::nullopt);
  ASSERT_NE(printer, nullptr);
  printer->setOutputFormat(QPrinter::PdfFormat);
  printer->setOutputFileName(path);
  ASSERT_TRUE(host_->PrintProfile());
  EXPECT_EQ(printer->pageLayout().orientation(), QPageLayout::Portrait);
  EXPECT_EQ(printer->pageLayout().pageSize().id(), QPageSize::Letter);
  const std::vector<QImage> pages = PagesOf(path);
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_EQ(pages[0].size(), QSize(1100, 850));
  ExpectProfile(pages[0]);
}

TEST_F(ProfilePictureTest, AFolderThatIsNotThereIsToldOfOverTheProfile) {
  for (const char* name : {"no folder/crown.png", "no folder/crown.pdf"}) {
    EXPECT_EQ(host_->WriteProfile(data_.filePath(name).toStdString()).error, ENOENT);
  }
}

TEST_F(ProfilePictureTest, WithoutAPrinterABoxOverTheProfileSaysSo) {
  if (host_->HasPrinter()) GTEST_SKIP() << "a printer is installed";
  QTimer::singleShot(0, qApp, [this] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->parentWidget(), &Profile());
    EXPECT_TRUE(box->text().startsWith("No printer is installed on this computer."));
    EXPECT_TRUE(box->text().endsWith(" print Error"));
    box->button(QMessageBox::Ok)->click();
  });
  Press("btnPrintProfile");
  EXPECT_TRUE(Find<QPushButton>("btnPrintProfile").isVisible());
  EXPECT_TRUE(Profile().isVisible());
}

}  // namespace
}  // namespace torvale
