#include "batch/run.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/platform.h"
#include "base/version.h"
#include "batch/content_hash.h"
#include "batch/csv_text.h"
#include "batch/field_table.h"
#include "batch/journal.h"
#include "batch/result_rows.h"
#include "batch/text_files.h"
#include "batch/words.h"
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
    task_ = std::make_shared<const FieldTask>(FieldTask{WholePath(options.table).parent_path(),
                                                        WholePath(options.out_folder), options.data_folder,
                                                        options.papers, ContentOf(options)});
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
    handlers.hung = [this](std::size_t i) { return GivenUpField(fields_->Field(i)); };
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
      const std::string done = std::to_string(batch.finished());
      errors << batch_words::kStopped(done, std::to_string(batch.total())).text() << '\n';
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

}  // namespace torvale
