// base/platform.h on POSIX systems.
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/platform.h"

namespace torvale {
namespace {

constexpr mode_t kNewFile = 0666;  // less what the user's mask takes away
constexpr mode_t kUserAlone = 0600;
constexpr mode_t kAllRights = 07777;
constexpr mode_t kAnyWrite = 0222;

// Runs a call again where a signal broke it off. 0, or the error.
template <typename Call>
int Done(const Call& call) {
  while (call() < 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

// While a file is written, its size limit is an error like a full disk, not the end of the program.
class SizeLimitIsAnError {
 public:
  SizeLimitIsAnError() : former_(std::signal(SIGXFSZ, SIG_IGN)) {}
  ~SizeLimitIsAnError() { std::signal(SIGXFSZ, former_); }
  SizeLimitIsAnError(const SizeLimitIsAnError&) = delete;
  SizeLimitIsAnError& operator=(const SizeLimitIsAnError&) = delete;

 private:
  void (*former_)(int);
};

int OpenInto(std::intptr_t& handle, const std::filesystem::path& path, int flags, mode_t mode) {
  return Done([&] { return static_cast<int>(handle = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode)); });
}

int Descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

// A folder that can't be flushed is none of the program's making.
bool KnowsNoFlush(int error) {
  return error == EINVAL || error == ENOTSUP || error == EBADF || error == EACCES;
}

std::filesystem::path HomeFolder() {
  const char* const home = std::getenv("HOME");
  if (home != nullptr && *home == '/') return home;
  std::string room(16384, '\0');
  passwd entry{};
  passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, room.data(), room.size(), &found) != 0 || found == nullptr) return {};
  return found->pw_dir;
}

}  // namespace

bool IsWholePath(const std::filesystem::path& path) {
  return path.is_absolute();
}

std::filesystem::path WholePath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error);
  return error ? path : whole;
}

std::filesystem::path ReadablePath(const std::filesystem::path& path) {
  return WholePath(path).lexically_normal();
}

std::filesystem::path ResolvedPath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
  return error ? path : resolved;
}

int LookAt(const std::filesystem::path& path, FileFacts& facts) {
  facts = {};
  struct stat status {};
  const int error = Done([&] { return ::stat(path.c_str(), &status); });
  if (error == ENOENT && !path.empty()) return 0;
  if (error != 0) return error;
  facts.is_there = true;
  facts.is_regular = S_ISREG(status.st_mode);
  facts.is_folder = S_ISDIR(status.st_mode);
  facts.is_writable = ::access(path.c_str(), W_OK) == 0 && (status.st_mode & kAnyWrite) != 0;
  facts.links = status.st_nlink;
  facts.mode = status.st_mode & kAllRights;
  facts.owner = status.st_uid;
  facts.group = status.st_gid;
  return 0;
}

std::FILE* OpenToRead(const std::filesystem::path& path) {
  return std::fopen(path.c_str(), "rb");
}

OutputFile::OutputFile(OutputFile&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

int OutputFile::Create(const std::filesystem::path& path, bool for_user_alone) {
  Close();
  return OpenInto(handle_, path, O_WRONLY | O_CREAT | O_EXCL, for_user_alone ? kUserAlone : kNewFile);
}

int OutputFile::OpenAsItIs(const std::filesystem::path& path) {
  Close();
  return OpenInto(handle_, path, O_WRONLY | O_NONBLOCK, 0);
}

int OutputFile::TakeRights(const FileFacts& other) const {
  struct stat own {};
  const int file = Descriptor(handle_);
  if (::fstat(file, &own) != 0) return errno;
  if (own.st_uid != other.owner || own.st_gid != other.group) {
    if (::fchown(file, other.owner, other.group) != 0) return errno;
  }
  return Done([&] { return ::fchmod(file, other.mode); });
}

int OutputFile::Hold() const {
  const int error = Done([&] { return ::flock(Descriptor(handle_), LOCK_EX | LOCK_NB); });
  // A file system without locks lets everybody have it.
  return error == EWOULDBLOCK ? error : 0;
}

int OutputFile::Write(std::string_view bytes) const {
  const SizeLimitIsAnError while_writing;
  while (!bytes.empty()) {
    ssize_t count = 0;
    const int error = Done([&] {
      count = ::write(Descriptor(handle_), bytes.data(), bytes.size());
      return count < 0 ? -1 : 0;
    });
    if (error != 0) return error;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int OutputFile::EndHere() const {
  const off_t end = ::lseek(Descriptor(handle_), 0, SEEK_CUR);
  if (end < 0) return errno;
  return Done([&] { return ::ftruncate(Descriptor(handle_), end); });
}

int OutputFile::Flush() const {
  return Done([&] { return ::fsync(Descriptor(handle_)); });
}

int OutputFile::Close() {
  const std::intptr_t handle = std::exchange(handle_, kNone);
  // A close that a signal broke off has closed the file all the same.
  if (handle == kNone || ::close(Descriptor(handle)) == 0 || errno == EINTR) return 0;
  return errno;
}

int RenameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int FlushFolder(const std::filesystem::path& folder) {
  std::intptr_t handle = -1;
  const std::filesystem::path path = folder.empty() ? "." : folder;
  int error = OpenInto(handle, path, O_RDONLY | O_DIRECTORY, 0);
  if (error == 0) {
    error = Done([&] { return ::fsync(Descriptor(handle)); });
    ::close(Descriptor(handle));
  }
  return KnowsNoFlush(error) ? 0 : error;
}

bool ErrorsGoToTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

std::uint64_t ProcessNumber() {
  return static_cast<std::uint64_t>(::getpid());
}

bool ProcessRuns(std::uint64_t number) {
  // Numbers from 0 down stand for groups of programs.
  if (number == 0 || number > static_cast<std::uint64_t>(std::numeric_limits<pid_t>::max())) return false;
  return ::kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH;
}

std::filesystem::path UserDataFolder() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return std::filesystem::path(data) / "torvale";
  const std::filesystem::path home = HomeFolder();
  return home.empty() ? home : home / ".local" / "share" / "torvale";
}

std::vector<std::string> ArgumentsOf(int argc, char** argv) {
  return {argv + std::min(argc, 1), argv + argc};
}

void KeepStandardStreamsAsBytes() {}

}  // namespace torvale
