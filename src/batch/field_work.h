// One field worked out: its rows in the table of results, and its papers.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "batch/field_table.h"
#include "batch/papers.h"
#include "scenarios/scenario.h"

namespace torvale {

// What a run asks of every field.
struct FieldTask {
  std::filesystem::path table_folder;  // surveys count from here
  std::filesystem::path out_folder;
  std::string data_folder;  // defaults and soils; empty for none
  Papers papers;
  std::uint64_t content = 0;  // of the program's version, the data folder's files and the papers asked for
};

enum class FieldEnd {
  kDone,      // every design came to its figures
  kRefused,   // something was refused or failed for good; the rows say what
  kOutOfTime  // worth another try
};

// What came of a field.
struct FieldOutcome {
  FieldEnd end = FieldEnd::kDone;
  std::string rows;                                          // of the table of results, as they stand in it
  std::vector<std::pair<std::string, std::uint64_t>> files;  // written, from the output folder, and their hashes
};

// The same field of the same run has the same key, one that was changed in any way has another. The survey's content
// goes into it; one that can't be read counts as none.
std::uint64_t KeyOf(const FieldTask& task, const FieldRow& field);

// Works a field out: its designs in their order, a row each. Whatever goes wrong with it stands in its rows.
FieldOutcome WorkField(QuietProgram& quiet, const FieldTask& task, const FieldRow& field, const Until& until);

// The rows of a field that never came to an end.
FieldOutcome GivenUpField(const FieldRow& field);

}  // namespace torvale
