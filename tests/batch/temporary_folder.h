// A folder of a test's own, and files in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "batch/text_files.h"
#include "support/own_folder.h"

namespace torvale {

class TestFolder {
 public:
  std::filesystem::path operator/(std::string_view name) const { return path() / PathOf(name); }
  const std::filesystem::path& path() const { return folder_.path(); }
  void Write(std::string_view name, std::string_view bytes) const { WriteTextFile(*this / name, bytes); }
  std::string Read(std::string_view name) const { return ReadTextFile(*this / name); }

 private:
  OwnFolder folder_;
};

}  // namespace torvale
