#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace torvale {

// A file that could not be read or written; `what` is the system's reason.
struct TextFileFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A path from UTF-8, and back.
std::filesystem::path PathFrom(std::string_view utf8);
std::string TextOfPath(const std::filesystem::path& path);

// The bytes of a file of any size.
std::string ReadTextFile(const std::filesystem::path& path);

// Writes a file whole: under its name stands the former content or the new one at every moment.
void WriteTextFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace torvale
