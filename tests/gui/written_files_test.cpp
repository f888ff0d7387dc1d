// What the window's host writes itself: reports and pictures, on a disk that fails; and what it reads, its settings.
#include <unistd.h>

#include <cerrno>

#include "gui/window_test.h"
#include "reports/design_reports.h"

namespace torvale {
namespace {

class FailingHost final : public QtHost {
 public:
  using QtHost::QtHost;
  DiskWatch disk;
  int BeforeDiskStep(DiskStep step, const std::filesystem::path& path) override { return disk ? disk(step, path) : 0; }
};

class WrittenFilesTest : public WindowTest {
 protected:
  std::unique_ptr<QtHost> MakeHost() override {
    auto host = std::make_unique<FailingHost>(data_.path());
    failing_ = host.get();
    return host;
  }

  void Design() {
    TypeFields("North Forty", "400", "2");
    TypeLevelLine("300", "6", "++++++++++");
    Choose("mnuDesignField");
    Choose("mnuProfile");
  }

  static QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  static void Put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  // Writes over a former file; each step fails in turn, until none does.
  template <typename Write>
  void ExpectWhole(const char* name, const QByteArray& begin, const Write& write) {
    const QString path = data_.filePath(name);
    Put(path, "former");
    int n = 1;
    for (;; ++n) {
      ASSERT_LT(n, 200);
      failing_->disk = [n, count = 0](DiskStep step, const std::filesystem::path&) mutable {
        return ++count == n && step != DiskStep::kFlushFolder ? ENOSPC : 0;
      };
      const WholeFileResult result = write(path.toStdString());
      if (result.error == 0) break;
      EXPECT_EQ(result.error, ENOSPC);
      EXPECT_TRUE(result.kept.empty());
      EXPECT_EQ(BytesOf(path), "former") << name << ", step " << n;
    }
    EXPECT_GE(n, 6) << "made, its rights, written, flushed, named";
    EXPECT_TRUE(BytesOf(path).startsWith(begin)) << name;
    EXPECT_TRUE(QDir(data_.path()).entryList({".torvale*"}, QDir::Files | QDir::Hidden).isEmpty());
  }

  FailingHost* failing_ = nullptr;
};

TEST_F(WrittenFilesTest, ReportsAndPicturesAreReplacedWhole) {
  Design();
  ExpectWhole("report.pdf", "%PDF",
              [this](const std::string& path) { return host_->WritePdf(SummaryReport(*program_), path); });
  ExpectWhole("crown.png", "\x89PNG", [this](const std::string& path) { return host_->WriteProfile(path); });
  ExpectWhole("crown.pdf", "%PDF", [this](const std::string& path) { return host_->WriteProfile(path); });
}

// Written in place, on a disk that goes on failing: where the former content is comes back with the error.
TEST_F(WrittenFilesTest, AReportThatIsBrokenLeavesItsFormerContentKept) {
  Design();
  const QString path = data_.filePath("report.pdf");
  Put(path, "former");
  ASSERT_EQ(::link(qPrintable(path), qPrintable(data_.filePath("again.pdf"))), 0);
  failing_->disk = [count = 0](DiskStep, const std::filesystem::path&) mutable { return ++count > 6 ? EIO : 0; };
  const WholeFileResult result = host_->WritePdf(SummaryReport(*program_), path.toStdString());
  EXPECT_EQ(result.error, EIO);
  ASSERT_FALSE(result.kept.empty());
  EXPECT_EQ(BytesOf(QString::fromStdString(result.kept.string())), "former");
}

// Whatever stands in the store of settings, the window comes up, with a place on the screen.
TEST_F(WrittenFilesTest, AStartWithDamagedSettings) {
  window_->close();
  End();
  const QString store = settings_.filePath("TORVALE/TORVALE.conf");
  QSettings(kProgramTitle.data(), kProgramTitle.data()).sync();
  ASSERT_TRUE(QFile::exists(store));
  const QByteArray whole = BytesOf(store);
  ASSERT_FALSE(whole.isEmpty());
  const QByteArray garbage(3000, '\xFE');
  for (const QByteArray& bytes :
       {QByteArray(), whole.left(whole.size() / 2), garbage, whole + garbage, QByteArray("[Settings]\nMainLeft=\n"),
        QByteArray("[Settings]\nMainLeft=99999999\nMainTop=-99999999\nMainZoom=1e9\nRecentFile0=@ByteArray(x\n")}) {
    Put(store, bytes);
    Start();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(window_->screen()->availableGeometry().intersects(window_->frameGeometry()));
    window_->close();
    End();
  }
}

}  // namespace
}  // namespace torvale
