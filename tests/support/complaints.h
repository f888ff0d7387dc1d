// Whether every complaint of a front end is one that somebody can come to: what it has said, held against its table of
// words.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "base/paths.h"
#include "support/source_folder.h"

namespace torvale {

// Name of a row -> what it can become, as a pattern. `table` is the file below src/.
inline std::map<std::string, std::regex> ComplaintRows(const std::string& table) {
  std::ifstream file(PathOf(std::string(kSourceFolder) + "/src/" + table), std::ios::binary);
  const std::string source{std::istreambuf_iterator<char>(file), {}};
  const std::regex row(R"re(Complaint<\d> (k\w+)\{\s*"((?:[^"\\]|\\.)*)"\};)re");
  std::map<std::string, std::regex> rows;
  for (std::sregex_iterator at(source.begin(), source.end(), row), end; at != end; ++at) {
    const std::string text = std::regex_replace((*at)[2].str(), std::regex(R"(\\(.))"), "$1");
    const std::string plain = std::regex_replace(text, std::regex(R"([.^$|()\[\]*+?\\])"), R"(\$&)");
    rows.emplace((*at)[1], std::regex(std::regex_replace(plain, std::regex(R"(\{\})"), "[^]*")));
  }
  return rows;
}

// The names of the rows that none of the texts says.
inline std::vector<std::string> Unsaid(const std::map<std::string, std::regex>& rows,
                                       const std::vector<std::string>& said) {
  std::vector<std::string> names;
  for (const auto& [name, row] : rows) {
    const auto says = [&row = row](const std::string& text) { return std::regex_search(text, row); };
    if (std::none_of(said.begin(), said.end(), says)) names.push_back(name);
  }
  return names;
}

}  // namespace torvale
