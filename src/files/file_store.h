#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace torvale {

// Whole files, in and out. Paths are UTF-8. Every procedure throws FileFault with the operating system's error number.

// The bytes of a file. A file of more than 8 megabytes is refused (EFBIG): no design comes near it.
std::string ReadBytes(const std::string& path);

// Hands bytes to the file system; gives back 0 or an error number.
using ByteSink = std::function<int(std::string_view bytes)>;

// Puts itself between a write and the file system: is given the path and the true sink, and gives back the sink to use.
// Tests let writes fail with it.
using SinkFilter = std::function<ByteSink(const std::string& path, ByteSink sink)>;

// Writes a file, replacing one of that name. Until the new one is whole, the former content stands beside it under the
// name with ".before-save" behind it; a write that fails leaves both, and the next one keeps that older content.
void WriteBytes(const std::string& path, std::string_view bytes, const SinkFilter& filter = {});

inline constexpr std::string_view kKeptSuffix = ".before-save";

}  // namespace torvale
