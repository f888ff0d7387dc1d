#pragma once

#include <filesystem>
#include <system_error>

#include "support/own_folder.h"

namespace torvale {

// The current folder is an empty one of its own, where files without a folder land, until it goes.
class ElsewhereForAWhile {
 public:
  ElsewhereForAWhile() { std::filesystem::current_path(folder_.path()); }
  ~ElsewhereForAWhile() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  ElsewhereForAWhile(const ElsewhereForAWhile&) = delete;
  ElsewhereForAWhile& operator=(const ElsewhereForAWhile&) = delete;

 private:
  OwnFolder folder_;
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace torvale
