#include "reports/print_commands.h"

#include <functional>
#include <optional>

#include "base/put_back.h"
#include "base/run_time_fault.h"
#include "reports/design_reports.h"
#include "reports/hole_summary_report.h"
#include "reports/stale_mark.h"
#include "screen/file_choice.h"
#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::string_view kPdfFilter = "PDF document(*.pdf)|*.pdf";

Document MakePlainReport(Program& program, Report report) {
  switch (report) {
    case Report::kSummary:
      return SummaryReport(program);
    case Report::kComplete:
      return CompleteReport(program);
    case Report::kHoleSummary:
      break;
  }
  return HoleSummaryReport(program);
}

Document MakeReport(Program& program, Report report) {
  Document document = MakePlainReport(program, report);
  MarkStalePages(program, document);
  return document;
}

// A report that is only looked at, or written to a file, leaves the screen as it was.
Document MakeReportAside(Program& program, Report report) {
  const PutBack screen(program.main);
  return MakeReport(program, report);
}

// What every command of a report goes through: a fault of the report is told to the user.
void TakeOutReport(Program& program, const std::function<void()>& work) {
  TakeOut(program, [&] {
    try {
      work();
    } catch (const RunTimeFault& fault) {
      Tell(program, words::kPrintFault(FaultText(fault.kind)));
    }
  });
}

bool PrinterIsThere(Program& program) {
  const bool is_there = program.host.HasPrinter();
  if (!is_there) Tell(program, words::kNoPrinterForReport);
  return is_there;
}

void PrintCopies(Program& program, const MakeDocument& make, int copies) {
  for (int copy = 1; copy <= copies; ++copy) {
    if (!program.host.Print(make())) return Tell(program, words::kReportNotTaken);
  }
}

void PrintWithDialog(Program& program, Report report) {
  PrintWithDialog(program, [&] { return MakeReport(program, report); });
}

}  // namespace

void PrintWithDialog(Program& program, const MakeDocument& make) {
  if (!PrinterIsThere(program)) return;
  TakeOutReport(program, [&] {
    const std::optional<int> copies = program.host.PrinterDialog();
    if (copies) PrintCopies(program, make, *copies);
  });
}

void mnuPrintSummary_Click(Program& program) {
  PrintWithDialog(program, Report::kSummary);
}

void mnuPrintComplete_Click(Program& program) {
  PrintWithDialog(program, Report::kComplete);
}

void mnuPrtHoleSummary_Click(Program& program) {
  PrintWithDialog(program, Report::kHoleSummary);
}

void PrintAtOnce(Program& program, Report report) {
  if (!PrinterIsThere(program)) return;
  TakeOutReport(program, [&] {
    PrintCopies(
        program, [&] { return MakeReport(program, report); }, 1);
  });
}

void PreviewDocument(Program& program, const MakeDocument& make) {
  TakeOutReport(program, [&] { program.host.Preview(make()); });
}

void mnuPreview_Click(Program& program, int index) {
  PreviewDocument(program, [&] { return MakeReportAside(program, static_cast<Report>(index)); });
}

void mnuExportPdf_Click(Program& program, int index) {
  ExportPdf(program, [&] { return MakeReportAside(program, static_cast<Report>(index)); });
}

void ExportPdf(Program& program, const MakeDocument& make) {
  TakeOutReport(program, [&] {
    const Document document = make();
    const auto path = ChooseExport(program, {"Export as PDF", kPdfFilter, document.title, {".pdf"}});
    if (path) TellExported(program, *path, program.host.WritePdf(document, *path), words::kReportNotWritten);
  });
}

}  // namespace torvale
