#pragma once

namespace torvale {

// The folder of the project, UTF-8, without a separator at its end: for tests that read its data, pages and scripts.
// Only one file is compiled with its name, so that a compiler cache serves every copy of the project.
extern const char* const kSourceFolder;

}  // namespace torvale
