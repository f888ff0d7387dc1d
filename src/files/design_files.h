#pragma once

#include <string>
#include <string_view>

#include "files/file_store.h"
#include "screen/program.h"

namespace torvale {

// Writes the design to `SaveFileName`, with the extension of its type; an empty name is taken from `OpenedFileName`,
// then from the design's own name. Any failure: a message, and the file as far as it was written. The former content
// of the file is kept beside it until the new one is whole.
void SaveFile(Program& program, const SinkFilter& filter = {});

// Reads the file named by `OpenedFileName` into the record and the screens and shows the design. Any failure: a
// message, the defaults, and what was read so far stays.
void OpenFile(Program& program);

// The extension of a design type (".PFD"), empty for a type that has none.
std::string_view ExtensionOf(std::int16_t design_type);

// The name without its last four characters, where a point stands ahead of the last three.
std::string WithoutExtension(std::string_view name);

}  // namespace torvale
