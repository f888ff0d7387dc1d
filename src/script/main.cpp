// torvale_script: replays a script on a desktop without a screen.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "base/paths.h"
#include "base/platform.h"
#include "base/version.h"
#include "script/runner.h"
#include "script/words.h"

namespace {

constexpr const char* kUsage =
    "usage: torvale_script [--data DIR] [FILE]\n"
    "Replays a script (standard input without FILE) and prints its transcript.\n"
    "  --data DIR   start with the defaults file of that folder\n"
    "  --help       print this and exit\n"
    "  --version    print the version and exit\n";

int Refuse(const torvale::SpokenComplaint& complaint) {
  std::cerr << complaint.text() << '\n' << kUsage;
  return torvale::kScriptNotUnderstood;
}

}  // namespace

int main(int argc, char** argv) {
  using torvale::PathOf;
  namespace script_words = torvale::script_words;
  torvale::KeepStandardStreamsAsBytes();
  std::ios::sync_with_stdio(false);
#ifdef SIGPIPE
  // A reader that stops early must not cost the end of the run, which takes the temporary folder away.
  std::signal(SIGPIPE, SIG_IGN);
#endif
  const std::vector<std::string> arguments = torvale::ArgumentsOf(argc, argv);
  std::string data_folder;
  std::string file;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--help") {
      std::cout << kUsage;
      return torvale::kScriptDone;
    }
    if (arguments[i] == "--version") {
      std::cout << "torvale_script " << torvale::ProgramVersion() << '\n';
      return torvale::kScriptDone;
    }
    if (arguments[i] == "--data") {
      if (++i == arguments.size()) return Refuse(script_words::kDataWithoutFolder);
      data_folder = arguments[i];
    } else if (arguments[i].starts_with("--") || !file.empty()) {
      return Refuse(script_words::kNotUnderstood(arguments[i]));
    } else {
      file = arguments[i];
    }
  }
  if (!data_folder.empty() && !std::filesystem::is_directory(PathOf(data_folder))) {
    return Refuse(script_words::kNoFolder(data_folder));
  }
  if (file.empty()) return torvale::RunScript(std::cin, std::cout, std::cerr, data_folder);
  std::ifstream script(PathOf(file), std::ios::binary);
  if (!script) return Refuse(script_words::kNoFile(file));
  return torvale::RunScript(script, std::cout, std::cerr, data_folder);
}
