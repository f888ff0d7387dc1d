#pragma once

#include <filesystem>

#include "script/headless_host.h"

namespace torvale {

// The current folder is an empty one of its own, where the files that a script saves land, until it goes.
class ElsewhereForAWhile {
 public:
  ElsewhereForAWhile() { std::filesystem::current_path(folder_.path()); }
  ~ElsewhereForAWhile() { std::filesystem::current_path(before_); }
  ElsewhereForAWhile(const ElsewhereForAWhile&) = delete;
  ElsewhereForAWhile& operator=(const ElsewhereForAWhile&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  TemporaryFolder folder_;
};

}  // namespace torvale
