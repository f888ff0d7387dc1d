// Keys, mouse and looks of the sheet and the fields as a hand from other programs expects them.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QTextBrowser>

#include "gui/window_test.h"
#include "qt/to_qt.h"
#include "shell/main_form.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

class SheetHabitsWindowTest : public WindowTest {
 protected:
  static void SavePicture(QWidget& widget, const char* name) {
    const QByteArray folder = qgetenv("TORVALE_PICTURES");
    if (!folder.isEmpty()) widget.grab().save(folder + "/" + name + ".png");
  }
};

TEST_F(SheetHabitsWindowTest, ALetterWithAltTypesNothing) {
  Info(2).setFocus();
  Type(Info(2), "100");
  QTest::keyClick(&Info(2), 's', Qt::AltModifier);
  EXPECT_EQ(Info(2).text(), "100");
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Down);
  QTest::keyClick(&Sheet(), '5', Qt::AltModifier);
  EXPECT_EQ(main().Grid1.Text(2, 0), "");
  auto& soils = Find<QComboBox>("listSoils");
  soils.setFocus();
  const int chosen = soils.currentIndex();
  QTest::keyClick(&soils, 's', Qt::AltModifier);
  EXPECT_EQ(soils.currentIndex(), chosen);
}

TEST_F(SheetHabitsWindowTest, TabMovesInTheSheetAndCtrlTabLeavesIt) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Tab, 2);
  EXPECT_EQ(main().Grid1.column, 2);
  Key(Sheet(), Qt::Key_Backtab, 1, Qt::ShiftModifier);
  EXPECT_EQ(main().Grid1.column, 1);
  EXPECT_TRUE(Sheet().hasFocus());
  Key(Sheet(), Qt::Key_Tab, 1, Qt::ControlModifier);
  EXPECT_TRUE(Find<QPushButton>("cmdInterpolate").hasFocus());
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Backtab, 1, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(Info(5).hasFocus());
}

TEST_F(SheetHabitsWindowTest, F2PutsACaretIntoTheCell) {
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_Right, 2);
  const QImage plain = Sheet().grab().toImage();
  Key(Sheet(), Qt::Key_F2);
  EXPECT_NE(Sheet().grab().toImage(), plain);
  Key(Sheet(), Qt::Key_Left, 2);
  SavePicture(*window_, "caret");
  Type(Sheet(), "5");
  EXPECT_EQ(main().Grid1.Text(1, 2), "13520");
  Key(Sheet(), Qt::Key_Escape);
  EXPECT_EQ(main().Grid1.Text(1, 2), "1320");
}

TEST_F(SheetHabitsWindowTest, TheRightButtonOpensAMenuOfTheCell) {
  const QPoint at = PointOf(Sheet(), 4, 3);
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, Sheet().viewport()->mapToGlobal(at));
  QApplication::sendEvent(Sheet().viewport(), &event);
  auto* menu = Sheet().findChild<QMenu*>("gridMenu");
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(main().Grid1.row, 4);
  EXPECT_EQ(main().Grid1.column, 3);
  SavePicture(*menu, "menu");
  ASSERT_EQ(menu->actions().size(), 6);
  EXPECT_EQ(menu->actions()[3]->objectName(), "mnuInsertRow");
  main().Grid1.Set(4, 0, "300");
  menu->actions()[3]->trigger();
  menu->close();
  EXPECT_EQ(main().Grid1.Text(5, 0), "300");
}

TEST_F(SheetHabitsWindowTest, AColumnIsWidenedAtTheEdgeOfItsHeading) {
  const int before = Sheet().columnWidth(2);
  Sheet().horizontalHeader()->resizeSection(2, before + 60);
  EXPECT_EQ(main().Grid1.columns[2].widened, (before + 60) * 15);
  EXPECT_EQ(Sheet().columnWidth(2), before + 60);
  EXPECT_TRUE(Sheet().horizontalScrollBar()->isVisible());
  SavePicture(*window_, "widened");
  WidenColumn(*program_, "Grid1", 2, 0);
  window_->Sync();
  EXPECT_EQ(Sheet().columnWidth(2), before);
  EXPECT_FALSE(Sheet().horizontalScrollBar()->isVisible());
}

// 45 stations reach below the window. The cursor that a design leaves at their end takes no one along.
TEST_F(SheetHabitsWindowTest, TheInputScreenOpensALongSurveyAtItsBeginning) {
  TypeFields("Long", "900", "2");
  for (int row = 1; row <= 45; ++row) {
    main().Grid1.Set(row, 0, std::to_string((row - 1) * 100));
    const char* const cells[] = {"10", "600", "20", "15", "3/4", "1", "10", "20"};
    for (int column = 1; column < 9; ++column) main().Grid1.Set(row, column, cells[column - 1]);
  }
  window_->Sync();
  Choose("mnuDesignField");
  ASSERT_TRUE(main().Grid2.control.visible);
  Choose("mnuWindowInfo");
  ASSERT_TRUE(Sheet().isVisible());
  EXPECT_EQ(main().Grid1.top_row, 1);
  EXPECT_EQ(Sheet().verticalScrollBar()->value(), 0);
  EXPECT_EQ(Sheet().rowAt(1), 0);
  SavePicture(*window_, "long");
  // Of the cursor that the user moves there is always something to see.
  Sheet().setFocus();
  Key(Sheet(), Qt::Key_End, 1, Qt::ControlModifier);
  EXPECT_EQ(main().Grid1.row, 45);
  EXPECT_EQ(Sheet().verticalScrollBar()->value() + 1, main().Grid1.top_row);
  EXPECT_LT(Sheet().visualRect(Sheet().model()->index(44, 8)).bottom(), Sheet().viewport()->height());
}

TEST_F(SheetHabitsWindowTest, AMarkShowsInTheFieldItsTipAndTheStatusBar) {
  Info(2).setFocus();
  Type(Info(2), "1,200");
  EXPECT_EQ(Info(2).palette().color(QPalette::Base), ToQt(kMarkedBack));
  EXPECT_TRUE(Info(2).toolTip().contains("is read as 1.")) << Info(2).toolTip().toStdString();
  EXPECT_TRUE(Info(2).accessibleDescription().startsWith(QString::fromUtf8("\u201C1,200\u201D")));
  EXPECT_TRUE(Find<QLabel>("sbStatusBar").text().contains("is read as 1."));
  main().Grid1.SetMark(1, 1, "no number");
  window_->Sync();
  EXPECT_TRUE(Sheet().model()->data(Sheet().model()->index(0, 1), Qt::ToolTipRole).toString().contains("no number"));
  SavePicture(*window_, "marks");
  Key(Info(2), Qt::Key_Backspace, 4);
  EXPECT_NE(Info(2).palette().color(QPalette::Base), ToQt(kMarkedBack));
}

// Numbers stand to the right and texts to the left, but where a cell is centred.
TEST_F(SheetHabitsWindowTest, CellsStandAsTheLayoutSays) {
  main().Grid1.Set(2, 2, "1");
  main().Grid1.Set(3, 2, "Line");
  main().Grid1.SetAlign(4, 2, Align::kCentreBottom);
  main().Grid1.Set(4, 2, "1");
  window_->Sync();
  const QImage picture = Sheet().viewport()->grab().toImage();
  const auto middle_of_ink = [&](int row) {
    const QRect cell = Sheet().visualRect(Sheet().model()->index(row - 1, 2)).adjusted(2, 2, -2, -2);
    const QRgb paper = picture.pixel(cell.center().x(), cell.top());
    double sum = 0;
    int count = 0;
    for (int x = cell.left(); x <= cell.right(); ++x) {
      for (int y = cell.top(); y <= cell.bottom(); ++y) {
        if (picture.pixel(x, y) == paper) continue;
        sum += x - cell.left();
        ++count;
      }
    }
    return count == 0 ? -1 : sum / count / cell.width();
  };
  EXPECT_GT(middle_of_ink(2), 0.8);
  EXPECT_LT(middle_of_ink(3), 0.4);
  EXPECT_NEAR(middle_of_ink(4), 0.5, 0.1);
}

// Between the letters of a button and its frame there is room at every zoom.
TEST_F(SheetHabitsWindowTest, LettersKeepAwayFromTheEdgeOfTheirButton) {
  main().cmdReCalc.visible = main().cmdDesignToggle.visible = main().cmdCancel.visible = true;
  for (const int zoom : kZoomSteps) {
    SetZoom(*program_, zoom);
    window_->Sync();
    if (zoom == 75) SavePicture(*window_, "zoom75");
    for (const char* name : {"cmdReCalc", "cmdDesignToggle", "cmdCancel", "cmdInterpolate"}) {
      const auto& button = Find<QPushButton>(name);
      const QRect letters = button.fontMetrics().boundingRect(button.rect(), Qt::AlignCenter, button.text());
      EXPECT_GE(button.width() - letters.width(), 8) << name << " at " << zoom << ": " << button.text().toStdString()
                                                     << " in " << button.font().pixelSize() << " of " << button.width();
    }
  }
}

TEST_F(SheetHabitsWindowTest, APanelGoesWithTheMouseAndOnlyADropOnTheScreenKeepsIt) {
  Choose("mnuPreference");
  QWidget* panel = &Find<QWidget>("Frame1");
  QWidget* ground = qobject_cast<QAbstractScrollArea*>(panel)->findChild<QScrollArea*>() == nullptr
                        ? qobject_cast<QScrollArea*>(panel)->widget()
                        : nullptr;
  ASSERT_NE(ground, nullptr);
  const Place from = main().Frame1.place;
  const QPoint grab(20, 8);
  QTest::mousePress(ground, Qt::LeftButton, Qt::NoModifier, grab);
  QTest::mouseMove(ground, grab + QPoint(-60, 10));
  EXPECT_NEAR(main().Frame1.place.left, from.left - 900, 15);  // to the pixel
  EXPECT_NEAR(panel->x(), from.left / 15 - 60, 1);
  // Far outside of the window.
  QTest::mouseRelease(ground, Qt::LeftButton, Qt::NoModifier, grab + QPoint(-5000, 0));
  EXPECT_EQ(main().Frame1.place, from);
  QTest::mousePress(ground, Qt::LeftButton, Qt::NoModifier, grab);
  QTest::mouseMove(ground, grab + QPoint(-60, 10));
  QTest::mouseRelease(ground, Qt::LeftButton, Qt::NoModifier, grab);
  EXPECT_NEAR(main().Frame1.place.left, from.left - 900, 15);
  EXPECT_EQ(main().Frame1.place.top, from.top + 30);  // 10 pixels are 150 twips; 730 is as far down as it goes
}

TEST_F(SheetHabitsWindowTest, F1InAMessageBoxOpensTheGuideAtItsEntry) {
  QFile::copy(QString(kSourceFolder) + "/data/TORVALEHELP.hlp", data_.filePath("TORVALEHELP.hlp"));
  host_->Attach(
      window_.get(), [this] { window_->Sync(); }, [this](const std::string& body) { window_->ExplainMessage(body); });
  std::string place;
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(box));
    QTest::keyClick(box, Qt::Key_F1);
    place = program_->help.place;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() != "frmHelp") continue;
      EXPECT_TRUE(widget->isVisible());
      // The box does not hold it back.
      EXPECT_TRUE(widget->windowHandle() == nullptr || widget->isEnabled());
    }
    box->button(QMessageBox::Ok)->click();
  });
  Choose("mnuSurveyCopy");
  EXPECT_TRUE(place.starts_with("messages-")) << place;
}

TEST_F(SheetHabitsWindowTest, AMaximisedWindowKeepsThePlaceThatItHadBefore) {
  const Place before = main().window;
  window_->showMaximized();
  QTest::qWait(400);
  window_->close();
  EXPECT_EQ(QSettings(ToQt(kProgramTitle), ToQt(kProgramTitle)).value("Settings/MainLeft").toString(),
            QString::number(before.left));
  EXPECT_EQ(QSettings(ToQt(kProgramTitle), ToQt(kProgramTitle)).value("Settings/MainTop").toString(),
            QString::number(before.top));
}

}  // namespace
}  // namespace torvale
