#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace torvale {

// The current folder is an empty one of its own, where files without a folder land, until it goes.
class ElsewhereForAWhile {
 public:
  ElsewhereForAWhile() {
    std::random_device random;
    do {
      folder_ = std::filesystem::temp_directory_path() / ("torvale-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
    std::filesystem::current_path(folder_);
  }
  ~ElsewhereForAWhile() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(folder_, ignored);
  }
  ElsewhereForAWhile(const ElsewhereForAWhile&) = delete;
  ElsewhereForAWhile& operator=(const ElsewhereForAWhile&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  std::filesystem::path folder_;
};

}  // namespace torvale
