#include "files/file_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "files/file_fault.h"

namespace torvale {
namespace {

constexpr std::size_t kLargestFile = std::size_t{16} << 20U;
constexpr std::size_t kBlock = std::size_t{32} << 10U;

// An open file, closed when it goes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {
    if (number_ < 0) throw FileFault{errno};
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  int number() const { return number_; }
  // Closes and tells of what the system could not write; the destructor could not.
  void Close() {
    const int number = number_;
    number_ = -1;
    if (::close(number) != 0) throw FileFault{errno};
  }

 private:
  int number_;
};

int WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

// Keeps the former content. Content kept from a write that failed is older and whole, and stays.
void KeepFormer(const std::string& path, const std::string& kept) {
  if (::access(path.c_str(), F_OK) != 0 || ::access(kept.c_str(), F_OK) == 0) return;
  if (::rename(path.c_str(), kept.c_str()) != 0) throw FileFault{errno};
}

bool IsPlainFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

std::string ReadBytes(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::string bytes;
  std::string block(kBlock, '\0');
  for (;;) {
    const ssize_t count = ::read(file.number(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileFault{errno};
    if (count == 0) return bytes;
    if (bytes.size() + static_cast<std::size_t>(count) > kLargestFile) throw FileFault{EFBIG};
    bytes.append(block, 0, static_cast<std::size_t>(count));
  }
}

void WriteBytes(const std::string& path, std::string_view bytes, const SinkFilter& filter) {
  const std::string kept = path + std::string(kKeptSuffix);
  // A device or pipe has no content to keep.
  const bool keeps = IsPlainFile(path) || ::access(path.c_str(), F_OK) != 0;
  if (keeps) KeepFormer(path, kept);
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  ByteSink sink = [&](std::string_view part) { return WriteAll(file.number(), part); };
  if (filter) sink = filter(path, std::move(sink));
  for (std::size_t at = 0; at < bytes.size(); at += kBlock) {
    const int error = sink(bytes.substr(at, kBlock));
    if (error != 0) throw FileFault{error};
  }
  if (keeps && ::fsync(file.number()) != 0) throw FileFault{errno};
  file.Close();
  if (keeps) ::unlink(kept.c_str());
}

}  // namespace torvale
