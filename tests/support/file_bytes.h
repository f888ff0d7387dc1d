// What a file holds, byte for byte; nothing where there is none.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace torvale {

inline std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace torvale
