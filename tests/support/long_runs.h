// How long random tests run: TORVALE_LONG in the environment says it.
#pragma once

#include <cstdlib>

namespace torvale {

// `usual` in ./test, seconds for a test program; `minutes` with TORVALE_LONG=1, as in ./test --thorough, some two
// minutes for a test program; `full` with TORVALE_LONG=2, by hand.
template <typename Count>
Count LongRun(Count usual, Count minutes, Count full) {
  const char* const asked = std::getenv("TORVALE_LONG");
  const int length = asked == nullptr ? 0 : std::atoi(asked);
  if (length <= 0) return usual;
  return length == 1 ? minutes : full;
}

// Where the full forms begin: TORVALE_FIRST in the environment, else `first`. So they are shared out among processors,
// and one round is made again.
inline unsigned FirstRound(unsigned first) {
  const char* const asked = std::getenv("TORVALE_FIRST");
  return asked == nullptr ? first : static_cast<unsigned>(std::strtoul(asked, nullptr, 10));
}

}  // namespace torvale
