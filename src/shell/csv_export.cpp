#include "shell/csv_export.h"

#include <string>
#include <string_view>
#include <system_error>

#include "base/numbers.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "reports/csv.h"

namespace torvale {
namespace {

constexpr std::string_view kExtension = ".csv";

void Export(Program& program, std::string_view title, std::string_view name, const std::string& text) {
  const auto chosen = program.host.SaveDialog({
      .title = std::string(title),
      .filters = "Comma separated values (*.csv)|*.csv",
      .name = std::string(name),
  });
  if (!chosen) return;
  const bool named = UpperCase(*chosen).ends_with(UpperCase(kExtension));
  const std::string path = named ? *chosen : *chosen + std::string(kExtension);
  const int error = ErrorOf([&] { WriteBytes(program, path, text); });
  if (error == 0) return;
  program.host.Message(path + " could not be written: " + std::generic_category().message(error) + ".", "");
}

}  // namespace

void mnuExportCsv_Click(Program& program) {
  Export(program, "Export Table", "Design.csv", ResultTableCsv(program));
}

void mnuExportHoleCsv_Click(Program& program) {
  Export(program, "Export Hole Summary", "Hole Summary.csv", HoleSummaryCsv(program));
}

void OfferCsvExport(Program& program) {
  MainScreen& main = program.main;
  main.mnuExportCsv.enabled = main.mnuExportHoleCsv.enabled = main.Grid2.control.visible;
}

}  // namespace torvale
