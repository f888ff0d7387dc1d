#include "batch/text_files.h"

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

namespace torvale {
namespace {

[[noreturn]] void Fail(int error) {
  throw TextFileFault(std::generic_category().message(error == 0 ? EIO : error));
}

}  // namespace

std::string ReadTextFile(const std::filesystem::path& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) Fail(EISDIR);
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) Fail(errno == 0 ? ENOENT : errno);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  if (file.bad()) Fail(errno);
  return std::move(bytes).str();
}

void WriteTextFile(const std::filesystem::path& path, std::string_view bytes) {
  WriteTextFile(path, [&](std::ostream& out) { out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())); });
}

void WriteTextFile(const std::filesystem::path& path, const std::function<void(std::ostream&)>& write) {
  std::filesystem::path beside = path;
  beside += ".new";
  {
    errno = 0;
    std::ofstream file(beside, std::ios::binary | std::ios::trunc);
    write(file);
    file.close();
    if (!file) {
      const int error = errno;
      std::error_code ignored;
      std::filesystem::remove(beside, ignored);
      Fail(error);
    }
  }
  std::error_code error;
  std::filesystem::rename(beside, path, error);
  if (error) Fail(NumberOf(error));
}

}  // namespace torvale
