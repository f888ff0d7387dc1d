// The window of the guide as plain data.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "screen/control_facts.h"
#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// A page of the guide.
struct HelpPage {
  std::string id;
  std::string title;
  std::string group;  // pages of one group stand together in the contents
  std::string html;   // what stands on the page, its title included
  std::string text;   // the same as plain text, words set apart by one blank
  bool operator==(const HelpPage&) const = default;
};

// The guide in a window of its own, which may stay open beside the others.
struct HelpScreen {
  HelpScreen();
  static std::span<const ControlRow<HelpScreen>> Rows();

  Control frmHelp;                // the window itself: its caption is the title
  std::string folder;             // where the pictures of the pages are looked for
  std::vector<HelpPage> pages;    // in the order of the contents
  std::uint64_t revision = 0;     // moves when the pages have changed
  std::string place;              // the page or the anchor that was asked for last ...
  std::uint64_t times_asked = 0;  // ... and how often any was
};

}  // namespace torvale
