// Scripts save in a temporary folder, of another name each time, and the status bar tells in which folder a file is.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace torvale {

// The text with "<folder>" in the place of the folder's path, wherever it stands, also as a transcript has it, which
// writes a backslash as two. A slash divides it from what follows, on every system.
inline std::string WithoutFolder(std::string text, const std::filesystem::path& folder) {
  const std::string path = std::filesystem::canonical(folder).string();
  std::string quoted;
  for (const char letter : path) quoted.append(letter == '\\' ? 2 : 1, letter);
  const auto replace = [&text](const std::string& form, std::string_view with) {
    for (std::size_t at = text.find(form); at != std::string::npos; at = text.find(form, at + with.size())) {
      text.replace(at, form.size(), with);
    }
  };
  for (const std::string& form : {quoted + "\\\\", path + "\\"}) replace(form, "<folder>/");
  for (const std::string& form : {quoted, path}) replace(form, "<folder>");
  return text;
}

}  // namespace torvale
