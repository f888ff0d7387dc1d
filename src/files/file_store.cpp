#include "files/file_store.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "base/paths.h"
#include "base/platform.h"
#include "files/code_page.h"
#include "files/file_fault.h"
#include "screen/file_choice.h"

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

OpenFilePointer Open(const fs::path& path) {
  errno = 0;
  OpenFilePointer file(OpenToRead(path));
  if (!file) Fail();
  return file;
}

}  // namespace

std::string InProgramFolder(Host& host, std::string_view name) {
  return host.ProgramFolder().append("/").append(name);
}

std::string ReadBytes(const std::string& path) {
  // A pipe would be waited for until somebody writes to it, a terminal until somebody types.
  FileFacts facts;
  if (LookAt(PathOf(path), facts) == 0 && facts.is_there && !facts.is_regular && !facts.is_folder) {
    throw FileFault{EOPNOTSUPP};
  }
  if (facts.is_folder) throw FileFault{EISDIR};
  const OpenFilePointer file = Open(PathOf(path));
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

std::string ReadText(const std::string& path) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::string bytes = ReadBytes(path);
  if (!bytes.starts_with(kByteOrderMark)) return FromCodePage(bytes);
  bytes.erase(0, kByteOrderMark.size());
  return IsUtf8(bytes) ? bytes : FromCodePage(bytes);
}

void WriteBytes(Program& program, const std::string& path, std::string_view bytes) {
  const WholeFileResult result = WriteQuietly(program.host, path, bytes);
  if (result.error == 0) return;
  SayFormerKept(program, path, result);
  throw FileFault{result.error};
}

WholeFileResult WriteQuietly(Host& host, const std::string& path, std::string_view bytes) {
  const DiskWatch watch = [&](DiskStep step, const fs::path& at) { return host.BeforeDiskStep(step, at); };
  return WriteWhole(PathOf(path), bytes, PathOf(KeptFolder(host)), watch);
}

std::string WhyNotWritten(int number) {
  if (number == kOutOfBounds) return "a row or a number is out of bounds";
  return std::generic_category().message(number);
}

std::string KeptFolder(Host& host) {
  const std::string data = host.UserDataFolder();
  return data.empty() ? data : data + "/kept";
}

}  // namespace torvale
