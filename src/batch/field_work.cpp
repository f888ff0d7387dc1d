#include "batch/field_work.h"

#include <array>
#include <exception>
#include <new>

#include "base/numbers.h"
#include "base/utf8.h"
#include "base/version.h"
#include "base/whole_file.h"
#include "batch/content_hash.h"
#include "batch/field_inputs.h"
#include "batch/pdf_writer.h"
#include "batch/text_files.h"
#include "files/design_files.h"
#include "reports/csv.h"
#include "screen/design_types.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/stakes.h"

namespace torvale {
namespace {

using Row = std::vector<std::string>;

struct ReportFile {
  std::string_view command;
  std::string_view name;
};
constexpr std::array<ReportFile, 3> kReports = {
    {{"mnuExportPdf(0)", "summary"}, {"mnuExportPdf(1)", "complete"}, {"mnuExportPdf(2)", "holes"}}};
constexpr std::array<ReportFile, 2> kTables = {{{"mnuExportCsv", "table"}, {"mnuExportHoleCsv", "holes"}}};

constexpr ReportFile kPhonePage = {"mnuExportPhone", "phone"};
constexpr ReportFile kStakesTable = {"btnCsvStakes", "stakes"};
constexpr ReportFile kStakesReport = {"btnPdfStakes", "stakes"};

constexpr std::string_view kBetween = " / ";  // between sentences of a cell

// The columns of the table of results. A figure is the shortest number that reads back to the same bits.
struct ResultColumn {
  std::string_view heading;
  std::string (*text)(const ScenarioResult& result);
};

template <typename Number>
std::string Optional(const std::optional<Number>& value) {
  return value ? ShortestText(*value) : "";
}

std::string SizesText(const ScenarioResult& result) {
  std::string text;
  for (const SizeCount& size : result.sizes) {
    text += (text.empty() ? "" : "; ") + size.name + ": " + std::to_string(size.holes);
  }
  return text;
}

constexpr ResultColumn kFigures[] = {
    {"Uniformity (percent)", [](const ScenarioResult& r) { return ShortestText(r.uniformity); }},
    {"Highest Head (feet)", [](const ScenarioResult& r) { return ShortestText(r.max_head); }},
    {"at Station", [](const ScenarioResult& r) { return std::to_string(r.max_head_station); }},
    {"Lowest Head (feet)", [](const ScenarioResult& r) { return ShortestText(r.min_head); }},
    {"at Station", [](const ScenarioResult& r) { return std::to_string(r.min_head_station); }},
    {"Greatest Furrow Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.max_furrow_flow); }},
    {"Least Furrow Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.min_furrow_flow); }},
    {"Flow (GPM)", [](const ScenarioResult& r) { return ShortestText(r.flow); }},
    {"Slope (feet per 100 feet)", [](const ScenarioResult& r) { return Optional(r.slope); }},
    {"Slope to Station", [](const ScenarioResult& r) { return Optional(r.slope_ends); }},
    {"Highest Fill (feet)", [](const ScenarioResult& r) { return Optional(r.highest_fill); }},
    {"Holes by Size", SizesText},
    {"Changes of Size", [](const ScenarioResult& r) { return std::to_string(r.size_changes); }},
    {"Acres", [](const ScenarioResult& r) { return ShortestText(r.acres); }},
    {"Hours for an Inch", [](const ScenarioResult& r) { return ShortestText(r.hours_for_inch); }},
    {"Target Head (feet)", [](const ScenarioResult& r) { return r.target_head; }},
};

std::string Joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) {
    if (!text.empty()) text += kBetween;
    for (const char c : sentence) text += c == '\r' || c == '\n' ? ' ' : c;
  }
  return text;
}

std::string_view KeyOfDesign(std::int16_t type) {
  const DesignKind* kind = FindDesignKind(type);
  return kind == nullptr ? std::string_view() : kind->key;
}

Row StartOfRow(const FieldRow& field, std::int16_t type, std::string_view outcome) {
  return {std::to_string(field.number), field.name, std::string(KeyOfDesign(type)), std::string(outcome)};
}

// The figures of a design that is done, empty cells for one that isn't.
void AddFigures(Row& row, const ScenarioResult* result) {
  for (const ResultColumn& column : kFigures) row.push_back(result != nullptr ? column.text(*result) : "");
}

void AddWords(Row& row, const std::vector<std::string>& warnings, const std::vector<std::string>& words,
              SheetCell cell) {
  row.push_back(Joined(warnings));
  row.push_back(Joined(words));
  row.push_back(cell.row > 0 ? std::to_string(cell.row) : "");
  row.push_back(cell.row > 0 ? std::to_string(cell.column + 1) : "");
}

Row RowOf(const FieldRow& field, const ScenarioResult& result, const std::vector<std::string>& remarks,
          const std::vector<std::string>& trouble) {
  const bool done = result.outcome == ScenarioOutcome::kDone;
  Row row = StartOfRow(field, result.design_type, !done ? "refused" : trouble.empty() ? "done" : "not written");
  AddFigures(row, done ? &result : nullptr);
  std::vector<std::string> warnings = remarks;
  warnings.insert(warnings.end(), result.warnings.begin(), result.warnings.end());
  AddWords(row, warnings, done ? trouble : result.words, result.cell);
  return row;
}

Row RowWithout(const FieldRow& field, std::int16_t type, std::string_view outcome, const std::string& words) {
  Row row = StartOfRow(field, type, outcome);
  AddFigures(row, nullptr);
  AddWords(row, {}, {words}, {});
  return row;
}

// Writes what is asked for of a design that stands in a quiet program, through the program's own commands.
class PaperWriter {
 public:
  PaperWriter(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, std::int16_t type)
      : quiet_(quiet),
        task_(task),
        field_(field),
        start_(FolderOf(field) + "/" + std::string(KeyOfDesign(type))),
        type_(type) {}

  void Write(FieldOutcome& outcome) {
    std::error_code error;
    std::filesystem::create_directories((task_.out_folder / PathOf(start_)).parent_path(), error);
    quiet_.host().told.clear();
    quiet_.program().record.DisplayFileName = start_ + std::string(ExtensionOf(type_));
    if (task_.papers.designs) Design(outcome);
    MenuOpened(quiet_.program(), "mnuFile");
    if (task_.papers.tables) {
      for (const ReportFile& table : kTables) Export(outcome, table, ".csv");
    }
    if (task_.papers.reports) {
      for (const ReportFile& report : kReports) Export(outcome, report, ".pdf");
    }
    if (task_.papers.phone) Export(outcome, kPhonePage, ".html");
    if (task_.papers.stakes && IsSlopeDesign(quiet_.program().record)) Stakes(outcome);
    for (const Told& message : quiet_.host().told) trouble.push_back(message.body);
  }

  std::vector<std::string> trouble;  // what could not be written, in the program's words

 private:
  std::string Full(const std::string& name) const { return Utf8Of(task_.out_folder / PathOf(name)); }

  void Keep(FieldOutcome& outcome, const std::string& name) {
    ContentHash hash;
    hash.Add(ReadTextFile(task_.out_folder / PathOf(name)));
    outcome.files.emplace_back(name, hash.value());
  }

  void Design(FieldOutcome& outcome) {
    Program& program = quiet_.program();
    program.record.SaveFileName = Full(program.record.DisplayFileName);
    SaveFile(program);
    if (quiet_.host().told.empty()) Keep(outcome, program.record.DisplayFileName);
  }

  void Stakes(FieldOutcome& outcome) {
    StakesScreen& screen = quiet_.program().stakes;
    screen.txtStakeInterval.Set(field_.stake_interval.empty() ? kUsualStakeInterval : field_.stake_interval);
    screen.txtCrownWidth.Set(field_.crown_width);
    Click(quiet_.program(), "mnuStakes");
    Export(outcome, kStakesTable, ".csv");
    Export(outcome, kStakesReport, ".pdf");
    Click(quiet_.program(), "btnCloseStakes");
  }

  void Export(FieldOutcome& outcome, const ReportFile& report, std::string_view extension) {
    const std::string name = start_ + " " + std::string(report.name) + std::string(extension);
    const std::size_t told = quiet_.host().told.size();
    quiet_.host().save_as = Full(name);
    quiet_.host().write_pdf = [](const Document& document, const std::string& path) {
      const std::optional<std::string> bytes = PdfOf(document);
      if (bytes) WriteTextFile(PathOf(path), *bytes);
      return bytes.has_value();
    };
    Click(quiet_.program(), report.command);
    if (quiet_.host().told.size() == told) Keep(outcome, name);
  }

  QuietProgram& quiet_;
  const FieldTask& task_;
  const FieldRow& field_;
  std::string start_;
  std::int16_t type_;
};

// The words of an exception that nobody expected.
std::string WordsOf(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const RunTimeFault& fault) {
    return std::string(FaultText(fault.kind));
  } catch (const std::bad_alloc&) {
    return "The computer is out of memory.";
  } catch (const std::exception& fault) {
    return fault.what();
  } catch (...) {
    return "Something unexpected went wrong.";
  }
}

// One design with its papers. False where the time was over.
bool WorkDesign(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, const FieldInputs& inputs,
                std::int16_t type, const Until& until, FieldOutcome& outcome, std::vector<Row>& rows) {
  const ScenarioResult result = quiet.Run(inputs.input, type, until);
  if (result.outcome == ScenarioOutcome::kCancelled) return false;
  PaperWriter papers(quiet, task, field, type);
  if (result.outcome == ScenarioOutcome::kDone && task.papers.Any()) papers.Write(outcome);
  if (result.outcome != ScenarioOutcome::kDone || !papers.trouble.empty()) outcome.end = FieldEnd::kRefused;
  rows.push_back(RowOf(field, result, inputs.remarks, papers.trouble));
  return true;
}

}  // namespace

std::string ResultHeading() {
  Row row = {"Field", "Name", "Design", "Outcome"};
  for (const ResultColumn& column : kFigures) row.emplace_back(column.heading);
  for (const std::string_view heading : {"Warnings", "Refused because", "Survey Row", "Survey Column"}) {
    row.emplace_back(heading);
  }
  return Csv({row});
}

std::uint64_t KeyOf(const FieldTask& task, const FieldRow& field) {
  ContentHash hash;
  hash.Add(HexText(task.content));
  hash.Add(HexText(field.content));
  hash.Add(std::to_string(field.number));
  hash.Add(field.survey);
  try {
    hash.Add(ReadSurveyFile(field, task.table_folder));
  } catch (const FieldFault&) {
    hash.Add("none");
  }
  return hash.value();
}

std::string FolderOf(const FieldRow& field) {
  constexpr std::size_t kDigits = 5;
  constexpr std::size_t kLongest = 60;
  std::string number = std::to_string(field.number);
  if (number.size() < kDigits) number.insert(0, kDigits - number.size(), '0');
  std::string name;
  for (const char c : field.name) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
                       static_cast<unsigned char>(c) >= 0x80;
    name += plain ? c : '_';
  }
  if (name.size() > kLongest) {
    std::size_t end = kLongest;
    while (end > 0 && ContinuesCharacter(name[end])) --end;
    name.resize(end);
  }
  return name.empty() ? number : number + "-" + name;
}

FieldOutcome FailedField(const FieldRow& field, FieldEnd end, const std::string& words) {
  FieldOutcome outcome;
  outcome.end = end;
  std::vector<Row> rows;
  const std::string_view kind = end == FieldEnd::kOutOfTime ? "out of time" : "failed";
  for (const std::int16_t type : field.designs) rows.push_back(RowWithout(field, type, kind, words));
  outcome.rows = Csv(rows);
  return outcome;
}

FieldOutcome WorkField(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, const Until& until) {
  if (!field.faults.empty()) return FailedField(field, FieldEnd::kRefused, Joined(field.faults));
  try {
    const FieldInputs inputs = TypeField(quiet, field, task.table_folder, ReadSurveyFile(field, task.table_folder));
    // A field is worked by one program at a time: what stands half written in its folder is of one that was killed.
    if (task.papers.Any()) RemoveLeftoversIn(task.out_folder / PathOf(FolderOf(field)), std::chrono::hours(0));
    FieldOutcome outcome;
    std::vector<Row> rows;
    for (const std::int16_t type : field.designs) {
      if (WorkDesign(quiet, task, field, inputs, type, until, outcome, rows)) continue;
      outcome.end = FieldEnd::kOutOfTime;
      rows.push_back(RowWithout(field, type, "out of time", "The design took longer than the limit."));
    }
    outcome.rows = Csv(rows);
    return outcome;
  } catch (...) {
    return FailedField(field, FieldEnd::kRefused, WordsOf(std::current_exception()));
  }
}

}  // namespace torvale
