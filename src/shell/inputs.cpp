#include "shell/inputs.h"

#include <array>

#include "base/numbers.h"
#include "files/soils.h"
#include "input/info_fields.h"
#include "screen/survey_columns.h"

namespace torvale {
namespace {

constexpr std::array<std::string DesignRecord::*, kInputPlaces - kNamePlace> kFileNames = {
    &DesignRecord::SaveFileName, &DesignRecord::OpenedFileName, &DesignRecord::DisplayFileName};

constexpr std::array<std::string_view, kNamePlace - kBestPlace> kBestNames = {"Stretches of One Size", "Least Head",
                                                                              "Highest Head"};

std::size_t Index(int place, int first) {
  return static_cast<std::size_t>(place - first);
}

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

// The text of a place that is no cell of the sheet.
std::string TextAt(const Program& program, int place) {
  const MainScreen& main = program.main;
  if (place < kPreferencePlace) return main.txtInfo.at(Index(place, kInfoPlace)).text();
  if (place < kPipePlace) return main.txtDefault.at(Index(place, kPreferencePlace)).text();
  if (place == kPipePlace) return program.record.PipeKind;
  if (place == kHolesPlace) return HoleLines(main.listHolesSelected);
  if (place == kSoilPlace) return SoilText(main.listSoils);
  if (place < kNamePlace) return main.txtBest.at(Index(place, kBestPlace)).text();
  return program.record.*kFileNames.at(Index(place, kNamePlace));
}

const std::string& CellText(const Program& program, int place) {
  return program.main.Grid1.Text(place / kSurveyColumns + 1, place % kSurveyColumns);
}

// A sheet that is not laid out yet has no cells.
bool HasSheet(const Program& program) {
  const Grid& sheet = program.main.Grid1;
  return sheet.rows() == kSurveyGridRows && sheet.column_count() == kSurveyColumns;
}

void SetText(Program& program, int place, const std::string& text) {
  MainScreen& main = program.main;
  if (place < kSheetPlaces) {
    main.Grid1.Set(place / kSurveyColumns + 1, place % kSurveyColumns, text);
  } else if (place < kPreferencePlace) {
    main.txtInfo.at(Index(place, kInfoPlace)).Set(text);
  } else if (place < kPipePlace) {
    main.txtDefault.at(Index(place, kPreferencePlace)).Set(text);
  } else if (place == kPipePlace) {
    if (!text.empty()) SetPipeKind(program, text);
  } else if (place == kHolesPlace) {
    SetHoleLines(main.listHolesSelected, text);
  } else if (place == kSoilPlace) {
    ChooseSoil(program, text);
  } else if (place < kNamePlace) {
    main.txtBest.at(Index(place, kBestPlace)).Set(text);
  } else {
    program.record.*kFileNames.at(Index(place, kNamePlace)) = text;
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
    for (int place = 0; place < kSheetPlaces; ++place) {
      std::string& text = known[static_cast<std::size_t>(place)];
      if (text != CellText(program, place)) Note(changes, place, text, CellText(program, place));
    }
  }
  for (int place = kSheetPlaces; place < kInputPlaces; ++place) {
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
  for (int place = kInfoPlace; place < kNamePlace; ++place) {
    if (!control.empty() && control == ControlOfPlace(place)) return place;
  }
  return -1;
}

int ActivePlace(Program& program) {
  const std::string& focus = program.main.focus;
  const Grid& sheet = program.main.Grid1;
  if (focus == "Grid1") return sheet.row > 0 ? CellPlace(sheet.row, sheet.column) : -1;
  return focus.starts_with("txt") ? FieldPlace(focus) : -1;
}

std::string ControlOfPlace(int place) {
  if (place < kSheetPlaces) return "Grid1";
  if (place < kPreferencePlace) return "txtInfo(" + std::to_string(place - kInfoPlace) + ")";
  if (place < kPipePlace) return "txtDefault(" + std::to_string(place - kPreferencePlace) + ")";
  if (place >= kBestPlace && place < kNamePlace) return "txtBest(" + std::to_string(place - kBestPlace) + ")";
  return "";
}

std::string PlaceName(const Program& program, int place) {
  if (place < kSheetPlaces) {
    return "row " + std::to_string(place / kSurveyColumns + 1) + ", " + ColumnName(program, place % kSurveyColumns);
  }
  if (place < kPreferencePlace) return std::string(kInfoFacts.at(Index(place, kInfoPlace)).name);
  if (place < kPipePlace)
    return "Preferences, " + std::string(kPreferenceFacts.at(Index(place, kPreferencePlace)).name);
  if (place == kPipePlace) return "Type of Pipe";
  if (place == kHolesPlace) return "Selected Holes";
  if (place == kSoilPlace) return "Soil";
  return place < kNamePlace ? std::string(kBestNames.at(Index(place, kBestPlace))) : "file name";
}

}  // namespace torvale
