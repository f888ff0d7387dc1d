#pragma once

#include <string>
#include <string_view>

#include "reports/crew_sheet.h"

namespace torvale {

// The crew's sheet as one HTML page that needs nothing else: no network, no other file. Large dark letters on white,
// light ones on black where the phone asks for that; a box to tick for each run of one size. The ticks are kept in the
// browser under the words of the page, so that another design has others; where the browser keeps nothing the page says
// so. Nothing of what the user typed can become markup.
std::string PhonePage(const CrewSheet& sheet);

}  // namespace torvale
