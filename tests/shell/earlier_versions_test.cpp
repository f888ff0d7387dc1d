#include "files/earlier_versions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>

#include "files/design_files.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/level_field.h"
#include "shell/start_up.h"
#include "support/fake_host.h"
#include "support/file_bytes.h"

namespace torvale {
namespace {

constexpr std::int64_t kHour = 60LL * 60 * 1000;
constexpr std::int64_t kDay = 24 * kHour;

struct EarlierVersionsTest : ::testing::Test {
  EarlierVersionsTest() { StartProgram(program); }

  std::string Path(std::string_view name) { return host.ProgramFolder() + "/" + std::string(name); }
  void Write(const std::string& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }
  // A save of `bytes` as the program does it.
  void Save(const std::string& path, std::string_view bytes, const VersionLimits& limits = {}) {
    said = KeepEarlierVersion(program, path, bytes, limits).text();
    Write(path, bytes);
  }
  std::vector<std::string> Contents() {
    std::vector<std::string> contents;
    for (const EarlierVersion& version : EarlierVersions(host)) contents.push_back(BytesOf(version.stored));
    return contents;
  }
  // A survey under this name, saved.
  void SaveDesign(const std::string& name, const std::string& path) {
    TypeText(program, "txtInfo(0)", name);
    program.record.SaveFileName = path;
    Click(program, "mnuFileSave");
  }

  FakeHost host;
  Program program{host};
  std::string said;
};

TEST_F(EarlierVersionsTest, EachSaveKeepsWhatTheFileHeldBefore) {
  const std::string path = Path("a.DAT");
  Save(path, "one");  // there was no file
  EXPECT_TRUE(Contents().empty());
  Save(path, "two");
  host.now += kHour;
  Save(path, "three");
  Save(path, "three");  // nothing changes
  EXPECT_EQ(Contents(), (std::vector<std::string>{"two", "one"}));
  const std::vector<EarlierVersion> versions = EarlierVersions(host);
  EXPECT_EQ(versions[0].file, std::filesystem::canonical(path));
  EXPECT_EQ(versions[0].moment, host.now);
  EXPECT_EQ(said, "");
}

// A save that fails leaves its file; what was kept for it is not kept twice by the next one.
TEST_F(EarlierVersionsTest, OneContentIsKeptOnce) {
  const std::string path = Path("a.DAT");
  Write(path, "one");
  KeepEarlierVersion(program, path, "two");
  KeepEarlierVersion(program, path, "two");
  EXPECT_EQ(Contents(), std::vector<std::string>{"one"});
}

// However its path is written, a file is one file.
TEST_F(EarlierVersionsTest, AFileIsOneFileByAnyPath) {
  std::filesystem::create_directory(Path("folder"));
  Write(Path("a.DAT"), "one");
  std::error_code error;
  std::filesystem::create_symlink(Path("a.DAT"), Path("link.DAT"), error);
  if (error) GTEST_SKIP() << "no links: " << error.message();
  KeepEarlierVersion(program, Path("folder/../a.DAT"), "two");
  KeepEarlierVersion(program, Path("link.DAT"), "two");
  EXPECT_EQ(Contents(), std::vector<std::string>{"one"});
}

TEST_F(EarlierVersionsTest, KeepsTheLastTwentyOfAFile) {
  const std::string path = Path("a.DAT");
  for (int i = 0; i <= 30; ++i) {
    host.now += 1000;
    Save(path, std::to_string(i));
  }
  const std::vector<std::string> kept = Contents();
  ASSERT_EQ(kept.size(), 20U);  // of 30 that were saved over
  EXPECT_EQ(kept.front(), "29");
  EXPECT_EQ(kept.back(), "10");
}

// Three saves a day for a hundred days: the last day keeps its three, each of the days before the last of its day, and
// twenty in all.
TEST_F(EarlierVersionsTest, DaysGoneByKeepTheirLastSave) {
  const std::string path = Path("a.DAT");
  Save(path, "start");
  for (int day = 0; day < 10; ++day) {
    for (int hour : {8, 12, 16}) {
      host.now = 1'795'219'200'000 + day * kDay + hour * kHour;  // from the day's midnight on
      Save(path, std::to_string(day) + " " + std::to_string(hour));
    }
  }
  // Kept under the moment of the save that replaced it: at 16 o'clock on day 9 the content of 12 o'clock.
  EXPECT_EQ(Contents(), (std::vector<std::string>{"9 12", "9 8", "8 16", "8 12", "7 12", "6 12", "5 12", "4 12", "3 12",
                                                  "2 12", "1 12", "0 12"}));
}

// What thinning takes away does not count among the twenty.
TEST_F(EarlierVersionsTest, TwentyDaysAreKeptHoweverOftenItWasSaved) {
  const std::string path = Path("a.DAT");
  for (int day = 0; day < 28; ++day) {
    for (int hour : {8, 12, 16}) {
      host.now = 1'795'219'200'000 + day * kDay + hour * kHour;
      Save(path, std::to_string(day) + " " + std::to_string(hour));
      if (day <= 20) continue;
      ASSERT_EQ(Contents().size(), 20U) << day << " " << hour;
    }
  }
}

TEST_F(EarlierVersionsTest, MonthsGoneByKeepOneAWeek) {
  const std::string path = Path("a.DAT");
  for (int day = 0; day < 60; ++day) {
    host.now = 1'795'219'200'000 + day * kDay + 12 * kHour;
    Save(path, std::to_string(day), {.of_one_file = 1000});
  }
  std::map<std::int64_t, int> weeks;
  int young = 0;
  for (const EarlierVersion& version : EarlierVersions(host)) {
    if (host.now - version.moment < 30 * kDay) {
      ++young;
    } else {
      ++weeks[version.moment / (7 * kDay)];
    }
  }
  EXPECT_EQ(young, 30);
  EXPECT_GE(weeks.size(), 4U);
  for (const auto& [week, count] : weeks) EXPECT_EQ(count, 1) << week;
}

TEST_F(EarlierVersionsTest, AllFilesTogetherStayUnderTheLimit) {
  const VersionLimits limits{.of_one_file = 20, .bytes = 1000};
  for (int i = 0; i < 12; ++i) {
    host.now += 1000;
    const std::string path = Path("file" + std::to_string(i % 3) + ".DAT");
    Save(path, std::string(200, static_cast<char>('a' + i)), limits);
  }
  std::size_t bytes = 0;
  std::set<char> kept;
  for (const std::string& content : Contents()) {
    bytes += content.size();
    kept.insert(content.front());
  }
  EXPECT_LE(bytes, 1000U);
  // The nine contents a to i were saved over in this order; the last five of them fit.
  EXPECT_EQ(kept, (std::set<char>{'e', 'f', 'g', 'h', 'i'}));
}

TEST_F(EarlierVersionsTest, TwoSavesInOneMomentAreTwoVersions) {
  const std::string path = Path("a.DAT");
  for (const char* bytes : {"one", "two", "three"}) Save(path, bytes);
  EXPECT_EQ(Contents(), (std::vector<std::string>{"two", "one"}));
}

// However the disk lists its folders, and though the clock was set back: by the moment of the save.
TEST_F(EarlierVersionsTest, TheNewestStandFirstWhateverTheOrderOnTheDisk) {
  const std::int64_t start = host.now;
  const auto save_at = [&](int hour, const char* file, const char* bytes) {
    host.now = start + hour * kHour;
    Save(Path(file), bytes);
  };
  save_at(0, "a.DAT", "a1");
  save_at(20, "a.DAT", "a2");
  save_at(5, "a.DAT", "a3");
  save_at(0, "b.DAT", "b1");
  save_at(4, "b.DAT", "b2");
  save_at(12, "b.DAT", "b3");
  EXPECT_EQ(Contents(), (std::vector<std::string>{"a1", "a2", "b2", "b1"}));
}

// What no name of a file may hold.
TEST_F(EarlierVersionsTest, AForgottenFileIsNamedAfterItsDesignWithoutSlashes) {
  SaveDesign("East/West: 1", Path("d.DAT"));
  TypeText(program, "txtInfo(2)", "850");
  SaveDesign("East/West: 1", program.record.SaveFileName);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(host.UserDataFolder())) {
    if (entry.path().filename() == "path.txt") Write(entry.path().string(), "");
  }
  const std::vector<EarlierVersion> versions = EarlierVersions(host);
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_TRUE(versions[0].file.starts_with(host.UserDataFolder() + "/East-West- 1")) << versions[0].file;
}

// The same design, changed, is no other one.
TEST_F(EarlierVersionsTest, ADesignOfTheSameNameIsNoOther) {
  SaveDesign("Dunn", Path("dunn.DAT"));
  const std::string written = program.record.SaveFileName;
  TypeText(program, "txtInfo(2)", "850");
  SaveDesign("Dunn", written);
  EXPECT_EQ(program.main.sbStatusBar.caption.find("another design"), std::string::npos);
  EXPECT_EQ(EarlierVersions(host).size(), 1U);
}

TEST_F(EarlierVersionsTest, SaysWhenAnotherDesignIsSavedOver) {
  const std::string path = Path("dunn.DAT");
  SaveDesign("Dunn", path);
  const std::string written = program.record.SaveFileName;
  SaveDesign("Dunn", written);
  EXPECT_EQ(program.main.sbStatusBar.caption.find("another design"), std::string::npos);
  SaveDesign("Smith", written);
  EXPECT_NE(
      program.main.sbStatusBar.caption.find("Saved over another design, Dunn. It is kept: File > Earlier Versions."),
      std::string::npos)
      << program.main.sbStatusBar.caption;
  ASSERT_FALSE(EarlierVersions(host).empty());
  EXPECT_EQ(EarlierVersions(host).front().name, "Dunn");
}

// The net must not stand in the way: where nothing can be kept the save is made all the same, and said so.
TEST_F(EarlierVersionsTest, ASaveGoesOnWhereNothingCanBeKept) {
  const std::string path = Path("dunn.DAT");
  SaveDesign("Dunn", path);
  const std::string written = program.record.SaveFileName;
  host.disk = [](DiskStep step, const std::filesystem::path& at) {
    return step == DiskStep::kCreate && at.generic_string().find("/versions/") != std::string::npos ? ENOSPC : 0;
  };
  SaveDesign("Smith", written);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_NE(BytesOf(written).find("Smith"), std::string::npos);
  EXPECT_NE(
      program.main.sbStatusBar.caption.find("What the file held before could not be kept: No space left on device."),
      std::string::npos);
}

TEST_F(EarlierVersionsTest, TheListTellsFileTimeDesignTypeAndUniformity) {
  TypeLevelField(program);
  Click(program, "mnuDesignField");
  SaveDesign("Dunn", Path("dunn.PFD"));
  SaveDesign("Smith", Path("dunn.PFD"));
  Click(program, "mnuFileEarlier");
  const Grid& list = program.versions.Grd_EarlierVersions;
  EXPECT_TRUE(program.versions.frmEarlierVersions.visible);
  ASSERT_EQ(list.rows(), 2);
  EXPECT_EQ(list.Text(0, 0), "File");
  EXPECT_EQ(list.Text(1, 0), "dunn.PFD");
  EXPECT_EQ(list.Text(1, 1), "11/21/2026 12:00");
  EXPECT_EQ(list.Text(1, 2), "Dunn");
  EXPECT_EQ(list.Text(1, 3), "Planned Field Design");
  EXPECT_EQ(list.Text(1, 4), "100.0");  // level ground and a wide pipe
  EXPECT_EQ(program.versions.lblVersionFile.caption, std::filesystem::canonical(Path("dunn.PFD")));
}

TEST_F(EarlierVersionsTest, AVersionOpensAsACopyAndTheFileStays) {
  const std::string path = Path("dunn.DAT");
  program.record.DesignType = kSurveyOnly;
  SaveDesign("Dunn", path);
  const std::string written = program.record.SaveFileName;
  SaveDesign("Smith", written);
  const std::string smith = BytesOf(written);
  Click(program, "mnuFileEarlier");
  GridKey(program, "Grd_EarlierVersions", {Key::kEnter, "", false});
  EXPECT_FALSE(program.versions.frmEarlierVersions.visible);
  EXPECT_EQ(program.main.txtInfo[0].text(), "Dunn");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(program.main.mnuEditUndo.caption, "&Undo Open an Earlier Version");
  Click(program, "mnuFileSave");
  EXPECT_EQ(BytesOf(written), smith);
  EXPECT_NE(program.record.SaveFileName.find(" as of 11-21-2026 12-00"), std::string::npos)
      << program.record.SaveFileName;
  EXPECT_NE(BytesOf(program.record.SaveFileName).find("Dunn"), std::string::npos);
}

// The file saved over last stands first, but for the one that is open, which leads.
TEST_F(EarlierVersionsTest, FilesStandByTheirLastSaveBehindTheOpenOne) {
  const std::vector<std::string> names = {"a.DAT", "b.DAT", "c.DAT", "d.DAT", "e.DAT", "f.DAT"};
  for (const std::string& name : names) {
    host.now += kHour;
    Save(Path(name), "one");
    Save(Path(name), "two");
  }
  const auto listed = [&] {
    Click(program, "mnuFileEarlier");
    std::vector<std::string> files;
    for (const EarlierVersion& version : program.versions.versions) {
      files.push_back(std::filesystem::path(version.file).filename().string());
    }
    return files;
  };
  EXPECT_EQ(listed(), (std::vector<std::string>{"f.DAT", "e.DAT", "d.DAT", "c.DAT", "b.DAT", "a.DAT"}));
  program.record.SaveFileName = Path("b.DAT");
  EXPECT_EQ(listed(), (std::vector<std::string>{"b.DAT", "f.DAT", "e.DAT", "d.DAT", "c.DAT", "a.DAT"}));
}

TEST_F(EarlierVersionsTest, TheListIsLaidOutAnewEachTime) {
  SaveDesign("East", Path("a"));
  SaveDesign("West", Path("a"));
  Click(program, "mnuFileEarlier");
  Grid& list = program.versions.Grd_EarlierVersions;
  const Grid first = list;
  EXPECT_EQ(first.fixed_back, kTeal);
  EXPECT_EQ(first.fixed_fore, kWhite);
  EXPECT_EQ(first.heading_height, 360);
  list.fixed_back.reset();
  list.fixed_fore.reset();
  list.heading_height = 0;
  for (GridColumn& column : list.columns) column.width = 0;
  list.Resize(9, list.column_count());
  list.Set(8, 0, "old");
  list.SetCurrent(8, 2);
  list.top_row = 5;
  Click(program, "btnCloseVersions");
  Click(program, "mnuFileEarlier");
  EXPECT_EQ(list.rows(), first.rows());
  EXPECT_EQ(list.fixed_back, kTeal);
  EXPECT_EQ(list.fixed_fore, kWhite);
  EXPECT_EQ(list.heading_height, 360);
  for (std::size_t c = 0; c < list.columns.size(); ++c) EXPECT_EQ(list.columns[c].width, first.columns[c].width);
  EXPECT_EQ(list.columns[0].width, 2900);
  EXPECT_EQ(list.row, 1);
  EXPECT_EQ(list.column, 0);
  EXPECT_EQ(list.top_row, 1);
}

// Opened as a copy, it begins a new design, and the status bar says where a save goes.
TEST_F(EarlierVersionsTest, AVersionBeginsANewDesignAndSaysWhereASaveGoes) {
  SaveDesign("East", Path("a"));
  SaveDesign("West", Path("a"));
  program.record.HoleSizeIdeal[4000] = 1;  // in no file
  Click(program, "mnuFileEarlier");
  Click(program, "btnOpenVersion");
  EXPECT_EQ(program.record.HoleSizeIdeal[4000], 0.0F);
  EXPECT_EQ(program.main.sbStatusBar.caption,
            "An earlier version is open as a copy. Save writes it to " + program.record.SaveFileName);
}

TEST_F(EarlierVersionsTest, AnEmptyListSaysSoAndOpensNothing) {
  Click(program, "mnuFileEarlier");
  EXPECT_EQ(program.versions.lblVersionFile.caption,
            "No file has been saved over yet. Each save keeps what the file held before.");
  EXPECT_EQ(Click(program, "btnOpenVersion"), Reach::kDisabled);
  GridKey(program, "Grd_EarlierVersions", {Key::kEnter, "", false});
  EXPECT_TRUE(program.versions.frmEarlierVersions.visible);
  GridKey(program, "Grd_EarlierVersions", {Key::kEscape, "", false});
  EXPECT_FALSE(program.versions.frmEarlierVersions.visible);
}

// What is no design, a picture saved over by a design for example, is listed by its file and time.
TEST_F(EarlierVersionsTest, WhatIsNoDesignIsListedAllTheSame) {
  const std::string path = Path("a.DAT");
  Write(path, std::string("\x89PNG\0\x01", 6));
  Save(path, "two");
  Click(program, "mnuFileEarlier");
  EXPECT_EQ(program.versions.Grd_EarlierVersions.Text(1, 0), "a.DAT");
}

}  // namespace
}  // namespace torvale
