// What every system must do alike, whatever its own calls: these run on each that the program is built for.
#include "base/platform.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include "base/paths.h"
#include "base/whole_file.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// Letters of several alphabets, of which no code page of one byte has all, and one beyond 16 bits.
constexpr std::string_view kForeignName = "Žitné pole, поле, 葡萄園 \xF0\x9F\x8C\xB1.PFD";

struct Platform : ::testing::Test {
  Platform() {
    std::random_device random;
    folder = fs::temp_directory_path() / ("torvale-platform-" + std::to_string(random()));
    fs::create_directory(folder);
    path = folder / "x";
  }
  ~Platform() override {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::remove_all(folder, ignored);
  }

  int Write(const fs::path& to, std::string_view bytes) const { return WriteWhole(to, bytes, folder / "kept").error; }
  static std::string BytesOf(const fs::path& file) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> in(OpenToRead(file), &std::fclose);
    if (!in) return "no such file";
    std::string bytes(1000, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), in.get()));
    return bytes;
  }
  static FileFacts Seen(const fs::path& at) {
    FileFacts facts;
    EXPECT_EQ(LookAt(at, facts), 0);
    return facts;
  }

  fs::path folder, path;
};

TEST_F(Platform, APathIsTheSameTextAgain) {
  EXPECT_EQ(Utf8Of(PathOf(kForeignName)), kForeignName);
}

TEST_F(Platform, LineEndsAreNobodysConcern) {
  EXPECT_EQ(Write(path, "a\r\nb\n\x1A c\r"), 0);
  EXPECT_EQ(BytesOf(path), "a\r\nb\n\x1A c\r");
  EXPECT_EQ(fs::file_size(path), 9U);
}

TEST_F(Platform, NamesHaveLettersOfEveryAlphabet) {
  const fs::path foreign = folder / PathOf(kForeignName);
  EXPECT_EQ(Write(foreign, "first"), 0);
  EXPECT_EQ(Write(foreign, "second"), 0);
  EXPECT_EQ(BytesOf(foreign), "second");
  ASSERT_NE(fs::directory_iterator(folder), fs::directory_iterator());
  EXPECT_EQ(Utf8Of(fs::directory_iterator(folder)->path().filename()), kForeignName);
}

// 260 characters are the most that Windows takes in a plain path.
TEST_F(Platform, APathMayBeLong) {
  fs::path deep = folder;
  for (int i = 0; i < 6; ++i) {
    deep /= std::string(50, 'd');
    fs::create_directory(deep);
  }
  ASSERT_GT(deep.native().size(), 300U);
  EXPECT_FALSE(Seen(deep / "x").is_there);
  EXPECT_EQ(Write(deep / "x", "first"), 0);
  EXPECT_EQ(Write(deep / "x", "second"), 0);
  EXPECT_EQ(BytesOf(deep / "x"), "second");
  EXPECT_TRUE(Seen(deep / "x").is_regular);
}

TEST_F(Platform, WhatIsntThereIsNoError) {
  EXPECT_FALSE(Seen(path).is_there);
  EXPECT_FALSE(Seen(path / "below").is_there);
  EXPECT_EQ(OpenToRead(path), nullptr);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(Write(path / "below", "a"), ENOENT);
}

TEST_F(Platform, AFileIsKnownFromAFolder) {
  ASSERT_EQ(Write(path, "a"), 0);
  const FileFacts file = Seen(path);
  EXPECT_TRUE(file.is_there && file.is_regular && !file.is_folder && file.is_writable);
  EXPECT_EQ(file.links, 1U);
  fs::create_hard_link(path, folder / "second name");
  EXPECT_EQ(Seen(path).links, 2U);
  const FileFacts there = Seen(folder);
  EXPECT_TRUE(there.is_there && !there.is_regular && there.is_folder && there.is_writable);
  EXPECT_EQ(Write(folder, "a"), EISDIR);
}

TEST_F(Platform, AFileThatIsOnlyReadStays) {
  ASSERT_EQ(Write(path, "first"), 0);
  fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  EXPECT_FALSE(Seen(path).is_writable);
  EXPECT_EQ(Write(path, "second"), EACCES);
  EXPECT_EQ(BytesOf(path), "first");
}

// Windows may then refuse to give the file's name to another one.
TEST_F(Platform, AFileThatIsBeingReadIsReplaced) {
  ASSERT_EQ(Write(path, "first"), 0);
  std::ifstream reader(path, std::ios::binary);
  ASSERT_EQ(reader.get(), 'f');
  EXPECT_EQ(Write(path, "second"), 0);
  EXPECT_EQ(BytesOf(path), "second");
}

TEST_F(Platform, AFileOfSeveralNamesKeepsThem) {
  ASSERT_EQ(Write(path, "first"), 0);
  fs::create_hard_link(path, folder / "second name");
  EXPECT_EQ(Write(path, "second"), 0);
  EXPECT_EQ(BytesOf(folder / "second name"), "second");
}

TEST_F(Platform, ANewFileDisplacesNone) {
  OutputFile file;
  EXPECT_EQ(file.Create(path, true), 0);
  EXPECT_EQ(file.Write("a"), 0);
  EXPECT_EQ(file.Flush(), 0);
  EXPECT_EQ(file.Close(), 0);
  EXPECT_EQ(OutputFile().Create(path, true), EEXIST);
  EXPECT_EQ(BytesOf(path), "a");
}

TEST_F(Platform, AppendingGoesBehindWhatIsThere) {
  for (const std::string_view part : {"one", "two"}) {
    OutputFile file;
    ASSERT_EQ(file.OpenToAppend(path), 0);
    EXPECT_EQ(file.Write(part), 0);
  }
  EXPECT_EQ(BytesOf(path), "onetwo");
}

TEST_F(Platform, AFileEndsWhereItIsToldTo) {
  ASSERT_EQ(Write(path, "a long text"), 0);
  OutputFile file;
  ASSERT_EQ(file.OpenAsItIs(path), 0);
  EXPECT_EQ(file.Write("a short"), 0);
  EXPECT_EQ(file.EndHere(), 0);
  EXPECT_EQ(file.Close(), 0);
  EXPECT_EQ(BytesOf(path), "a short");
}

TEST_F(Platform, OneNameTakesThePlaceOfAnother) {
  ASSERT_EQ(Write(path, "former"), 0);
  ASSERT_EQ(Write(folder / "new", "new"), 0);
  EXPECT_EQ(RenameOver(folder / "new", path), 0);
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_FALSE(Seen(folder / "new").is_there);
  EXPECT_EQ(RenameOver(folder / "new", path), ENOENT);
}

TEST_F(Platform, TheUserHasAFolder) {
  EXPECT_TRUE(UserDataFolder().is_absolute()) << UserDataFolder();
}

}  // namespace
}  // namespace torvale
