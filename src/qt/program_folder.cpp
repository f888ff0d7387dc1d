#include "qt/program_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <filesystem>
#include <system_error>

#include "files/pipe_strengths.h"
#include "files/preferences.h"
#include "files/soils.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr QFile::Permissions kAllRead = QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions kOwnerWrites = kAllRead | QFile::WriteOwner | QFile::WriteUser;

bool IsTheUsersOwn(const QString& name) {
  return name == ToQt(kDefaultsFile) || name == ToQt(kSoilsFile) || name == ToQt(kSafeHeadsFile);
}

// A copy beside its programs holds those too.
bool IsAProgram(const QFileInfo& entry) {
  return entry.isFile() && entry.isExecutable();
}

void CopyOnce(const QString& from, const QString& to) {
  // Installed files may be read-only; the user's own copies are there to be changed.
  if (!QFile::exists(to) && QFile::copy(from, to)) QFile::setPermissions(to, kOwnerWrites);
}

bool IsCopyOf(const QFileInfo& copy, const QFileInfo& installed) {
  return copy.size() == installed.size() && copy.lastModified() == installed.lastModified();
}

std::error_code MakeLink(const QString& from, const QString& to) {
  std::error_code error;
  std::filesystem::create_symlink(QFileInfo(from).filesystemAbsoluteFilePath(),
                                  QFileInfo(to).filesystemAbsoluteFilePath(), error);
  return error;
}

// A system may have no links, or none for everybody.
void Link(const QFileInfo& from, const QString& to) {
  const QFileInfo former(to);
  if (former.isSymLink() && former.symLinkTarget() != from.filePath()) QFile::remove(to);
  const std::error_code error = MakeLink(from.filePath(), to);
  if (error && error != std::errc::file_exists) FollowByCopies(from.filePath(), to);
}

void Fill(const QDir& user, const QDir& installed) {
  for (const QFileInfo& entry : installed.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
    const QString own = user.filePath(entry.fileName());
    if (IsAProgram(entry)) continue;
    if (IsTheUsersOwn(entry.fileName())) {
      CopyOnce(entry.filePath(), own);
    } else {
      Link(entry, own);
    }
  }
}

}  // namespace

void FollowByCopies(const QString& installed, const QString& copy) {
  const QFileInfo from(installed);
  if (from.isDir()) {
    QDir().mkpath(copy);
    for (const QFileInfo& entry : QDir(installed).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
      FollowByCopies(entry.filePath(), QDir(copy).filePath(entry.fileName()));
    }
    return;
  }
  const QFileInfo former(copy);
  if (former.exists()) {
    if ((former.permissions() & QFile::WriteOwner) != 0 || IsCopyOf(former, from)) return;
    QFile::setPermissions(copy, kOwnerWrites);
    QFile::remove(copy);
  }
  if (QFile::copy(installed, copy)) QFile::setPermissions(copy, kAllRead);
}

QString FindProgramFolder(const QString& executable_folder, bool may_write_there, const QString& user_folder) {
  QDir installed(QDir::cleanPath(executable_folder + "/../share/torvale"));
  if (!installed.exists()) {
    if (may_write_there) return executable_folder;
    installed.setPath(executable_folder);
  }
  if (!QDir().mkpath(user_folder)) return installed.path();
  Fill(QDir(user_folder), installed);
  return user_folder;
}

}  // namespace torvale
