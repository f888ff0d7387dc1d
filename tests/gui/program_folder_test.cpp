#include "qt/program_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace torvale {
namespace {

class ProgramFolderTest : public ::testing::Test {
 protected:
  void Write(const QString& name, const char* text) {
    QDir().mkpath(QFileInfo(At(name)).path());
    QFile file(At(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(text);
  }
  QByteArray Read(const QString& name) {
    QFile file(At(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("no such file");
  }
  QString At(const QString& name) const { return QDir::cleanPath(root_.filePath(name)); }
  // The start of a program that is installed below `prefix`, of a user whose own folder is "user/data".
  QString Start(const QString& prefix) { return FindProgramFolder(At(prefix + "/bin"), true, At("user/data")); }
  void Install(const QString& prefix, const char* help) {
    Write(prefix + "/bin/torvale", "");
    Write(prefix + "/share/torvale/Default50.TVL", "100\r\n");
    Write(prefix + "/share/torvale/SoilsName.txt", "\"Sand (S)\",\"30\"\r\n");
    Write(prefix + "/share/torvale/TORVALEHELP.hlp", help);
    Write(prefix + "/share/torvale/help/sheet.png", help);
  }

  QTemporaryDir root_;
};

TEST_F(ProgramFolderTest, APortableCopyKeepsItsDataBesideIt) {
  Write("copy/torvale", "");
  EXPECT_EQ(FindProgramFolder(At("copy"), true, At("user")), At("copy"));
  EXPECT_FALSE(QFile::exists(At("user")));
}

TEST_F(ProgramFolderTest, WhatTheUserChangesIsFilledInOnce) {
  Install("usr", "help");
  EXPECT_EQ(Start("usr"), At("user/data"));
  EXPECT_EQ(Read("user/data/Default50.TVL"), "100\r\n");
  EXPECT_EQ(Read("user/data/SoilsName.txt"), "\"Sand (S)\",\"30\"\r\n");
  Write("user/data/Default50.TVL", "50\r\n");
  Write("user/data/SoilsName.txt", "\"Clay (C)\",\"12\"\r\n");
  Start("usr");
  EXPECT_EQ(Read("user/data/Default50.TVL"), "50\r\n");
  EXPECT_EQ(Read("user/data/SoilsName.txt"), "\"Clay (C)\",\"12\"\r\n");
  EXPECT_EQ(Read("usr/share/torvale/Default50.TVL"), "100\r\n");
}

TEST_F(ProgramFolderTest, TheUsersCopyOfAReadOnlyFileCanBeWritten) {
  Install("usr", "help");
  ASSERT_TRUE(QFile::setPermissions(At("usr/share/torvale/Default50.TVL"), QFile::ReadOwner));
  Start("usr");
  EXPECT_TRUE(QFile::permissions(At("user/data/Default50.TVL")) & QFile::WriteOwner);
}

TEST_F(ProgramFolderTest, AnUpgradeBringsItsHelp) {
  Install("usr", "first edition");
  Start("usr");
  EXPECT_EQ(Read("user/data/TORVALEHELP.hlp"), "first edition");
  EXPECT_EQ(Read("user/data/help/sheet.png"), "first edition");
  Install("usr", "second edition");
  Write("usr/share/torvale/help/chart.png", "new picture");
  Start("usr");
  EXPECT_EQ(Read("user/data/TORVALEHELP.hlp"), "second edition");
  EXPECT_EQ(Read("user/data/help/sheet.png"), "second edition");
  EXPECT_EQ(Read("user/data/help/chart.png"), "new picture");
}

TEST_F(ProgramFolderTest, AProgramThatWasMovedIsFollowed) {
  Install("unpacked", "help");
  Start("unpacked");
  ASSERT_TRUE(QDir().rename(At("unpacked"), At("moved")));
  EXPECT_EQ(Read("user/data/TORVALEHELP.hlp"), "no such file");
  Start("moved");
  EXPECT_EQ(Read("user/data/TORVALEHELP.hlp"), "help");
  EXPECT_EQ(Read("user/data/help/sheet.png"), "help");
}

TEST_F(ProgramFolderTest, WithoutAFolderOfTheUserTheInstalledFilesServe) {
  Install("usr", "help");
  Write("user", "a file where the folder should be");
  EXPECT_EQ(Start("usr"), At("usr/share/torvale"));
}

TEST_F(ProgramFolderTest, APortableCopyOnADiskThatIsOnlyReadServesAsInstalled) {
  Write("copy/torvale", "");
  ASSERT_TRUE(QFile::setPermissions(At("copy/torvale"), QFile::ReadOwner | QFile::ExeOwner));
  Write("copy/Default50.TVL", "100\r\n");
  Write("copy/TORVALEHELP.hlp", "help");
  EXPECT_EQ(FindProgramFolder(At("copy"), false, At("user")), At("user"));
  EXPECT_EQ(Read("user/Default50.TVL"), "100\r\n");
  EXPECT_EQ(Read("user/TORVALEHELP.hlp"), "help");
  EXPECT_FALSE(QFile::exists(At("user/torvale")));
}

TEST_F(ProgramFolderTest, CopiesFollowWhatIsInstalledAndCanOnlyBeRead) {
  Install("usr", "first edition");
  FollowByCopies(At("usr/share/torvale"), At("user"));
  EXPECT_EQ(Read("user/TORVALEHELP.hlp"), "first edition");
  EXPECT_EQ(Read("user/help/sheet.png"), "first edition");
  EXPECT_FALSE(QFile::permissions(At("user/help/sheet.png")) & QFile::WriteOwner);
  Install("usr", "second and longer edition");
  FollowByCopies(At("usr/share/torvale"), At("user"));
  EXPECT_EQ(Read("user/TORVALEHELP.hlp"), "second and longer edition");
  EXPECT_EQ(Read("user/help/sheet.png"), "second and longer edition");
  EXPECT_FALSE(QFile::permissions(At("user/help/sheet.png")) & QFile::WriteOwner);
}

TEST_F(ProgramFolderTest, WhatTheUserPutInTheCopysPlaceStays) {
  Install("usr", "help");
  FollowByCopies(At("usr/share/torvale"), At("user"));
  ASSERT_TRUE(QFile::setPermissions(At("user/TORVALEHELP.hlp"), QFile::ReadOwner | QFile::WriteOwner));
  Write("user/TORVALEHELP.hlp", "my own notes");
  FollowByCopies(At("usr/share/torvale"), At("user"));
  EXPECT_EQ(Read("user/TORVALEHELP.hlp"), "my own notes");
}

}  // namespace
}  // namespace torvale
