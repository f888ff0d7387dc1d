#include "batch/run.h"

#include <algorithm>
#include <numeric>

#include "base/version.h"
#include "batch/cell_words.h"
#include "batch/content_hash.h"
#include "batch/csv_text.h"
#include "batch/journal.h"
#include "batch/text_files.h"
#include "files/pipe_strengths.h"
#include "files/preferences.h"
#include "files/soils.h"

namespace torvale {
namespace {

std::string Stem(const Shard& shard) {
  if (shard.parts == 1) return "results";
  return "results-" + std::to_string(shard.part) + "-of-" + std::to_string(shard.parts);
}

// What every field of the run depends on beside itself.
std::uint64_t ContentOf(const BatchOptions& options) {
  ContentHash hash;
  hash.Add(ProgramVersion());
  hash.Add(ResultHeading());
  for (const bool asked : {options.papers.designs, options.papers.tables, options.papers.reports, options.papers.phone,
                           options.papers.stakes}) {
    hash.Add(asked ? "yes" : "no");
  }
  if (options.data_folder.empty()) return hash.value();
  for (const std::string_view name : {kDefaultsFile, kSoilsFile, kSafeHeadsFile}) {
    try {
      hash.Add(ReadTextFile(PathOf(options.data_folder) / PathOf(name)));
    } catch (const TextFileFault&) {
      hash.Add("none");
    }
  }
  return hash.value();
}

// A run from its table to its results.
class Batch {
 public:
  Batch(const BatchOptions& options, FieldTable fields, Journal& journal, std::ostream& errors)
      : options_(options),
        // Fields are named on the threads' side too, which may outlive this run.
        fields_(std::make_shared<const FieldTable>(std::move(fields))),
        journal_(journal),
        progress_(errors, options.progress, fields_->size()) {
    task_ = std::make_shared<const FieldTask>(FieldTask{std::filesystem::absolute(options.table).parent_path(),
                                                        std::filesystem::absolute(options.out_folder),
                                                        options.data_folder, options.papers, ContentOf(options)});
  }

  // False where it was stopped.
  bool Run(const std::function<bool()>& go_on) {
    PoolHandlers handlers;
    handlers.make_worker = [task = task_, fields = fields_] {
      auto quiet = std::make_shared<QuietProgram>(task->data_folder);
      return [=](std::size_t i, const Until& until) { return WorkField(*quiet, *task, fields->Field(i), until); };
    };
    handlers.finished = [this](std::size_t i, const FieldOutcome& outcome) {
      journal_.Add(fields_->NumberOf(i), keys_[i], outcome);
      Count(outcome);
    };
    handlers.hung = [this](std::size_t i) {
      return FailedField(fields_->Field(i), FieldEnd::kOutOfTime, "The field did not end; it was given up.");
    };
    bool stopped = false;
    handlers.tick = [&] {
      progress_.Tell(finished_, refused_);
      stopped = stopped || !go_on();
      return !stopped;
    };
    threads_left_ = WorkAll(MissingFields(), options_.pool, handlers);
    progress_.End(finished_, refused_);
    return finished_ == fields_->size();
  }

  void WriteResults(std::ostream& out) {
    out << ResultHeading();
    for (std::size_t i = 0; i < fields_->size(); ++i) {
      if (const std::optional<FieldOutcome> outcome = journal_.Last(fields_->NumberOf(i))) out << outcome->rows;
    }
  }

  std::size_t finished() const { return finished_; }
  std::size_t refused() const { return refused_; }
  std::size_t reused() const { return reused_; }
  std::size_t total() const { return fields_->size(); }
  bool threads_left() const { return threads_left_ > 0; }

 private:
  void Count(const FieldOutcome& outcome) {
    ++finished_;
    if (outcome.end != FieldEnd::kDone) ++refused_;
  }

  // The fields that an earlier run leaves to do.
  std::vector<std::size_t> MissingFields() {
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < fields_->size(); ++i) {
      const FieldRow field = fields_->Field(i);
      keys_.push_back(KeyOf(*task_, field));
      const auto known = options_.fresh ? std::nullopt : journal_.Find(field.number, keys_[i], task_->out_folder);
      if (known) {
        Count(*known);
        ++reused_;
      } else {
        missing.push_back(i);
      }
    }
    return missing;
  }

  const BatchOptions& options_;
  std::shared_ptr<const FieldTable> fields_;
  std::shared_ptr<const FieldTask> task_;
  Journal& journal_;
  Progress progress_;
  std::vector<std::uint64_t> keys_;
  std::size_t finished_ = 0;
  std::size_t refused_ = 0;
  std::size_t reused_ = 0;
  int threads_left_ = 0;
};

FieldTable FieldsOf(const BatchOptions& options) {
  try {
    FieldTable fields(TextOfFile(ReadTextFile(options.table)), Utf8Of(options.table));
    fields.KeepPart(options.shard.part, options.shard.parts);
    return fields;
  } catch (const TextFileFault& fault) {
    throw FieldTableFault(Utf8Of(options.table) + ": " + fault.what());
  }
}

int StatusOf(Batch& batch, const BatchOptions& options, std::ostream& out) {
  const std::filesystem::path results = options.out_folder / PathOf(ResultsName(options.shard));
  WriteTextFile(results, [&](std::ostream& file) { batch.WriteResults(file); });
  out << batch.total() << (batch.total() == 1 ? " field" : " fields");
  if (batch.reused() > 0) out << ", " << batch.reused() << " of them as they were";
  if (batch.refused() > 0) out << ", " << batch.refused() << " with something refused";
  out << ": " << Utf8Of(results) << '\n' << std::flush;
  return batch.refused() > 0 ? kBatchRefused : kBatchDone;
}

// A cell that is a whole number from 1 on, or 0.
int FieldNumber(const std::string& cell) {
  const bool digits = !cell.empty() && cell.size() < 10 &&
                      std::all_of(cell.begin(), cell.end(), [](char c) { return c >= '0' && c <= '9'; });
  return digits ? std::stoi(cell) : 0;
}

}  // namespace

std::string ResultsName(const Shard& shard) {
  return Stem(shard) + ".csv";
}

BatchEnd RunBatch(const BatchOptions& options, const std::function<bool()>& go_on, std::ostream& out,
                  std::ostream& errors) {
  try {
    FieldTable fields = FieldsOf(options);
    std::error_code error;
    std::filesystem::create_directories(options.out_folder, error);
    Journal journal(options.out_folder / PathOf(Stem(options.shard) + ".journal"));
    Batch batch(options, std::move(fields), journal, errors);
    const bool all = batch.Run(go_on);
    journal.Compact();
    if (!all) {
      errors << "stopped: " << batch.finished() << " of " << batch.total()
             << " fields are done; the same command goes on from there\n";
      return {kBatchStopped, batch.threads_left()};
    }
    return {StatusOf(batch, options, out), batch.threads_left()};
  } catch (const FieldTableFault& fault) {
    errors << fault.what() << '\n';
    return {kBatchNotUnderstood, false};
  } catch (const TextFileFault& fault) {
    errors << Utf8Of(options.out_folder) << ": " << fault.what() << '\n';
    return {kBatchNotWritten, false};
  }
}

int MergeResults(const std::vector<std::filesystem::path>& parts, const std::filesystem::path& joined,
                 std::ostream& out, std::ostream& errors) {
  std::vector<std::pair<int, std::string>> fields;  // all rows of a field
  for (const std::filesystem::path& part : parts) {
    const std::string name = Utf8Of(part);
    std::string text;
    std::vector<CsvRow> rows;
    try {
      text = ReadTextFile(part);
      rows = ReadCsv(text, ',');
    } catch (const TextFileFault& fault) {
      errors << name << ": " << fault.what() << '\n';
      return kBatchNotUnderstood;
    } catch (const CsvFault& fault) {
      errors << PlaceOfCell(name, fault.line, static_cast<std::size_t>(fault.column) - 1) << ": " << fault.what()
             << '\n';
      return kBatchNotUnderstood;
    }
    if (!text.starts_with(ResultHeading())) {
      errors << name << ", row 1: no table of results of this version\n";
      return kBatchNotUnderstood;
    }
    const std::size_t first = fields.size();
    for (std::size_t i = 1; i < rows.size(); ++i) {
      const int number = FieldNumber(rows[i].Cell(0));
      if (number == 0) {
        errors << PlaceOfCell(name, rows[i].line, 0) << ": \"" << rows[i].Cell(0) << "\" is no number of a field\n";
        return kBatchNotUnderstood;
      }
      if (fields.size() == first || fields.back().first != number) fields.emplace_back(number, "");
      fields.back().second += rows[i].text;
    }
  }
  std::stable_sort(fields.begin(), fields.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::string text = ResultHeading();
  std::size_t missing = 0;
  int before = 0;
  for (const auto& [number, rows] : fields) {
    if (number == before) {
      errors << "field " << number << " stands in more than one table\n";
      return kBatchNotUnderstood;
    }
    missing += static_cast<std::size_t>(number - before - 1);
    before = number;
    text += rows;
  }
  try {
    WriteTextFile(joined, text);
  } catch (const TextFileFault& fault) {
    errors << Utf8Of(joined) << ": " << fault.what() << '\n';
    return kBatchNotWritten;
  }
  out << fields.size() << (fields.size() == 1 ? " field: " : " fields: ") << Utf8Of(joined) << '\n';
  if (missing == 0) return kBatchDone;
  errors << missing << (missing == 1 ? " field before the last one is" : " fields before the last one are")
         << " in none of the tables\n";
  return kBatchRefused;
}

}  // namespace torvale
