// Every pattern that the screens and reports use.
#pragma once

namespace torvale {

inline constexpr const char* kPatternsInUse[] = {
    "##.00", "###.00", "####.00",  "#####.00", "0.00",   "-####.00", "##.00 ft.", "##.##", "##.###",
    "#.###", "#.##0",  "###.####", "###.0000", "###0.0", "###.0",    "##.0",      "###.#", "####.#",
    ".#",    " .#",    "##",       "####",     "#####",  "######",   "#######",   "####0", "#####0"};

}  // namespace torvale
