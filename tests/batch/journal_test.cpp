#include "batch/journal.h"

#include <gtest/gtest.h>

#include "batch/temporary_folder.h"
#include "batch/text_files.h"

namespace torvale {
namespace {

FieldOutcome Outcome(const std::string& rows) {
  FieldOutcome outcome;
  outcome.rows = rows;
  return outcome;
}

struct BatchJournalTest : ::testing::Test {
  std::uintmax_t Size() const { return std::filesystem::file_size(path); }
  // What is known of fields 1 to 3 under the keys 1 to 3.
  std::string Known() {
    Journal journal(path);
    std::string rows;
    for (int number = 1; number <= 3; ++number) {
      const auto outcome = journal.Find(number, static_cast<std::uint64_t>(number), folder / "");
      rows += outcome ? outcome->rows : "none ";
    }
    return rows;
  }

  const TestFolder folder;
  const std::filesystem::path path = folder / "results.journal";
};

// Three fields, worked four times over: one line of each is left.
TEST_F(BatchJournalTest, CompactedItHoldsTheNewestOfEachField) {
  std::uintmax_t once = 0;
  {
    Journal journal(path);
    for (int round = 0; round < 4; ++round) {
      for (int number = 3; number >= 1; --number) {
        journal.Add(number, static_cast<std::uint64_t>(number), Outcome("r" + std::to_string(round) + " "));
      }
      if (round == 0) once = Size();
    }
    EXPECT_EQ(Size(), 4 * once);
    journal.Compact();
    EXPECT_EQ(Size(), once);
    EXPECT_FALSE(std::filesystem::exists(folder / "results.journal.new"));
    // It goes on behind what is left.
    journal.Add(2, 2, Outcome("again "));
    EXPECT_EQ(journal.Last(1)->rows, "r3 ");
    EXPECT_EQ(journal.Last(2)->rows, "again ");
  }
  EXPECT_EQ(Known(), "r3 again r3 ");
}

TEST_F(BatchJournalTest, WithNothingToDropItStaysAsItIs) {
  Journal journal(path);
  journal.Add(1, 1, Outcome("a "));
  const auto before = std::filesystem::last_write_time(path);
  journal.Compact();
  EXPECT_EQ(std::filesystem::last_write_time(path), before);
  EXPECT_EQ(Known(), "a none none ");
}

// A run that is killed compacts nothing; the next one does when it opens more that is old than new.
TEST_F(BatchJournalTest, OneThatWasLeftLongIsCompactedWhenItIsOpened) {
  std::uintmax_t once = 0;
  {
    Journal journal(path);
    for (int round = 0; round < 3; ++round) {
      journal.Add(1, 1, Outcome("r" + std::to_string(round) + " "));
      if (round == 0) once = Size();
    }
  }
  EXPECT_EQ(Known(), "r2 none none ");
  EXPECT_EQ(Size(), once);
}

// An entry that was cut off goes too; those ahead of it are whole.
TEST_F(BatchJournalTest, WhatWasCutOffIsWrittenOver) {
  {
    Journal journal(path);
    journal.Add(1, 1, Outcome("a "));
    journal.Add(2, 2, Outcome("bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb "));
  }
  std::filesystem::resize_file(path, Size() - 8);
  {
    Journal journal(path);
    EXPECT_FALSE(journal.Last(2));
    journal.Add(3, 3, Outcome("c "));
    journal.Add(3, 3, Outcome("d "));
    journal.Compact();
  }
  EXPECT_EQ(Known(), "a none d ");
}

TEST_F(BatchJournalTest, ADiskThatTakesNothingLeavesItAsItIs) {
  Journal journal(path);
  journal.Add(1, 1, Outcome("a "));
  journal.Add(1, 1, Outcome("b "));
  std::filesystem::create_directory(folder / "results.journal.new");  // nothing can be written there
  journal.Compact();
  EXPECT_EQ(journal.Last(1)->rows, "b ");
  EXPECT_EQ(Known(), "b none none ");
}

}  // namespace
}  // namespace torvale
