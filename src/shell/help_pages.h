// The file of the guide: its pages, and the places on them.
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

}  // namespace torvale
