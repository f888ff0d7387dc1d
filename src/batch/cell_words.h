// How faults and remarks speak of the cells of a table, be it one of fields or a survey.
#pragma once

#include <cstddef>
#include <string>

namespace torvale {

// "fields.csv, row 3, column 5": where a cell stands, both counted from 1. `line` is that already, `column` from 0.
std::string PlaceOfCell(const std::string& file, int line, std::size_t column);

// `"85O" is read as 85`, for a number that the program reads otherwise than it looks; no text for any other cell.
std::string NumberMisread(const std::string& cell);

}  // namespace torvale
