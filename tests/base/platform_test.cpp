// What every system must do alike, whatever its own calls: these run on each that the program is built for.
#include "base/platform.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include "base/paths.h"
#include "base/whole_file.h"
#include "support/own_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// Letters of several alphabets, of which no code page of one byte has all, and one beyond 16 bits.
constexpr std::string_view kForeignName = "Žitné pole, поле, 葡萄園 \xF0\x9F\x8C\xB1.PFD";

struct Platform : ::testing::Test {
  ~Platform() override {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
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

  OwnFolder own;
  fs::path folder = own.path();
  fs::path path = folder / "x";
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

// A folder at a path of over 300 characters below that one: 260 are the most that Windows takes in a plain path.
fs::path DeepFolder(fs::path folder) {
  for (int i = 0; i < 6; ++i) {
    folder /= std::string(50, 'd');
    fs::create_directory(folder);
  }
  EXPECT_GT(folder.native().size(), 300U);
  return folder;
}

TEST_F(Platform, APathMayBeLong) {
  const fs::path deep = DeepFolder(folder);
  EXPECT_FALSE(Seen(deep / "x").is_there);
  EXPECT_EQ(Write(deep / "x", "first"), 0);
  EXPECT_EQ(Write(deep / "x", "second"), 0);
  EXPECT_EQ(BytesOf(deep / "x"), "second");
  EXPECT_TRUE(Seen(deep / "x").is_regular);
  EXPECT_TRUE(Seen(deep).is_writable);
}

TEST_F(Platform, APathIsWholeFromItsRootOn) {
  EXPECT_TRUE(IsWholePath(folder));
  EXPECT_FALSE(IsWholePath("x"));
  EXPECT_FALSE(IsWholePath(""));
  EXPECT_EQ(WholePath("x"), fs::current_path() / "x");
  EXPECT_EQ(WholePath(path), path);
  EXPECT_EQ(ReadablePath(folder / "." / "y" / ".." / "z"), folder / "z");
  EXPECT_EQ(ResolvedPath(path), fs::weakly_canonical(folder) / path.filename());
}

TEST_F(Platform, AFileLiesInTheNetwork) {
  // Given by scripts/wine.sh; other systems have no names of their own for it.
  const char* const network = std::getenv("TORVALE_NETWORK_FOLDER");
  if (network == nullptr) GTEST_SKIP() << "no folder in the network is named";
  const fs::path there = PathOf(network) / folder.filename();
  ASSERT_TRUE(fs::create_directory(there));
  // By their letters: the library takes one of the two separators ahead for doubled.
  EXPECT_TRUE(IsWholePath(there));
  EXPECT_EQ(Utf8Of(WholePath(there / "x")), Utf8Of(there / "x"));
  EXPECT_EQ(Utf8Of(ReadablePath(there / "." / "y" / ".." / "z")), Utf8Of(there / "z"));
  EXPECT_EQ(Utf8Of(ResolvedPath(there / "x")), Utf8Of(there / "x"));
  for (const fs::path& in : {there, DeepFolder(there)}) {
    EXPECT_FALSE(Seen(in / PathOf(kForeignName)).is_there);
    EXPECT_EQ(Write(in / PathOf(kForeignName), "first"), 0);
    EXPECT_EQ(Write(in / PathOf(kForeignName), "second"), 0);
    EXPECT_EQ(BytesOf(in / PathOf(kForeignName)), "second");
    EXPECT_TRUE(Seen(in).is_writable);
  }
  // The library itself can't take away what lies so deep.
  std::error_code ignored;
  fs::remove_all(there, ignored);
}

TEST_F(Platform, WhatIsntThereIsNoError) {
  EXPECT_FALSE(Seen(path).is_there);
  EXPECT_FALSE(Seen(path / "below").is_there);
  EXPECT_EQ(OpenToRead(path), nullptr);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(Write(path / "below", "a"), ENOENT);
}

TEST_F(Platform, ErrorsOfTheLibraryHaveTheNumbersOfErrno) {
  std::error_code error;
  EXPECT_EQ(NumberOf(error), 0);
  EXPECT_FALSE(fs::create_directory(path / "below", error));
  EXPECT_EQ(NumberOf(error), ENOENT);
  const fs::directory_iterator none(folder / "nowhere", error);
  EXPECT_EQ(NumberOf(error), ENOENT);
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

TEST_F(Platform, AFolderThatIsOnlyReadTakesNoFile) {
  const fs::path closed = folder / "closed";
  fs::create_directory(closed);
  ASSERT_EQ(Write(closed / "x", "first"), 0);
  fs::permissions(closed, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  const bool holds_for_this_user = OutputFile().Create(closed / "probe", true) != 0;
  if (holds_for_this_user) {
    EXPECT_FALSE(Seen(closed).is_writable);
    EXPECT_EQ(Write(closed / "y", "a"), EACCES);
    EXPECT_EQ(Write(closed / "x", "second"), 0) << "the file itself may be written, in its place";
    EXPECT_EQ(BytesOf(closed / "x"), "second");
  }
  fs::permissions(closed, fs::perms::owner_write, fs::perm_options::add);
  if (!holds_for_this_user) GTEST_SKIP() << "this user writes everywhere";
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
