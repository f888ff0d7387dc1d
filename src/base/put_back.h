// A value that comes back at the end of a block, however the block ends.
#pragma once

#include <utility>

namespace torvale {

template <typename T>
class PutBack {
 public:
  explicit PutBack(T& place) : place_(place), kept_(place) {}
  ~PutBack() { place_ = std::move(kept_); }
  PutBack(const PutBack&) = delete;
  PutBack& operator=(const PutBack&) = delete;

 private:
  T& place_;
  T kept_;
};

}  // namespace torvale
