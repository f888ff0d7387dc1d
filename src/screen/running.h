#pragma once

#include <functional>
#include <string>
#include <vector>

namespace torvale {

// What the program is in the middle of.
struct Running {
  int calculations = 0;                        // a calculation may be part of another
  std::vector<std::function<void()>> waiting;  // commands that run, in this order, when the calculations have unwound
  std::string input;  // what was typed when the button that completes the survey was taken away; empty while it stands
};

// Stands for as long as a calculation runs that lets events come in between.
class Calculating {
 public:
  explicit Calculating(Running& running) : running_(running) { ++running_.calculations; }
  ~Calculating() { --running_.calculations; }
  Calculating(const Calculating&) = delete;
  Calculating& operator=(const Calculating&) = delete;

 private:
  Running& running_;
};

}  // namespace torvale
