#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// What a type of design is called, and by what it is asked for. It goes by a name of its own in some places.
struct DesignKind {
  std::int16_t type;
  std::string_view key;             // one word, for tables and command lines
  std::string_view name;            // as the menu has it
  std::string_view entry;           // the control whose click begins it, or opens its panel ...
  std::string_view panel_button;    // ... whose button begins it; empty where it has no panel
  std::string_view title;           // behind the program's name while it is worked out and shown
  std::string_view opened_title;    // the same where a file brought it
  std::string_view in_reports;      // the line below the title of a report
  std::string_view in_hole_report;  // the same on the hole summary
  std::string_view extension;       // of its files, with the point
  std::string_view open_filter;     // caption in the dialog that opens a file
  std::string_view save_filter;     // caption in the dialog that saves one
};

// The six types that are worked out, in the order of their numbers.
std::span<const DesignKind, 6> DesignKinds();
// The row of a type, or nullptr for one that is not among them.
const DesignKind* FindDesignKind(std::int16_t design_type);
// A limited selection whose holes were looked for in another way: the type is the same, the entry and the title are its
// own.
const DesignKind& BestHolesKind();

// What a design of that type is called in a list ("Planned Field Design"), a survey among them; empty for no type.
std::string_view NameOfKind(std::int16_t design_type);

// The title of the main screen with these words behind the program's name.
std::string TitleWith(std::string_view words);

// Ticks the menu entry of a row and takes the ticks of the others away; nullptr for none. What the screen says of the
// best holes goes.
void TickDesign(Program& program, const DesignKind* ticked);
// The same by type; kNoDesign for none.
void TickDesign(Program& program, std::int16_t design_type);
// Takes all ticks away but that of an existing field design, which stays until the next design command.
void UntickDesignsOnTheWayBack(Program& program);

}  // namespace torvale
