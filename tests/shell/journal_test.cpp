#include "shell/journal.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "support/fake_host.h"
#include "support/file_bytes.h"

namespace torvale {
namespace {

InputTexts Texts(std::initializer_list<std::pair<int, std::string>> filled) {
  InputTexts texts(kInputPlaces);
  for (const auto& [place, text] : filled) texts[static_cast<std::size_t>(place)] = text;
  return texts;
}

int FilesIn(const std::string& folder) {
  std::error_code none;
  int count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder, none)) ++count;
  return count;
}

const InputTexts kTyped = Texts({{PlaceOfCell({3, 2}), "1250"},
                                 {PlaceOf(InputKind::kInfoField), "Dunn\tand \\n\nsons \xE2\x80\x9D"},
                                 {PlaceOf(InputKind::kPreference, 15), "*.*"},
                                 {PlaceOf(InputKind::kPipe), "R"},
                                 {PlaceOf(InputKind::kHoles), "1/4\n3/8\n"},
                                 {PlaceOf(InputKind::kSoil), "3"},
                                 {PlaceOf(InputKind::kFileName, 2), "/home/x/dunn, east.PFD"}});

TEST(JournalText, ComesBackWordForWord) {
  const std::string text = "TORVALE journal 1\n" + JournalText(InputTexts(kInputPlaces), kTyped, false, 1234);
  const LostWork work = ReadJournal(text);
  EXPECT_EQ(work.texts, kTyped);
  EXPECT_EQ(work.moment, 1234);
  EXPECT_FALSE(work.stored);
}

TEST(JournalText, TellsOnlyWhatChanged) {
  InputTexts now = kTyped;
  now[static_cast<std::size_t>(PlaceOfCell({319, 8}))] = "20";
  now[PlaceOf(InputKind::kHoles)] = "";
  EXPECT_EQ(JournalText(kTyped, now, true, 5), "Grid1 319 8\t20\nlistHolesSelected\t\nat\t5\nstored\n");
}

// Wherever the end of the program cuts a journal short, what stood in whole lines ahead counts, and nothing else.
TEST(JournalText, CutShortItGivesItsWholeLines) {
  const std::string text = "TORVALE journal 1\n" + JournalText(InputTexts(kInputPlaces), kTyped, false, 1234);
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const LostWork work = ReadJournal(std::string_view(text).substr(0, length));
    for (int place = 0; place < kInputPlaces; ++place) {
      const auto i = static_cast<std::size_t>(place);
      EXPECT_TRUE(work.texts[i] == kTyped[i] || work.texts[i].empty()) << place << " cut at " << length;
    }
  }
}

TEST(JournalText, PassesOverWhatItDoesNotUnderstand) {
  const LostWork work = ReadJournal(
      "TORVALE journal 1\nGrid1 0 0\tx\nGrid1 320 0\tx\nGrid1 1 9\tx\nGrid1 a 1\tx\nGrid1\nfuture\tx\n"
      "txtInfo(6)\tx\n\t\nGrid1 1 0\t0\nat\tx\n");
  EXPECT_EQ(work.texts, Texts({{0, "0"}}));
  EXPECT_EQ(work.moment, 0);
}

// What stands behind a first line that is damaged is read all the same; what another version has written is not.
TEST(JournalText, ItsHeadingMayBeDamaged) {
  EXPECT_EQ(ReadJournal("TORVALE jourmal 1\nGrid1 1 0\t0\nat\t1\n").texts, Texts({{0, "0"}}));
  EXPECT_EQ(ReadJournal("Grid1 1 0\t0\nat\t1\n").texts, Texts({{0, "0"}}));
  EXPECT_EQ(ReadJournal("TORVALE journal 2\nGrid1 1 0\t0\nat\t1\n").texts, InputTexts(kInputPlaces));
}

// What follows the mark counts as not stored again.
TEST(JournalText, IsStoredOnlyAtItsEnd) {
  EXPECT_TRUE(ReadJournal("TORVALE journal 1\nGrid1 1 0\t0\nat\t1\nstored\n").stored);
  EXPECT_FALSE(ReadJournal("TORVALE journal 1\nat\t1\nstored\nGrid1 1 0\t0\nat\t2\n").stored);
  EXPECT_FALSE(ReadJournal("TORVALE journal 1\nat\t1\nstored\nat\t2\n").stored) << "it is not any more";
  EXPECT_FALSE(ReadJournal("TORVALE journal 1\nat\t1\nstored\nGrie1 1 0\t0\n").stored);
}

struct JournalTest : ::testing::Test {
  FakeHost host;
  Journal journal;
};

TEST_F(JournalTest, IsFoundOnceItsProgramHasGone) {
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  ASSERT_EQ(FlushJournal(host, journal), 0);
  EXPECT_TRUE(FindLostWork(host).empty());  // its program lives
  LeaveJournal(journal);
  const std::vector<LostWork> lost = FindLostWork(host);
  ASSERT_EQ(lost.size(), 1U);
  EXPECT_EQ(lost[0].texts, kTyped);
  EXPECT_EQ(lost[0].moment, host.now);
  EXPECT_TRUE(RemoveLostWork(lost[0]));
  EXPECT_TRUE(FindLostWork(host).empty());
}

TEST_F(JournalTest, StoredWorkNeedsNone) {
  EXPECT_EQ(WriteJournal(host, journal, kTyped, true), 0);
  EXPECT_EQ(FilesIn(JournalFolder(host)), 0);
  InputTexts more = kTyped;
  more[0] = "0";
  WriteJournal(host, journal, more, false);
  WriteJournal(host, journal, more, true);  // it was saved
  LeaveJournal(journal);
  EXPECT_TRUE(FindLostWork(host).empty());
  EXPECT_EQ(FilesIn(JournalFolder(host)), 0);
}

TEST_F(JournalTest, TwoProgramsHaveAFileEach) {
  Journal other;
  const InputTexts second = Texts({{PlaceOf(InputKind::kInfoField), "Second"}});
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  ASSERT_EQ(WriteJournal(host, other, second, false), 0);
  EXPECT_NE(journal.path, other.path);
  host.now += 1000;
  InputTexts later = second;
  later[1] = "9.5";
  ASSERT_EQ(WriteJournal(host, other, later, false), 0);
  LeaveJournal(journal);
  LeaveJournal(other);
  const std::vector<LostWork> lost = FindLostWork(host);
  ASSERT_EQ(lost.size(), 2U);
  EXPECT_EQ(lost[0].texts, later);  // the newest first
  EXPECT_EQ(lost[1].texts, kTyped);
}

// A write that fails half way leaves a line cut short; the next one begins another file with all of it.
TEST_F(JournalTest, BeginsAnewAfterAWriteThatFailed) {
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  const std::string former = journal.path;
  InputTexts more = kTyped;
  more[0] = "0";
  host.disk = [](DiskStep step, const std::filesystem::path&) { return step == DiskStep::kWrite ? ENOSPC : 0; };
  EXPECT_EQ(WriteJournal(host, journal, more, false), ENOSPC);
  EXPECT_EQ(WriteJournal(host, journal, more, false), ENOSPC);
  EXPECT_NE(BytesOf(former), "");  // what was written before stands
  host.disk = nullptr;
  EXPECT_EQ(WriteJournal(host, journal, more, false), 0);
  EXPECT_NE(journal.path, former);
  EXPECT_EQ(FilesIn(JournalFolder(host)), 1);
  LeaveJournal(journal);
  ASSERT_EQ(FindLostWork(host).size(), 1U);
  EXPECT_EQ(FindLostWork(host)[0].texts, more);
}

TEST_F(JournalTest, BeginsAnewWhenItHasGrownLong) {
  InputTexts texts = kTyped;
  for (int i = 0; i < 600; ++i) {
    texts[PlaceOf(InputKind::kInfoField)] = std::string(10'000, static_cast<char>('a' + i % 26));
    ASSERT_EQ(WriteJournal(host, journal, texts, false), 0);
  }
  EXPECT_EQ(FilesIn(JournalFolder(host)), 1);
  EXPECT_LT(std::filesystem::file_size(journal.path), std::uintmax_t{5} << 20U);
  LeaveJournal(journal);
  EXPECT_EQ(FindLostWork(host).at(0).texts, texts);
}

TEST_F(JournalTest, KeepsTheTwentyNewestWorks) {
  for (int i = 0; i < 25; ++i) {
    host.now += 1000;
    Journal left;
    ASSERT_EQ(WriteJournal(host, left, Texts({{PlaceOf(InputKind::kInfoField), std::to_string(i)}}), false), 0);
    LeaveJournal(left);
  }
  const std::vector<LostWork> lost = FindLostWork(host);
  ASSERT_EQ(lost.size(), 20U);
  EXPECT_EQ(lost.front().texts[PlaceOf(InputKind::kInfoField)], "24");
  EXPECT_EQ(lost.back().texts[PlaceOf(InputKind::kInfoField)], "5");
  EXPECT_EQ(FilesIn(JournalFolder(host)), 20);
}

// The lines that tell the moment are damaged: the work counts as of when its journal was begun, which its name tells.
TEST_F(JournalTest, IsFoundWithoutItsMoment) {
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  LeaveJournal(journal);
  std::string text = BytesOf(journal.path);
  text.erase(text.find("\nat\t") + 1);
  std::ofstream(journal.path, std::ios::binary | std::ios::trunc) << text;
  host.now += std::int64_t{1000} * 60 * 60 * 24 * 3;
  const std::vector<LostWork> lost = FindLostWork(host);
  ASSERT_EQ(lost.size(), 1U);
  EXPECT_EQ(lost[0].texts, kTyped);
  EXPECT_EQ(lost[0].moment, 1'795'262'400'000);
}

// The journal of a later version that was run beside this one is not this one's to take away.
TEST_F(JournalTest, OneOfAnotherFormStays) {
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  LeaveJournal(journal);
  std::ofstream(journal.path, std::ios::binary | std::ios::trunc) << "TORVALE journal 2\nsomething else\n";
  host.now += std::int64_t{1000} * 60 * 60 * 24 * 3;
  EXPECT_TRUE(FindLostWork(host).empty());
  EXPECT_EQ(FilesIn(JournalFolder(host)), 1);
}

TEST_F(JournalTest, IsForItsUserAlone) {
  if (std::filesystem::path::preferred_separator != '/') GTEST_SKIP() << "who may read a file is its folder's to say";
  ASSERT_EQ(WriteJournal(host, journal, kTyped, false), 0);
  EXPECT_EQ(std::filesystem::status(journal.path).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

}  // namespace
}  // namespace torvale
