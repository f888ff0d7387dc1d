// The table of results: its heading, and the rows that a field has in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/field_table.h"
#include "scenarios/scenario.h"

namespace torvale {

using ResultRow = std::vector<std::string>;

// The heading as a line of the file.
std::string ResultHeading();

// What a row says that came of its design.
enum class RowOutcome { kDone, kNotWritten, kRefused, kFailed, kOutOfTime };

// The row of a design that came to its end, done or refused. `remarks` are those on the field's inputs, `trouble` what
// of its papers could not be written.
ResultRow RowOf(const FieldRow& field, const ScenarioResult& result, const std::vector<std::string>& remarks,
                const std::vector<std::string>& trouble);

// The row of a design that has no figures, with words that say why.
ResultRow RowWithout(const FieldRow& field, std::int16_t type, RowOutcome outcome,
                     const std::vector<std::string>& words);

}  // namespace torvale
