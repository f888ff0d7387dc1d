// From a report to paper, preview or PDF: what the print entries of the File menu do.
#pragma once

#include <functional>

#include "screen/program.h"

namespace torvale {

// Makes what is to be printed, anew for each copy.
using MakeDocument = std::function<Document()>;

// What each report does with a document: the printer dialog and the copies, the preview, a file that a dialog asks for.
void PrintWithDialog(Program& program, const MakeDocument& make);
void PreviewDocument(Program& program, const MakeDocument& make);
void ExportPdf(Program& program, const MakeDocument& make);

// The reports, in the order of their entries in the file menu.
enum class Report : int { kSummary, kComplete, kHoleSummary };

// The printer dialog, then the report once for each copy, each a document of its own. A cancelled dialog ends the
// command in silence; anything else that goes wrong, a missing printer too, is told in a message.
void mnuPrintSummary_Click(Program& program);
void mnuPrintComplete_Click(Program& program);
void mnuPrtHoleSummary_Click(Program& program);

// One copy at once, without the dialog.
void PrintAtOnce(Program& program, Report report);

// The report on the screen, as it would come out of the printer.
void mnuPreview_Click(Program& program, int index);

// The report into a file that a dialog asks for. The index is that of Report, here and above.
void mnuExportPdf_Click(Program& program, int index);

}  // namespace torvale
