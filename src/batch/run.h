// A run over a table of fields.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

#include "batch/exit_status.h"
#include "batch/field_pool.h"
#include "batch/field_work.h"
#include "batch/progress.h"

namespace torvale {

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

}  // namespace torvale
