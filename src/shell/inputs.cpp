#include "shell/inputs.h"

#include <array>

#include "base/numbers.h"
#include "files/soils.h"
#include "input/info_fields.h"
#include "screen/survey_columns.h"

namespace torvale {
namespace {

constexpr std::array kFileNames = {&DesignRecord::SaveFileName, &DesignRecord::OpenedFileName,
                                   &DesignRecord::DisplayFileName};
static_assert(kFileNames.size() == kKindPlaces.back().count);

constexpr std::array<std::string_view, 3> kBestNames = {"Stretches of One Size", "Least Head", "Highest Head"};

std::string HoleLines(const ListBox& list) {
  std::string lines;
  for (int i = 0; i < list.count(); ++i) lines.append(list.Line(i)).append("\n");
  return lines;
}

void SetHoleLines(ListBox& list, std::string_view lines) {
  list.Clear();
  for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
    list.Add(lines.substr(0, end));
    lines.remove_prefix(end + 1);
  }
}

std::string SoilText(const ListBox& list) {
  return list.Current() < 0 ? "" : std::to_string(list.Current());
}

// A soil that the list does not have is none.
void ChooseSoil(Program& program, const std::string& text) {
  ListBox& list = program.main.listSoils;
  list.Deselect();
  program.main.lblRecFurrowFlow.caption.clear();
  if (text.empty()) return;
  list.Select(static_cast<int>(Val(text)), true);
  if (list.Current() >= 0) listSoils_Click(program);
}

const std::string& CellText(const Program& program, int place) {
  const SheetCell cell = CellAt(place);
  return program.main.Grid1.Text(cell.row, cell.column);
}

std::string TextAt(const Program& program, int place) {
  const MainScreen& main = program.main;
  const auto [kind, index] = KindAt(place);
  switch (kind) {
    case InputKind::kCell:
      return CellText(program, place);
    case InputKind::kInfoField:
      return main.txtInfo.at(index).text();
    case InputKind::kPreference:
      return main.txtDefault.at(index).text();
    case InputKind::kPipe:
      return program.record.PipeKind;
    case InputKind::kHoles:
      return HoleLines(main.listHolesSelected);
    case InputKind::kSoil:
      return SoilText(main.listSoils);
    case InputKind::kBestLimit:
      return main.txtBest.at(index).text();
    case InputKind::kFileName:
      return program.record.*kFileNames.at(index);
  }
  return "";
}

// A sheet that is not laid out yet has no cells.
bool HasSheet(const Program& program) {
  const Grid& sheet = program.main.Grid1;
  return sheet.rows() == kSurveyGridRows && sheet.column_count() == kSurveyColumns;
}

void SetCell(Grid& sheet, SheetCell cell, std::string_view text) {
  sheet.Set(cell.row, cell.column, text);
}

void SetText(Program& program, int place, const std::string& text) {
  MainScreen& main = program.main;
  const auto [kind, index] = KindAt(place);
  switch (kind) {
    case InputKind::kCell:
      return SetCell(main.Grid1, CellAt(place), text);
    case InputKind::kInfoField:
      return main.txtInfo.at(index).Set(text);
    case InputKind::kPreference:
      return main.txtDefault.at(index).Set(text);
    case InputKind::kPipe:
      return text.empty() ? void() : SetPipeKind(program, text);
    case InputKind::kHoles:
      return SetHoleLines(main.listHolesSelected, text);
    case InputKind::kSoil:
      return ChooseSoil(program, text);
    case InputKind::kBestLimit:
      return main.txtBest.at(index).Set(text);
    case InputKind::kFileName:
      program.record.*kFileNames.at(index) = text;
  }
}

void Note(std::vector<InputChange>& changes, int place, std::string& known, std::string now) {
  changes.push_back({place, std::move(known), now});
  known = std::move(now);
}

std::string_view UpTo(std::string_view text, std::string_view end) {
  return text.substr(0, text.find(end));
}

std::string ColumnName(const Program& program, int column) {
  const std::string_view name = SurveyFactsOf(column).in_undo;
  return std::string(name.empty() ? UpTo(program.main.Grid1.Text(0, column), " (") : name);
}

}  // namespace

InputTexts InputsOf(const Program& program) {
  InputTexts texts(kInputPlaces);
  std::uint64_t revision = ~program.main.Grid1.cells().revision();
  TakeInputChanges(program, texts, revision);
  return texts;
}

std::vector<InputChange> TakeInputChanges(const Program& program, InputTexts& known, std::uint64_t& sheet_revision) {
  std::vector<InputChange> changes;
  const std::uint64_t revision = program.main.Grid1.cells().revision();
  if (HasSheet(program) && revision != sheet_revision) {
    sheet_revision = revision;
    for (int place = 0; place < kCellPlaces; ++place) {
      std::string& text = known[static_cast<std::size_t>(place)];
      if (text != CellText(program, place)) Note(changes, place, text, CellText(program, place));
    }
  }
  for (int place = kCellPlaces; place < kInputPlaces; ++place) {
    std::string& text = known[static_cast<std::size_t>(place)];
    std::string now = TextAt(program, place);
    if (text != now) Note(changes, place, text, std::move(now));
  }
  return changes;
}

void SetInputs(Program& program, const std::vector<std::pair<int, std::string>>& texts) {
  for (const auto& [place, text] : texts) {
    try {
      SetText(program, place, text);
    } catch (const RunTimeFault&) {
      // The text stands; only what follows from it does not.
    }
  }
}

int FieldPlace(std::string_view control) {
  for (int place = kCellPlaces; place < kInputPlaces; ++place) {
    if (!control.empty() && control == ControlOfPlace(place)) return place;
  }
  return -1;
}

int ActivePlace(Program& program) {
  const std::string& focus = program.main.focus;
  const Grid& sheet = program.main.Grid1;
  if (focus == "Grid1") return sheet.row > 0 ? PlaceOfCell({sheet.row, sheet.column}) : -1;
  return FieldPlace(focus);
}

std::string ControlOfPlace(int place) {
  const auto [kind, index] = KindAt(place);
  const std::string behind = "(" + std::to_string(index) + ")";
  switch (kind) {
    case InputKind::kCell:
      return "Grid1";
    case InputKind::kInfoField:
      return "txtInfo" + behind;
    case InputKind::kPreference:
      return "txtDefault" + behind;
    case InputKind::kBestLimit:
      return "txtBest" + behind;
    default:
      return "";
  }
}

std::string PlaceName(const Program& program, int place) {
  const auto [kind, index] = KindAt(place);
  const SheetCell cell = CellAt(place);
  switch (kind) {
    case InputKind::kCell:
      return "row " + std::to_string(cell.row) + ", " + ColumnName(program, cell.column);
    case InputKind::kInfoField:
      return std::string(kInfoFacts.at(index).name);
    case InputKind::kPreference:
      return "Preferences, " + std::string(kPreferenceFacts.at(index).name);
    case InputKind::kPipe:
      return "Type of Pipe";
    case InputKind::kHoles:
      return "Selected Holes";
    case InputKind::kSoil:
      return "Soil";
    case InputKind::kBestLimit:
      return std::string(kBestNames.at(index));
    case InputKind::kFileName:
      return "file name";
  }
  return "";
}

}  // namespace torvale
