#pragma once

#include "screen/program.h"

namespace torvale {

// Ask for a file and write what is shown to it as comma separated values. A file that can't be written is told of with
// the reason.
void mnuExportCsv_Click(Program& program);      // the result table
void mnuExportHoleCsv_Click(Program& program);  // the hole summary

// The two entries can be clicked only while results are shown.
void OfferCsvExport(Program& program);

}  // namespace torvale
