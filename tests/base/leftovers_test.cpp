// What a write that was broken off leaves beside its file, and when it goes.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <set>

#include "base/platform.h"
#include "base/whole_file.h"
#include "support/own_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

// A number that no program has any more.
std::uint64_t NumberOfTheDead() {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  return static_cast<std::uint64_t>(child);
}

struct Leftovers : ::testing::Test {
  std::string Put(const std::string& name, int hours_ago) const {
    std::ofstream(folder / name) << "left";
    fs::last_write_time(folder / name, fs::file_time_type::clock::now() - std::chrono::hours(hours_ago));
    return name;
  }
  Names NamesThere() const {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
    return names;
  }

  OwnFolder own;
  fs::path folder = own.path();
  const std::string dead = std::to_string(NumberOfTheDead());
};

TEST_F(Leftovers, GoWithTheNextWriteInTheirFolder) {
  Put(".torvale-" + dead + "-1", 25);
  Put(".torvale-" + dead + "-20", 1000);
  EXPECT_EQ(WriteWhole(folder / "x", "new", folder / "kept").error, 0);
  EXPECT_EQ(NamesThere(), Names{"x"});
}

// A write that fails leaves all as it is.
TEST_F(Leftovers, StayWhereTheWriteFails) {
  const std::string left = Put(".torvale-" + dead + "-1", 25);
  const DiskWatch full = [](DiskStep step, const fs::path&) { return step == DiskStep::kWrite ? ENOSPC : 0; };
  EXPECT_EQ(WriteWhole(folder / "x", "new", folder / "kept", full).error, ENOSPC);
  EXPECT_EQ(NamesThere(), Names{left});
}

// Of a day, of a program that runs, or with a name that no write gives.
TEST_F(Leftovers, WhatMayBeNeededStays) {
  const std::string running = std::to_string(ProcessNumber());
  const Names there = {Put(".torvale-" + dead + "-1", 23),
                       Put(".torvale-" + running + "-1", 1000),
                       Put(".torvale-" + dead, 1000),
                       Put(".torvale-" + dead + "-", 1000),
                       Put(".torvale-" + dead + "-1x", 1000),
                       Put(".torvale-" + dead + "-1.PFD", 1000),
                       Put(".torvale--1", 1000),
                       Put(".torvale-1-99999999999999999999999", 1000),
                       Put("torvale-" + dead + "-1", 1000),
                       Put("x.torvale-" + dead + "-1", 1000)};
  RemoveLeftovers(folder / "y");
  EXPECT_EQ(NamesThere(), there);
}

// In a folder that only one machine writes to, the moment makes no difference, but whether the program runs does.
TEST_F(Leftovers, YoungOnesGoWhereTheyAreToGoAtOnce) {
  Put(".torvale-" + dead + "-1", 0);
  Put(".torvale-" + dead + "-2", 25);
  const std::string running = Put(".torvale-" + std::to_string(ProcessNumber()) + "-1", 25);
  RemoveLeftoversIn(folder, std::chrono::hours(0));
  EXPECT_EQ(NamesThere(), Names{running});
  RemoveLeftoversIn(folder / "no such folder", std::chrono::hours(0));
}

TEST_F(Leftovers, OnlyFilesGo) {
  fs::create_directory(folder / (".torvale-" + dead + "-1"));
  fs::create_symlink("nowhere", folder / (".torvale-" + dead + "-2"));
  const Names there = NamesThere();
  RemoveLeftovers(folder / "y");
  EXPECT_EQ(NamesThere(), there);
}

// They lie beside the file that is written, not beside the link that leads to it.
TEST_F(Leftovers, GoFromTheFolderOfTheFileItself) {
  fs::create_directory(folder / "deeper");
  Put("deeper/.torvale-" + dead + "-1", 25);
  fs::create_symlink("deeper/target", folder / "x");
  EXPECT_EQ(WriteWhole(folder / "x", "new", folder / "kept").error, 0);
  EXPECT_EQ(NamesThere(), (Names{"deeper", "x"}));
  EXPECT_FALSE(fs::exists(folder / "deeper" / (".torvale-" + dead + "-1")));
}

TEST_F(Leftovers, AWriteThatWasKilledIsCleanedUpADayLater) {
  const fs::path path = folder / "x";
  const pid_t child = ::fork();
  if (child == 0) {
    WriteWhole(path, "new", folder / "kept", [](DiskStep step, const fs::path&) {
      if (step == DiskStep::kRename) ::raise(SIGKILL);
      return 0;
    });
    ::_exit(1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  const Names left = NamesThere();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(WriteWhole(path, "a", folder / "kept").error, 0);
  EXPECT_EQ(NamesThere().size(), 2U) << "it may yet be written, by a program on another machine";
  fs::last_write_time(folder / *left.begin(), fs::file_time_type::clock::now() - std::chrono::hours(25));
  EXPECT_EQ(WriteWhole(path, "b", folder / "kept").error, 0);
  EXPECT_EQ(NamesThere(), Names{"x"});
}

TEST(ProcessRuns, TellsTheLivingFromTheDead) {
  EXPECT_TRUE(ProcessRuns(ProcessNumber()));
  EXPECT_TRUE(ProcessRuns(1)) << "also one that is another user's";
  EXPECT_FALSE(ProcessRuns(NumberOfTheDead()));
  EXPECT_FALSE(ProcessRuns(0));
  EXPECT_FALSE(ProcessRuns(~std::uint64_t{0}));
}

}  // namespace
}  // namespace torvale
