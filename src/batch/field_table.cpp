#include "batch/field_table.h"

#include <algorithm>
#include <map>
#include <optional>

#include "base/numbers.h"
#include "batch/content_hash.h"
#include "batch/csv_text.h"
#include "scenarios/scenario.h"
#include "screen/design_types.h"
#include "screen/field_facts.h"

namespace torvale {
namespace {

// A column whose text goes to the field as it is.
struct TextColumn {
  std::string_view name;
  std::string FieldRow::*text;
  std::string_view what;
};

constexpr TextColumn kTextColumns[] = {
    {"name", &FieldRow::name, "name of the field"},
    {"date", &FieldRow::date, "date on the papers; empty for none"},
    {"gpm", &FieldRow::gpm, "pumped flow, gallons per minute"},
    {"target head", &FieldRow::target_head, "feet"},
    {"location", &FieldRow::location, "where the field lies"},
    {"survey kind", &FieldRow::survey_kind, "R for rod readings, E for elevations"},
    {"survey", &FieldRow::survey, "file of the survey: a table (CSV) or a design file of the program"},
    {"survey layout", &FieldRow::layout,
     "of a survey table: sheet (default), PNEZ or PENZ (point, northing and easting, elevation)"},
    {"furrow length", &FieldRow::furrow_length, "feet, of every row of a survey that has no such column"},
    {"pipe kind", &FieldRow::pipe, "L for layflat tubing, R for rigid gated pipe"},
    {"soil", &FieldRow::soil, "a name of the list of soils"},
    {"stake interval", &FieldRow::stake_interval, "feet between stakes of slope designs; 100"},
    {"crown width", &FieldRow::crown_width, "of the crown that is built, feet, for its earth"},
};

constexpr std::string_view kHolesColumn = "holes";
constexpr std::string_view kDesignsColumn = "designs";

// "Target_Head " as "TARGET HEAD".
std::string Plain(std::string_view name) {
  std::string plain = UpperCase(Trim(name));
  std::replace(plain.begin(), plain.end(), '_', ' ');
  return plain;
}

bool Same(std::string_view a, std::string_view b) {
  return Plain(a) == Plain(b);
}

// The parts of a cell that lists something: "1/4; 3/8" or "1/4 3/8".
std::vector<std::string> Parts(std::string_view cell) {
  std::vector<std::string> parts;
  std::string part;
  const auto end = [&] {
    if (!part.empty()) parts.push_back(std::move(part));
    part.clear();
  };
  for (const char c : cell) {
    if (c == ' ' || c == ';' || c == ',' || c == '|') {
      end();
    } else {
      part += c;
    }
  }
  end();
  return parts;
}

}  // namespace

// What a column is for.
struct FieldColumn {
  std::string heading;
  const TextColumn* text = nullptr;
  std::optional<std::size_t> preference;
  bool holes = false;
  bool designs = false;
};

namespace {

std::optional<FieldColumn> ColumnOf(std::string_view heading) {
  for (const TextColumn& column : kTextColumns) {
    if (Same(column.name, heading)) return FieldColumn{Plain(heading), &column, {}, false, false};
  }
  for (std::size_t i = 0; i < kPreferenceFacts.size(); ++i) {
    if (Same(kPreferenceFacts.at(i).column, heading) || Same("txtDefault(" + std::to_string(i) + ")", heading)) {
      return FieldColumn{Plain(heading), nullptr, i, false, false};
    }
  }
  if (Same(kHolesColumn, heading)) return FieldColumn{Plain(heading), nullptr, {}, true, false};
  if (Same(kDesignsColumn, heading)) return FieldColumn{Plain(heading), nullptr, {}, false, true};
  return std::nullopt;
}

std::optional<std::int16_t> DesignType(std::string_view word) {
  for (const DesignKind& kind : DesignKinds()) {
    if (Same(word, kind.key) || word == std::to_string(kind.type)) return kind.type;
  }
  return std::nullopt;
}

std::vector<std::int16_t> AllDesigns() {
  std::vector<std::int16_t> types;
  for (const DesignKind& kind : DesignKinds()) types.push_back(kind.type);
  return types;
}

std::vector<FieldColumn> Headings(const CsvRow& row, const std::string& file) {
  std::vector<FieldColumn> columns;
  std::map<std::string, std::size_t> seen;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string& heading = row.cells[i];
    std::optional<FieldColumn> column = ColumnOf(heading);
    const std::string place = PlaceOfCell(file, row.line, i);
    if (!column) throw FieldTableFault(place + ": no column of fields is called \"" + heading + "\"");
    const auto [first, is_new] = seen.emplace(Plain(heading), i + 1);
    if (!is_new) {
      throw FieldTableFault(place + ": \"" + heading + "\" stands in column " + std::to_string(first->second) + " too");
    }
    columns.push_back(std::move(*column));
  }
  return columns;
}

// Takes one cell of a field; what it can't take is a fault in words.
void TakeCell(FieldRow& field, const FieldColumn& column, const std::string& cell, const std::string& place) {
  if (column.text != nullptr) field.*column.text->text = cell;
  if (column.preference) field.preferences.emplace_back(*column.preference, cell);
  if (column.holes) field.holes = Parts(cell);
  if (!column.designs || Same(cell, "all")) return;
  for (const std::string& word : Parts(cell)) {
    if (const auto type = DesignType(word)) {
      if (std::find(field.designs.begin(), field.designs.end(), *type) == field.designs.end()) {
        field.designs.push_back(*type);
      }
    } else {
      field.faults.push_back(place + ": no design is called \"" + word + "\"");
    }
  }
}

// The letter of a cell that may also spell the word out, or nothing.
std::optional<std::string> LetterOf(std::string_view cell, std::string_view layflat, std::string_view rigid) {
  const std::string plain = Plain(cell);
  if (plain.empty()) return "";
  for (const std::string_view word : {layflat, rigid}) {
    if (plain == Plain(word) || plain == Plain(word.substr(0, 1))) return UpperCase(word.substr(0, 1));
  }
  return std::nullopt;
}

void CheckPipe(FieldRow& field, const std::string& place) {
  if (const auto letter = LetterOf(field.pipe, "layflat", "rigid")) {
    field.pipe = *letter;
  } else {
    field.faults.push_back(place + ": the pipe is L for layflat or R for rigid, not \"" + field.pipe + "\"");
  }
}

void CheckLayout(FieldRow& field, const std::string& place) {
  field.layout = Plain(field.layout);
  if (field.layout == "SHEET") field.layout.clear();
  if (field.layout.empty() || field.layout == "PNEZ" || field.layout == "PENZ") return;
  field.faults.push_back(place + ": the layout is sheet, PNEZ or PENZ, not \"" + field.layout + "\"");
}

FieldRow FieldOf(const CsvRow& row, const std::vector<FieldColumn>& columns, const std::string& file) {
  FieldRow field;
  field.line = row.line;
  ContentHash hash;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string& cell = row.cells[i];
    if (cell.empty()) continue;
    hash.Add(i < columns.size() ? columns[i].heading : "");
    hash.Add(cell);
    const std::string place = PlaceOfCell(file, row.line, i);
    if (i >= columns.size()) {
      field.faults.push_back(place + ": \"" + cell + "\" stands in a column without a heading");
      continue;
    }
    TakeCell(field, columns[i], cell, place);
    if (columns[i].text == nullptr) continue;
    if (columns[i].text->text == &FieldRow::pipe) CheckPipe(field, place);
    if (columns[i].text->text == &FieldRow::layout) CheckLayout(field, place);
  }
  if (field.designs.empty()) field.designs = AllDesigns();
  if (field.survey.empty()) {
    field.faults.push_back(file + ", row " + std::to_string(row.line) + ": the field names no survey");
  }
  field.content = hash.value();
  return field;
}

}  // namespace

std::string PlaceOfCell(const std::string& file, int line, std::size_t column) {
  return file + ", row " + std::to_string(line) + ", column " + std::to_string(column + 1);
}

FieldTable::FieldTable(std::string text, std::string file)
    : text_(std::move(text)), file_(std::move(file)), separator_(SeparatorOf(text_)) {
  try {
    int number = 0;
    for (CsvReader reader(text_, separator_); !reader.AtEnd();) {
      const std::size_t at = reader.at();
      const CsvRow row = reader.Row();
      if (row.Empty()) continue;
      if (!columns_) {
        columns_ = std::make_shared<const std::vector<FieldColumn>>(Headings(row, file_));
      } else {
        places_.push_back({at, row.line, ++number});
      }
    }
  } catch (const CsvFault& fault) {
    throw FieldTableFault(PlaceOfCell(file_, fault.line, static_cast<std::size_t>(fault.column) - 1) + ": " +
                          fault.what());
  }
  if (!columns_) throw FieldTableFault(file_ + ": the table is empty");
}

FieldRow FieldTable::Field(std::size_t i) const {
  const Place& place = places_.at(i);
  FieldRow field = FieldOf(CsvReader(text_, separator_, place.at, place.line).Row(), *columns_, file_);
  field.number = place.number;
  return field;
}

void FieldTable::KeepPart(int part, int parts) {
  std::erase_if(places_, [&](const Place& place) { return (place.number - 1) % parts != part - 1; });
}

std::vector<FieldColumnHelp> FieldColumns() {
  std::vector<FieldColumnHelp> columns;
  for (const TextColumn& column : kTextColumns) columns.push_back({column.name, column.what});
  columns.push_back({kHolesColumn, "sizes for a limited selection: 1/4; 3/8"});
  columns.push_back({kDesignsColumn, "planned; constant; dual; computer; existing; limited, or all (default)"});
  for (const PreferenceFacts& preference : kPreferenceFacts) {
    columns.push_back({preference.column, preference.column_help});
  }
  return columns;
}

}  // namespace torvale
