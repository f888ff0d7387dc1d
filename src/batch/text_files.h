// Files of any size, read and written whole.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/paths.h"

namespace torvale {

// A file that could not be read or written; `what` is the system's reason.
struct TextFileFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The bytes of a file of any size.
std::string ReadTextFile(const std::filesystem::path& path);

// Writes a file whole: under its name stands the former content or the new one at every moment. It is not waited for
// until it is on the disk: what a power failure takes is made again by the next run.
void WriteTextFile(const std::filesystem::path& path, std::string_view bytes);
// The same with what `write` puts out, piece by piece.
void WriteTextFile(const std::filesystem::path& path, const std::function<void(std::ostream&)>& write);

}  // namespace torvale
