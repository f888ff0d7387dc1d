#include "files/file_store.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "file_program.h"
#include "files/file_fault.h"

namespace torvale {
namespace {

constexpr int kParts = 8;  // writes of the long text below: seven and a part

// Fails the n-th write of a file, counted from 1, with `error`.
SinkFilter Failing(int n, int error) {
  return [n, error](const std::string&, ByteSink sink) -> ByteSink {
    return [n, error, sink = std::move(sink), count = 0](std::string_view bytes) mutable {
      return ++count == n ? error : sink(bytes);
    };
  };
}

struct FileStoreTest : FileProgram, ::testing::Test {
  const std::string path = Path("x");
  const std::string kept = path + ".before-save";
  const std::string text = std::string(250000, 'n');
  int Write(std::string_view bytes, const SinkFilter& filter = {}) {
    return ErrorOf([&] { WriteBytes(path, bytes, filter); });
  }
};

TEST_F(FileStoreTest, WhatIsWrittenIsRead) {
  EXPECT_EQ(Write(text), 0);
  EXPECT_EQ(ReadBytes(path), text);
  EXPECT_EQ(Write(""), 0);
  EXPECT_EQ(ReadBytes(path), "");
  EXPECT_FALSE(Exists(kept));
}

TEST_F(FileStoreTest, AFailedWriteLeavesTheFormerContentBesideWhatWasWritten) {
  for (int n = 1; n <= kParts; ++n) {
    WriteTestFile(path, "former");
    EXPECT_EQ(Write(text, Failing(n, ENOSPC)), ENOSPC) << n;
    EXPECT_EQ(BytesOf(kept), "former") << n;
    EXPECT_TRUE(text.starts_with(BytesOf(path))) << n;
    EXPECT_EQ(BytesOf(path).size(), static_cast<std::size_t>(n - 1) * 32768) << n;
    EXPECT_EQ(Write("new"), 0) << n;
    EXPECT_EQ(BytesOf(path), "new") << n;
    EXPECT_FALSE(Exists(kept)) << n;
  }
  EXPECT_EQ(Write(text, Failing(kParts + 1, ENOSPC)), 0) << "the text has more parts than were failed";
}

TEST_F(FileStoreTest, ASecondFailureKeepsTheOlderContent) {
  WriteTestFile(path, "former");
  EXPECT_EQ(Write(text, Failing(3, EIO)), EIO);
  EXPECT_EQ(Write(text, Failing(5, EIO)), EIO);
  EXPECT_EQ(BytesOf(kept), "former");
}

TEST_F(FileStoreTest, ANewFileHasNothingToKeep) {
  EXPECT_EQ(Write(text, Failing(2, ENOSPC)), ENOSPC);
  EXPECT_FALSE(Exists(kept));
}

// The process dies in the middle of the n-th write.
TEST_F(FileStoreTest, AProgramThatIsKilledLeavesTheFormerContent) {
  for (int n = 1; n <= kParts; ++n) {
    WriteTestFile(path, "former");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      Write(text, [n](const std::string&, ByteSink sink) -> ByteSink {
        return [n, sink = std::move(sink), count = 0](std::string_view bytes) mutable {
          if (++count == n) {
            sink(bytes.substr(0, bytes.size() / 2));
            ::raise(SIGKILL);
          }
          return sink(bytes);
        };
      });
      ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << n;
    EXPECT_EQ(BytesOf(kept), "former") << n;
    EXPECT_EQ(Write("new"), 0);
    EXPECT_FALSE(Exists(kept)) << n;
  }
}

TEST_F(FileStoreTest, AFileThatCannotBeOpenedStaysAsItWas) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer opens files of its own, which this test forbids";
#endif
  WriteTestFile(path, "former");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const int next = ::dup(0);
  ASSERT_GE(next, 0);
  ::close(next);
  const rlimit none{static_cast<rlim_t>(next), before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
  const int error = Write("new");
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(error, EMFILE);
  EXPECT_EQ(BytesOf(path), "former");
  EXPECT_FALSE(Exists(kept));
}

TEST_F(FileStoreTest, ALinkStaysALink) {
  WriteTestFile(Path("target"), "former");
  std::filesystem::create_symlink(Path("target"), path);
  EXPECT_EQ(Write("new"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(path));
  EXPECT_EQ(BytesOf(Path("target")), "new");
  EXPECT_FALSE(Exists(Path("target.before-save")));
}

TEST_F(FileStoreTest, WhatCannotBeWritten) {
  EXPECT_EQ(ErrorOf([&] { WriteBytes(Path("nowhere/x"), "a"); }), ENOENT);
  EXPECT_EQ(ErrorOf([&] { WriteBytes(host.ProgramFolder(), "a"); }), EISDIR);
  EXPECT_EQ(ErrorOf([&] { WriteBytes("/dev/full", "a"); }), ENOSPC);
  EXPECT_EQ(ErrorOf([&] { WriteBytes("", "a"); }), ENOENT);
  EXPECT_EQ(ErrorOf([&] { WriteBytes(Path(std::string(300, 'n')), "a"); }), ENAMETOOLONG);
}

TEST_F(FileStoreTest, WhatCannotBeRead) {
  EXPECT_EQ(ErrorOf([&] { ReadBytes(path); }), ENOENT);
  EXPECT_EQ(ErrorOf([&] { ReadBytes(host.ProgramFolder()); }), EISDIR);
  EXPECT_EQ(ErrorOf([&] { ReadBytes("/dev/zero"); }), EFBIG);
}

// Nobody writes to it: it would be waited for.
TEST_F(FileStoreTest, APipeIsNotRead) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { ReadBytes(path); }), ESPIPE);
}

// A design whose rows take many writes, saved over its former self.
TEST_F(FileStoreTest, ADesignIsNotLostWhicheverWriteFails) {
  TypeSurvey();
  mnuDesignField_Click(program);
  record.HoleRows = 2500;
  ASSERT_EQ(Save(path), "");
  const std::string design = record.SaveFileName;
  const std::string former = BytesOf(design);
  const int writes = static_cast<int>(former.size() / 32768) + 1;
  ASSERT_GE(writes, 5);
  main.txtInfo[4].Set("changed");
  for (int n = 1; n <= writes; ++n) {
    EXPECT_EQ(Save(design, Failing(n, ENOSPC)), std::string(kSavingFailed) + " 28") << n;
    EXPECT_EQ(BytesOf(design + ".before-save"), former) << n;
    EXPECT_NE(BytesOf(design), former) << n;
  }
  EXPECT_EQ(Open(design + ".before-save"), "");
  EXPECT_EQ(main.txtInfo[4].text(), "Levee Road, gate 2");
}

}  // namespace
}  // namespace torvale
