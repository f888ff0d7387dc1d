// base/platform.h on Windows.
#include <windows.h>
// The order matters: the headers of the shell need those above.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "base/platform.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

struct Translation {
  DWORD windows;
  int as_errno;
};

constexpr std::array<Translation, 30> kErrors = {{
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_BAD_UNIT, ENOENT},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_NETWORK_ACCESS_DENIED, EACCES},
    {ERROR_SHARING_VIOLATION, EACCES},
    {ERROR_LOCK_VIOLATION, EACCES},
    {ERROR_USER_MAPPED_FILE, EACCES},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, EACCES},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT, EACCES},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT_2, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_BUFFER_OVERFLOW, ENAMETOOLONG},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_NOT_SAME_DEVICE, EXDEV},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_INVALID_PARAMETER, EINVAL},
    {ERROR_NOT_READY, ENODEV},
}};

// The error of the call that just failed.
int LastError() {
  const DWORD error = ::GetLastError();
  const auto* const found =
      std::find_if(kErrors.begin(), kErrors.end(), [&](const Translation& entry) { return entry.windows == error; });
  return found == kErrors.end() ? EIO : found->as_errno;
}

// Paths that come near to MAX_PATH need another form to be let through; a folder must leave room for a short name.
constexpr std::size_t kLongestPlainPath = MAX_PATH - 14;

std::wstring FormOf(const fs::path& path) {
  const std::wstring plain = path.native();
  const DWORD room = ::GetFullPathNameW(plain.c_str(), 0, nullptr, nullptr);
  if (room <= kLongestPlainPath) return plain;
  std::wstring full(room, L'\0');
  full.resize(::GetFullPathNameW(plain.c_str(), room, full.data(), nullptr));
  if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return full;
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Others may read while we write.
constexpr DWORD kShareWhileWriting = FILE_SHARE_READ | FILE_SHARE_DELETE;

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr)
}

// A handle for looking at what stands there, which nothing else that has it open forbids. The flag is for folders.
HANDLE OpenToLook(const std::wstring& path, DWORD access) {
  return ::CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// Whether the rights let the user write; a file that another program keeps for itself at the moment counts as well.
bool MayWrite(const std::wstring& path) {
  const HANDLE handle = OpenToLook(path, FILE_WRITE_DATA);
  if (handle == INVALID_HANDLE_VALUE) return ::GetLastError() == ERROR_SHARING_VIOLATION;
  ::CloseHandle(handle);
  return true;
}

int OpenInto(std::intptr_t& handle, const fs::path& path, DWORD access, DWORD how) {
  const HANDLE opened =
      ::CreateFileW(FormOf(path).c_str(), access, kShareWhileWriting, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return LastError();
  handle = reinterpret_cast<std::intptr_t>(opened);
  return 0;
}

// ReplaceFile keeps who may read and write the file, its attributes and the moment of its making. Not every file system
// knows it, and where it fails half way, a plain move does the rest.
bool Replace(const std::wstring& from, const std::wstring& to) {
  constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
  if (::ReplaceFileW(to.c_str(), from.c_str(), nullptr, kFlags, nullptr, nullptr) != 0) return true;
  return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool IsOnAnotherMachine(const fs::path& whole) {
  return whole.native().starts_with(L"\\\\");
}

}  // namespace

bool IsWholePath(const fs::path& path) {
  return path.is_absolute() || IsOnAnotherMachine(fs::path(path).make_preferred());
}

fs::path WholePath(const fs::path& path) {
  const DWORD room = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring whole(room, L'\0');
  const DWORD length = ::GetFullPathNameW(path.c_str(), room, whole.data(), nullptr);
  if (length == 0 || length >= room) return path;
  whole.resize(length);
  return whole;
}

fs::path ReadablePath(const fs::path& path) {
  return WholePath(path);
}

fs::path ResolvedPath(const fs::path& path) {
  const fs::path whole = WholePath(path);
  // Links there lead where only that machine knows.
  if (IsOnAnotherMachine(whole)) return whole;
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(whole, error);
  return error ? whole : resolved;
}

int LookAt(const fs::path& path, FileFacts& facts) {
  facts = {};
  if (path.empty()) return ENOENT;
  const std::wstring form = FormOf(path);
  const HANDLE handle = OpenToLook(form, FILE_READ_ATTRIBUTES);
  if (handle == INVALID_HANDLE_VALUE) {
    const int error = LastError();
    return error == ENOENT ? 0 : error;
  }
  facts.is_there = true;
  BY_HANDLE_FILE_INFORMATION info{};
  // Consoles, printers and the like have none.
  const bool has_info = ::GetFileType(handle) == FILE_TYPE_DISK && ::GetFileInformationByHandle(handle, &info) != 0;
  ::CloseHandle(handle);
  if (!has_info) return 0;
  facts.is_folder = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.is_regular = !facts.is_folder;
  // On a folder the mark of what only is read means something else.
  const bool marked = facts.is_regular && (info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  facts.is_writable = !marked && MayWrite(form);
  facts.links = info.nNumberOfLinks;
  return 0;
}

OutputFile::OutputFile(OutputFile&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

// Who may read a new file is the folder's to say, also for the user alone: the user's own folders are closed to others.
int OutputFile::Create(const fs::path& path, bool /*for_user_alone*/) {
  Close();
  return OpenInto(handle_, path, GENERIC_WRITE, CREATE_NEW);
}

int OutputFile::OpenAsItIs(const fs::path& path) {
  Close();
  return OpenInto(handle_, path, GENERIC_WRITE, OPEN_EXISTING);
}

// RenameOver leaves them as they are.
int OutputFile::TakeRights(const FileFacts& /*other*/) const {
  return 0;
}

// A file that is open for writing can't be opened so by another program.
int OutputFile::Hold() const {
  return 0;
}

int OutputFile::Write(std::string_view bytes) const {
  constexpr std::size_t kMostAtOnce = std::size_t{1} << 20U;
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto part = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (::WriteFile(HandleOf(handle_), bytes.data(), part, &count, nullptr) == 0) return LastError();
    if (count == 0) return ENOSPC;
    bytes.remove_prefix(count);
  }
  return 0;
}

int OutputFile::EndHere() const {
  return ::SetEndOfFile(HandleOf(handle_)) != 0 ? 0 : LastError();
}

int OutputFile::Flush() const {
  return ::FlushFileBuffers(HandleOf(handle_)) != 0 ? 0 : LastError();
}

int OutputFile::Close() {
  const std::intptr_t handle = std::exchange(handle_, kNone);
  return handle == kNone || ::CloseHandle(HandleOf(handle)) != 0 ? 0 : LastError();
}

// A program that looks for viruses or makes an index may hold a new file for a blink.
int RenameOver(const fs::path& from, const fs::path& to) {
  constexpr int kTries = 6;
  constexpr DWORD kFirstWait = 10;  // milliseconds; each is twice the one before
  const std::wstring source = FormOf(from);
  const std::wstring target = FormOf(to);
  int error = 0;
  for (int i = 0; i < kTries; ++i) {
    if (i > 0) ::Sleep(kFirstWait << static_cast<unsigned>(i));
    if (Replace(source, target)) return 0;
    error = LastError();
    if (error != EACCES) break;
  }
  return error;
}

// The system has nothing for it; a move that writes through is on the disk when it returns.
int FlushFolder(const fs::path& /*folder*/) {
  return 0;
}

bool ErrorsGoToTerminal() {
  return ::_isatty(::_fileno(stderr)) != 0;
}

std::uint64_t ProcessNumber() {
  return ::GetCurrentProcessId();
}

bool ProcessRuns(std::uint64_t number) {
  if (number == 0 || number > MAXDWORD) return false;
  const HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(number));
  // Another user's program can't be opened.
  if (process == nullptr) return ::GetLastError() == ERROR_ACCESS_DENIED;
  const bool runs = ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  ::CloseHandle(process);
  return runs;
}

fs::path UserDataFolder() {
  PWSTR found = nullptr;
  fs::path folder;
  if (::SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &found) == S_OK) folder = fs::path(found) / "TORVALE";
  ::CoTaskMemFree(found);
  return folder;
}

std::FILE* OpenToRead(const fs::path& path) {
  errno = 0;
  return ::_wfopen(FormOf(path).c_str(), L"rb");
}

std::vector<std::string> ArgumentsOf(int /*argc*/, char** /*argv*/) {
  // The narrow ones have lost the letters outside of the user's code page.
  int count = 0;
  LPWSTR* const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8Of(wide[i]));
  ::LocalFree(wide);
  return arguments;
}

void KeepStandardStreamsAsBytes() {
  for (std::FILE* stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
  ::SetConsoleOutputCP(CP_UTF8);
}

}  // namespace torvale
