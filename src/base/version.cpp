#include "base/version.h"

namespace torvale {

std::string ProgramVersion() {
  return std::to_string(TORVALE_VERSION_MAJOR) + "." + std::to_string(TORVALE_VERSION_MINOR) + "." +
         std::to_string(TORVALE_VERSION_REVISION);
}

}  // namespace torvale
