// A folder of a test's own, and files in it.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>

#include "batch/text_files.h"

namespace torvale {

class TestFolder {
 public:
  TestFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("torvale-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::filesystem::path operator/(std::string_view name) const { return path_ / PathOf(name); }
  const std::filesystem::path& path() const { return path_; }
  void Write(std::string_view name, std::string_view bytes) const { WriteTextFile(*this / name, bytes); }
  std::string Read(std::string_view name) const { return ReadTextFile(*this / name); }

 private:
  std::filesystem::path path_;
};

}  // namespace torvale
