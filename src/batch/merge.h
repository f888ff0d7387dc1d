// Tables of results joined into one: what the parts of a run on many machines end with.
#pragma once

#include <filesystem>
#include <ostream>
#include <vector>

namespace torvale {

// Joins them in the order of the fields. A field that stands in two of them, or a file that is no such table, is a
// fault; fields that none of them has are told of. Gives back the exit status.
int MergeResults(const std::vector<std::filesystem::path>& parts, const std::filesystem::path& joined,
                 std::ostream& out, std::ostream& errors);

}  // namespace torvale
