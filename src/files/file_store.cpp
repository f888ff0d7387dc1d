#include "files/file_store.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "files/file_fault.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = std::size_t{8} << 20U;
constexpr std::size_t kBlock = std::size_t{32} << 10U;

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFilePointer = std::unique_ptr<std::FILE, Closer>;

// The error of the operation that just failed.
[[noreturn]] void Fail() {
  throw FileFault{errno == 0 ? EIO : errno};
}

OpenFilePointer Open(const std::string& path, const char* mode) {
  errno = 0;
  OpenFilePointer file(std::fopen(path.c_str(), mode));
  if (!file) Fail();
  // Blocks go to the system as they come, so that a write that fails is told of at once.
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

int WriteBlock(std::FILE* file, std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()) return 0;
  return errno == 0 ? EIO : errno;
}

// Closes and tells of what the system could not write.
void Close(OpenFilePointer file) {
  errno = 0;
  if (std::fclose(file.release()) != 0) Fail();
}

bool IsThere(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

// Where the file lies, a link to it followed.
fs::path TrueFile(const std::string& path) {
  std::error_code ignored;
  const fs::path found = fs::canonical(path, ignored);
  return found.empty() ? fs::path(path) : found;
}

// A device or a folder has no content to keep.
bool HasContent(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

// Puts the former content aside and tells whether it did. Content kept from a write that failed is older and whole, and
// stays.
bool PutAside(const fs::path& path, const fs::path& kept) {
  if (!HasContent(path) || IsThere(kept)) return false;
  std::error_code error;
  fs::rename(path, kept, error);
  if (error) throw FileFault{error.value()};
  return true;
}

// The file, new and empty. Where it can't be had, what was put aside comes back.
OpenFilePointer OpenNew(const fs::path& path, const fs::path& kept, bool put_aside) {
  try {
    return Open(path.string(), "wb");
  } catch (const FileFault&) {
    std::error_code ignored;
    if (put_aside) fs::rename(kept, path, ignored);
    throw;
  }
}

}  // namespace

std::string ReadBytes(const std::string& path) {
  // A pipe would be waited for until somebody writes to it.
  std::error_code ignored;
  if (fs::is_fifo(path, ignored)) throw FileFault{ESPIPE};
  const OpenFilePointer file = Open(path, "rb");
  std::string bytes;
  std::string block(kBlock, '\0');
  for (;;) {
    errno = 0;
    const std::size_t count = std::fread(block.data(), 1, block.size(), file.get());
    if (std::ferror(file.get()) != 0) Fail();
    if (count == 0) return bytes;
    if (bytes.size() + count > kLargestFile) throw FileFault{EFBIG};
    bytes.append(block, 0, count);
  }
}

void WriteBytes(const std::string& path, std::string_view bytes, const SinkFilter& filter) {
  const fs::path target = TrueFile(path);
  const fs::path kept = target.string() + std::string(kKeptSuffix);
  const bool put_aside = PutAside(target, kept);
  OpenFilePointer file = OpenNew(target, kept, put_aside);
  ByteSink sink = [&](std::string_view part) { return WriteBlock(file.get(), part); };
  if (filter) sink = filter(path, std::move(sink));
  for (std::size_t at = 0; at < bytes.size(); at += kBlock) {
    const int error = sink(bytes.substr(at, kBlock));
    if (error != 0) throw FileFault{error};
  }
  Close(std::move(file));
  std::error_code ignored;
  if (HasContent(target)) fs::remove(kept, ignored);
}

}  // namespace torvale
