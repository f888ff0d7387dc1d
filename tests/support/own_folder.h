// An empty folder of a test's own, which goes with it.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace torvale {

class OwnFolder {
 public:
  OwnFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("torvale-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~OwnFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace torvale
