// A run over a table of fields, and tables of results joined.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "batch/field_pool.h"
#include "batch/field_work.h"
#include "batch/progress.h"

namespace torvale {

// Exit statuses.
inline constexpr int kBatchDone = 0;
inline constexpr int kBatchRefused = 1;        // all was worked through; some fields or designs have no result
inline constexpr int kBatchNotUnderstood = 2;  // the command line or the table; nothing was done
inline constexpr int kBatchNotWritten = 3;     // the results could not be written
inline constexpr int kBatchStopped = 130;      // by Ctrl+C; the same command goes on from there

// The i-th of n parts of a table: every n-th field, from the i-th on.
struct Shard {
  int part = 1;
  int parts = 1;
};

struct BatchOptions {
  std::filesystem::path table;
  std::filesystem::path out_folder;
  std::string data_folder;
  Papers papers;
  Shard shard;
  PoolOptions pool;
  bool fresh = false;  // nothing of an earlier run is used again
  Progress::Kind progress = Progress::Kind::kLines;
};

struct BatchEnd {
  int status = kBatchDone;
  bool threads_left = false;  // a field hangs; the process must end without waiting for its thread
};

// Works through a table: `results.csv` in the output folder, and what is asked for beside it. Progress and complaints
// go to `errors`, one line at the end to `out`. `go_on` is asked several times a second.
BatchEnd RunBatch(const BatchOptions& options, const std::function<bool()>& go_on, std::ostream& out,
                  std::ostream& errors);

// Name of a part's table of results: "results.csv", or "results-3-of-40.csv".
std::string ResultsName(const Shard& shard);

// Joins tables of results into one, in the order of the fields. A field that stands in two of them, or a file that is
// no such table, is a fault; fields that none of them has are told of.
int MergeResults(const std::vector<std::filesystem::path>& parts, const std::filesystem::path& joined,
                 std::ostream& out, std::ostream& errors);

}  // namespace torvale
