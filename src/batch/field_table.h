// The table of fields that a run works through: a heading line, then a line for each field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvale {

// One field as its line asks for it. Texts are as they stand in the table; an empty one leaves the program's default.
struct FieldRow {
  int number = 0;  // from 1, in the order of the table; what results go by
  int line = 0;    // in the file
  std::string name;
  std::string date;
  std::string gpm;
  std::string target_head;
  std::string location;
  std::string survey_kind;    // R or E
  std::string survey;         // a file, from the table's folder
  std::string layout;         // of a survey that is a table: empty, "sheet", "PNEZ" or "PENZ"
  std::string furrow_length;  // of every row, where the survey has none
  std::string pipe;           // "L", "R" or empty
  std::string soil;
  std::string stake_interval;  // feet between the stakes of slope designs
  std::string crown_width;     // feet, for their earth
  std::vector<std::string> holes;
  std::vector<std::int16_t> designs;                             // all six where none are named
  std::vector<std::pair<std::size_t, std::string>> preferences;  // by index of `txtDefault`
  std::vector<std::string> faults;   // cells that can't be understood, in words with file, line and column
  std::vector<std::string> remarks;  // cells that the program reads otherwise than they look, in the same way
  std::uint64_t content = 0;         // hash of the cells under their headings, by which a later run knows it again
};

// A table that can't be worked through: no heading, a column that nothing is known by, two of one name.
struct FieldTableFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct FieldColumn;

// Such a table. It keeps its text and where the fields stand in it, so that a field costs little more than its line; a
// field is taken apart when it is asked for. Constant, it may be used on many threads.
class FieldTable {
 public:
  // `file` is the name by which faults speak of the table. Lines without text are passed over. Throws FieldTableFault.
  FieldTable(std::string text, std::string file);

  std::size_t size() const { return places_.size(); }
  // The number of the i-th field, from 1 in the order of the table; what results go by.
  int NumberOf(std::size_t i) const { return places_[i].number; }
  FieldRow Field(std::size_t i) const;
  // Drops all fields but every `parts`-th, from that of number `part` on.
  void KeepPart(int part, int parts);

 private:
  struct Place {
    std::size_t at;  // in the text
    int line;
    int number;
  };

  std::string text_;
  std::string file_;
  char separator_;
  std::shared_ptr<const std::vector<FieldColumn>> columns_;
  std::vector<Place> places_;
};

// Every column that a table may have, each with what it holds, for the help.
struct FieldColumnHelp {
  std::string_view name;
  std::string_view what;
};
std::vector<FieldColumnHelp> FieldColumns();

}  // namespace torvale
