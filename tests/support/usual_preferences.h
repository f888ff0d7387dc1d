// Preferences that every command accepts, in the order of `txtDefault`. Leaving their panel changes none of them.
#pragma once

#include <array>

namespace torvale {

inline constexpr std::array<const char*, 16> kUsualPreferences = {
    "100", "3/8", "0.65", "140", "1.2", "15", "10", "1", "10", "E", "2.0", "C", "1", "2", ".2", "*.*"};

}  // namespace torvale
