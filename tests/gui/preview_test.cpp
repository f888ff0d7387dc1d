// The preview of a report, a window over the main one with the pages as the painter draws them; the printer dialog.
#include <QGroupBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>

#include "gui/window_test.h"

namespace torvale {
namespace {

class PreviewTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Choose("mnuDesignField");
    ASSERT_TRUE(Results().isVisible());
  }

  // Opens the preview and, once it stands, does `look` with it. The preview must be closed by then.
  void Preview(const char* entry, const std::function<void(QPrintPreviewDialog&)>& look) {
    bool opened = false;
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->parentWidget(), window_.get());
      ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
      opened = true;
      look(*dialog);
      if (!dialog->isVisible()) return;
      ADD_FAILURE() << "the preview is still open";
      dialog->reject();
    });
    Choose(entry);
    EXPECT_TRUE(opened);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(window_->isVisible());
  }
  static QPrintPreviewWidget& Pages(const QDialog& dialog) { return *dialog.findChild<QPrintPreviewWidget*>(); }
};

// 51 holes: 35 rows on the first page of the Complete Design, the others on the second. The two other reports take one.
TEST_F(PreviewTest, ShowsEveryPageAndClosesWithEscape) {
  const std::pair<const char*, int> reports[] = {{"mnuPreview(0)", 1}, {"mnuPreview(1)", 2}, {"mnuPreview(2)", 1}};
  for (const auto& report : reports) {
    Preview(report.first, [&](QPrintPreviewDialog& dialog) {
      EXPECT_EQ(Pages(dialog).pageCount(), report.second) << report.first;
      Key(dialog, Qt::Key_Escape);
    });
  }
}

TEST_F(PreviewTest, NamesTheReportAndShowsInk) {
  Preview("mnuPreview(1)", [](QPrintPreviewDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Complete Design");
    const QImage seen = Pages(dialog).grab().toImage();
    int dark = 0;
    for (int y = 0; y < seen.height(); ++y) {
      for (int x = 0; x < seen.width(); ++x) dark += qGray(seen.pixel(x, y)) < 64 ? 1 : 0;
    }
    EXPECT_GT(dark, 500);
    dialog.close();
  });
}

// Letter paper, upright, is what a report is laid out for: nothing offers another.
TEST_F(PreviewTest, OffersNoOtherPaper) {
  Preview("mnuPreview(0)", [](QPrintPreviewDialog& dialog) {
    QStringList offered;
    for (const QAction* action : dialog.findChildren<QAction*>()) {
      if (action->isVisible()) offered.append(action->text());
    }
    EXPECT_TRUE(offered.contains("Next page"));
    EXPECT_FALSE(offered.contains("Landscape"));
    EXPECT_FALSE(offered.contains("Page setup"));
    EXPECT_GT(Pages(dialog).height(), Pages(dialog).width() / 2);
    Key(dialog, Qt::Key_Escape);
  });
}

// The pages are turned from the keyboard: the field of the page's number takes a 2.
TEST_F(PreviewTest, IsTurnedFromTheKeyboard) {
  Preview("mnuPreview(1)", [](QPrintPreviewDialog& dialog) {
    auto* number = dialog.findChild<QLineEdit*>();
    ASSERT_NE(number, nullptr);
    number->setFocus();
    number->selectAll();
    Type(*number, "2");
    Key(*number, Qt::Key_Return);
    EXPECT_EQ(Pages(dialog).currentPage(), 2);
    EXPECT_TRUE(dialog.isVisible()) << "Enter turns the page and no more";
    Key(dialog, Qt::Key_Escape);
  });
}

// The desktop's dialog stands over the window; Escape is a cancel. A report is printed whole.
TEST_F(PreviewTest, ThePrinterDialogIsCancelledWithEscape) {
  bool opened = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    opened = true;
    EXPECT_EQ(dialog->parentWidget(), window_.get());
    EXPECT_FALSE(dialog->testOption(QAbstractPrintDialog::PrintSelection));
    for (const QGroupBox* group : dialog->findChildren<QGroupBox*>("gbPrintRange")) EXPECT_FALSE(group->isEnabled());
    Key(*dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(host_->PrinterDialog(), std::nullopt);
  EXPECT_TRUE(opened);
}

}  // namespace
}  // namespace torvale
