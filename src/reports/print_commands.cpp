#include "reports/print_commands.h"

#include <functional>
#include <system_error>
#include <utility>

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
  struct Kept {
    explicit Kept(MainScreen& main) : now(main), before(main) {}
    ~Kept() { now = std::move(before); }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    MainScreen& now;
    MainScreen before;
  };
  const Kept kept(program.main);
  return MakeReport(program, report);
}

// What every command of a report ends with: a fault of the report is told to the user.
void Guard(Program& program, const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeFault& fault) {
    Tell(program, words::kPrintFault(FaultText(fault.kind)));
  }
}

// Whether there is a printer, and the user prints the figures as they are.
bool ReadyToPrint(Program& program) {
  if (program.host.HasPrinter()) return GoOnThoughStale(program);
  Tell(program, words::kNoPrinterForReport);
  return false;
}

void PrintCopies(Program& program, const MakeDocument& make, int copies) {
  Guard(program, [&] {
    for (int copy = 1; copy <= copies; ++copy) {
      if (program.host.Print(make())) continue;
      Tell(program, words::kReportNotTaken);
      return;
    }
  });
}

void PrintWithDialog(Program& program, Report report) {
  PrintWithDialog(program, [&] { return MakeReport(program, report); });
}

}  // namespace

void PrintWithDialog(Program& program, const MakeDocument& make) {
  if (!ReadyToPrint(program)) return;
  const std::optional<int> copies = program.host.PrinterDialog();
  if (copies) PrintCopies(program, make, *copies);
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
  if (!ReadyToPrint(program)) return;
  PrintCopies(
      program, [&] { return MakeReport(program, report); }, 1);
}

void PreviewDocument(Program& program, const MakeDocument& make) {
  if (!GoOnThoughStale(program)) return;
  Guard(program, [&] { program.host.Preview(make()); });
}

void mnuPreview_Click(Program& program, int index) {
  PreviewDocument(program, [&] { return MakeReportAside(program, static_cast<Report>(index)); });
}

void mnuExportPdf_Click(Program& program, int index) {
  ExportPdf(program, [&] { return MakeReportAside(program, static_cast<Report>(index)); });
}

void ExportPdf(Program& program, const MakeDocument& make) {
  if (!GoOnThoughStale(program)) return;
  Guard(program, [&] {
    const Document document = make();
    const auto path = ChooseExport(program, {"Export as PDF", kPdfFilter, document.title, {".pdf"}});
    if (path) TellExported(program, *path, program.host.WritePdf(document, *path), words::kReportNotWritten);
  });
}

}  // namespace torvale
