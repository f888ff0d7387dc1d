// Ends the test program when one round takes far longer than any may: a hang is a failure, not a wait.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

namespace torvale {

class Watchdog {
 public:
  explicit Watchdog(std::chrono::seconds limit) : limit_(limit), thread_([this] { Watch(); }) {}
  ~Watchdog() {
    {
      const std::lock_guard lock(mutex_);
      done_ = true;
    }
    wake_.notify_one();
    thread_.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // A new round begins; `name` is printed should it hang.
  void Begin(std::string name) {
    const std::lock_guard lock(mutex_);
    name_ = std::move(name);
    begun_ = std::chrono::steady_clock::now();
  }

 private:
  void Watch() {
    std::unique_lock lock(mutex_);
    while (!wake_.wait_for(lock, std::chrono::milliseconds(200), [this] { return done_; })) {
      if (std::chrono::steady_clock::now() - begun_ < limit_) continue;
      std::fprintf(stderr, "hung: %s\n", name_.c_str());
      std::_Exit(3);
    }
  }

  std::chrono::seconds limit_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool done_ = false;
  std::string name_;
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
  std::thread thread_;
};

}  // namespace torvale
