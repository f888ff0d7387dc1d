// Every path of the program is a UTF-8 text until it is handed to the file system, and again once it comes from there.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace torvale {

std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8Of(const std::filesystem::path& path);

// An error of std::filesystem as errno has it; 0 where there is none. A system may have numbers of its own.
int NumberOf(const std::error_code& error);

}  // namespace torvale
