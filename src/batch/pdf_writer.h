// Reports as PDF files without a toolkit.
#pragma once

#include <optional>
#include <string>

#include "screen/document.h"

namespace torvale {

// The document as a PDF file, drawn as the windows draw it, without a toolkit and a display: letter paper, Helvetica,
// which every reader of such files has. Characters outside Windows-1252 come out as "?". The same document gives the
// same bytes. Nothing where the library gave up.
std::optional<std::string> PdfOf(const Document& document);

}  // namespace torvale
