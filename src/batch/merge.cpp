#include "batch/merge.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "base/paths.h"
#include "batch/cell_words.h"
#include "batch/csv_text.h"
#include "batch/exit_status.h"
#include "batch/result_rows.h"
#include "batch/text_files.h"
#include "batch/words.h"

namespace torvale {
namespace {

// A table that can't be joined; `what` says why.
struct MergeFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// All rows of a field, as they stand in its table.
struct FieldRows {
  int number = 0;
  std::string rows;
};

// A cell that is a whole number from 1 on, or 0.
int FieldNumber(const std::string& cell) {
  const bool digits = !cell.empty() && cell.size() < 10 &&
                      std::all_of(cell.begin(), cell.end(), [](char c) { return c >= '0' && c <= '9'; });
  return digits ? std::stoi(cell) : 0;
}

// The rows of a table of results but for its heading; they point into `text`.
std::vector<CsvRow> RowsOf(const std::string& text, const std::string& name) {
  std::vector<CsvRow> rows;
  try {
    rows = ReadCsv(text, ',');
  } catch (const CsvFault& fault) {
    throw MergeFault(At(name, fault));
  }
  if (!text.starts_with(ResultHeading())) throw MergeFault(At(PlaceOfRow(name, 1), batch_words::kNoResults));
  rows.erase(rows.begin());
  return rows;
}

void AddPart(const std::filesystem::path& part, std::vector<FieldRows>& fields) {
  const std::string name = Utf8Of(part);
  std::string text;
  try {
    text = ReadTextFile(part);
  } catch (const TextFileFault& fault) {
    throw MergeFault(name + ": " + fault.what());
  }
  const std::size_t first = fields.size();
  for (const CsvRow& row : RowsOf(text, name)) {
    const int number = FieldNumber(row.Cell(0));
    if (number == 0) throw MergeFault(At(PlaceOfCell(name, row.line, 0), batch_words::kNoFieldNumber(row.Cell(0))));
    if (fields.size() == first || fields.back().number != number) fields.push_back({number, ""});
    fields.back().rows += row.text;
  }
}

// The joined table. `missing` takes how many fields before the last one are in none of the parts.
std::string Joined(std::vector<FieldRows>& fields, int& missing) {
  std::stable_sort(fields.begin(), fields.end(),
                   [](const FieldRows& a, const FieldRows& b) { return a.number < b.number; });
  std::string text = ResultHeading();
  int before = 0;
  missing = 0;
  for (const FieldRows& field : fields) {
    if (field.number == before) throw MergeFault(batch_words::kFieldTwice(std::to_string(field.number)).text());
    missing += field.number - before - 1;
    before = field.number;
    text += field.rows;
  }
  return text;
}

}  // namespace

int MergeResults(const std::vector<std::filesystem::path>& parts, const std::filesystem::path& joined,
                 std::ostream& out, std::ostream& errors) {
  std::vector<FieldRows> fields;
  int missing = 0;
  try {
    for (const std::filesystem::path& part : parts) AddPart(part, fields);
    WriteTextFile(joined, Joined(fields, missing));
  } catch (const MergeFault& fault) {
    errors << fault.what() << '\n';
    return kBatchNotUnderstood;
  } catch (const TextFileFault& fault) {
    errors << Utf8Of(joined) << ": " << fault.what() << '\n';
    return kBatchNotWritten;
  }
  out << fields.size() << (fields.size() == 1 ? " field: " : " fields: ") << Utf8Of(joined) << '\n';
  if (missing == 0) return kBatchDone;
  const SpokenComplaint complaint =
      missing == 1 ? batch_words::kFieldMissing() : batch_words::kFieldsMissing(std::to_string(missing));
  errors << complaint.text() << '\n';
  return kBatchRefused;
}

}  // namespace torvale
