#include "screen/file_choice.h"

#include <algorithm>
#include <system_error>

#include "base/numbers.h"
#include "base/paths.h"
#include "base/platform.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// The name of the kind of design behind the program's own in the title.
std::string KindOfDesign(const Program& program) {
  const std::string& title = program.main.title;
  return title.starts_with(kProgramTitle) ? Trim(title.substr(kProgramTitle.size())) : "";
}

// A name that the design has no file for yet. What parts folders can't stand in it.
std::string NameOfDesign(const Program& program) {
  std::string name = TextOf(program.main, InfoField::kDesignName);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '-');
  const std::string kind = KindOfDesign(program);
  return name.empty() || kind.empty() ? name + kind : name + " " + kind;
}

std::string WithExtension(const std::string& name, const std::vector<std::string_view>& extensions) {
  const std::string upper = UpperCase(name);
  const auto has = [&](std::string_view extension) { return upper.ends_with(UpperCase(std::string(extension))); };
  const bool named = std::any_of(extensions.begin(), extensions.end(), has);
  return named ? name : name + std::string(extensions.front());
}

std::string Proposed(const Program& program, const Export& wanted) {
  const fs::path file = PathOf(program.record.DisplayFileName);
  const std::string design = file.empty() ? NameOfDesign(program) : Utf8Of(file.parent_path() / file.stem());
  return (design.empty() ? "" : design + " ") + std::string(wanted.content) + std::string(wanted.extensions.front());
}

}  // namespace

std::optional<std::string> ChooseExport(Program& program, const Export& wanted) {
  const auto written = [extensions = wanted.extensions](const std::string& name) {
    return WithExtension(name, extensions);
  };
  const auto chosen = program.host.SaveDialog({
      .title = std::string(wanted.title),
      .filters = std::string(wanted.filters),
      .name = Proposed(program, wanted),
      .written = written,
  });
  if (!chosen || chosen->empty()) return std::nullopt;
  return written(*chosen);
}

void SayWritten(Program& program, std::string_view path) {
  const fs::path file = ReadablePath(PathOf(path));
  Say(program, words::kSaved(Utf8Of(file.filename()), Utf8Of(file.parent_path())));
}

void SayFormerKept(Program& program, std::string_view path, const WholeFileResult& result) {
  if (result.kept.empty()) return;
  Say(program, words::kWriteFailedHalfWay(path, Utf8Of(result.kept)));
}

void TellExported(Program& program, const std::string& path, const WholeFileResult& result, const Message<2>& failure) {
  if (result.error == 0) {
    SayWritten(program, path);
    return;
  }
  SayFormerKept(program, path, result);
  Tell(program, failure(path, std::generic_category().message(result.error)));
}

}  // namespace torvale
