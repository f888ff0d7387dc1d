// Every write of every command fails in turn, and the program dies ahead of every step: the former content or the new
// one is whole under each name, the user is told, and nothing typed is lost.
#include "failing_disk.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>

#include "support/file_bytes.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr int kMostSteps = 200;

// Counts the steps, and fails the n-th, or that one and all that follow.
DiskWatch Failing(int n, int error, bool for_good, int& count) {
  return [=, &count](DiskStep, const fs::path&) { return ++count == n || (for_good && count > n) ? error : 0; };
}

bool Holds(const Snapshot& files, const std::string& name, const std::string& content) {
  const auto found = files.find(name);
  return found != files.end() && found->second == content;
}

bool IsBeside(const std::string& name) {
  return name.find(".torvale-") != std::string::npos;
}

// Of a file with two names the one that it is written by.
std::string FirstNameOf(const std::string& name) {
  return name.starts_with(kAgain) ? name.substr(kAgain.size()) : name;
}

class FailingDiskTest : public ::testing::TestWithParam<Writing> {
 protected:
  void Prepare() {
    work.Reset();
    typed = InputsOf(*work.program);
    GetParam().prepare(work);
    work.host.messages.clear();
  }

  std::string Told() const {
    std::string told = work.program->main.sbStatusBar.caption;
    for (const Shown& message : work.host.messages) told += "\n" + message.body;
    return told;
  }

  // In words, wherever it was told.
  bool IsToldOf(int error) const { return Told().find(std::generic_category().message(error)) != std::string::npos; }

  // A file that was written in place and broken by a disk that went on failing, with its former content where the
  // status bar says.
  bool IsKept(const std::string& name, const std::string& former) const {
    const std::string told = Told();
    const std::string begin = "Writing " + work.Path(name) + " failed half way; its former content is kept in ";
    const std::size_t at = told.find(begin);
    if (at == std::string::npos) return false;
    const std::size_t end = std::min(told.find(". ", at + begin.size()), told.find('\n', at + begin.size()));
    return BytesOf(told.substr(at + begin.size(), end - at - begin.size())) == former;
  }

  // A file that was being written in place when the program died has its former content among what is kept.
  bool IsAmongKept(const Snapshot& before, const std::string& name) const {
    const auto former = before.find(name);
    const Snapshot files = work.Files();
    return former != before.end() && before.contains(std::string(kAgain) + name) &&
           std::any_of(files.begin(), files.end(), [&](const auto& file) {
             return file.first.starts_with("user/kept/") && file.second == former->second;
           });
  }

  // After a run that may have failed: each file is as before or as after, and where one is not as after it is told.
  // A disk that goes on failing may not take away again what was begun beside a file either.
  void ExpectWhole(const Snapshot& before, const Snapshot& after, int error, bool for_good) {
    Snapshot now = work.Files();
    bool behind = false;
    for (const auto& [name, content] : now) {
      if (IsJournal(name) || name.starts_with("user/kept/")) continue;
      if (for_good && IsBeside(name)) continue;
      const bool is_new = Holds(after, name, content);
      const bool whole = is_new || Holds(before, name, content);
      const std::string first = FirstNameOf(name);
      const auto former = before.find(first);
      EXPECT_TRUE(whole || (former != before.end() && IsKept(first, former->second))) << name << "\n" << Told();
      behind = behind || !is_new;
    }
    for (const auto& [name, content] : before) {
      EXPECT_TRUE(IsJournal(name) || now.contains(name)) << name << " is gone";
    }
    for (const auto& [name, content] : after) behind = behind || (!IsJournal(name) && !now.contains(name));
    if (behind) {
      EXPECT_TRUE(IsToldOf(error)) << Told();
    }
  }

  // The program dies; the next one has all that was typed, in a file or to be brought back.
  void ExpectNothingLost() {
    work.program.reset();
    work.host.disk = nullptr;
    work.host.messages.clear();
    work.Start();
    EXPECT_TRUE(work.host.messages.empty());
    if (work.program->main.mnuFileBringBack.enabled) {
      Click(*work.program, "mnuFileBringBack");
      const InputTexts back = InputsOf(*work.program);
      EXPECT_TRUE(std::equal(typed.begin(), typed.begin() + PlaceOf(InputKind::kPreference), back.begin()));
      return;
    }
    const Snapshot files = work.Files();
    EXPECT_TRUE(std::any_of(files.begin(), files.end(), [&](const auto& file) {
      return file.first.ends_with(".PFD") && file.second.find("South") != std::string::npos;
    })) << "what was typed is in no design and not offered";
  }

  WorkFolder work;
  InputTexts typed;  // before the command
};

TEST_P(FailingDiskTest, WhicheverStepFails) {
  Prepare();
  const Snapshot before = work.Files();
  int steps = 0;
  work.host.disk = Failing(0, 0, false, steps);
  GetParam().run(work);
  const Snapshot after = work.Files();
  ASSERT_GT(steps, 1);
  for (const std::string& name : GetParam().writes) {
    ASSERT_TRUE(after.contains(name)) << name;
    EXPECT_FALSE(Holds(before, name, after.at(name))) << name << " is not written anew";
  }
  for (const bool for_good : {false, true}) {
    for (const int error : for_good ? std::vector{EIO} : std::vector{ENOSPC, EIO, EFBIG}) {
      for (int n = 1; n <= steps; ++n) {
        SCOPED_TRACE(std::to_string(n) + " of " + std::to_string(steps) + (for_good ? " and on" : ""));
        Prepare();
        int count = 0;
        work.host.disk = Failing(n, error, for_good, count);
        GetParam().run(work);
        work.host.disk = nullptr;
        ExpectWhole(before, after, error, for_good);
        ExpectNothingLost();
        if (HasFailure()) return;
      }
    }
  }
}

// Runs the command in a process of its own that dies ahead of the n-th step; false once it ends of itself.
bool DiesAt(int n, WorkFolder& work, const Writing& writing) {
  const pid_t child = ::fork();
  if (child == 0) {
    work.Reset();
    writing.prepare(work);
    work.host.disk = [n, count = 0](DiskStep, const fs::path&) mutable {
      if (++count == n) ::raise(SIGKILL);
      return 0;
    };
    writing.run(work);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST_P(FailingDiskTest, WhereverTheProgramIsKilled) {
  Prepare();
  const Snapshot before = work.Files();
  GetParam().run(work);
  const Snapshot after = work.Files();
  work.program.reset();
  int n = 1;
  for (; DiesAt(n, work, GetParam()); ++n) {
    ASSERT_LT(n, kMostSteps);
    SCOPED_TRACE(n);
    for (const auto& [name, content] : work.Files()) {
      if (IsJournal(name) || IsBeside(name)) continue;
      if (name.starts_with("user/kept/")) continue;
      const bool whole = Holds(after, name, content) || Holds(before, name, content);
      EXPECT_TRUE(whole || IsAmongKept(before, FirstNameOf(name))) << name;
    }
    ExpectNothingLost();
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(n, 2);
}

// A real limit on the size of files, which breaks a write off in its middle.
TEST_P(FailingDiskTest, WhateverTheLimitOnTheSizeOfFiles) {
  Prepare();
  const Snapshot before = work.Files();
  GetParam().run(work);
  const Snapshot after = work.Files();
  work.program.reset();
  for (const rlim_t limit : {0U, 1U, 20U, 300U, 1000U, 2000U}) {
    SCOPED_TRACE(limit);
    const pid_t child = ::fork();
    if (child == 0) {
      Prepare();
      const rlimit bytes{limit, RLIM_INFINITY};
      ::setrlimit(RLIMIT_FSIZE, &bytes);
      GetParam().run(work);
      ExpectWhole(before, after, EFBIG, false);
      ::_exit(HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    ASSERT_FALSE(HasFailure());
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, FailingDiskTest, ::testing::ValuesIn(AllWritings()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace torvale
