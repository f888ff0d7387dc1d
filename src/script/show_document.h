// What was printed, as lines of a transcript.
#pragma once

#include <ostream>

#include "screen/document.h"

namespace torvale {

// One line for each drawing operation; positions in inches to thousandths.
void ShowDocument(std::ostream& out, const Document& document);

}  // namespace torvale
