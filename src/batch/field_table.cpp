#include "batch/field_table.h"

#include <algorithm>
#include <map>
#include <optional>

#include "base/numbers.h"
#include "batch/cell_words.h"
#include "batch/content_hash.h"
#include "batch/csv_text.h"
#include "batch/words.h"
#include "scenarios/scenario.h"
#include "screen/design_types.h"
#include "screen/field_facts.h"

namespace torvale {
namespace {

// A column whose text goes to the field as it is, but for a letter that may also be spelt out.
struct TextColumn {
  std::string_view name;
  std::string FieldRow::*text;
  std::string_view what;
  FieldForm form = FieldForm::kText;
};

constexpr TextColumn kTextColumns[] = {
    {"name", &FieldRow::name, "name of the field"},
    {"date", &FieldRow::date, "date on the papers; empty for none"},
    {"gpm", &FieldRow::gpm, "pumped flow, gallons per minute", FieldForm::kNumber},
    {"target head", &FieldRow::target_head, "feet", FieldForm::kNumber},
    {"location", &FieldRow::location, "where the field lies"},
    {"survey kind", &FieldRow::survey_kind, "R for rod readings, E for elevations", FieldForm::kRodsOrElevations},
    {"survey", &FieldRow::survey, "file of the survey: a table (CSV) or a design file of the program"},
    {"survey layout", &FieldRow::layout,
     "of a survey table: sheet (default), PNEZ or PENZ (point, northing and easting, elevation)"},
    {"furrow length", &FieldRow::furrow_length, "feet, of every row of a survey that has no such column",
     FieldForm::kNumber},
    {"pipe kind", &FieldRow::pipe, "L for layflat tubing, R for rigid gated pipe"},
    {"soil", &FieldRow::soil, "a name of the list of soils"},
    {"stake interval", &FieldRow::stake_interval, "feet between stakes of slope designs; 100", FieldForm::kNumber},
    {"crown width", &FieldRow::crown_width, "of the crown that is built, feet, for its earth", FieldForm::kNumber},
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
    if (!column) throw FieldTableFault(At(place, batch_words::kNoSuchColumn(heading)));
    const auto [first, is_new] = seen.emplace(Plain(heading), i + 1);
    if (!is_new) {
      throw FieldTableFault(At(place, batch_words::kColumnTwice(heading, std::to_string(first->second))));
    }
    columns.push_back(std::move(*column));
  }
  return columns;
}

// The two words of a cell that takes the letter of one, and what the cell is about.
struct TwoWords {
  std::string_view first;
  std::string_view second;
  std::string_view of;
};
constexpr TwoWords kSurveyKinds = {"rod readings", "elevations", "the survey kind"};
constexpr TwoWords kGateShapes = {"rectangular", "circular", "the gate shape"};
constexpr TwoWords kPipeKinds = {"layflat", "rigid", "the pipe"};

std::string LetterOf(std::string_view word) {
  return UpperCase(word.substr(0, 1));
}

// The letter of a cell that has it, or its word or the beginning of that; anything else is a fault.
std::string TakenLetter(FieldRow& field, const TwoWords& words, const std::string& cell, const std::string& place) {
  const std::string plain = Plain(cell);
  if (plain.empty()) return "";
  for (const std::string_view word : {words.first, words.second}) {
    if (Plain(word).starts_with(plain)) return LetterOf(word);
  }
  field.faults.push_back(At(place, batch_words::kNoSuchLetter(words.of, LetterOf(words.first), words.first,
                                                              LetterOf(words.second), words.second, cell)));
  return cell;
}

// What goes to the field for a cell. A number that the program reads otherwise than it looks is remarked.
std::string Taken(FieldRow& field, FieldForm form, const std::string& cell, const std::string& place) {
  if (form == FieldForm::kRodsOrElevations) return TakenLetter(field, kSurveyKinds, cell, place);
  if (form == FieldForm::kRectangularOrCircular) return TakenLetter(field, kGateShapes, cell, place);
  const SpokenComplaint misread = form == FieldForm::kNumber ? NumberMisread(cell) : SpokenComplaint();
  if (!misread.empty()) field.remarks.push_back(At(place, misread));
  return cell;
}

void TakeDesigns(FieldRow& field, const std::string& cell, const std::string& place) {
  if (Same(cell, "all")) return;
  for (const std::string& word : Parts(cell)) {
    if (const auto type = DesignType(word)) {
      if (std::find(field.designs.begin(), field.designs.end(), *type) == field.designs.end()) {
        field.designs.push_back(*type);
      }
    } else {
      field.faults.push_back(At(place, batch_words::kNoSuchDesign(word)));
    }
  }
}

// Takes one cell of a field; what it can't take is a fault in words.
void TakeCell(FieldRow& field, const FieldColumn& column, const std::string& cell, const std::string& place) {
  if (column.text != nullptr) field.*column.text->text = Taken(field, column.text->form, cell, place);
  if (column.preference) {
    const FieldForm form = kPreferenceFacts.at(*column.preference).form;
    field.preferences.emplace_back(*column.preference, Taken(field, form, cell, place));
  }
  if (column.holes) field.holes = Parts(cell);
  if (column.designs) TakeDesigns(field, cell, place);
}

void CheckLayout(FieldRow& field, const std::string& place) {
  field.layout = Plain(field.layout);
  if (field.layout == "SHEET") field.layout.clear();
  if (field.layout.empty() || field.layout == "PNEZ" || field.layout == "PENZ") return;
  field.faults.push_back(At(place, batch_words::kNoSuchLayout(field.layout)));
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
      field.faults.push_back(At(place, batch_words::kCellWithoutHeading(cell)));
      continue;
    }
    TakeCell(field, columns[i], cell, place);
    if (columns[i].text == nullptr) continue;
    if (columns[i].text->text == &FieldRow::pipe) field.pipe = TakenLetter(field, kPipeKinds, cell, place);
    if (columns[i].text->text == &FieldRow::layout) CheckLayout(field, place);
  }
  if (field.designs.empty()) field.designs = AllDesigns();
  if (field.survey.empty()) {
    field.faults.push_back(At(PlaceOfRow(file, row.line), batch_words::kNoSurvey));
  }
  field.content = hash.value();
  return field;
}

}  // namespace

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
    throw FieldTableFault(At(file_, fault));
  }
  if (!columns_) throw FieldTableFault(At(file_, batch_words::kNoFields));
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
