#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace torvale {

// Every path of the program is a UTF-8 text until it is handed to the file system, and again once it comes from there.

std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8Of(const std::filesystem::path& path);

}  // namespace torvale
