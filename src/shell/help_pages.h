// The file of the guide: its pages, its places, and the search in them.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "screen/help_screen.h"

namespace torvale {

// A file that is no help file; `what` tells why in a few words.
struct HelpFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The pages of a help file: each a <section id="..." data-group="..."> with its title as <h1>. Throws HelpFault where
// there are none, or one lacks an id, a title or its end, or has the id of another. Headings of third rank without an
// id get one.
std::vector<HelpPage> ReadHelpPages(std::string_view file);

// The page of that id, or the one on which that anchor (`id="..."`) stands; nullptr where there is none.
const HelpPage* PageAt(const std::vector<HelpPage>& pages, std::string_view place);

// The anchor of the heading on the page of messages that a message of that text stands under, the closest one; what the
// program puts in stands in italics there. The page itself where none fits.
std::string PlaceOfMessage(const std::vector<HelpPage>& pages, std::string_view body);

// A page that was found, and a stretch of its text around the first word that was looked for.
struct HelpHit {
  const HelpPage* page;
  std::string excerpt;
};

// The pages that hold all of the words, in large or small letters alike; a word may stand inside another. Pages with
// more of the words in their titles come first, else the order is that of the contents. No words find nothing.
std::vector<HelpHit> SearchHelp(const std::vector<HelpPage>& pages, std::string_view words);

}  // namespace torvale
