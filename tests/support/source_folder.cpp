#include "support/source_folder.h"

namespace torvale {

const char* const kSourceFolder = TORVALE_SOURCE_DIR;

}  // namespace torvale
