#include "files/file_store.h"

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

#include "file_program.h"
#include "files/file_fault.h"

namespace torvale {
namespace {

struct FileStoreTest : FileProgram, ::testing::Test {
  const std::string path = Path("x");
};

TEST_F(FileStoreTest, WhatIsWrittenIsRead) {
  const std::string text(250000, 'n');
  WriteBytes(program, path, text);
  EXPECT_EQ(ReadBytes(path), text);
  WriteBytes(program, path, "");
  EXPECT_EQ(ReadBytes(path), "");
}

TEST_F(FileStoreTest, AFailureIsThrownAsTheSystemsNumber) {
  WriteTestFile(path, "former");
  host.disk = [](DiskStep step, const std::filesystem::path&) { return step == DiskStep::kWrite ? ENOSPC : 0; };
  EXPECT_EQ(ErrorOf([&] { WriteBytes(program, path, "new"); }), ENOSPC);
  EXPECT_EQ(BytesOf(path), "former");
  EXPECT_EQ(main.sbStatusBar.caption, "") << "nothing is lost, nothing is told";
}

// The folder takes no other file, and once the file itself is begun the disk fails for good: step 6 and on.
TEST_F(FileStoreTest, WhereAFileIsBrokenTheStatusBarSaysWhereTheFormerContentIs) {
  WriteTestFile(path, "former");
  host.disk = [count = 0](DiskStep, const std::filesystem::path&) mutable {
    ++count;
    return count == 1 ? EACCES : count > 7 ? EIO : 0;
  };
  EXPECT_EQ(ErrorOf([&] { WriteBytes(program, path, "new"); }), EIO);
  const std::string begin = "Writing " + path + " failed half way; its former content is kept in ";
  ASSERT_TRUE(main.sbStatusBar.caption.starts_with(begin)) << main.sbStatusBar.caption;
  EXPECT_EQ(BytesOf(main.sbStatusBar.caption.substr(begin.size())), "former");
}

TEST_F(FileStoreTest, WhatCannotBeRead) {
  EXPECT_EQ(ErrorOf([&] { ReadBytes(path); }), ENOENT);
  EXPECT_EQ(ErrorOf([&] { ReadBytes(host.ProgramFolder()); }), EISDIR);
  WriteTestFile(path, std::string((8U << 20U) + 1, 'n'));
  EXPECT_EQ(ErrorOf([&] { ReadBytes(path); }), EFBIG);
}

// A file as it seems, which opens and can't be read from its beginning.
TEST_F(FileStoreTest, AReadThatFailsIsThrownAsTheSystemsNumber) {
  EXPECT_EQ(ErrorOf([&] { ReadBytes("/proc/self/mem"); }), EIO);
}

TEST_F(FileStoreTest, AFileThatWasReadIsClosed) {
  WriteTestFile(path, "text");
  const auto open_files = [] {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
  };
  const auto before = open_files();
  ReadBytes(path);
  EXPECT_EQ(open_files(), before);
}

// Nobody writes to the pipe, and the device never ends.
TEST_F(FileStoreTest, WhatIsNoFileIsNotRead) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { ReadBytes(path); }), EOPNOTSUPP);
  EXPECT_EQ(ErrorOf([&] { ReadBytes("/dev/zero"); }), EOPNOTSUPP);
}

// A design whose rows take many writes, saved over its former self.
TEST_F(FileStoreTest, ADesignIsNotLostWhicheverStepFails) {
  TypeSurvey();
  mnuDesignField_Click(program);
  record.HoleRows = 2500;
  ASSERT_EQ(Save(path), "");
  const std::string design = record.SaveFileName;
  const std::string former = BytesOf(design);
  ASSERT_GE(former.size(), 5U * 32768);
  main.txtInfo[4].Set("changed");
  const int steps = static_cast<int>(former.size() / 32768) + 5;  // made, rights, writes, flush, name
  for (int n = 1; n <= steps; ++n) {
    // What the file held is kept beforehand, in steps of its own that can't make the save fail.
    host.disk = [n, count = 0](DiskStep, const std::filesystem::path& at) mutable {
      const bool own = at.string().find("/versions/") == std::string::npos;
      return own && ++count == n ? ENOSPC : 0;
    };
    ASSERT_EQ(Save(design), std::string(kSavingFailed) + " 28") << n;
    // Not by EXPECT_EQ: to show two texts of so many lines line by line takes more memory than there is.
    ASSERT_TRUE(BytesOf(design) == former) << n;
  }
}

}  // namespace
}  // namespace torvale
