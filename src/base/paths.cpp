#include "base/paths.h"

namespace torvale {

std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

int NumberOf(const std::error_code& error) {
  return error.default_error_condition().value();
}

}  // namespace torvale
