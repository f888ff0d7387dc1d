// torvale_batch: many fields in one go.
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "base/platform.h"
#include "batch/command_line.h"

namespace {

// What Ctrl+C leaves. The second one ends the program as it would any other.
volatile std::sig_atomic_t interrupted = 0;

extern "C" void Interrupt(int signal) {
  interrupted = 1;
  std::signal(signal, SIG_DFL);
}

}  // namespace

int main(int argc, char** argv) {
  torvale::KeepStandardStreamsAsBytes();
  const std::vector<std::string> arguments = torvale::ArgumentsOf(argc, argv);
  std::vector<const char*> words = {"torvale_batch"};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  std::signal(SIGINT, Interrupt);
  std::signal(SIGTERM, Interrupt);
  const torvale::BatchEnd end = torvale::RunCommandLine(
      static_cast<int>(words.size()), words.data(), torvale::ErrorsGoToTerminal(), [] { return interrupted == 0; },
      std::cout, std::cerr);
  std::cout.flush();
  // A thread that hangs would be waited for, or pulled the data away from under.
  if (end.threads_left) std::_Exit(end.status);
  return end.status;
}
