// Whatever a design file holds, reading it ends with one of three error numbers or a design, and what was read can be
// opened on the screen and saved.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

#include "files/code_page.h"
#include "files/design_files.h"
#include "files/design_format.h"
#include "files/file_fault.h"
#include "script/session.h"

namespace {

using namespace torvale;

// One program for all files: a user opens one after the other too.
Session& Started() {
  static std::ostream nowhere(nullptr);
  static Session session(nowhere);
  return session;
}

void OpenAndSave(Program& program, const std::string& bytes) {
  const std::string path = program.host.ProgramFolder() + "/fuzzed";
  std::ofstream(path, std::ios::binary) << bytes;
  program.record.OpenedFileName = path;
  OpenFile(program);
  program.record.SaveFileName = program.host.ProgramFolder() + "/saved";
  SaveFile(program);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Program& program = Started().program;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const int error = ErrorOf([&] { ReadDesign(program, FromCodePage(bytes), [](const DesignExtras&) {}); });
  if (error == 0) {
    OpenAndSave(program, bytes);
  } else if (error != kOutOfBounds && error != kWrongKind && error != kPastTheEnd) {
    std::abort();
  }
  return 0;
}
