#include "shell/csv_export.h"

#include <string>
#include <string_view>
#include <system_error>

#include "files/file_fault.h"
#include "files/file_store.h"
#include "reports/csv.h"
#include "reports/stale_mark.h"
#include "screen/file_choice.h"
#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {

void ExportText(Program& program, const Export& wanted, const std::string& text) {
  const auto path = ChooseExport(program, wanted);
  if (!path) return;
  const int error = ErrorOf([&] { WriteBytes(program, *path, text); });
  if (error == 0) {
    SayWritten(program, *path);
    return;
  }
  Tell(program, words::kTableNotWritten(*path, std::generic_category().message(error)));
}

void ExportCsv(Program& program, std::string_view title, std::string_view content, const std::string& text) {
  ExportText(program, {title, "Comma separated values (*.csv)|*.csv", content, {".csv"}}, text);
}

void mnuExportCsv_Click(Program& program) {
  if (!GoOnThoughStale(program)) return;
  ExportCsv(program, "Export Table", "Table", ResultTableCsv(program));
}

void mnuExportHoleCsv_Click(Program& program) {
  if (!GoOnThoughStale(program)) return;
  ExportCsv(program, "Export Hole Summary", "Hole Summary", HoleSummaryCsv(program));
}

void OfferExports(Program& program) {
  MainScreen& main = program.main;
  for (Control* entry : {&main.mnuExportCsv, &main.mnuExportHoleCsv, &main.mnuExportPhone, &main.mnuExportPicture}) {
    entry->enabled = main.Grid2.control.visible;
  }
}

}  // namespace torvale
