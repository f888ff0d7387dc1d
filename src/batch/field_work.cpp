#include "batch/field_work.h"

#include <chrono>
#include <exception>
#include <stdexcept>

#include "base/fault_words.h"
#include "base/paths.h"
#include "base/whole_file.h"
#include "batch/content_hash.h"
#include "batch/field_inputs.h"
#include "batch/result_rows.h"
#include "batch/words.h"
#include "reports/csv.h"

namespace torvale {
namespace {

// One design with its papers. False where the time was over.
bool WorkDesign(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, const FieldInputs& inputs,
                std::int16_t type, const Until& until, FieldOutcome& outcome, std::vector<ResultRow>& rows) {
  const ScenarioResult result = quiet.Run(inputs.input, type, until);
  if (result.outcome == ScenarioOutcome::kCancelled) return false;
  WrittenPapers papers;
  if (result.outcome == ScenarioOutcome::kDone && task.papers.Any()) {
    papers = WritePapers(quiet, task.papers, task.out_folder, field);
  }
  if (result.outcome != ScenarioOutcome::kDone || !papers.trouble.empty()) outcome.end = FieldEnd::kRefused;
  outcome.files.insert(outcome.files.end(), papers.files.begin(), papers.files.end());
  rows.push_back(RowOf(field, result, inputs.remarks, papers.trouble));
  return true;
}

// The rows of a field of which nothing came, with words that say why.
FieldOutcome FailedField(const FieldRow& field, FieldEnd end, const std::vector<std::string>& words) {
  FieldOutcome outcome;
  outcome.end = end;
  std::vector<ResultRow> rows;
  const RowOutcome kind = end == FieldEnd::kOutOfTime ? RowOutcome::kOutOfTime : RowOutcome::kFailed;
  for (const std::int16_t type : field.designs) rows.push_back(RowWithout(field, type, kind, words));
  outcome.rows = Csv(rows);
  return outcome;
}

}  // namespace

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

FieldOutcome GivenUpField(const FieldRow& field) {
  return FailedField(field, FieldEnd::kOutOfTime, {batch_words::kFieldGivenUp().text()});
}

FieldOutcome WorkField(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, const Until& until) {
  if (!field.faults.empty()) return FailedField(field, FieldEnd::kRefused, field.faults);
  try {
    const FieldInputs inputs = TypeField(quiet, field, task.table_folder, ReadSurveyFile(field, task.table_folder));
    // A field is worked by one program at a time: what stands half written in its folder is of one that was killed.
    if (task.papers.Any()) RemoveLeftoversIn(task.out_folder / PathOf(FolderOf(field)), std::chrono::hours(0));
    FieldOutcome outcome;
    std::vector<ResultRow> rows;
    for (const std::int16_t type : field.designs) {
      if (WorkDesign(quiet, task, field, inputs, type, until, outcome, rows)) continue;
      outcome.end = FieldEnd::kOutOfTime;
      rows.push_back(RowWithout(field, type, RowOutcome::kOutOfTime, {batch_words::kDesignOutOfTime().text()}));
    }
    outcome.rows = Csv(rows);
    return outcome;
  } catch (const std::runtime_error& fault) {
    return FailedField(field, FieldEnd::kRefused, {fault.what()});
  } catch (...) {
    return FailedField(field, FieldEnd::kRefused, {FaultWords(std::current_exception())});
  }
}

}  // namespace torvale
