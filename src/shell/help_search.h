// The search in the guide.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "screen/help_screen.h"

namespace torvale {

// A page that was found, and a stretch of its text around the first word that was looked for.
struct HelpHit {
  const HelpPage* page;
  std::string excerpt;
};

// The pages that hold all of the words, in large or small letters alike; a word may stand inside another. Pages with
// more of the words in their titles come first, else the order is that of the contents. No words find nothing.
std::vector<HelpHit> SearchHelp(const std::vector<HelpPage>& pages, std::string_view words);

}  // namespace torvale
