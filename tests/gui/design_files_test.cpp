#include "files/design_files.h"

#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

#include "gui/window_test.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

// A survey saved by itself: design type 7, one row.
class DesignFilesWindowTest : public WindowTest {
 protected:
  QString SavedSurvey() {
    main().txtInfo[0].Set("Level forty");
    record().DesignType = kSurveyOnly;
    record().SaveFileName = data_.filePath("level").toStdString();
    SaveFile(*program_);
    main().txtInfo[0].Set("");
    return data_.filePath("level");
  }

  // Where the dialog of Open begins; it is cancelled there.
  QString OpenBeginsIn() {
    QString folder;
    QTimer::singleShot(0, qApp, [&folder] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      folder = dialog->directory().path();
      dialog->reject();
    });
    Choose("mnuFileOpen");
    return folder;
  }

  // What a file dialog shows; it is cancelled there.
  struct Seen {
    QString title;
    QStringList filters;
    QString selected;
    QString name;
    bool saves = false;
  };
  Seen LookAtDialogOf(const char* entry) {
    Seen seen;
    QTimer::singleShot(0, qApp, [&seen] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      seen = {dialog->windowTitle(), dialog->nameFilters(), dialog->selectedNameFilter(),
              dialog->findChild<QLineEdit*>("fileNameEdit")->text(), dialog->acceptMode() == QFileDialog::AcceptSave};
      dialog->reject();
    });
    Choose(entry);
    return seen;
  }
};

TEST_F(DesignFilesWindowTest, OpensTheFileThatTheDesktopHandsOver) {
  const QString path = SavedSurvey();
  window_->OpenDesign(path);
  EXPECT_EQ(Info(0).text(), "Level forty");
  EXPECT_EQ(record().OpenedFileName, path.toStdString());
  EXPECT_EQ(Find<QAction>("mnuFileList(0)").text(), path);
  EXPECT_TRUE(Find<QAction>("mnuFileList(0)").isVisible());
}

TEST_F(DesignFilesWindowTest, OpensAFileThatIsDroppedOnIt) {
  const QString path = SavedSurvey();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &drop);
  EXPECT_EQ(Info(0).text(), "Level forty");
}

TEST_F(DesignFilesWindowTest, OpenBeginsAmongTheSamples) {
  ASSERT_TRUE(QDir(data_.path()).mkdir("samples"));
  EXPECT_EQ(OpenBeginsIn().toStdString(), data_.filePath("samples").toStdString());
}

TEST_F(DesignFilesWindowTest, WhoHasDesignsOpensWhereTheDesktopBegins) {
  ASSERT_TRUE(QDir(data_.path()).mkdir("samples"));
  window_->OpenDesign(SavedSurvey());
  EXPECT_FALSE(OpenBeginsIn().startsWith(data_.path()));
}

TEST_F(DesignFilesWindowTest, ADialogBeginsInTheFolderLastUsed) {
  ASSERT_TRUE(QDir(data_.path()).mkdir("designs"));
  record().DesignType = kPlanned;
  QTimer::singleShot(0, qApp, [this] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QTest::qWait(1);
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(data_.filePath("designs/east"));
    static_cast<QDialog*>(dialog)->accept();
  });
  Choose("mnuFileSaveAs");
  ASSERT_TRUE(QFile::exists(data_.filePath("designs/east.PFD")));
  EXPECT_EQ(OpenBeginsIn().toStdString(), data_.filePath("designs").toStdString());
}

// A single one would underline the letter behind it.
TEST_F(DesignFilesWindowTest, ARecentEntryShowsItsAmpersand) {
  const QString path = data_.filePath("Dunn & Sons");
  ASSERT_TRUE(QFile::rename(SavedSurvey(), path));
  window_->OpenDesign(path);
  EXPECT_EQ(Find<QAction>("mnuFileList(0)").text(), data_.filePath("Dunn && Sons"));
}

TEST_F(DesignFilesWindowTest, OpenShowsItsTitleItsFiltersAndThePreferredOne) {
  main().txtDefault[15].Set("CSD");
  const Seen seen = LookAtDialogOf("mnuFileOpen");
  EXPECT_EQ(seen.title, "Open");
  // Each pattern in small letters too: files from other systems may be named so.
  EXPECT_EQ(seen.filters, QStringList({"Limit Computer Hole Selection (*.LHD *.lhd)", "Planned Design (*.PFD *.pfd)",
                                       "Constant Slope (*.CSD *.csd)", "Dual Slope Crown (*.DSD *.dsd)",
                                       "Computer Selected Holes (*.CSH *.csh)", "Existing Field Design (*.XFD *.xfd)",
                                       "All file types (*)"}));
  EXPECT_EQ(seen.selected, "Constant Slope (*.CSD *.csd)");
  EXPECT_EQ(seen.name, "");
  EXPECT_FALSE(seen.saves);
}

TEST_F(DesignFilesWindowTest, SaveAsShowsTheFilterOfTheDesignAndTheNameOfTheOpenedOne) {
  const std::pair<int, const char*> filters[] = {{kPlanned, "Planned Field Design (*.PFD *.pfd)"},
                                                 {kConstantSlope, "Constant Slope (*.CSD *.csd)"},
                                                 {kDualSlope, "Dual Slope Crown (*.DSD *.dsd)"},
                                                 {kComputerHoles, "Computer Selected Holes (*.CSH *.csh)"},
                                                 {kExistingField, "Existing Field Condition (*.XFD *.xfd)"},
                                                 {kLimitedHoles, "Limit Computer Hole Selection (*.LHD *.lhd)"},
                                                 {kNoDesign, "Limit Computer Hole Selection (*.DAT *.dat)"}};
  for (const auto& [type, filter] : filters) {
    record().DesignType = static_cast<std::int16_t>(type);
    record().OpenedFileName = data_.filePath("field.ABC").toStdString();
    record().SaveFileName = "";
    const Seen seen = LookAtDialogOf("mnuFileSaveAs");
    EXPECT_EQ(seen.title, "Save As");
    EXPECT_EQ(seen.filters, QStringList(filter));
    EXPECT_EQ(seen.selected, filter);
    EXPECT_TRUE(seen.saves);
    EXPECT_EQ(seen.name, type == kNoDesign ? "" : "field" + ToQt(ExtensionOf(static_cast<std::int16_t>(type))));
  }
}

// A name typed without its extension: the file that it comes to is the one that the question is about.
TEST_F(DesignFilesWindowTest, SaveAsAsksBeforeItReplacesTheFileThatTheNameComesTo) {
  record().DesignType = kPlanned;
  const QString path = data_.filePath("east.PFD");
  QFile file(path);
  ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write("former") == 6);
  file.close();
  QString asked;
  // The dialog comes back after a No; then it is cancelled.
  QTimer leaving;
  QObject::connect(&leaving, &QTimer::timeout, [&asked] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog != nullptr && !asked.isEmpty()) dialog->reject();
  });
  leaving.start(20);
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(name, nullptr);
    QTest::qWait(1);
    EXPECT_EQ(name->text(), ".PFD");
    EXPECT_EQ(name->cursorPosition(), 0);
    // Into the field itself: the dialog sets no name while the field has the focus.
    name->setText(data_.filePath("east"));
    QTimer::singleShot(0, qApp, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      asked = box->text();
      box->button(QMessageBox::No)->click();
    });
    static_cast<QDialog*>(dialog)->accept();
  });
  Choose("mnuFileSaveAs");
  EXPECT_EQ(asked, "east.PFD is there already, in " + data_.path() + ". Replace it?");
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  EXPECT_EQ(file.readAll(), "former");
}

TEST_F(DesignFilesWindowTest, PassesOverWhatIsNoFile) {
  QMimeData data;
  data.setText("Level forty");
  QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

}  // namespace
}  // namespace torvale
