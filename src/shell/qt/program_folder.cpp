#include "shell/qt/program_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace torvale {
namespace {

constexpr QFile::Permissions kOwnerWrites = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;

void CopyMissing(const QDir& from, const QDir& to) {
  for (const QFileInfo& file : from.entryInfoList(QDir::Files)) {
    const QString copy = to.filePath(file.fileName());
    // Installed files may be read-only; the user's own copies are there to be changed.
    if (!QFile::exists(copy) && QFile::copy(file.filePath(), copy)) QFile::setPermissions(copy, kOwnerWrites);
  }
}

}  // namespace

QString FindProgramFolder(const QString& executable_folder, const QString& user_folder) {
  const QDir installed(executable_folder + "/../share/torvale");
  if (!installed.exists() && QFileInfo(executable_folder).isWritable()) return executable_folder;
  if (QDir().mkpath(user_folder) && installed.exists()) CopyMissing(installed, QDir(user_folder));
  return user_folder;
}

}  // namespace torvale
