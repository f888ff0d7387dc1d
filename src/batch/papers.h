// The papers of a design: what is written of it beside its row in the table of results.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "batch/field_table.h"
#include "scenarios/scenario.h"

namespace torvale {

// Which are asked for.
struct Papers {
  bool designs = false;  // the design file
  bool tables = false;   // the result table and the hole summary, CSV
  bool reports = false;  // the three reports, PDF
  bool phone = false;    // the crew's page for a phone, HTML
  bool stakes = false;   // of slope designs, CSV and PDF
  bool Any() const { return designs || tables || reports || phone || stakes; }
};

// The folder of a field's papers, from the output folder: its number and its name, as far as every file system takes
// it.
std::string FolderOf(const FieldRow& field);

struct WrittenPapers {
  std::vector<std::pair<std::string, std::uint64_t>> files;  // from the output folder, and their hashes
  std::vector<std::string> trouble;                          // what could not be written, in the program's words
};

// Writes what is asked for of the design that stands in a quiet program, through the program's own commands.
WrittenPapers WritePapers(QuietProgram& quiet, const Papers& asked, const std::filesystem::path& out_folder,
                          const FieldRow& field);

}  // namespace torvale
