#include <windows.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

#include "base/platform.h"

namespace torvale {
namespace {

// The number that errno has for what the system calls otherwise.
int ErrorNumber(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return EACCES;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_SAME_DEVICE:
      return EXDEV;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    default:
      return EIO;
  }
}

int LastError() {
  return ErrorNumber(::GetLastError());
}

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

int OpenInto(std::intptr_t& handle, const std::filesystem::path& path, DWORD access, DWORD disposition) {
  const HANDLE file =
      ::CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  handle = reinterpret_cast<std::intptr_t>(file);
  return file == INVALID_HANDLE_VALUE ? LastError() : 0;
}

}  // namespace

int LookAt(const std::filesystem::path& path, FileFacts& facts) {
  facts = {};
  if (path.empty()) return ENOENT;
  const HANDLE file =
      ::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const DWORD error = ::GetLastError();
    return error == ERROR_FILE_NOT_FOUND ? 0 : ErrorNumber(error);
  }
  BY_HANDLE_FILE_INFORMATION status{};
  facts.is_there = true;
  // A device or a pipe tells nothing of itself.
  const bool known = ::GetFileType(file) == FILE_TYPE_DISK && ::GetFileInformationByHandle(file, &status) != 0;
  ::CloseHandle(file);
  if (!known) return 0;
  facts.is_folder = (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.is_regular = !facts.is_folder;
  facts.is_writable = (status.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
  facts.links = status.nNumberOfLinks;
  return 0;
}

OutputFile::OutputFile(OutputFile&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

// A folder hands its rights down; the folder of the user's data is the user's alone.
int OutputFile::Create(const std::filesystem::path& path, bool /*for_user_alone*/) {
  Close();
  return OpenInto(handle_, path, GENERIC_WRITE, CREATE_NEW);
}

int OutputFile::OpenAsItIs(const std::filesystem::path& path) {
  Close();
  return OpenInto(handle_, path, GENERIC_WRITE, OPEN_EXISTING);
}

int OutputFile::OpenToAppend(const std::filesystem::path& path) {
  Close();
  return OpenInto(handle_, path, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS);
}

// The replaced file's rights are carried over by `RenameOver`.
int OutputFile::TakeRights(const FileFacts& /*other*/) {
  return 0;
}

// A file that is open for writing can't be opened so by another program.
int OutputFile::Hold() {
  return 0;
}

int OutputFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto part = static_cast<DWORD>(bytes.size() < 0x10000000 ? bytes.size() : 0x10000000);
    if (::WriteFile(HandleOf(handle_), bytes.data(), part, &count, nullptr) == 0) return LastError();
    bytes.remove_prefix(count);
  }
  return 0;
}

int OutputFile::EndHere() {
  return ::SetEndOfFile(HandleOf(handle_)) == 0 ? LastError() : 0;
}

int OutputFile::Flush() {
  return ::FlushFileBuffers(HandleOf(handle_)) == 0 ? LastError() : 0;
}

int OutputFile::Close() {
  const std::intptr_t handle = std::exchange(handle_, kNone);
  return handle == kNone || ::CloseHandle(HandleOf(handle)) != 0 ? 0 : LastError();
}

int RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
  // Keeps attributes and rights of the file that goes; there must be one.
  if (::ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0)
    return 0;
  if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return 0;
  return LastError();
}

// Names are written by the system's own journal.
int FlushFolder(const std::filesystem::path& /*folder*/) {
  return 0;
}

std::uint64_t ProcessNumber() {
  return ::GetCurrentProcessId();
}

std::filesystem::path UserDataFolder() {
  const wchar_t* const data = ::_wgetenv(L"LOCALAPPDATA");
  return data == nullptr || *data == L'\0' ? std::filesystem::path() : std::filesystem::path(data) / "TORVALE";
}

}  // namespace torvale
