#include "qt/program_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "files/preferences.h"
#include "files/soils.h"
#include "qt/scale.h"

namespace torvale {
namespace {

constexpr QFile::Permissions kOwnerWrites = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;

bool IsWrittenByTheProgram(const QString& name) {
  return name == ToQt(kDefaultsFile) || name == ToQt(kSoilsFile);
}

void CopyOnce(const QString& from, const QString& to) {
  // Installed files may be read-only; the user's own copies are there to be changed.
  if (!QFile::exists(to) && QFile::copy(from, to)) QFile::setPermissions(to, kOwnerWrites);
}

void Link(const QString& from, const QString& to) {
  const QFileInfo former(to);
  if (former.isSymLink() && former.symLinkTarget() != from) QFile::remove(to);
  QFile::link(from, to);
}

void Fill(const QDir& user, const QDir& installed) {
  for (const QFileInfo& entry : installed.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
    const QString own = user.filePath(entry.fileName());
    if (IsWrittenByTheProgram(entry.fileName())) {
      CopyOnce(entry.filePath(), own);
    } else {
      Link(entry.filePath(), own);
    }
  }
}

}  // namespace

QString FindProgramFolder(const QString& executable_folder, const QString& user_folder) {
  const QDir installed(QDir::cleanPath(executable_folder + "/../share/torvale"));
  if (!installed.exists() && QFileInfo(executable_folder).isWritable()) return executable_folder;
  if (!QDir().mkpath(user_folder)) return installed.path();
  Fill(QDir(user_folder), installed);
  return user_folder;
}

}  // namespace torvale
