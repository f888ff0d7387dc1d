// Tables of separated values, read with file line and column for who made a mistake.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "screen/spoken.h"

namespace torvale {

// A line of a table.
struct CsvRow {
  int line = 0;  // in the file, from 1; of the line on which it begins
  std::vector<std::string> cells;
  std::string_view text;  // as it stands in the file, with its line end

  // A cell that the row doesn't have reads as empty.
  const std::string& Cell(std::size_t column) const;
  bool Empty() const;
};

// A text that is no table, with the line and the column from 1 of the cell where it ends being one.
struct CsvFault : std::runtime_error {
  CsvFault(const SpokenComplaint& complaint, int at_line, int at_column)
      : std::runtime_error(complaint.text()), line(at_line), column(at_column) {}
  int line;
  int column;
};

// Reads a table of separated values row by row, empty ones too. Lines end in CR LF, CR or LF. A cell that begins with a
// quote runs to the next single one, separators and line ends included, and two quotes in it stand for one; behind the
// closing quote nothing but blanks may stand. Blanks around a cell without quotes are dropped.
class CsvReader {
 public:
  // Begins at `at`, where the line of that number does. The text must outlive the reader and its rows.
  CsvReader(std::string_view text, char separator, std::size_t at = 0, int line = 1)
      : text_(text), separator_(separator), at_(at), line_(line) {}

  bool AtEnd() const { return at_ >= text_.size(); }
  // Where the next row begins.
  std::size_t at() const { return at_; }
  // The next row; there must be one. Throws CsvFault.
  CsvRow Row();

 private:
  bool AtLineEnd() const { return AtEnd() || text_[at_] == '\r' || text_[at_] == '\n'; }
  bool AtCellEnd() const { return AtLineEnd() || text_[at_] == separator_; }
  void SkipBlanks();
  std::string Cell(int column);
  std::string Quoted(int column);
  void SkipLineEnd();

  std::string_view text_;
  char separator_;
  std::size_t at_;
  int line_;
};

// All of its rows. Throws CsvFault.
std::vector<CsvRow> ReadCsv(std::string_view text, char separator);

// What parts the cells of a table: the tab, the semicolon or the comma, whichever comes first outside quotes in the
// first line that has one; a comma where there is none.
char SeparatorOf(std::string_view text);

// The text of a file as UTF-8, without a mark of order at its front. What is no UTF-8 is taken for the code page of the
// program's own files.
std::string TextOfFile(const std::string& bytes);

}  // namespace torvale
