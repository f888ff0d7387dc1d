#include "files/design_files.h"

#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>

#include "gui/window_test.h"

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

TEST_F(DesignFilesWindowTest, PassesOverWhatIsNoFile) {
  QMimeData data;
  data.setText("Level forty");
  QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

}  // namespace
}  // namespace torvale
