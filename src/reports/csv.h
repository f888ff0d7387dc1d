#pragma once

#include <string>
#include <vector>

#include "screen/program.h"

namespace torvale {

// Comma separated values (RFC 4180): each row ends in CR LF; a field with a comma, a quote or a line end in it stands
// in quotes, its own quotes doubled.
std::string Csv(const std::vector<std::vector<std::string>>& rows);

// The result table as it is shown, from its headings to its last filled row. Headings name their units. Stale figures
// are marked, here and below.
std::string ResultTableCsv(const Program& program);

// The hole summary: a row for each run of equal hole size, or of equal gate opening in rigid pipe.
std::string HoleSummaryCsv(const Program& program);

}  // namespace torvale
