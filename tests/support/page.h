// The pages of docs/ as tests read them, so that what a page shows is held to what the program does.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {

// The whole page, by its file name in docs/.
inline std::string PageText(const std::string& name) {
  std::string page = BytesOf(std::string(kSourceFolder) + "/docs/" + name);
  EXPECT_FALSE(page.empty()) << name;
  return page;
}

// A block between two lines of ```, and the word behind the first of them.
struct PageBlock {
  std::string kind;
  std::string text;
};

inline std::vector<PageBlock> BlocksOf(const std::string& page) {
  std::vector<PageBlock> blocks;
  bool open = false;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      open = !open;
      if (open) blocks.push_back({line.substr(3), ""});
    } else if (open) {
      blocks.back().text += line + '\n';
    }
  }
  EXPECT_FALSE(open) << "a block without its end";
  return blocks;
}

// The cells of a table's line, without blanks around them and without the marks of code.
inline std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream parts(line.substr(1));
  for (std::string cell; std::getline(parts, cell, '|');) {
    const auto first = cell.find_first_not_of(' ');
    cell = first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1);
    if (cell.size() > 1 && cell.front() == '`' && cell.back() == '`') cell = cell.substr(1, cell.size() - 2);
    cells.push_back(cell);
  }
  return cells;
}

// The rows of every table whose headings are these.
inline std::vector<std::vector<std::string>> TableRows(const std::string& page,
                                                       const std::vector<std::string>& headings) {
  std::vector<std::vector<std::string>> rows;
  bool inside = false;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with('|')) {
      inside = false;
    } else if (!inside && CellsOf(line) == headings) {
      inside = true;
      std::getline(lines, line);  // the line of dashes
    } else if (inside) {
      rows.push_back(CellsOf(line));
    }
  }
  EXPECT_FALSE(rows.empty()) << "no table of these headings: " << testing::PrintToString(headings);
  return rows;
}

}  // namespace torvale
