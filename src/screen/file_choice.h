// Where an export goes, and what is told of it once it is written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// What the program writes beside designs: reports, tables, pictures.
struct Export {
  std::string_view title;                    // of the file dialog
  std::string_view filters;                  // as FileDialog has them
  std::string_view content;                  // what goes behind the design's name in the name that is proposed
  std::vector<std::string_view> extensions;  // the first is added to a name that has none of them
};

// The path to export to, its extension included; nothing where the dialog was cancelled. The dialog proposes the
// design's file or, where it has none, its name and kind.
std::optional<std::string> ChooseExport(Program& program, const Export& wanted);

// Says in the status bar that the file was written, and in which folder.
void SayWritten(Program& program, std::string_view path);
// Says in the status bar where the former content is of a file that a failed write has left broken, where it has.
void SayFormerKept(Program& program, std::string_view path, const WholeFileResult& result);
// Tells how writing an export ended: one of the two sentences above, and the failure, with the file and the reason, in
// a message.
void TellExported(Program& program, const std::string& path, const WholeFileResult& result, const Message<2>& failure);

}  // namespace torvale
