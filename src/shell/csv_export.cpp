#include "shell/csv_export.h"

#include <string>
#include <string_view>

#include "files/file_store.h"
#include "reports/csv.h"
#include "reports/hole_summary_report.h"
#include "reports/stale_mark.h"
#include "screen/file_choice.h"
#include "screen/words.h"

namespace torvale {

void ExportText(Program& program, const Export& wanted, const std::string& text) {
  TakeOut(program, [&] {
    const auto path = ChooseExport(program, wanted);
    if (path) TellExported(program, *path, WriteQuietly(program.host, *path, text), words::kTableNotWritten);
  });
}

void ExportCsv(Program& program, std::string_view title, std::string_view content, const std::string& text) {
  ExportText(program, {title, "Comma separated values (*.csv)|*.csv", content, {".csv"}}, text);
}

void mnuExportCsv_Click(Program& program) {
  ExportCsv(program, "Export Table", "Table", ResultTableCsv(program));
}

void mnuExportHoleCsv_Click(Program& program) {
  ExportCsv(program, "Export Hole Summary", kHoleSummary, HoleSummaryCsv(program));
}

void OfferExports(Program& program) {
  MainScreen& main = program.main;
  for (Control* entry : {&main.mnuExportCsv, &main.mnuExportHoleCsv, &main.mnuExportPhone, &main.mnuExportPicture}) {
    entry->enabled = main.Grid2.control.visible;
  }
}

}  // namespace torvale
