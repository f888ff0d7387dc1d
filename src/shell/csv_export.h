#pragma once

#include <string>
#include <string_view>

#include "screen/file_choice.h"
#include "screen/program.h"

namespace torvale {

// Asks for a file and writes a text to it; where the figures are stale, asks first whether to go on. A file that can't
// be written is told of with the reason.
void ExportText(Program& program, const Export& wanted, const std::string& text);
// The same of comma separated values.
void ExportCsv(Program& program, std::string_view title, std::string_view content, const std::string& text);

// Ask for a file and write what is shown to it as comma separated values. A file that can't be written is told of with
// the reason.
void mnuExportCsv_Click(Program& program);      // the result table
void mnuExportHoleCsv_Click(Program& program);  // the hole summary

// These two entries and those of the phone can be clicked only while results are shown.
void OfferExports(Program& program);

}  // namespace torvale
