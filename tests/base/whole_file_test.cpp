#include "base/whole_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <vector>

#include "base/platform.h"
#include "support/file_bytes.h"
#include "support/own_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// More than any run below takes.
constexpr int kMostSteps = 100;

struct WholeFile : ::testing::Test {
  int Write(std::string_view bytes, const DiskWatch& watch = {}) {
    result = WriteWhole(path, bytes, kept, watch);
    return result.error;
  }
  static void Put(const fs::path& file, std::string_view bytes) { std::ofstream(file, std::ios::binary) << bytes; }
  // The names in a folder; none where it isn't there.
  static std::vector<std::string> NamesIn(const fs::path& in) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(in, ignored)) names.push_back(entry.path().filename().string());
    return names;
  }
  static mode_t ModeOf(const fs::path& file) {
    struct stat status {};
    ::stat(file.c_str(), &status);
    return status.st_mode & 07777;
  }

  OwnFolder own;
  fs::path folder = own.path();
  fs::path path = folder / "x";
  fs::path kept = folder / "kept";
  WholeFileResult result;
  const std::string text = std::string(250000, 'n');  // eight writes
};

using Names = std::vector<std::string>;

// Fails the n-th step, counted from 1, with `error`.
DiskWatch Failing(int n, int error) {
  return [n, error, count = 0](DiskStep, const fs::path&) mutable { return ++count == n ? error : 0; };
}

// Fails the first step of a kind.
DiskWatch FailingFirst(DiskStep kind, int error) {
  return [=, done = false](DiskStep step, const fs::path&) mutable {
    if (step != kind || done) return 0;
    done = true;
    return error;
  };
}

TEST_F(WholeFile, WhatIsWrittenStandsThereAlone) {
  EXPECT_EQ(Write(text), 0);
  EXPECT_TRUE(BytesOf(path) == text);
  EXPECT_EQ(Write("shorter"), 0);
  EXPECT_EQ(BytesOf(path), "shorter");
  EXPECT_EQ(Write(""), 0);
  EXPECT_EQ(BytesOf(path), "");
  EXPECT_EQ(NamesIn(folder), Names{"x"});
}

// A new file: one made, eight writes, a flush, a name, a flush of the folder. Over another: its rights before all.
TEST_F(WholeFile, ItIsFlushedBeforeItHasItsName) {
  std::vector<DiskStep> steps;
  const DiskWatch watch = [&](DiskStep step, const fs::path&) {
    steps.push_back(step);
    return 0;
  };
  Write("a", watch);
  const std::vector<DiskStep> made = {DiskStep::kCreate, DiskStep::kWrite, DiskStep::kFlush, DiskStep::kRename,
                                      DiskStep::kFlushFolder};
  EXPECT_EQ(steps, made);
  steps.clear();
  Write("b", watch);
  const std::vector<DiskStep> replaced = {DiskStep::kCreate, DiskStep::kTakeRights, DiskStep::kWrite,
                                          DiskStep::kFlush,  DiskStep::kRename,     DiskStep::kFlushFolder};
  EXPECT_EQ(steps, replaced);
}

// Made, its rights, eight writes, flushed, named; a folder that can't be flushed then leaves it done.
TEST_F(WholeFile, WhicheverStepFailsTheFormerContentStaysAlone) {
  Put(path, "former");
  for (int n = 1; n <= 12; ++n) {
    for (const int error : {ENOSPC, EIO, EFBIG, EDQUOT}) {
      EXPECT_EQ(Write(text, Failing(n, error)), error) << n;
      EXPECT_EQ(BytesOf(path), "former") << n;
      EXPECT_EQ(NamesIn(folder), Names{"x"}) << n;
    }
  }
  EXPECT_EQ(Write(text, Failing(13, EIO)), 0);
  EXPECT_TRUE(BytesOf(path) == text);
}

TEST_F(WholeFile, ANewFileThatFailsIsNotThere) {
  for (int n = 1; n <= 11; ++n) {  // made, eight writes, flushed, named
    EXPECT_EQ(Write(text, Failing(n, ENOSPC)), ENOSPC) << n;
    EXPECT_EQ(NamesIn(folder), Names{}) << n;
  }
}

// Runs `work` in a process that dies at the n-th step; false once it takes fewer steps and ends of itself.
template <typename Work>
bool DiesAt(int n, const Work& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    work([n, count = 0](DiskStep, const fs::path&) mutable {
      if (++count == n) ::raise(SIGKILL);
      return 0;
    });
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST_F(WholeFile, AProgramThatIsKilledLeavesOneOfTheTwo) {
  int n = 1;
  bool renamed = false;
  for (;; ++n) {
    ASSERT_LT(n, kMostSteps);
    Put(path, "former");
    if (!DiesAt(n, [&](const DiskWatch& watch) { Write(text, watch); })) break;
    const std::string now = BytesOf(path);
    EXPECT_TRUE(now == "former" || now == text) << n;
    renamed = renamed || now == text;
  }
  EXPECT_EQ(n, 14) << "it dies at each of the thirteen steps";
  EXPECT_TRUE(renamed) << "once it had its name already";
}

TEST_F(WholeFile, ModeOwnerAndGroupStay) {
  for (const mode_t mode : {0600U, 0640U, 0664U, 0755U}) {
    Put(path, "former");
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    EXPECT_EQ(Write("new"), 0);
    EXPECT_EQ(ModeOf(path), mode);
  }
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives a file to another";
  ASSERT_EQ(::chown(path.c_str(), 1234, 2345), 0);
  EXPECT_EQ(Write("new"), 0);
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234U);
  EXPECT_EQ(status.st_gid, 2345U);
}

// As any new file of the user's.
TEST_F(WholeFile, ANewFileHasTheRightsOfTheUsersMask) {
  const mode_t before = ::umask(027);
  Write("new");
  ::umask(before);
  EXPECT_EQ(ModeOf(path), 0640U);
}

TEST_F(WholeFile, AFileMarkedReadOnlyStays) {
  Put(path, "former");
  ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
  EXPECT_EQ(Write("new"), EACCES);
  EXPECT_EQ(BytesOf(path), "former");
  EXPECT_EQ(ModeOf(path), 0444U);
}

TEST_F(WholeFile, ALinkStaysALink) {
  Put(folder / "target", "former");
  fs::create_symlink("target", path);
  EXPECT_EQ(Write("new"), 0);
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(BytesOf(folder / "target"), "new");
}

TEST_F(WholeFile, ALinkToNothingMakesItsFile) {
  fs::create_directory(folder / "deeper");
  fs::create_symlink("deeper/target", path);
  EXPECT_EQ(Write("new"), 0);
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(BytesOf(folder / "deeper" / "target"), "new");
}

TEST_F(WholeFile, LinksThatGoRoundAreAnError) {
  fs::create_symlink("y", path);
  fs::create_symlink("x", folder / "y");
  EXPECT_EQ(Write("new"), ELOOP);
}

TEST_F(WholeFile, WhatIsNoFileIsAnErrorAtOnce) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(Write("new"), EOPNOTSUPP);
  path = "/dev/full";
  EXPECT_EQ(Write("new"), EOPNOTSUPP);
  path = folder;
  EXPECT_EQ(Write("new"), EISDIR);
  path = folder / "nowhere" / "x";
  EXPECT_EQ(Write("new"), ENOENT);
  path = "";
  EXPECT_EQ(Write("new"), ENOENT);
  path = folder / std::string(256, 'n');
  EXPECT_EQ(Write("new"), ENAMETOOLONG);
}

// 255 bytes are the longest name; the second time, too.
TEST_F(WholeFile, TheLongestNameIsWrittenAgain) {
  path = folder / std::string(255, 'n');
  EXPECT_EQ(Write("a"), 0);
  EXPECT_EQ(Write("b"), 0);
  EXPECT_EQ(BytesOf(path), "b");
}

// In place

TEST_F(WholeFile, AllNamesOfAFileGoOnNamingIt) {
  Put(path, "former");
  fs::create_hard_link(path, folder / "y");
  EXPECT_EQ(Write("new"), 0);
  EXPECT_EQ(BytesOf(folder / "y"), "new");
  EXPECT_EQ(fs::hard_link_count(path), 2U);
  EXPECT_EQ(NamesIn(kept), Names{}) << "it isn't needed once the new content stands there";
}

// A failing create refuses the file beside; the kept one is made. Whatever fails then, the content comes back.
TEST_F(WholeFile, AFileInAFolderThatTakesNoOtherIsWrittenInPlace) {
  Put(path, "former");
  EXPECT_EQ(Write(text, FailingFirst(DiskStep::kCreate, EACCES)), 0);
  EXPECT_TRUE(BytesOf(path) == text);
  EXPECT_EQ(Write("less", FailingFirst(DiskStep::kCreate, EROFS)), 0);
  EXPECT_EQ(BytesOf(path), "less");
  EXPECT_EQ(NamesIn(kept), Names{});
  EXPECT_EQ(ModeOf(kept), 0700U) << "nobody else may read what is kept";
}

TEST_F(WholeFile, InPlaceTooAFailureBringsTheFormerContentBack) {
  Put(path, "former");
  fs::create_hard_link(path, folder / "y");
  int n = 1;
  for (; Write(text, Failing(n, ENOSPC)) != 0; ++n) {
    ASSERT_LT(n, kMostSteps);
    EXPECT_EQ(result.error, ENOSPC) << n;
    EXPECT_EQ(BytesOf(path), "former") << n;
    EXPECT_TRUE(NamesIn(kept).empty() && result.kept.empty()) << n;
    fs::remove_all(kept);
  }
  // The kept folder, the file in it, its write, flush and folder; eight writes, the end, the flush.
  EXPECT_EQ(n, 16);
  EXPECT_TRUE(BytesOf(path) == text);
}

// From the seventh step on every one fails: what comes back fails too, and what is kept stays and is told.
TEST_F(WholeFile, ADiskThatGoesOnFailingLeavesTheFormerContentKept) {
  Put(path, "former");
  fs::create_hard_link(path, folder / "y");
  EXPECT_EQ(Write(text, [count = 0](DiskStep, const fs::path&) mutable { return ++count >= 7 ? EIO : 0; }), EIO);
  EXPECT_EQ(BytesOf(result.kept), "former");
  EXPECT_TRUE(result.kept.filename().string().ends_with("-x")) << result.kept;
}

TEST_F(WholeFile, AProgramThatIsKilledInPlaceLeavesTheFormerContentKept) {
  int n = 1;
  for (;; ++n) {
    ASSERT_LT(n, kMostSteps);
    fs::remove_all(kept);
    fs::remove(path);
    fs::remove(folder / "y");
    Put(path, "former");
    fs::create_hard_link(path, folder / "y");
    if (!DiesAt(n, [&](const DiskWatch& watch) { Write(text, watch); })) break;
    const std::string now = BytesOf(path);
    const Names names = NamesIn(kept);
    const bool whole = now == "former" || now == text;
    EXPECT_TRUE(whole || (names.size() == 1 && BytesOf(kept / names[0]) == "former")) << n;
  }
  EXPECT_GT(n, 15);
}

// Runs `work` as a user without rights, and gives back what it gave back.
template <typename Work>
int AsNobody(const Work& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(::setgid(65534) == 0 && ::setuid(65534) == 0 ? work() : 255);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

// A real folder without rights: the file is the user's, the folder is not.
TEST_F(WholeFile, AnotherUsersFolder) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser becomes another user";
  Put(path, "former");
  fs::create_directory(kept);
  ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
  ASSERT_EQ(::chown(kept.c_str(), 65534, 65534), 0);
  EXPECT_EQ(AsNobody([&] { return Write("new"); }), 0);
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(NamesIn(kept), Names{});
  ASSERT_EQ(::chown(path.c_str(), 0, 0), 0);
  EXPECT_EQ(AsNobody([&] { return Write("other"); }), EACCES);
  EXPECT_EQ(BytesOf(path), "new");
}

// The folder takes files, but the file is another's: replaced, it would change hands.
TEST_F(WholeFile, AnotherUsersFileThatMayBeWrittenStaysTheirs) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser becomes another user";
  Put(path, "former");
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
  EXPECT_EQ(AsNobody([&] { return Write("new"); }), 0);
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 0U);
  EXPECT_EQ(BytesOf(path), "new");
}

// A real limit: the system sends a signal that would end the program.
TEST_F(WholeFile, ALimitOnTheSizeOfFilesIsAnError) {
  Put(path, "former");
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit limit{100000, 100000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::_exit(Write(text));
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), EFBIG);
  EXPECT_EQ(BytesOf(path), "former");
  EXPECT_EQ(NamesIn(folder), Names{"x"});
}

// Two programs at a time, fifty times each: what stands there is always one of theirs, whole.
TEST_F(WholeFile, TwoProgramsThatWriteOneFileLeaveOneOfTheTwo) {
  const std::string texts[] = {std::string(150000, 'a'), std::string(100000, 'b')};
  Put(path, texts[0]);
  std::vector<pid_t> children;
  for (const std::string& mine : texts) {
    const pid_t child = ::fork();
    if (child == 0) {
      int errors = 0;
      for (int i = 0; i < 50; ++i) errors += Write(mine) != 0 ? 1 : 0;
      ::_exit(errors);
    }
    children.push_back(child);
  }
  for (int i = 0; i < 200; ++i) {
    const std::string now = BytesOf(path);
    ASSERT_TRUE(now == texts[0] || now == texts[1]) << now.size();
  }
  for (const pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
  }
  EXPECT_EQ(NamesIn(folder), Names{"x"});
}

TEST(UserDataFolderTest, IsTheDesktopsOwnOrTheUsualOne) {
  const char* const data = std::getenv("XDG_DATA_HOME");
  const std::string before = data == nullptr ? "" : data;
  ::setenv("XDG_DATA_HOME", "/somewhere", 1);
  EXPECT_EQ(UserDataFolder(), "/somewhere/torvale");
  ::setenv("XDG_DATA_HOME", "not/from/the/root", 1);
  const fs::path usual = UserDataFolder();
  EXPECT_TRUE(usual.is_absolute() && usual.string().ends_with("/.local/share/torvale")) << usual;
  data == nullptr ? ::unsetenv("XDG_DATA_HOME") : ::setenv("XDG_DATA_HOME", before.c_str(), 1);
}

}  // namespace
}  // namespace torvale
