// The command line of `torvale_batch`.
#pragma once

#include <functional>
#include <ostream>

#include "batch/run.h"

namespace torvale {

// What `torvale_batch` does with its arguments. `go_on` is asked several times a second whether to; `terminal` says
// whether what is written to `errors` is seen on one.
BatchEnd RunCommandLine(int argc, const char* const* argv, bool terminal, const std::function<bool()>& go_on,
                        std::ostream& out, std::ostream& errors);

}  // namespace torvale
