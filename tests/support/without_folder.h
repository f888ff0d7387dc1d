// Scripts save in a temporary folder, of another name each time, and the status bar tells in which folder a file is.
#pragma once

#include <filesystem>
#include <string>

namespace torvale {

// The text with "<folder>" in the place of the folder's path, wherever it stands.
inline std::string WithoutFolder(std::string text, const std::filesystem::path& folder) {
  const std::string path = std::filesystem::canonical(folder).string();
  for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path, at)) {
    text.replace(at, path.size(), "<folder>");
  }
  return text;
}

}  // namespace torvale
