// Whole files, in and out. Paths are UTF-8. Every procedure throws FileFault with the operating system's error number.
#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The path of a file in the program's folder.
std::string InProgramFolder(Host& host, std::string_view name);

// The bytes of a file. A file of more than 8 megabytes is refused (EFBIG): no design comes near it.
std::string ReadBytes(const std::string& path);

// The text of such a file, which is in the code page unless a byte order mark ahead of it says UTF-8.
std::string ReadText(const std::string& path);

// Writes a file whole, in the place of one of that name (WriteWhole). The status bar says where the former content is
// kept in the one case that leaves the file broken: it could only be written in place, and the disk failed twice.
void WriteBytes(Program& program, const std::string& path, std::string_view bytes);
// The same without a word: for a desktop that writes a file itself and gives back what came of it.
WholeFileResult WriteQuietly(Host& host, const std::string& path, std::string_view bytes);

// Why a file could not be written, in words: "No space left on device".
std::string WhyNotWritten(int number);

// The folder that former contents of files stand in while those are written in place; empty where the desktop keeps
// nothing, and a file that can't be replaced is not written then.
std::string KeptFolder(Host& host);

}  // namespace torvale
