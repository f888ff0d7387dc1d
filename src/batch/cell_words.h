// How faults and remarks speak of the cells of a table, be it one of fields or a survey.
#pragma once

#include <cstddef>
#include <string>

#include "batch/csv_text.h"
#include "screen/spoken.h"

namespace torvale {

// "fields.csv, row 3" and "fields.csv, row 3, column 5": where something stands, counted from 1. `line` is that
// already, `column` from 0.
std::string PlaceOfRow(const std::string& file, int line);
std::string PlaceOfCell(const std::string& file, int line, std::size_t column);

// What is wrong at a place: "fields.csv, row 3: the field names no survey".
std::string At(const std::string& place, const SpokenComplaint& complaint);
std::string At(const std::string& file, const CsvFault& fault);

// `"85O" is read as 85`, for a number that the program reads otherwise than it looks; nothing for any other cell.
SpokenComplaint NumberMisread(const std::string& cell);

}  // namespace torvale
