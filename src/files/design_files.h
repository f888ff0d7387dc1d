// Design files: a design saved, and opened again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// Writes the design to `SaveFileName`, with the extension of its type; an empty name is taken from `OpenedFileName`,
// then from the design's own name. Any failure: a message, and the file of that name stays as it was.
void SaveFile(Program& program);

// The name under which `SaveFile` would write now if `SaveFileName` were `name`. Throws FileFault (EINVAL) for a name
// that is a piece of an extension.
std::string NameToWrite(Program& program, std::string_view name);

// Reads the file named by `OpenedFileName` into the record and the screens and shows the design. Any failure: a
// message, the defaults, and what was read so far stays. Gives back 0, or the number that the message tells.
int OpenFile(Program& program);

// The extension of a design type (".PFD"), empty for a type that has none.
std::string_view ExtensionOf(std::int16_t design_type);

// The name without its last four characters, where a point stands ahead of the last three.
std::string WithoutExtension(std::string_view name);

}  // namespace torvale
